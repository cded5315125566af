// Where the meter's firmware generations differ in what a setup means and offers. Versions are plain numbers
// 0..255.
#pragma once

namespace counter {

// Phase from -180 to +180 takes a curve, "Power Factor".
constexpr bool PhaseCurveOffered(int firmwareVersion) {
    return firmwareVersion > 76;
}

// An older meter has the 12 bit analog board, whatever its setup says.
constexpr bool HasOnly12BitAnalog(int firmwareVersion) {
    return firmwareVersion < 74;
}

// Analog boards that go below zero or have two outputs.
constexpr bool BipolarAnalogOffered(int firmwareVersion) {
    return firmwareVersion >= 78;
}

// Hysteresis is split, span hysteresis exists, and codes 5 to 7 of the deviations mean it.
constexpr bool SpanHysteresisOffered(int firmwareVersion) {
    return firmwareVersion >= 82;
}

// Control inputs 8 and 9 reset totals and show alarms; before, they held and gated.
constexpr bool TotalResetInputsOffered(int firmwareVersion) {
    return firmwareVersion >= 78;
}

}  // namespace counter
