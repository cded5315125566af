#include "calibration/calibration_numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <iterator>

#include "meter/hex_text.h"
#include "meter/leading_number.h"
#include "meter/text.h"

namespace counter {

namespace {

constexpr int kMostExponent = 9;  // the meter holds one digit of it
constexpr unsigned kNegativeBit = 0x8000;

std::string Shortest(double number) {
    char text[32];
    const auto end = std::to_chars(std::begin(text), std::end(text), number).ptr;
    return {text, end};
}

bool IsNumber(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() && std::isfinite(number);
}

}  // namespace

double FrequencyOf(std::string_view text) {
    const double hertz = LeadingNumber(text);
    const double mantissa = kTargetReading / hertz;
    return std::isnormal(mantissa) && mantissa > 0 ? hertz : 1;
}

std::string DoubtOfFrequency(std::string_view text) {
    text = Trimmed(text);
    const double hertz = FrequencyOf(text);
    const std::string taken = Shortest(hertz) + " Hertz is what the procedure takes.";
    if (text.empty()) return "No frequency was entered: " + taken;
    if (!IsNumber(text) || LeadingNumber(text) != hertz)
        return "\"" + Printable(text) + "\" is no frequency: " + taken;
    const int exponent = TestScaleFor(hertz).Exponent;
    if (exponent >= 0 && exponent <= kMostExponent) return {};
    return "At " + Shortest(hertz) +
           " Hertz the meter's scale has no room for the exponent: the correction would be the largest that "
           "there is.";
}

TestScale TestScaleFor(double hertz) {
    TestScale scale;
    double mantissa = kTargetReading / hertz;
    for (; mantissa >= 10; mantissa /= 10) ++scale.Exponent;
    for (; mantissa < 1; mantissa *= 10) --scale.Exponent;
    const double parts = RoundHalfEven(mantissa * 100000);
    scale.Mantissa = HexNumber(static_cast<unsigned>(parts), 6);
    return scale;
}

std::string WithExponent(std::string word, int exponent) {
    if (word.size() > 1) word[1] = std::to_string(exponent).back();
    return word;
}

double ReadingOf(std::string reply) {
    if (const std::size_t point = reply.find('.'); point != std::string::npos) reply.erase(point, 1);
    return LeadingNumber(reply);
}

bool IsReading(std::string_view reply) {
    reply = Trimmed(reply);
    if (reply.starts_with('-') || reply.starts_with('+')) reply.remove_prefix(1);
    const auto digits =
        std::count_if(reply.begin(), reply.end(), [](char c) { return c >= '0' && c <= '9'; });
    const auto points = std::count(reply.begin(), reply.end(), '.');
    return digits > 0 && points <= 1 && static_cast<std::size_t>(digits + points) == reply.size();
}

Correction CorrectionFor(double reading) {
    const double ppm = std::floor((kTargetReading - reading) * 10 / 9 + 0.5);
    if (std::abs(ppm) <= kMostPpm) return {static_cast<int>(ppm), false};
    return {ppm < 0 ? -kMostPpm : kMostPpm, true};
}

std::string CorrectionWord(int ppm) {
    const auto magnitude = static_cast<unsigned>(std::abs(ppm));
    return HexNumber(ppm < 0 ? magnitude | kNegativeBit : magnitude, 4);
}

}  // namespace counter
