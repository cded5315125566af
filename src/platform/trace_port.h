// TracePort: a port that tells every frame that passes.
#pragma once

#include <functional>
#include <string>

#include "platform/pump.h"
#include "platform/serial_port.h"

namespace counter {

// A line a frame: milliseconds since the trace began, ">" sent or "<" received, the bytes in hexadecimal,
// then the same bytes as text with a "." for what can't be printed. Bytes that arrive one after the other
// are one frame until something is sent; Flush tells a frame that is still open. While somebody listens to
// arriving input, as in the reading stream, each arrival is a frame.
class TracePort : public SerialPort {
  public:
    using Sink = std::function<void(const std::string& line)>;

    TracePort(SerialPort& inner, const Pump& pump, Sink sink);
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

  private:
    void PassArrival();
    void Tell(double atMs, char direction, std::string_view bytes);

    SerialPort& inner_;
    const Pump& pump_;
    Sink sink_;
    double startMs_;
    std::string received_;
    double receivedAtMs_ = 0;
};

}  // namespace counter
