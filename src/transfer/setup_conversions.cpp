#include "transfer/setup_conversions.h"

#include "meter/hex_text.h"

namespace counter {

namespace {

constexpr unsigned kTwoTo24 = 0x1000000;

std::string LastFive(unsigned number) {
    return HexNumber(number, 6).substr(1);
}

// Of a 24-bit two's complement number below zero.
std::string MagnitudeDigits(std::string_view sixDigits) {
    return LastFive(kTwoTo24 - ParseHex(sixDigits));
}

}  // namespace

std::string Int24ToImage(std::string_view digits) {
    if (digits.substr(0, 1) != "F") return std::string(digits);
    return "8" + MagnitudeDigits(digits);
}

std::string Float32ToImage(std::string_view digits) {
    const unsigned point = ParseHex(digits.substr(1, 1));
    const std::string_view value = digits.substr(2, 6);
    const bool negative = value.substr(0, 1) == "F";
    const std::string first = HexNumber(point + (negative ? 8U : 0U), 1);
    return first + (negative ? MagnitudeDigits(value) : std::string(value.substr(1)));
}

}  // namespace counter
