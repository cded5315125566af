// Tables as text, as spreadsheets write them: RFC 4180 in UTF-8, with comma or semicolon between the cells.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace counter {

struct CsvTable {
    std::vector<std::vector<std::string>> Rows;  // the first is the heading
    char Separator = ',';
    // What keeps the text from being a table, and the row in which it shows, counted from 1 as spreadsheets
    // do. Empty where all was read.
    std::string Fault;
    int FaultRow = 0;
};

// Which separator there is, the heading decides: the one that stands there more often. A byte order mark in
// front is skipped; a line ends with LF or CR LF, and the last one may have no end. A cell in quotes may hold
// separators, line ends and quotes, these doubled. A quote anywhere else is a fault, and so is what is not
// UTF-8 and a NUL.
CsvTable ReadCsv(std::string_view text);

}  // namespace counter
