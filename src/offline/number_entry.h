// Numbers as a user writes them, typed into the digit entry.
//
//   12.5  -3  +0.25      a number; zeros that lead or trail do not matter
//   1.30.00  1:30:00     hours, minutes and seconds, where the field is a clock value
#pragma once

#include <string>
#include <string_view>

#include "digit_entry/digit_entry.h"

namespace counter {

// What a field of a byte takes; an open entry admits 256 to 299 as well, and its OK refuses them.
inline constexpr const char* kByteLegal = "takes a whole number 0 to 255";

// Types the number into an open digit entry, box by box; OK is left to the caller. Returns an empty text, or
// what is legal, as "takes -999999 to 999999": then the boxes may hold a part of it.
std::string TypeNumber(DigitEntry& entry, const EntryState& state, std::string_view number);

// Whether two texts are the same number: "+010000." and "10000". Blanks do not matter.
bool SameNumber(std::string_view a, std::string_view b);

}  // namespace counter
