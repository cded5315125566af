// Differences of two setups as a page of text.
#pragma once

#include <string>
#include <vector>

#include "transfer/compare_setups.h"

namespace counter {

using Differences = std::vector<FieldDifference>;

bool AnyCounts(const Differences& differences);

// The differences that count, then apart from them those that do not; or that there are none. Printable text
// in UTF-8.
std::string DifferencesTable(const Differences& differences, const std::string& nameA,
                             const std::string& nameB);

}  // namespace counter
