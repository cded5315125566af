// Fields by the names that people write.
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

}  // namespace counter
