// Words about fields beside their names: the unit of a value, and a list's entry on one line.
#pragma once

#include <string>
#include <string_view>

#include "meter/field_table.h"
#include "meter/text.h"

namespace counter {

// Empty: what is counted is the user's own, as of scales and setpoints, or the entries of the list say it.
constexpr std::string_view UnitOf(Field field) {
    switch (field) {
        case Field::GateTime:
        case Field::TimeOut:
            return "seconds";
        case Field::PulsesPerRev:
            return "pulses";
        case Field::BaudRate:
            return "baud";
        default:
            return {};
    }
}

// An entry that is a table of its own, as that of the control inputs, has many blanks between its columns:
// "Meter Reset, Func Reset, Meter Reset".
inline std::string WithCommas(std::string_view entry) {
    constexpr std::string_view kColumn = "  ";
    std::string text;
    entry = Trimmed(entry);
    while (!entry.empty()) {
        const std::string_view part = entry.substr(0, entry.find(kColumn));
        text.append(text.empty() ? "" : ", ").append(part);
        entry = Trimmed(entry.substr(part.size()));
    }
    return text;
}

}  // namespace counter
