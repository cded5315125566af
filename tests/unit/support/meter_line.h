// MeterLine: the tool's serial port with the simulated meter at its other end, on the virtual clock.
#pragma once

#include <string>
#include <vector>

#include "platform/serial_port.h"
#include "sim/meter.h"
#include "support/virtual_pump.h"

namespace counter::test {

class MeterLine : public SerialPort {
  public:
    MeterLine(VirtualPump& pump, sim::MeterOptions options);

    sim::Meter& Meter() { return meter_; }
    // Bytes that reach the tool though no meter sent them.
    void Inject(std::string_view bytes) {
        input_ += bytes;
        TellArrived();
    }
    void InjectAfter(double ms, const std::string& bytes) {
        pump_.After(ms, [this, bytes] { Inject(bytes); });
    }
    // Another thing at the end of the line than the meter: what is sent goes nowhere.
    void Unplug() { plugged_ = false; }
    void Plug() { plugged_ = true; }
    void GoAway() { faulted_ = true; }
    Status NextOpen;  // how the next opening ends

    const std::vector<std::string>& Sent() const { return sent_; }
    const std::vector<std::string>& Calls() const { return calls_; }  // of the port operations
    // For long runs: what was sent, called and heard so far takes no more room.
    void Forget() {
        sent_.clear();
        calls_.clear();
        meter_.ClearCommands();
    }

    void SetCommPort(int number) override { calls_.push_back("CommPort " + std::to_string(number)); }
    Status SetSettings(std::string_view text) override;
    Status Open() override;
    void Close() override;
    bool PortOpen() const override { return open_; }
    void SetDtrEnable(bool on) override { calls_.push_back(on ? "DTR on" : "DTR off"); }
    void SetRtsEnable(bool on) override { calls_.push_back(on ? "RTS on" : "RTS off"); }
    void SetHandshaking(int) override { calls_.push_back("Handshaking"); }
    std::size_t InBufferCount() override { return input_.size(); }
    std::string Input() override;
    void Output(std::string_view bytes) override;
    std::size_t OutBufferCount() override { return 0; }
    bool Faulted() const override { return !open_ || faulted_; }

  private:
    void Take(double nowMs);

    VirtualPump& pump_;
    sim::Meter meter_;
    bool plugged_ = true;
    bool open_ = false;
    bool faulted_ = false;
    std::string input_;
    std::vector<std::string> sent_;
    std::vector<std::string> calls_;
};

}  // namespace counter::test
