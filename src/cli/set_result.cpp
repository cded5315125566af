#include "cli/set_result.h"

#include <algorithm>

namespace counter {

namespace {

bool SharesBits(const FieldRow& a, const FieldRow& b) {
    const bool sameDigits = a.Pos < b.Pos + b.Digits && b.Pos < a.Pos + a.Digits;
    return sameDigits && a.LoBit <= b.HiBit && b.LoBit <= a.HiBit;
}

bool IsAssigned(const FieldRow& row, const std::vector<FieldAssignment>& assignments) {
    return std::any_of(assignments.begin(), assignments.end(),
                       [&](const FieldAssignment& assignment) { return assignment.Which == row.Handle; });
}

bool SharesBitsWithOne(const FieldRow& row, const std::vector<FieldAssignment>& assignments) {
    return std::any_of(assignments.begin(), assignments.end(), [&](const FieldAssignment& assignment) {
        return assignment.Which && SharesBits(row, RowOf(*assignment.Which));
    });
}

bool Differs(const SetupImage& a, const SetupImage& b, Field field) {
    return !FieldEqual(a, b, field) || FieldValueText(a, field) != FieldValueText(b, field);
}

}  // namespace

SetResult CompareSet(const SetupImage& before, const SetupImage& after,
                     const std::vector<FieldAssignment>& assignments) {
    SetResult result;
    for (const FieldRow& row : FieldTable()) {
        if (!Differs(before, after, row.Handle)) continue;
        if (IsAssigned(row, assignments)) {
            result.Changed.push_back(DifferenceIn(row.Handle, before, after));
        } else if (!SharesBitsWithOne(row, assignments)) {
            result.Consequences.push_back(DifferenceIn(row.Handle, before, after));
        }
    }
    return result;
}

std::string ConsequenceLines(const Differences& consequences) {
    std::vector<std::vector<std::string>> lines;
    for (const FieldDifference& line : consequences)
        lines.push_back(
            {"  " + std::string(line.Name), Printable(line.A.Text), "->", Printable(line.B.Text)});
    return lines.empty() ? std::string() : "Changed with it:\n" + Columns(lines);
}

}  // namespace counter
