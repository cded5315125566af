// Who works here, for reports.
#pragma once

#include <string>

namespace counter {

// "user@host"; a number where the system has no name for the user.
std::string UserAtHost();

}  // namespace counter
