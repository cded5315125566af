// The action Get Setup: the meter's setup into memory, with status line and progress bar.
#pragma once

#include "session/session.h"

namespace counter {

enum class GetEnd {
    Done,
    Failed,
    Cancelled,  // by HomeState::CancelTransfers: setup, identity and LinkError are as before it
};

// Ends with LinkError 0, SetupFromMeter true and the entries that need a setup enabled; or with the failure
// and its number on the status line. A meter that is a "Remote A" display gets a note shown.
GetEnd GetSetup(Session& session);

}  // namespace counter
