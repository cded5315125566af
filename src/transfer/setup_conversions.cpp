#include "transfer/setup_conversions.h"

#include <algorithm>

#include "meter/hex_text.h"

namespace counter {

namespace {

constexpr std::size_t kFieldDigits = 6;
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

std::string ImageToInt32(std::string_view digits) {
    constexpr unsigned kMost = 999999;
    if (digits.size() < kFieldDigits) return "00" + std::string(digits);
    const unsigned number = ParseHex(digits);
    if (digits.substr(0, 1) == "0") return "00" + HexNumber(std::min(number, kMost), 6);
    return "FF" + HexNumber(std::max(number, kTwoTo24 - kMost), 6);
}

std::string ImageSignToInt32(std::string_view digits) {
    constexpr unsigned kAboveTheSign = 0x10000000;
    if (digits.size() < kFieldDigits || digits[0] == '0') return "00" + std::string(digits);
    const unsigned magnitude = ParseHex(digits.substr(1));
    return HexNumber(0U - (kAboveTheSign + magnitude), 8);
}

std::string ImageToFloat32(std::string_view digits) {
    if (digits.size() < kFieldDigits) return "00" + std::string(digits);
    const unsigned first = ParseHex(digits.substr(0, 1));
    const std::string_view five = digits.substr(1);
    if (first < 8) return "0" + HexNumber(first, 1) + "0" + std::string(five);
    const unsigned point = std::clamp(first - 8, 1U, 6U);
    return "0" + HexNumber(point, 1) + HexNumber(kTwoTo24 - ParseHex(five), 6);
}

}  // namespace counter
