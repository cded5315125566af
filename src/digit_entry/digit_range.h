// What the boxes of the digit entry admit, told as a range.
#pragma once

#include <string>
#include <string_view>

#include "digit_entry/digit_limits.h"

namespace counter {

// "0.00 to 199.99": the least and the greatest value of the boxes, with a point after box 7 - `entryDecimal`.
// A clock value is told as hours, minutes and seconds, and a point that the user moves as such. Empty for a
// type that no field uses.
std::string RangeOfBoxes(const DigitLimits& limits, int entryDecimal);

// " seconds": the unit of the field with this type and position; empty where the meter names none.
std::string UnitBehind(int fieldType, int fieldPos);

}  // namespace counter
