#include "sim/signal.h"

#include <cmath>
#include <numbers>

namespace sim {

namespace {

// -1 to 1. A number that depends on its index alone needs no memory of how often it was asked: the index is
// scattered by the finaliser of a well-known 64 bit generator.
double NoiseAt(std::uint32_t seed, double ms) {
    std::uint64_t bits = (std::uint64_t{seed} << 32) + static_cast<std::uint64_t>(std::llround(ms));
    bits += 0x9E3779B97F4A7C15;
    bits = (bits ^ bits >> 30) * 0xBF58476D1CE4E5B9;
    bits = (bits ^ bits >> 27) * 0x94D049BB133111EB;
    bits ^= bits >> 31;
    return static_cast<double>(bits >> 11) / static_cast<double>(std::uint64_t{1} << 52) - 1;
}

}  // namespace

double SignalAt(const SignalOptions& options, double ms) {
    const double phase = std::fmod(ms / 1000, options.PeriodS) / options.PeriodS;  // 0 to below 1
    double part = 0;                                                               // of the amplitude
    switch (options.Kind) {
        case SignalKind::Constant:
            break;
        case SignalKind::Ramp:
            part = phase < 0.5 ? 2 * phase : 2 - 2 * phase;
            break;
        case SignalKind::Sine:
            part = std::sin(2 * std::numbers::pi * phase);
            break;
        case SignalKind::Noise:
            part = NoiseAt(options.Seed, ms);
            break;
        case SignalKind::Steps:
            part = std::floor(5 * phase) / 4;
            break;
    }
    return options.Value + options.Amplitude * part;
}

}  // namespace sim
