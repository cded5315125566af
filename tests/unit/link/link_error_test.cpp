// The numbers of LinkError in words, and the tables of the docs that tell them.
#include "link/link_error.h"

#include <gtest/gtest.h>

#include <cctype>
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
    std::ifstream file(SOURCE_FOLDER "/docs/when-something-fails.md");
    for (std::string line; std::getline(file, line);) {
        const Cells cells = CellsOf(line);
        if (!cells.empty() && cells[0].find_first_not_of("0123456789") == std::string::npos)
            tables[cells.size()].push_back(cells);
    }
    return tables;
}

TEST(LinkErrorWords, TheDocsTellThem) {
    std::ifstream page(SOURCE_FOLDER "/docs/when-something-fails.md");
    int told = 0;
    for (std::string line, empty; std::getline(page, line);) {
        if (!line.starts_with("### 2")) continue;
        std::string meaning = LinkErrorMeaning(std::stoi(line.substr(4))) + ". **First: ";
        meaning[0] = static_cast<char>(std::toupper(meaning[0]));
        std::getline(page, empty);
        std::getline(page, line);
        EXPECT_TRUE(line.starts_with(meaning)) << line;
        ++told;
    }
    EXPECT_EQ(told, 8) << "the line's own";

    const auto tables = TablesOfNumbers();
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
