#include "offline/number_entry.h"

#include <algorithm>
#include <cctype>
#include <optional>

namespace counter {

namespace {

struct Number {
    bool Negative = false;
    std::string Whole;     // digits without leading zeros
    std::string Decimals;  // digits without trailing zeros

    bool operator==(const Number&) const = default;
    bool IsZero() const { return Whole.empty() && Decimals.empty(); }
};

bool AllDigits(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
}

// Takes the sign off the front. True for "-".
bool TakeSign(std::string_view& text) {
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    return negative;
}

std::optional<Number> ParseNumber(std::string_view text) {
    Number number;
    number.Negative = TakeSign(text);
    const std::size_t point = std::min(text.find('.'), text.size());
    number.Whole = text.substr(0, point);
    number.Decimals = text.substr(std::min(point + 1, text.size()));
    if (number.Whole.empty() && number.Decimals.empty()) return std::nullopt;
    if (!AllDigits(number.Whole) || !AllDigits(number.Decimals)) return std::nullopt;
    number.Whole.erase(0, std::min(number.Whole.find_first_not_of('0'), number.Whole.size()));
    number.Decimals.erase(number.Decimals.find_last_not_of('0') + 1);
    if (number.IsZero()) number.Negative = false;
    return number;
}

// A clock value is one number of six digits, hours first.
std::optional<Number> ParseClock(std::string_view text) {
    const bool negative = TakeSign(text);
    int groups = 1;
    std::string digits, group;
    for (const char c : text) {
        if (c != '.' && c != ':') {
            group += c;
            continue;
        }
        if (group.empty() || group.size() > 2) return std::nullopt;
        digits += std::string(2 - group.size(), '0') + group;
        group.clear();
        ++groups;
    }
    if (groups != 3 || group.size() != 2 || !AllDigits(digits + group)) return std::nullopt;
    return ParseNumber((negative ? "-" : "") + digits + group);
}

// The boxes of an open entry.
struct Boxes {
    DigitLimits Limits;
    bool Signed = false;
    int First = 0;   // of the digits
    int Places = 0;  // of them after the point; with a free point as many as there can be

    int Digits() const { return kLastBox + 1 - First; }
};

// Digits after the point of a text. The field itself says where its point is: the mark in the dialog is
// elsewhere for the Calibration, whose whole numbers it shows in hundreds.
int DecimalsIn(const std::string& text) {
    const std::size_t point = text.find('.');
    if (point == std::string::npos) return 0;
    const auto isDigit = [](unsigned char c) { return std::isdigit(c) != 0; };
    return static_cast<int>(
        std::count_if(text.begin() + static_cast<std::ptrdiff_t>(point), text.end(), isDigit));
}

Boxes BoxesOf(const DigitEntry& entry, const EntryState& state) {
    Boxes boxes{entry.Limits()};
    boxes.Signed = boxes.Limits.FieldType >= 1 && boxes.Limits.FieldType <= kFreePointType;
    boxes.First = FirstBox(boxes.Limits.FieldType) + (boxes.Signed ? 1 : 0);
    boxes.Places = std::min(DecimalsIn(state.FieldText), boxes.Digits() - 1);
    if (boxes.Limits.FreePoint) boxes.Places = boxes.Digits() - 1;
    if (boxes.Limits.FieldType == kByteType || boxes.Limits.TimeEntry > 0) boxes.Places = 0;
    return boxes;
}

// The number that has the highest digit in each box.
std::string HighestText(const Boxes& boxes) {
    std::string text;
    for (int box = boxes.First; box <= kLastBox; ++box) {
        char digit = '9';
        while (!BoxAdmits(boxes.Limits, box, digit)) --digit;
        if (box == kLastBox + 1 - boxes.Places) text += '.';
        text += digit;
    }
    return text;
}

std::string Legal(const Boxes& boxes) {
    if (boxes.Limits.FieldType == kByteType) return kByteLegal;
    if (boxes.Limits.TimeEntry > 0) return "takes hours, minutes and seconds up to 99.59.59, as 1.30.00";
    if (boxes.Limits.FreePoint) return "takes a number of at most 6 digits, with a point anywhere";
    const std::string highest = HighestText(boxes);
    const std::string decimals = boxes.Places == 0   ? "no decimals"
                                 : boxes.Places == 1 ? "one decimal"
                                                     : std::to_string(boxes.Places) + " decimals";
    return "takes " + (boxes.Signed ? "-" + highest : std::string("0")) + " to " + highest + ", with " +
           (boxes.Places > 0 ? "at most " : "") + decimals;
}

// A digit for each box; empty where the number does not fit.
std::string DigitsFor(const Boxes& boxes, const Number& number) {
    std::string decimals = number.Decimals;
    if (static_cast<int>(decimals.size()) > boxes.Places) return {};
    if (!boxes.Limits.FreePoint) decimals.resize(static_cast<std::size_t>(boxes.Places), '0');
    std::string digits = number.Whole + decimals;
    const auto room = static_cast<std::size_t>(boxes.Digits());
    if (digits.size() > room || (number.Negative && !boxes.Signed)) return {};
    digits.insert(0, room - digits.size(), '0');
    for (int box = boxes.First; box <= kLastBox; ++box) {
        if (!BoxAdmits(boxes.Limits, box, digits[static_cast<std::size_t>(box - boxes.First)])) return {};
    }
    return digits;
}

}  // namespace

std::string TypeNumber(DigitEntry& entry, const EntryState& state, std::string_view text) {
    const Boxes boxes = BoxesOf(entry, state);
    const bool clock = boxes.Limits.TimeEntry > 0;
    const auto number = clock ? ParseClock(text) : ParseNumber(text);
    const std::string digits = number ? DigitsFor(boxes, *number) : std::string();
    if (digits.empty()) return Legal(boxes);
    if (boxes.Signed) entry.Key(number->Negative ? '-' : '+');
    for (const char digit : digits) entry.Key(digit);
    if (boxes.Limits.FreePoint) {
        entry.FocusBox(kLastBox - static_cast<int>(number->Decimals.size()));
        entry.Key('.');
    }
    return {};
}

bool SameNumber(std::string_view a, std::string_view b) {
    const auto parsed = [](std::string_view text) {
        std::string bare(text);
        std::erase(bare, ' ');
        const auto clock = ParseClock(bare);
        return clock ? clock : ParseNumber(bare);
    };
    const auto first = parsed(a);
    return first && first == parsed(b);
}

}  // namespace counter
