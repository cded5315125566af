#include "sim/readings.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace sim {

namespace {

// 0 to 2000 and back to 0 within 20 s.
int Triangle(double nowMs) {
    const double phase = std::fmod(std::abs(nowMs), 20000) / 10;
    return static_cast<int>(phase < 1000 ? 2 * phase : 4000 - 2 * phase);
}

}  // namespace

int Readings::Value(Reading which, double nowMs) {
    const int item1 = 10000 + Triangle(nowMs);
    peak_ = std::max(item1, peak_.value_or(item1));
    valley_ = std::min(item1, valley_.value_or(item1));
    switch (which) {
        case Reading::Item1:
            return item1;
        case Reading::Item2:
            return 5000 - Triangle(nowMs) / 2;
        case Reading::Item3:
            return Triangle(nowMs) / 10 - 100;
        case Reading::Peak:
            return *peak_;
        case Reading::Valley:
            return *valley_;
    }
    return 0;
}

std::string ValueText(int value, int decimals) {
    char text[16];
    std::snprintf(text, sizeof text, "%c%06d", value < 0 ? '-' : ' ', std::abs(value) % 1000000);
    std::string line = text;
    return line.insert(line.size() - static_cast<std::size_t>(decimals), ".");
}

}  // namespace sim
