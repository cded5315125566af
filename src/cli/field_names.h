// Fields by the names that people write, and the controls of the Setup view that change them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "meter/field_table.h"

namespace counter {

// By the name of `show`; capitals, and blanks at both ends, do not matter.
std::optional<Field> FieldNamed(std::string_view name);
std::vector<std::string> FieldNames();

// The control that changes a field: "txtSetpt[1]", or "txtScale1" for whichever of an array is on show. An
// entry form has two options; `entry` is the index of the wanted one in the field's list. Empty for what no
// single control changes: the meter's own, and what several of them decide.
std::string_view ControlOfField(Field field, int entry = 0);

// The fields that a control changes, by its full name. More than one where the view shows them in turns.
std::vector<Field> FieldsOfControl(std::string_view fullName);

}  // namespace counter
