#include "transfer/difference_table.h"

#include <algorithm>

#include "meter/columns.h"
#include "meter/text.h"

namespace counter {

namespace {

std::string Table(const Differences& differences, bool counts, const std::string& nameA,
                  const std::string& nameB) {
    std::vector<std::vector<std::string>> lines = {{"Position", "Field", nameA, nameB}};
    for (const FieldDifference& difference : differences) {
        if (difference.Counts() != counts) continue;
        lines.push_back({std::to_string(difference.Position), std::string(difference.Name),
                         Printable(difference.A.Text), Printable(difference.B.Text)});
    }
    return lines.size() == 1 ? std::string() : Columns(lines);
}

}  // namespace

bool AnyCounts(const Differences& differences) {
    return std::any_of(differences.begin(), differences.end(),
                       [](const FieldDifference& difference) { return difference.Counts(); });
}

std::string DifferencesTable(const Differences& differences, const std::string& nameA,
                             const std::string& nameB) {
    std::string text = Table(differences, true, nameA, nameB);
    if (text.empty()) text = "No field differs.\n";
    const std::string apart = Table(differences, false, nameA, nameB);
    if (!apart.empty()) text += "Not counted: the meter's own, or not written over this link\n" + apart;
    return text;
}

}  // namespace counter
