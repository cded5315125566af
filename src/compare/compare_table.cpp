#include "compare/compare_table.h"

#include "meter/text.h"

namespace counter {

namespace {

std::string CsvCell(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
}

std::string Line(const std::vector<std::string>& cells, char between, const char* end) {
    std::string line;
    for (const std::string& cell : cells) line += (line.empty() ? "" : std::string(1, between)) + cell;
    return line + end;
}

}  // namespace

std::vector<std::string> CellsOf(const FieldDifference& row) {
    return {std::to_string(row.Position), std::string(Trimmed(row.Name)), Printable(row.A.Text),
            Printable(row.B.Text), std::string(StandingName(row.Stands))};
}

std::string CompareCsv(const std::vector<FieldPair>& rows) {
    std::string text = "field,position,a,b,counts,standing\r\n";
    for (const FieldPair& row : rows) {
        const std::vector<std::string> cells = CellsOf(row);
        text += Line({CsvCell(cells[1]), cells[0], CsvCell(cells[2]), CsvCell(cells[3]),
                      row.Counts() ? "true" : "false", cells[4]},
                     ',', "\r\n");
    }
    return text;
}

std::string CompareText(const std::vector<FieldPair>& rows) {
    std::string text = Line({std::begin(kCompareHeadings), std::end(kCompareHeadings)}, '\t', "\n");
    for (const FieldPair& row : rows) text += Line(CellsOf(row), '\t', "\n");
    return text;
}

}  // namespace counter
