// The fields in which two setups differ, as JSON.
#pragma once

#include "cli/cli_output.h"
#include "transfer/difference_table.h"

namespace counter {

// [{"field", "position", "a", "b", "counts"}]
Json DifferencesJson(const Differences& differences);

}  // namespace counter
