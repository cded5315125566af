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

std::string Fixed(double value, int decimals) {
    char digits[400];  // a double has up to 309 digits before its point
    std::snprintf(digits, sizeof digits, "%.*f", decimals, value);
    std::string text = digits;
    if (text.find_first_not_of("-0.") == std::string::npos && text.starts_with('-')) text.erase(0, 1);
    return text;
}

}  // namespace

float TypedNumber(std::string_view text) {
    constexpr double kLargest = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(LeadingNumber(text), -kLargest, kLargest));
}

ValueScale ReadValueScale(std::string_view midText, std::string_view smallText) {
    const std::string_view mid = Trimmed(midText);
    const std::string_view small = Trimmed(smallText);
    ValueScale scale{TypedNumber(mid), TypedNumber(small), std::max(DecimalsOf(mid), DecimalsOf(small))};
    if (scale.SmallDiv == 0) scale.SmallDiv = 1;
    return scale;
}

std::string ValueLabel(const ValueScale& scale, int divisions) {
    std::string text = Fixed(divisions * AsTyped(scale.SmallDiv) + AsTyped(scale.MidValue), scale.Decimals);
    return scale.Decimals == 0 ? text + "." : text;
}

std::string TimeLabel(double seconds) {
    if (seconds == 0) return "0";
    std::string text = Fixed(seconds, kMostDecimals);
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
