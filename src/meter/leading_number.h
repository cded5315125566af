// Numbers as the meter sends them and users type them.
#pragma once

#include <string_view>

namespace counter {

// The number that the text begins with: a sign, digits with at most one decimal point, and an exponent such
// as "e-3"; what follows is not looked at. Blanks count as nothing wherever they are, since the meter
// blanks leading zeros after the sign: "-  12.5". 0 where there is no number; infinity where no double holds
// it.
double LeadingNumber(std::string_view text);

// The nearest whole number, halves to the even one.
double RoundHalfEven(double value);

}  // namespace counter
