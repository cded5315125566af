// A machine that is not there, for a session without a meter: nothing can arrive, and waits pass at once.
#pragma once

#include <functional>
#include <string>

#include "platform/pump.h"
#include "platform/serial_port.h"

namespace counter {

// A clock that jumps to the deadline of each wait.
class JumpingPump : public Pump {
  public:
    double NowMs() const override { return nowMs_; }
    WallTime LocalTime() const override { return {}; }
    // Whoever runs the command tells what was there at the end, and ends the process.
    [[noreturn]] void EndProcess(int status) override;
    std::function<void()> OnEnd;  // does not return

    // Called in each turn of a wait, before the clock jumps; may be empty.
    std::function<void()> OnTurn;

  protected:
    void RunEvents(double deadlineMs) override;

  private:
    double nowMs_ = 0;
};

// A port that takes what it is told and is never open: to read the settings over it opens nothing.
class ClosedPort : public SerialPort {
  public:
    void SetCommPort(int) override {}
    Status SetSettings(std::string_view) override { return {}; }
    Status Open() override { return {}; }
    void Close() override {}
    bool PortOpen() const override { return false; }
    void SetDtrEnable(bool) override {}
    void SetRtsEnable(bool) override {}
    void SetHandshaking(int) override {}
    std::size_t InBufferCount() override { return 0; }
    std::string Input() override { return {}; }
    void Output(std::string_view) override {}
    std::size_t OutBufferCount() override { return 0; }
    bool Faulted() const override { return true; }
};

}  // namespace counter
