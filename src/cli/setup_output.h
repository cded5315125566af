// The Setup view as it is, as JSON and as a page of text.
#pragma once

#include <string>

#include "cli/cli_output.h"
#include "cli/setup_run.h"

namespace counter {

// {"tab", "tabs", "controls", "values", "messages", "ended", "setup"}
Json SetupJson(SetupRun& run);

// Tab by tab and frame by frame, what is visible; a line for each control.
std::string SetupText(SetupRun& run);

}  // namespace counter
