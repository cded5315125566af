#include "meter/hex_text.h"

#include <algorithm>

namespace counter {

std::string HexNumber(unsigned value, int digits) {
    std::string text(static_cast<std::size_t>(std::max(digits, 0)), '0');
    for (auto digit = text.rbegin(); digit != text.rend(); ++digit, value /= 16)
        *digit = kHexDigits[value % 16];
    return text;
}

std::string HexByte(int value) {
    auto character = [](int digit) { return static_cast<char>((digit < 10 ? 48 : 55) + digit); };
    int number = std::max(value, 0);
    return {character(number / 16), character(number % 16)};
}

std::string HexOfText(std::string_view text) {
    std::string digits;
    digits.reserve(2 * text.size());
    for (char character : text) {
        auto code = static_cast<unsigned char>(character);
        digits += kHexDigits[code / 16];
        digits += kHexDigits[code % 16];
    }
    return digits;
}

std::string TextOfHex(std::string_view digits) {
    std::string text;
    text.reserve((digits.size() + 1) / 2);
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        std::string_view pair = digits.substr(i, 2);
        text += static_cast<char>(ParseHex(pair) << (pair.size() == 2 ? 0 : 4));
    }
    return text;
}

}  // namespace counter
