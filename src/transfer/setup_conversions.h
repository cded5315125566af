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

// The way back, 6 digits in, 8 digits out. A field that the image is too short for stays short, after two
// zeros: the meter refuses such a frame.

// Any first digit but "0" makes the value negative; kept within -999999..999999.
std::string ImageToInt32(std::string_view digits);

// Sign and magnitude in, two's complement out. The top byte of a negative value is "EF" or "F0", not "FF":
// required, the meter takes the low 24 bits.
std::string ImageSignToInt32(std::string_view digits);

// One digit of sign and decimal point code and five of magnitude in. Out come "0", the code, and 24 bits of
// two's complement. A negative value's code is kept within 1..6; a negative zero loses its sign.
std::string ImageToFloat32(std::string_view digits);

}  // namespace counter
