// First start: what the desktop tool does where there are no settings yet, which it never makes itself.
#pragma once

#include "desktop/kit/qt_dialogs.h"
#include "platform/status.h"
#include "session/session.h"

namespace counter {

// Set for a counter-link that this program has started and waits for.
inline constexpr const char* kSetupWaits = "COUNTER_SETUP_WAITS";

// Starts the session. Where there are no settings the user has three ways: counter-link, which finds a meter
// and lays them down, the simulated meter, or files alone, without settings. Where they can't be read he is
// told so and offered counter-link. A user who wants none of it ends the process. The status is of the
// settings and the port, which may still be unusable: the program goes on without a link. `fileGiven`: a
// setup is opened after it.
Status StartWithSettings(Session& session, QtDialogs& dialogs, bool fileGiven = false);

}  // namespace counter
