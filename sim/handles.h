// What the line and the sockets share: handles of the system.
#pragma once

#include <unistd.h>

namespace sim {

// -1 afterwards; again is nothing.
inline void CloseHandleOf(int& handle) {
    if (handle >= 0) close(handle);
    handle = -1;
}

}  // namespace sim
