// TraceSockets: sockets that tell every frame that passes.
#pragma once

#include <functional>
#include <string>

#include "platform/pump.h"
#include "platform/sockets.h"

namespace counter {

// Both kinds tell a line a frame, see trace_line.h; each arrival is a frame.
class TraceSockets {
  public:
    using Sink = std::function<void(const std::string& line)>;

    TraceSockets(Sockets inner, const Pump& pump, Sink sink);
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

      private:
        TraceSockets& all_;
    };

    Sockets inner_;
    const Pump& pump_;
    Sink sink_;
    double startMs_;
    Udp udp_{*this};
    Tcp tcp_{*this};
};

}  // namespace counter
