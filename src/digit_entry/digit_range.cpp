#include "digit_entry/digit_range.h"

#include <algorithm>

#include "meter/field_table.h"
#include "meter/field_words.h"

namespace counter {

namespace {

bool IsSigned(const DigitLimits& limits) {
    return BoxAdmits(limits, FirstBox(limits.FieldType), '+');
}

char HighestOf(const DigitLimits& limits, int box) {
    char highest = '9';
    while (highest > '0' && !BoxAdmits(limits, box, highest)) --highest;
    return highest;
}

// The highest digits with the points of the display, none behind the last.
std::string Highest(const DigitLimits& limits, int entryDecimal) {
    const bool clock = limits.TimeEntry > 0;
    std::string text;
    for (int box = FirstBox(limits.FieldType) + (IsSigned(limits) ? 1 : 0); box <= kLastBox; ++box) {
        text += HighestOf(limits, box);
        const bool point = clock ? box == 2 || box == 4 : !limits.FreePoint && box == 7 - entryDecimal;
        if (point && box < kLastBox) text += clock ? ':' : '.';
    }
    return text;
}

// A zero with as many decimals.
std::string Zero(const std::string& highest) {
    const std::size_t point = highest.find('.');
    if (point == std::string::npos) return "0";
    return "0." + std::string(highest.size() - point - 1, '0');
}

}  // namespace

std::string RangeOfBoxes(const DigitLimits& limits, int entryDecimal) {
    if (limits.FieldType == 5 || limits.FieldType == 6) return {};
    if (limits.FieldType == kByteType) return "0 to 255";
    const std::string highest = Highest(limits, entryDecimal);
    if (!IsSigned(limits)) return Zero(highest) + " to " + highest;
    const std::string range = "-" + highest + " to +" + highest;
    if (limits.TimeEntry > 0) return range + " as hours, minutes, seconds";
    return limits.FreePoint ? range + " with a point anywhere" : range;
}

std::string UnitBehind(int fieldType, int fieldPos) {
    for (const FieldRow& row : FieldTable()) {
        if (row.Pos != fieldPos || row.ValueCode != fieldType || UnitOf(row.Handle).empty()) continue;
        return " " + std::string(UnitOf(row.Handle));
    }
    return {};
}

}  // namespace counter
