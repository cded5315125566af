// The options that say which meter is simulated, on the command line and as columns of a bus file.
#pragma once

#include <CLI/CLI.hpp>

#include "sim/options.h"

namespace sim {

// Parsing changes what is given alone; `meter` must live as long as `app`.
void AddMeterOptions(CLI::App& app, MeterOptions& meter);

}  // namespace sim
