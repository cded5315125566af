// What Settings.SSS says, for what must be known before a port is opened or a node called, and without
// either.
#pragma once

#include <optional>
#include <string>

#include "cli/cli.h"
#include "settings/settings.h"

namespace counter {

// Settings.SSS in the program folder.
std::string SettingsPath(const CommandCall& call);

// Nothing where the file can't be read.
std::optional<Settings> ReadStoredSettings(const CommandCall& call);

// Of a file that can't be read, settings of a Custom ASCII line. Whoever opens the link tells what is wrong
// with the file.
Settings StoredSettings(const CommandCall& call);

}  // namespace counter
