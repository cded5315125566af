// The numbers of LinkError in words, and the tables of the docs that tell them.
#include "link/link_error.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <vector>

namespace counter::test {
namespace {

using Cells = std::vector<std::string>;

Cells CellsOf(const std::string& line) {
    Cells cells;
    for (std::size_t at = line.find('|'); at + 1 < line.size();) {
        const std::size_t end = line.find('|', at + 1);
        if (end == std::string::npos) break;
        const std::string cell = line.substr(at + 1, end - at - 1);
        const std::size_t first = cell.find_first_not_of(' ');
        cells.push_back(
            first == std::string::npos ? "" : cell.substr(first, cell.find_last_not_of(' ') - first + 1));
        at = end;
    }
    return cells;
}

// Rows whose first cell is a number, by how many cells they have.
std::map<std::size_t, std::vector<Cells>> TablesOfNumbers() {
    std::map<std::size_t, std::vector<Cells>> tables;
    std::ifstream file(SOURCE_FOLDER "/docs/first-session-meter.md");
    for (std::string line; std::getline(file, line);) {
        const Cells cells = CellsOf(line);
        if (!cells.empty() && cells[0].find_first_not_of("0123456789") == std::string::npos)
            tables[cells.size()].push_back(cells);
    }
    return tables;
}

TEST(LinkErrorWords, TheDocsTellThem) {
    const auto tables = TablesOfNumbers();
    ASSERT_EQ(tables.at(3).size(), 8U) << "the line's own";
    for (const Cells& row : tables.at(3)) EXPECT_EQ(row[1], LinkErrorMeaning(std::stoi(row[0])));

    constexpr ErrorSource kColumns[] = {
        ErrorSource::GetAscii,    ErrorSource::GetModbus, ErrorSource::PutModbus, ErrorSource::Reading,
        ErrorSource::Calibration, ErrorSource::Curve,     ErrorSource::Refusal};
    std::map<int, Cells> rows;
    for (const Cells& row : tables.at(8)) rows[std::stoi(row[0])] = row;
    for (int number = 1; number < 20; ++number) {
        for (std::size_t column = 1; column <= std::size(kColumns); ++column) {
            const bool refused = kColumns[column - 1] == ErrorSource::Refusal;
            const std::string cell = rows.contains(number) ? rows[number][column] : "";
            const std::string code = std::to_string(number);
            const std::string wanted = refused ? "the meter refused" + (cell.empty() ? "" : ": " + cell) +
                                                     " (exception " + code + ")"
                                       : cell.empty()                         ? LinkErrorMeaning(number)
                                       : cell.find(": ") != std::string::npos ? cell
                                                                              : cell + ": wrong length";
            EXPECT_EQ(LinkErrorMeaning(number, kColumns[column - 1]), wanted)
                << number << " column " << column;
        }
    }
}

}  // namespace
}  // namespace counter::test
