#include "meter/columns.h"

#include <algorithm>

namespace counter {

std::string Columns(const std::vector<std::vector<std::string>>& lines) {
    std::vector<std::size_t> widths;
    for (const auto& line : lines) {
        widths.resize(std::max(widths.size(), line.size()));
        for (std::size_t i = 0; i < line.size(); ++i) widths[i] = std::max(widths[i], line[i].size());
    }
    std::string text;
    for (const auto& line : lines) {
        std::string row;
        for (std::size_t i = 0; i < line.size(); ++i) {
            row += line[i];
            if (i + 1 < line.size()) row += std::string(widths[i] - line[i].size() + 2, ' ');
        }
        row.erase(row.find_last_not_of(' ') + 1);
        text += row + "\n";
    }
    return text;
}

}  // namespace counter
