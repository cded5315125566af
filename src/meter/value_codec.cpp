#include "meter/value_codec.h"

#include <algorithm>
#include <array>

#include "meter/hex_text.h"
#include "meter/text.h"

namespace counter {

namespace {

// Position 137, the Calibration, is shown with five digits whatever the code; required.
constexpr int kFiveDigitPos = 137;

bool HasFourDigits(int code) {
    return code == 0 || code == 1;
}

// a / b rounded down, as clock values of negative seconds need; b above 0.
int FloorDiv(int a, int b) {
    return a / b - (a % b < 0 ? 1 : 0);
}

// Seconds to the number whose digits are hhmmss.
int ClockNumber(int seconds) {
    int hours = FloorDiv(seconds, 3600);
    int minutes = FloorDiv(seconds - 3600 * hours, 60);
    return 10000 * hours + 100 * minutes + seconds - 3600 * hours - 60 * minutes;
}

int SignedOf24Bits(unsigned number) {
    return static_cast<int>(number) - (number > 0x7FFFFF ? 0x1000000 : 0);
}

// The magnitude that the digits of a field represent.
unsigned MagnitudeOf(std::string digits, int code, int timeEntry) {
    if (code == 0) return ParseHex(digits);
    if (code == 1) {
        int first = digits.empty() ? 0 : HexDigitValue(digits[0]);
        if (first > 7) digits[0] = kHexDigits[static_cast<std::size_t>(first - 8)];
        return ParseHex(digits);
    }
    if (code == 2) {
        int number = SignedOf24Bits(ParseHex(digits));
        if (timeEntry == TimeEntry::Seconds) number = ClockNumber(number);
        return static_cast<unsigned>(number < 0 ? -number : number);
    }
    return ParseHex(digits.substr(digits.size() > 5 ? digits.size() - 5 : 0));
}

// Six digits with the point that `decPt` 1..6 asks for.
std::array<char, 7> SixDigits(unsigned number, int decPt) {
    std::array<char, 7> text;
    for (int i = 6; i >= 0; --i) {
        auto at = static_cast<std::size_t>(i);
        if (i == 7 - decPt) {
            text[at] = '.';
            continue;
        }
        text[at] = static_cast<char>('0' + number % 10);
        number /= 10;
    }
    return text;
}

// The number at the beginning of the text, blanks left out; 0 where no digit is there. Only its last 32 bits
// count: of a field no more than 24 are stored.
unsigned NumberOf(std::string_view text) {
    unsigned number = 0;
    for (char digit : text) {
        if (digit == ' ') continue;
        if (digit < '0' || digit > '9') break;
        number = number * 10 + static_cast<unsigned>(digit - '0');
    }
    return number;
}

// `text` from its place `at` on, counted from 0; empty beyond its end.
std::string_view From(std::string_view text, std::size_t at, std::size_t count = std::string_view::npos) {
    return text.substr(std::min(at, text.size()), count);
}

// Entered text without its point; `point` is the place of that, from 1 on, 0 where there is none.
std::string WithoutPoint(std::string_view text, int& point) {
    std::size_t at = text.find('.');
    point = at == std::string_view::npos ? 0 : static_cast<int>(at) + 1;
    std::string rest(text);
    if (point > 0) rest.erase(at, 1);
    return rest;
}

// Seconds of a sign and hhmmss.
unsigned SecondsOf(std::string_view text) {
    return 3600 * NumberOf(From(text, 1, 2)) + 60 * NumberOf(From(text, 3, 2)) + NumberOf(From(text, 5));
}

}  // namespace

std::string ValueDecode(const SetupImage& image, const ValueContext& context, int typeCode, int pos,
                        int& decPt) {
    bool menuCell = typeCode >= 10;
    int code = menuCell ? typeCode - 10 : typeCode;
    int first = HexDigitGet(image, pos);
    if (code == 4) {
        decPt = first & 7;
        if (context.InputOption == InputBoard::VfConverter) decPt = VfPointCode(context.ModeIndex);
    }
    if (code == 1) decPt = 1;
    decPt = std::clamp(decPt, 1, 6);
    std::string digits = DigitsGet(image, pos, HasFourDigits(code) ? 4 : 6);
    std::array<char, 7> number = SixDigits(MagnitudeOf(std::move(digits), code, context.TimeEntry), decPt);
    std::string_view shown(number.data(), number.size());
    if (code == 0 || pos == kFiveDigitPos) shown.remove_prefix(1);

    std::string text;
    if (code != 0) {
        bool negative = (first & 8) != 0;
        text = menuCell ? (negative ? "-" : " ") : (negative ? " -" : " +");
        if (menuCell) text.append(7 - shown.size(), ' ');
    }
    return text.append(shown);
}

std::string ValueText(const SetupImage& image, const ValueContext& context, int typeCode, int pos,
                      int decPt) {
    return ValueDecode(image, context, typeCode, pos, decPt);
}

void ValueEncode(SetupImage& image, const ValueContext& context, int typeCode, int pos,
                 std::string_view text) {
    if (typeCode < 0 || typeCode > 4) return;
    int point = 0;
    std::string digits = WithoutPoint(text, point);
    bool negative = typeCode != 0 && digits.starts_with('-');
    unsigned number = NumberOf(From(digits, typeCode == 0 ? 0 : 1));
    if (HasFourDigits(typeCode)) {
        // A negative zero of the Calibration stays.
        DigitsPut(image, pos, HexNumber(number + (negative ? 0x8000 : 0), 4));
        return;
    }
    if (context.TimeEntry == TimeEntry::Seconds) number = SecondsOf(digits);
    if (typeCode == 2) {
        DigitsPut(image, pos, HexNumber(negative ? 0 - number : number, 6));
        return;
    }
    // Without a point the text counts as if it were in front of all: 9 - 0, at most 6.
    unsigned decPt = typeCode == 4 ? static_cast<unsigned>(std::clamp(9 - point, 1, 6)) : 0;
    DigitsPut(image, pos, HexNumber(decPt + (negative ? 8 : 0), 1) + HexNumber(number, 5));
}

std::string WithoutBlanksAndPoints(std::string_view text) {
    std::string rest(text);
    std::erase_if(rest, [](char character) { return character == ' ' || character == '.'; });
    return rest;
}

std::string AddClkDP(std::string_view text) {
    std::string digits(Trimmed(text));
    if (digits.size() == 6) digits.insert(0, "+");
    std::string clock(From(digits, 0, 3));
    return clock.append(". ").append(From(digits, 3, 2)).append(". ").append(From(digits, 5, 2));
}

}  // namespace counter
