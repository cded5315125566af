// OfflineSession: a session for a command that works on a setup file without a meter.
//
// No machine is made: the port is never open, and waits pass at once, as nothing can arrive.
#pragma once

#include "cli/cli.h"
#include "cli/cli_files.h"
#include "cli/link_session.h"
#include "offline/no_machine.h"
#include "session/session.h"

namespace counter {

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
