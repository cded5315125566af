#include "calibration/calibration_numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "meter/hex_text.h"
#include "meter/leading_number.h"
#include "meter/text.h"

namespace counter {

namespace {

constexpr unsigned kNegativeBit = 0x8000;

}  // namespace

double FrequencyOf(std::string_view text) {
    const double hertz = LeadingNumber(text);
    const double mantissa = kTargetReading / hertz;
    return std::isnormal(mantissa) && mantissa > 0 ? hertz : 1;
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
