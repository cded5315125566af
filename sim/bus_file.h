// Bus files: a table says which meters share a line.
//
// Columns are named as the options of counter-sim that say which meter it is, without their dashes, and an
// empty cell is an option that isn't given. Options that can be given several times (fault, set, live) stand
// in one cell between blanks, or in columns of one name. Besides there are
//
//     name      how the meter is called where the program tells of it; its address, two digits, unless told
//     image     a file of 260 digits, from the folder of the table
//     address   in the protocol that the meter speaks: over Modbus it is that of --modbus-address
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "sim/bus.h"

namespace sim {

// Rows begin as `defaults`. Returns all that is wrong, each with line and column; `meters` is then of no use.
std::vector<std::string> ParseBusTable(std::string_view text, const std::string& folder,
                                       const BusMeter& defaults, std::vector<BusMeter>& meters);

// The same of a file, whose name stands before each.
std::vector<std::string> ReadBusFile(const std::string& path, const BusMeter& defaults,
                                     std::vector<BusMeter>& meters);

}  // namespace sim
