// What each meter of a table should hold: its row's setup file with the row's values entered as a user of the
// Setup view would. All in memory: nothing is opened but the files.
#pragma once

#include <functional>
#include <vector>

#include "cli/cli.h"
#include "fleet/table_places.h"

namespace counter {

struct FleetSetups {
    std::vector<PlannedMeter> Meters;
    std::vector<TableFault> Faults;  // in the order of the rows
};

// `needed`: a row without a setup file is a fault; otherwise such a meter is one of the default setup. A
// message of the view that ends the program ends this one, after `tell` was called with what was found so
// far.
FleetSetups WorkOutSetups(const CommandCall& call, const std::vector<TableMeter>& meters, bool needed,
                          const std::function<void(const std::vector<TableFault>&)>& tell);

}  // namespace counter
