// A field of the setup entered by its text, through the Setup view and its rules.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "meter/field_table.h"
#include "offline/view_user.h"

namespace counter {

// Why there is nothing to enter a value into.
inline constexpr const char* kNoControl = "is the meter's own, or decided by several controls";
inline constexpr const char* kNoValue = "has no value that can be set";

// How a field reads: an entry's text, a value with its point, a number.
std::string FieldText(const SetupImage& image, Field field);

// Enters `value` into the control of a field, as a user would: an entry's text, a number (12.5, -3, for a
// clock 1.30.00), 0 or 1 for a box. Returns why it can't be, and what is legal with it; empty: done.
std::string EnterField(ViewUser& user, Field field, const std::string& value);

// The same into one of several controls, the one that can be reached. Which field it was is in `which` as
// soon as that is known; a control may belong to none.
std::string EnterControl(ViewUser& user, const std::vector<Control*>& controls, const std::string& value,
                         std::optional<Field>& which);

}  // namespace counter
