// Tables as text: cells between commas or semicolons, in quotes where they hold such a mark, a quote
// (doubled) or the end of a line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sim {

struct CsvRow {
    int Line = 1;  // of the text, where the row begins, counted from 1
    std::vector<std::string> Cells;
};

// Rows without a character are left out, so is a byte order mark. The mark between cells is the semicolon
// where the first line has one. Empty text, or what is wrong with line and column.
std::string ReadCsv(std::string_view text, std::vector<CsvRow>& rows);

// "line 3, column 2"
std::string CsvPlace(int line, std::size_t column);

}  // namespace sim
