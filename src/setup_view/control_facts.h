// What there is to know about one control of the Setup view: its range, its unit, and what the meter had in
// its field.
#pragma once

#include <string>

#include "controls/control.h"
#include "meter/setup_image.h"

namespace counter {

class SetupView;

// Texts without a word for what doesn't apply are empty.
struct ControlFacts {
    std::string Where;    // "Relay Alarms, Alarm 1"
    std::string Caption;  // "Setpoint 1"
    std::string Range;    // "-9999.99 to +9999.99", "one of: Odd; Even", "on or off"
    std::string Unit;     // "seconds", "of Item 2"
    std::string Meter;    // its value in the meter
    std::string WhyNot;   // why it can't be changed now, a sentence

    bool operator==(const ControlFacts&) const = default;
};

// "Setpoint 1": its own caption, or that of the nearest frame around it.
std::string CaptionOf(const Control& control);
// "Relay Alarms, Alarm 1": its page and what is around its caption.
std::string PlaceOf(const Control& control);
// What it shows now: the text, the entry that is selected, "on" or "off"; empty for others.
std::string ShownBy(const Control& control);

// `meter`: the setup as it came from the meter; null where none came.
ControlFacts FactsOf(const SetupView& view, const Control& control, const SetupImage* meter);

}  // namespace counter
