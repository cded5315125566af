#include "readings/chart_labels.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

#include "meter/leading_number.h"
#include "meter/text.h"

namespace counter {

namespace {

constexpr int kMostDecimals = 6;

// Eight characters of a reading go no finer than this between two halves; errors of the sum stay far below
// it.
constexpr double kHairsAUnit = 1e9;

int DecimalsOf(std::string_view text) {
    const std::size_t point = text.find('.');
    if (point == std::string_view::npos) return 0;
    return static_cast<int>(std::min<std::size_t>(text.size() - point - 1, kMostDecimals));
}

// As it is typed where the decimal point is a comma: "1,5". What has both is left to be read up to the comma.
std::string WithPoint(std::string_view text) {
    std::string typed(Trimmed(text));
    const std::size_t comma = typed.find(',');
    const bool lone = comma != std::string::npos && typed.find_first_of(".,", comma + 1) == std::string::npos;
    if (lone && typed.find('.') == std::string::npos) typed[comma] = '.';
    return typed;
}

std::size_t DigitsAt(std::string_view text, std::size_t from) {
    return std::min(text.find_first_not_of("0123456789", from), text.size()) - from;
}

// How many characters the number takes that the text begins with; 0: none.
std::size_t NumberLength(std::string_view text) {
    std::size_t at = text.find_first_of("+-") == 0 ? 1 : 0;
    std::size_t digits = DigitsAt(text, at);
    at += digits;
    if (text.substr(at, 1) == ".") {
        const std::size_t decimals = DigitsAt(text, at + 1);
        digits += decimals;
        at += 1 + decimals;
    }
    if (digits == 0) return 0;
    if (text.substr(at, 1).find_first_of("eE") != 0) return at;
    const std::size_t sign = text.substr(at + 1, 1).find_first_of("+-") == 0 ? 1 : 0;
    const std::size_t exponent = DigitsAt(text, std::min(at + 1 + sign, text.size()));
    return exponent == 0 ? at : at + 1 + sign + exponent;
}

}  // namespace

float TypedNumber(std::string_view text) {
    constexpr double kLargest = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(LeadingNumber(WithPoint(text)), -kLargest, kLargest));
}

Typed JudgeTyped(std::string_view text) {
    std::string typed = WithPoint(text);
    std::erase(typed, ' ');
    if (typed.empty()) return Typed::Number;
    const std::size_t length = NumberLength(typed);
    if (length == 0) return Typed::NoNumber;
    return length == typed.size() ? Typed::Number : Typed::NumberAndMore;
}

ValueScale ReadValueScale(std::string_view midText, std::string_view smallText) {
    const std::string mid = WithPoint(midText);
    const std::string small = WithPoint(smallText);
    ValueScale scale{TypedNumber(mid), TypedNumber(small), std::max(DecimalsOf(mid), DecimalsOf(small))};
    if (scale.SmallDiv == 0) scale.SmallDiv = 1;
    return scale;
}

std::string DecimalText(double value, int decimals) {
    char digits[400];  // a double has up to 309 digits before its point
    std::snprintf(digits, sizeof digits, "%.*f", decimals, value);
    std::string text = digits;
    if (text.find_first_not_of("-0.") == std::string::npos && text.starts_with('-')) text.erase(0, 1);
    return text;
}

std::string ShortNumber(double value) {
    char digits[64];
    std::snprintf(digits, sizeof digits, "%.10g", value);
    return digits;
}

std::string ValueLabel(const ValueScale& scale, int divisions) {
    std::string text =
        DecimalText(divisions * AsTyped(scale.SmallDiv) + AsTyped(scale.MidValue), scale.Decimals);
    return scale.Decimals == 0 ? text + "." : text;
}

std::string TimeLabel(double seconds) {
    if (seconds == 0) return "0";
    std::string text = DecimalText(seconds, kMostDecimals);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.starts_with('0')) text.erase(0, 1);
    return text;
}

double WholeUnits(double number) {
    const double hairs = RoundHalfEven(number * kHairsAUnit);
    return RoundHalfEven(std::isfinite(hairs) ? hairs / kHairsAUnit : number);
}

double AsTyped(float number) {
    char digits[64];
    const auto [end, error] = std::to_chars(digits, digits + sizeof digits, number);
    double value = 0;
    std::from_chars(digits, end, value);
    return value;
}

}  // namespace counter
