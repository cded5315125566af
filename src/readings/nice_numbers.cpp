#include "readings/nice_numbers.h"

#include <algorithm>
#include <cmath>

namespace counter {

namespace {

constexpr double kNiceHair = 1e-9;  // part of a number by which a sum of fractions may miss it
constexpr int kNiceDecimals = 6;

}  // namespace

double NiceAtLeast(double least) {
    if (!(least > 0) || !std::isfinite(least)) return 1;
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double digit : {1.0, 2.0, 5.0}) {
        if (digit * power >= least * (1 - kNiceHair)) return digit * power;
    }
    return 10 * power;
}

int DecimalsOfStep(double step) {
    if (!(step > 0)) return 0;
    return std::clamp(static_cast<int>(std::ceil(-std::log10(step) - kNiceHair)), 0, kNiceDecimals);
}

}  // namespace counter
