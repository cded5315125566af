#include "readings/chart_span.h"

#include <algorithm>
#include <cmath>

#include "readings/chart_labels.h"
#include "readings/nice_numbers.h"

namespace counter {

namespace {

constexpr double kHair = 1e-9;  // of a step, so that both ends are there

}  // namespace

void AlongSpan(double from, double to, double apart,
               const std::function<void(double part, const std::string& text)>& draw) {
    const double step = NiceAtLeast(std::abs(to - from) * apart);
    const int decimals = DecimalsOfStep(step);
    const double last = std::floor(std::max(from, to) / step + kHair);
    for (double i = std::ceil(std::min(from, to) / step - kHair); i <= last; i += 1) {
        draw((i * step - from) / (to - from), DecimalText(i * step, decimals));
        if (i + 1 == i) return;  // beyond what a step changes
    }
}

}  // namespace counter
