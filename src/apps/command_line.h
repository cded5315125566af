// What counterctl and the program of its recording commands have in common: the world of a command line on
// the real machine.
#pragma once

#include "cli/cli_world.h"

namespace counter {

// Runs the command line; the exit status.
int RunCommandLine(int argc, char** argv, const RecordingCommands& recording, const SheetMaking& sheets = {});

}  // namespace counter
