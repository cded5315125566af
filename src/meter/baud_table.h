// The meter's line speeds by their index.
#pragma once

#include <array>
#include <string_view>

namespace counter {

// Index 7 fits the three bits of the field but names no speed.
inline constexpr std::array<std::string_view, 8> BaudTable = {"300",  "600",  "1200",  "2400",
                                                              "4800", "9600", "19200", ""};

}  // namespace counter
