// Between the text of a field and the seven boxes of the digit entry.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "digit_entry/digit_limits.h"

namespace counter {

// A character each, and a "." after it where the point is there.
using DigitTexts = std::array<std::string, kDigitBoxes>;

// A field's text on its way into the boxes.
struct BareText {
    std::string Text;    // without blanks, and without its first point where that was taken out
    int PointPlace = 0;  // place of the first point, from 1 on; 0 without one
    int PointCode = 1;   // digits after that point, plus 1
};

// A point in front of all gives the text's length, counted with the point, plus 1; required.
BareText BareTextOf(std::string_view fieldText, bool takePointOut);

// The characters of `text` from box FirstBox on, at most up to box 6. A point is after box 7 -
// entryDecimal, in a signed clock value after boxes 2 and 4, in a byte nowhere; points of the text itself
// are passed over.
DigitTexts SpreadText(std::string_view text, const DigitLimits& limits, int entryDecimal);

// Without any point but the first.
std::string FirstPointOnly(std::string_view text);

// Without leading zeros; the last character stays in any case.
std::string WithoutLeadingZeros(std::string_view text);

}  // namespace counter
