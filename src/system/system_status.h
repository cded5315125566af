// A Status out of the system's error number.
#pragma once

#include <string>

#include "platform/status.h"

namespace counter {

// `error` is an errno value other than 0; the reason is the system's text for it, such as "Permission
// denied".
Status SystemStatus(const std::string& path, int error);

}  // namespace counter
