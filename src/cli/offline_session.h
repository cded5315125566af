// OfflineSession: a session for a command that works on a setup file without a meter.
//
// No machine is made: the port is never open, and waits pass at once, as nothing can arrive.
#pragma once

#include <functional>
#include <string>

#include "cli/cli.h"
#include "cli/cli_files.h"
#include "cli/link_session.h"
#include "session/session.h"

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

class OfflineSession {
  public:
    explicit OfflineSession(const CommandCall& call);

    // Takes the image over, and the settings of the program folder as the desktop tool does at its start, but
    // for the port. Without settings there is no link, and the meter is the one that the image names.
    // Settings of another program end this one.
    void Begin(const SetupImage& image);
    // The image counts as the result of a good Get Setup, which over Custom ASCII tells the meter's kind and
    // version; over Modbus they stay those of the settings.
    void ImageIsFromMeter();

    // Writes what the view has changed of the settings: only once the run is known to be good.
    Status WriteHeld();

    Session& Program() { return session_; }
    JumpingPump& Pump() { return pump_; }
    Json Messages() const { return dialogs_.Messages(); }

  private:
    void TakeIdentityOfImage();

    const CommandCall& call_;
    SettingsLines read_;  // the settings as they were at the begin
    JumpingPump pump_;
    ClosedPort port_;
    LineDialogs dialogs_;
    HeldFiles files_;
    Session session_;
};

}  // namespace counter
