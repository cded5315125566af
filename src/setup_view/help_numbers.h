// The help number of every control of the Setup view, 1101 to 1199.
//
// Controls that are told together share a number. A frame that only wraps one control has that control's.
#pragma once

#include <string_view>

namespace counter {

// By the name without index; 0 where it has none of its own.
int HelpNumberOf(std::string_view name);

}  // namespace counter
