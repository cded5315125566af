// The fields in which two setups differ, as JSON and as a table.
#pragma once

#include <string>
#include <vector>

#include "cli/cli_output.h"
#include "transfer/compare_setups.h"

namespace counter {

// [{"field", "position", "a", "b", "counts"}]. Values of the same text that are stored differently are told
// by their digits.
Json DifferencesJson(const SetupImage& a, const SetupImage& b,
                     const std::vector<FieldDifference>& differences);

// A text without quotes, a number as it is written.
std::string PlainText(const Json& value);

// True where a difference of the list counts.
bool AnyCounts(const Json& list);

// The differences that count, then apart from them those that do not; or that there are none.
std::string DifferencesTable(const Json& list, const std::string& nameA, const std::string& nameB);

}  // namespace counter
