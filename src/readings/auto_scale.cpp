#include "readings/auto_scale.h"

#include <algorithm>
#include <cmath>

#include "readings/chart_labels.h"
#include "readings/nice_numbers.h"

namespace counter {

namespace {

constexpr double kLabelEvery = 5;  // small divisions

}  // namespace

void RecentReadings::Add(double value, int decimals) {
    if (!std::isfinite(value)) return;
    values_.push_back(value);
    if (values_.size() > kMost) values_.pop_front();
    decimals_ = std::max(decimals_, decimals);
}

double RecentReadings::Smallest() const {
    return *std::min_element(values_.begin(), values_.end());
}

double RecentReadings::Largest() const {
    return *std::max_element(values_.begin(), values_.end());
}

std::optional<ScaleNumbers> AutoScale(const RecentReadings& readings, int divisions) {
    if (readings.Empty()) return std::nullopt;
    const double low = readings.Smallest();
    const double high = readings.Largest();
    const double lastDigit = std::pow(10, -readings.Decimals());
    const double small = NiceAtLeast(std::max((high - low) / divisions, lastDigit));
    const double label = small * kLabelEvery;
    const double mid = std::round((low + high) / 2 / label) * label;
    const int decimals = DecimalsOfStep(small);
    return ScaleNumbers{DecimalText(mid, decimals), DecimalText(small, decimals)};
}

}  // namespace counter
