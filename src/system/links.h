// Symbolic links, followed to their end.
#pragma once

#include <string>

namespace counter {

// The path at the end of all links, absolute where it exists. A link whose target is missing gives the path
// of what is missing; links that go round in a circle give `path` itself.
std::string FollowLinks(const std::string& path);

}  // namespace counter
