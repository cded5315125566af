// The desktop tool, from its arguments to its exit status.
#pragma once

namespace counter {

int RunSetupProgram(int argc, char** argv);

}  // namespace counter
