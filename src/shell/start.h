// Start: from nothing to a session that is ready for its first view.
#pragma once

#include "platform/status.h"
#include "session/session.h"

namespace counter {

// Reads the settings and opens the port that they name; decides once which Modbus check the meter uses, by
// the version in the settings as they are now; sets the image to 260 zeros. Through a
// node the login (LogIntoNode) is still to come then. A file or port that can't be
// opened is told by the status; the session can be worked with all the same.
Status Start(Session& session);

// What tells that no node has called back, in a message box or on standard error.
inline constexpr const char* kNoNodeCall = "Ethernet connection interrupted. Restart program.";

struct FollowedSettings {
    bool Changed = false;
    Status Opened;  // of bringing the link up as they are now
};

// Takes over what another program has changed in Settings.SSS since it was read, the port included. A file
// that can't be read now leaves all as it was.
FollowedSettings FollowSettings(Session& session);

// A serial line that went away may be there again: an adaptor that was plugged back in. It is opened once;
// false where that fails, and LineTrouble says why. Nothing is done to a line that is there, nor where there
// is none.
bool ReopenLine(Session& session);

// Through a node: asks it to call back, 40 seconds at most, with a check that is picked at random. The status
// is of the two ports that this takes; whether the node has called, session.Node.Connected() tells.
Status LogIntoNode(Session& session);

}  // namespace counter
