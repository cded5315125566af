// The help texts of counterctl, made from its table of commands.
#pragma once

#include <string>

#include "cli/command_table.h"

namespace counter {

// `bold`: headings are in bold, for a terminal.
std::string HelpOfAll(bool bold);
std::string HelpOf(const CommandRow& row, bool bold);

}  // namespace counter
