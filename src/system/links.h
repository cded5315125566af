// Symbolic links, followed to their end.
#pragma once

#include <string>

namespace counter {

// As FileReader promises it.
std::string FollowLinks(const std::string& path);

}  // namespace counter
