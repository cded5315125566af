#include "meter/setup_image.h"

#include <algorithm>

#include "meter/field_code.h"
#include "meter/hex_text.h"
#include "meter/text.h"

namespace counter {

namespace {

// What is there of `count` digits from `pos` on, as a view into the image.
std::string_view DigitsAt(const SetupImage& image, int pos, int count) {
    std::string_view all = image.SetupData;
    if (pos < 1 || count < 1 || static_cast<std::size_t>(pos) > all.size()) return {};
    return all.substr(static_cast<std::size_t>(pos) - 1, static_cast<std::size_t>(count));
}

// Bits below `bit`, for bit 0..8.
unsigned BitsBelow(int bit) {
    return (1u << std::clamp(bit, 0, 8)) - 1;
}

unsigned MaskOf(int hiBit, int loBit) {
    return BitsBelow(hiBit + 1) & ~BitsBelow(loBit);
}

// Stores the first two digits of the number, one digit with a 0 in front.
void PutFirstTwoDigits(SetupImage& image, int pos, unsigned value) {
    while (value > 0xFF) value /= 16;
    if (pos < 1) return;
    std::size_t at = static_cast<std::size_t>(pos) - 1;
    std::string& digits = image.SetupData;
    if (at < digits.size()) digits[at] = kHexDigits[value / 16];
    if (at + 1 < digits.size()) digits[at + 1] = kHexDigits[value % 16];
}

}  // namespace

bool IsWholeSetup(std::string_view digits) {
    return digits.size() == kImageDigits && IsHexText(digits);
}

bool CanBeSetup(std::string_view digits) {
    const auto isDigit = [](char c) { return HexDigitValue(c) >= 0; };
    const auto count = static_cast<std::size_t>(std::count_if(digits.begin(), digits.end(), isDigit));
    if (digits.size() < kImageDigits) return !digits.empty() && count == digits.size();
    return count > digits.size() / 2;  // digits that a disk or an editor has spoilt
}

std::string WhyNoWholeSetup(std::string_view digits) {
    std::string why;
    if (digits.size() != kImageDigits) {
        why = std::to_string(digits.size()) + (digits.size() == 1 ? " character" : " characters") +
              " instead of " + std::to_string(kImageDigits) + " hexadecimal digits";
    }
    const auto wrong =
        std::find_if(digits.begin(), digits.end(), [](char c) { return HexDigitValue(c) < 0; });
    if (wrong == digits.end()) return why;
    return why + (why.empty() ? "" : "; ") + "character " + std::to_string(wrong - digits.begin() + 1) +
           " is '" + Printable({wrong, wrong + 1}) + "' and no hexadecimal digit";
}

int BitsGet(const SetupImage& image, int hiBit, int loBit, int pos) {
    unsigned field = static_cast<unsigned>(ByteGet(image, pos)) & MaskOf(hiBit, loBit);
    return static_cast<int>(field >> std::clamp(loBit, 0, 7));
}

void BitsPut(SetupImage& image, int hiBit, int loBit, int pos, int value) {
    unsigned kept = static_cast<unsigned>(ByteGet(image, pos)) & ~MaskOf(hiBit, loBit);
    PutFirstTwoDigits(image, pos, kept | static_cast<unsigned>(value) << std::clamp(loBit, 0, 7));
}

int ByteGet(const SetupImage& image, int pos) {
    return static_cast<int>(ParseHex(DigitsAt(image, pos, 2)));
}

void BytePut(SetupImage& image, int pos, int value) {
    PutFirstTwoDigits(image, pos, static_cast<unsigned>(value));
}

std::string DigitsGet(const SetupImage& image, int pos, int count) {
    return std::string(DigitsAt(image, pos, count));
}

bool SameDigits(const SetupImage& a, const SetupImage& b, int pos, int count) {
    return DigitsAt(a, pos, count) == DigitsAt(b, pos, count);
}

void DigitsPut(SetupImage& image, int pos, std::string_view digits) {
    std::string_view there = DigitsAt(image, pos, static_cast<int>(digits.size()));
    if (there.empty()) return;
    image.SetupData.replace(static_cast<std::size_t>(pos) - 1, there.size(), digits.substr(0, there.size()));
}

int HexDigitGet(const SetupImage& image, int pos) {
    return static_cast<int>(ParseHex(DigitsAt(image, pos, 1)));
}

bool ExtendedMeterFromSetup(const SetupImage& image) {
    return CodeOf(image, Field::ClassAndCurve) != 0;
}

}  // namespace counter
