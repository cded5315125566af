// Numbers as Modbus registers carry them and as the image holds them. Digit text in, digit text out.
#pragma once

#include <string>
#include <string_view>

namespace counter {

// 6 digits. A value that begins with "F" is negative, 24-bit two's complement: "8" and the five low digits of
// its magnitude come out. Others come out unchanged.
std::string Int24ToImage(std::string_view digits);

// 8 digits: the second is a decimal point count, the last six a value as above. Out come one digit, count
// plus 8 for a negative value, and five digits of magnitude.
std::string Float32ToImage(std::string_view digits);

}  // namespace counter
