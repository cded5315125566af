// Why a control of the Setup view is disabled, when it is.
#pragma once

#include <string_view>

namespace counter {

// A sentence, by the control's name without "[index]"; empty for a control that no rule disables.
std::string_view WhyDisabled(std::string_view name);

}  // namespace counter
