// The action Verify: whether the meter holds the setup in memory.
#pragma once

#include <string>

#include "session/session.h"

namespace counter {

struct Verification {
    bool Holds = false;  // the meter was read, and all that a Put over this link writes is as in memory
    std::string Report;  // the fields that differ, as a page of text; empty: none, or the meter was not read
};

// Reads the meter aside and compares it with what was in memory at the start; the status line tells the end.
// Image, derived values, identity, settings and backups stay as they are. `afterPut`: a good end leaves the
// line of the Put and adds to it.
Verification VerifySetup(Session& session, bool afterPut = false);

}  // namespace counter
