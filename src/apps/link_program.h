// counter-link, from its arguments to its exit status.
#pragma once

namespace counter {

int RunLinkProgram(int argc, char** argv);

}  // namespace counter
