// The fields in which two setups differ, as JSON and as a table.
#pragma once

#include <string>
#include <vector>

#include "cli/cli_output.h"
#include "transfer/compare_setups.h"

namespace counter {

using Differences = std::vector<FieldDifference>;

// [{"field", "position", "a", "b", "counts"}]
Json DifferencesJson(const Differences& differences);

bool AnyCounts(const Differences& differences);

// The differences that count, then apart from them those that do not; or that there are none.
std::string DifferencesTable(const Differences& differences, const std::string& nameA,
                             const std::string& nameB);

}  // namespace counter
