// The action Put Setup: the image into the meter, with board check, status line and progress bar.
#pragma once

#include "platform/status.h"
#include "session/session.h"

namespace counter {

// The status line of a Put of which every frame went out.
inline constexpr const char* kPutAppearsDone =
    "Putting data to the Counter.  Data appears to have Transferred O.K.";

// Ends with LinkError 0 or the failure and its number on the status line. A board that the setup was not made
// for is warned about, and the transfer goes on. The status returned is of Settings.SSS and the port, which
// follow the image after a good Put: not good means that they could not.
Status PutSetup(Session& session);

}  // namespace counter
