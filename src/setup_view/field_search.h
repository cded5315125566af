// Search over all pages of the Setup view, whether they can be come to now or not: in captions, in values and
// entries, in the help.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/form.h"

namespace counter {

class SetupView;

struct FieldHit {
    Control* Found = nullptr;
    std::string Line;  // "Setpoint 1: +010000.  (Relay Alarms, Alarm 1)"
    std::string Why;   // why it can't be reached now, a sentence; empty: it can
};

// The text of a help number, as plain words; an empty one for none.
using HelpWords = std::function<std::string(int helpNumber)>;

// The controls that have all words of `text`, large or small letters alike: first those with them in the
// caption, then in place, value and entries too, then in the help. Of a field that has a place in several
// layouts only the one that is on show, or the first. Without a word none.
std::vector<FieldHit> SearchFields(SetupView& view, std::string_view text, const HelpWords& help);

// Comes to the page of a control. Refusal::None: it can have the focus there.
Refusal ComeTo(SetupView& view, const Control& control);

}  // namespace counter
