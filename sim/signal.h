// Signal: what is applied to the simulated meter's input, as a function of time alone, so that the same
// options give the same readings again.
#pragma once

#include <cstdint>

namespace sim {

enum class SignalKind {
    Constant,  // Value
    Ramp,      // from Value to Value + Amplitude and back within a period
    Sine,      // Value, up to Amplitude above and below it
    Noise,     // Value, evenly spread up to Amplitude above and below it
    Steps,     // five levels from Value to Value + Amplitude, a fifth of a period each
};

struct SignalOptions {
    SignalKind Kind = SignalKind::Ramp;
    double Value = 10000;     // counts: the digits of the display, without the point
    double Amplitude = 2000;  // counts
    double PeriodS = 20;      // above 0
    std::uint32_t Seed = 1;   // of the noise
};

// The signal in counts, `ms` (0 and above) after it began. Noise changes every millisecond.
double SignalAt(const SignalOptions& options, double ms);

}  // namespace sim
