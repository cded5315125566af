#include "cli/differences.h"

#include <algorithm>

#include "meter/field_value.h"

namespace counter {

namespace {

Json DifferenceJson(const SetupImage& a, const SetupImage& b, const FieldDifference& difference) {
    const FieldRow& row = RowOf(difference.Which);
    Json valueA = FieldJson(a, row.Handle);
    Json valueB = FieldJson(b, row.Handle);
    if (valueA == valueB) {
        valueA = Utf8(FieldDigits(a, row.Handle));
        valueB = Utf8(FieldDigits(b, row.Handle));
    }
    return {{"field", std::string(row.Name)},
            {"position", row.Pos},
            {"a", valueA},
            {"b", valueB},
            {"counts", difference.Counts()}};
}

std::string Table(const Json& list, bool counts, const std::string& nameA, const std::string& nameB) {
    std::vector<std::vector<std::string>> lines = {{"Position", "Field", nameA, nameB}};
    for (const Json& line : list) {
        if (line["counts"] != counts) continue;
        lines.push_back({PlainText(line["position"]), PlainText(line["field"]), PlainText(line["a"]),
                         PlainText(line["b"])});
    }
    return lines.size() == 1 ? std::string() : Columns(lines);
}

}  // namespace

std::string PlainText(const Json& value) {
    return value.is_string() ? value.get<std::string>() : value.dump();
}

Json DifferencesJson(const SetupImage& a, const SetupImage& b,
                     const std::vector<FieldDifference>& differences) {
    Json list = Json::array();
    for (const FieldDifference& difference : differences) list.push_back(DifferenceJson(a, b, difference));
    return list;
}

bool AnyCounts(const Json& list) {
    return std::any_of(list.begin(), list.end(), [](const Json& line) { return line["counts"] == true; });
}

std::string DifferencesTable(const Json& list, const std::string& nameA, const std::string& nameB) {
    std::string text = Table(list, true, nameA, nameB);
    if (text.empty()) text = "No field differs.\n";
    const std::string apart = Table(list, false, nameA, nameB);
    if (!apart.empty()) text += "Not counted: the meter's own, or not written over this link\n" + apart;
    return text;
}

}  // namespace counter
