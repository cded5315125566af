// A comparison as lines of text: for a spreadsheet, and for the clipboard.
#pragma once

#include <string>
#include <vector>

#include "transfer/compare_setups.h"

namespace counter {

// The cells of a row as they are shown: position, field, in memory, other, standing. Printable, in UTF-8.
std::vector<std::string> CellsOf(const FieldDifference& row);

// The columns of `counterctl --json diff`, and the standing: field, position, a, b, counts, standing. By RFC
// 4180: lines end in CR LF, cells with commas, quotes or line ends are quoted.
std::string CompareCsv(const std::vector<FieldPair>& rows);

// Cells with tabs between them, the headings first.
std::string CompareText(const std::vector<FieldPair>& rows);

inline constexpr std::string_view kCompareHeadings[] = {"Position", "Field", "In memory", "Other",
                                                        "A Put over this link"};

}  // namespace counter
