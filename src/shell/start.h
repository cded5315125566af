// Start: from nothing to a session that is ready for its first view.
#pragma once

#include "platform/status.h"
#include "session/session.h"

namespace counter {

// Reads the settings and opens the port that they name; decides once which Modbus check the meter uses, by
// the version in the settings as they stand now; sets the image to 260 zeros. A file or port that can't be
// opened is told by the status; the session can be worked with all the same.
Status Start(Session& session);

}  // namespace counter
