// Hexadecimal text: numbers and bytes as digits and back. Digits are written in upper case and read in
// either case.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace counter {

inline constexpr std::string_view kHexDigits = "0123456789ABCDEF";

// The value of each character as a digit, -1 where it isn't one. A table, because every access to the image
// goes through it.
inline constexpr std::array<std::int8_t, 256> kDigitValues = [] {
    std::array<std::int8_t, 256> values{};
    values.fill(-1);
    for (std::size_t i = 0; i < kHexDigits.size(); ++i) {
        auto digit = static_cast<unsigned char>(kHexDigits[i]);
        values[digit] = static_cast<std::int8_t>(i);
        if (i >= 10) values[digit + std::size_t{'a' - 'A'}] = static_cast<std::int8_t>(i);
    }
    return values;
}();

// The value 0..15 of one digit; -1 where the character isn't one.
constexpr int HexDigitValue(char digit) {
    return kDigitValues[static_cast<unsigned char>(digit)];
}

// The number that the digits write, the last 32 bits of it where they are more than eight. One character
// that isn't a digit makes the whole text 0; so does an empty text.
constexpr unsigned ParseHex(std::string_view digits) {
    unsigned number = 0;
    for (char digit : digits) {
        int value = HexDigitValue(digit);
        if (value < 0) return 0;
        number = number * 16 + static_cast<unsigned>(value);
    }
    return number;
}

// Nothing but digits, of either case; true for an empty text.
constexpr bool IsHexText(std::string_view text) {
    for (char digit : text) {
        if (HexDigitValue(digit) < 0) return false;
    }
    return true;
}

// The last `digits` digits of the number, filled up with 0 at the left.
std::string HexNumber(unsigned value, int digits);

// Two characters for a byte 0..255. The first goes on beyond "F" in the character set, so that 256, which a
// sum of bytes can reach, is "G0": required. A value below 0 counts as 0.
std::string HexByte(int value);

// Two digits for each character, in order.
std::string HexOfText(std::string_view text);

// One character for each pair of digits. A missing last digit counts as 0; a pair that isn't hexadecimal is
// the character 0.
std::string TextOfHex(std::string_view digits);

}  // namespace counter
