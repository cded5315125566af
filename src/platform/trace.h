// Traces: a port and sockets that tell every frame that passes.
//
// A line a frame: milliseconds since the trace began, ">" sent or "<" received, the bytes in hexadecimal,
// then the same bytes as text with a "." for what can't be printed.
#pragma once

#include <functional>
#include <string>

#include "platform/pump.h"
#include "platform/serial_port.h"
#include "platform/sockets.h"

namespace counter {

using TraceSink = std::function<void(const std::string& line)>;

// Bytes that arrive one after the other are one frame until something is sent; Flush tells a frame that is
// still open. While somebody listens to arriving input, as in the reading stream, each arrival is a frame.
class TracePort : public SerialPort {
  public:
    TracePort(SerialPort& inner, const Pump& pump, TraceSink sink);
    ~TracePort() override { inner_.Arrived = nullptr; }
    void Flush();

    void SetCommPort(int number) override { inner_.SetCommPort(number); }
    Status SetSettings(std::string_view text) override { return inner_.SetSettings(text); }
    Status Open() override { return inner_.Open(); }
    void Close() override;
    bool PortOpen() const override { return inner_.PortOpen(); }
    void SetDtrEnable(bool on) override { inner_.SetDtrEnable(on); }
    void SetRtsEnable(bool on) override { inner_.SetRtsEnable(on); }
    void SetHandshaking(int kind) override { inner_.SetHandshaking(kind); }
    std::size_t InBufferCount() override { return inner_.InBufferCount(); }
    std::string Input() override;
    void Output(std::string_view bytes) override;
    std::size_t OutBufferCount() override { return inner_.OutBufferCount(); }
    bool Faulted() const override { return inner_.Faulted(); }
    std::string SpeedSetBy() const override { return inner_.SpeedSetBy(); }

  private:
    void PassArrival();
    void Tell(double atMs, char direction, std::string_view bytes);

    SerialPort& inner_;
    const Pump& pump_;
    TraceSink sink_;
    double startMs_;
    std::string received_;
    double receivedAtMs_ = 0;
};

// Sockets of both kinds that tell every frame that passes; each arrival is a frame.
class TraceSockets {
  public:
    TraceSockets(Sockets inner, const Pump& pump, TraceSink sink);
    Sockets Both() { return {udp_, tcp_}; }

  private:
    void Tell(char direction, std::string_view bytes);

    class Udp : public UdpSocket {
      public:
        explicit Udp(TraceSockets& all) : all_(all) {}
        Status Bind(int localPort) override { return all_.inner_.Udp.Bind(localPort); }
        void Send(const std::string& host, int port, std::string_view bytes) override;
        void Close() override { all_.inner_.Udp.Close(); }

      private:
        TraceSockets& all_;
    };

    class Tcp : public TcpSocket {
      public:
        explicit Tcp(TraceSockets& all);
        ~Tcp() override { all_.inner_.Tcp.Arrived = nullptr; }
        Status Listen(int localPort) override { return all_.inner_.Tcp.Listen(localPort); }
        SocketState State() const override { return all_.inner_.Tcp.State(); }
        void Send(std::string_view bytes) override;
        void Close() override { all_.inner_.Tcp.Close(); }
        std::size_t Unacknowledged() const override { return all_.inner_.Tcp.Unacknowledged(); }
        std::string Caller() const override { return all_.inner_.Tcp.Caller(); }

      private:
        TraceSockets& all_;
    };

    Sockets inner_;
    const Pump& pump_;
    TraceSink sink_;
    double startMs_;
    Udp udp_{*this};
    Tcp tcp_{*this};
};

}  // namespace counter
