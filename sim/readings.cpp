#include "sim/readings.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace sim {

namespace {

constexpr double kMostCounts = 2e9;  // keeps any scale within an int

int CountsOf(double value) {
    return static_cast<int>(std::lround(std::clamp(value, -kMostCounts, kMostCounts)));
}

// A sign digit (8 or 0) and 20 bits of magnitude, in hundred-thousandths.
double Scale1Of(const Memory& memory) {
    const auto digits = memory.Number(43, 6);
    const double magnitude = static_cast<double>(digits & 0xFFFFF) / 100000;
    return digits & 0x800000 ? -magnitude : magnitude;
}

// Ten to the power of the multiplier's code, of which 5 means times 1; codes above 10 count as 10.
double Multiplier1Of(const Memory& memory) {
    return std::pow(10, std::min(memory.Bits(165, 3, 0), 10) - 5);
}

// 24 bit two's complement, counts.
int Offset1Of(const Memory& memory) {
    const auto digits = static_cast<int>(memory.Number(37, 6));
    return digits & 0x800000 ? digits - 0x1000000 : digits;
}

}  // namespace

int CalibrationPpmOf(const Memory& memory) {
    const auto word = static_cast<int>(memory.Number(137, 4));
    return word & 0x8000 ? -(word & 0x7FFF) : word;
}

Readings::Readings(const MeterOptions& options, const Memory& memory)
    : signal_(options.Signal),
      frequencyHz_(options.FrequencyHz),
      timebasePpm_(options.TimebasePpm.value_or(-CalibrationPpmOf(memory))) {}

void Readings::Adopt(const Memory& memory, const ItemPlan& plan) {
    rate_.reset();
    if (frequencyHz_ && plan.RateOfA) rate_ = CountsOf(ScaledFrequency(memory) + Offset1Of(memory));
}

void Readings::Measure(double nowMs) {
    if (!beganMs_) beganMs_ = nowMs;
    item1_ = rate_ ? *rate_ : CountsOf(SignalAt(signal_, nowMs - *beganMs_));
    base_ = rate_ ? *rate_ : signal_.Value;
    peak_ = std::max(item1_, peak_.value_or(item1_));
    valley_ = std::min(item1_, valley_.value_or(item1_));
}

// Errors of the time base and its calibration are small enough to be added: a factor that is the error with
// the other sign makes the reading right. An error above 0 reads too high.
double Readings::ScaledFrequency(const Memory& memory) const {
    const double errorPpm = timebasePpm_ + CalibrationPpmOf(memory);
    return *frequencyHz_ * Scale1Of(memory) * Multiplier1Of(memory) * (1 + errorPpm * 1e-6);
}

int Readings::Value(Reading which) const {
    switch (which) {
        case Reading::Item1:
            return item1_;
        case Reading::Item2:
            return CountsOf(base_ / 2 - (item1_ - base_) / 2);
        case Reading::Item3:
            return CountsOf((item1_ - base_) / 10 - base_ / 100);
        case Reading::Peak:
            return peak_.value_or(item1_);
        case Reading::Valley:
            return valley_.value_or(item1_);
    }
    return 0;
}

std::string ValueText(int value, int decimals) {
    char text[16];
    std::snprintf(text, sizeof text, "%c%06d", value < 0 ? '-' : ' ', std::abs(value % 1000000));
    std::string line = text;
    return line.insert(line.size() - static_cast<std::size_t>(decimals), ".");
}

RemoteValue RemoteValueOf(std::string_view text) {
    constexpr int kMostDecimals = 5, kDigits = 1000000;  // six digits
    RemoteValue value{std::string(text)};
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    bool point = false;
    for (char c : text) {
        if (c == '.' && !point) {
            point = true;
            continue;
        }
        if (c < '0' || c > '9' || value.Decimals == kMostDecimals) break;
        value.Count = (10 * value.Count + (c - '0')) % kDigits;
        if (point) ++value.Decimals;
    }
    if (negative) value.Count = -value.Count;
    return value;
}

}  // namespace sim
