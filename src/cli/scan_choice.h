// What the options of scan choose.
#pragma once

#include <string>

#include "cli/cli.h"
#include "shell/line_scan.h"

namespace counter {

// Custom ASCII and Modbus RTU at 9600 and 19200 baud, addresses 1 to 31, unless options say otherwise; all
// there is with --all. Empty, or what is wrong and what is legal.
std::string TakeScanChoice(const CommandCall& call, ScanChoice& choice);

// "ascii", "rtu", "modbus-ascii": as a table of meters has it.
std::string_view ProtocolWord(int serialProtocol);

}  // namespace counter
