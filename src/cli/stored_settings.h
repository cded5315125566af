// What Settings.SSS says about the link, for what must be known before a port is opened or a node called.
#pragma once

#include "cli/cli.h"
#include "settings/settings.h"

namespace counter {

// The settings of the program folder; of a file that can't be read, settings of a Custom ASCII line. Whoever
// opens the link tells what is wrong with the file.
Settings StoredSettings(const CommandCall& call);

}  // namespace counter
