// Where the meter's firmware generations differ: in how a setup is moved, and in what it means and offers.
// Versions are plain numbers 0..255.
#pragma once

namespace counter {

// Meters before 46 need time after each block before they can be asked again.
constexpr bool NeedsPauseAfterBlock(int firmwareVersion) {
    return firmwareVersion < 46;
}

// Version 78 reports a two-relay board only in a byte of its own, 0x2B.
constexpr bool AsksRelayByte(int firmwareVersion) {
    return firmwareVersion == 78;
}

// Versions 74 and 75 keep the analog board in a byte of their own, 0x41, as two decimal digits.
constexpr bool AsksAnalogByte(int firmwareVersion) {
    return firmwareVersion == 74 || firmwareVersion == 75;
}

// Meters above 34 can put characters of the user's choice around the frames of the reading stream.
constexpr bool HasCustomCharacters(int firmwareVersion) {
    return firmwareVersion > 34;
}

// From 76 on the analog board can be read over Modbus.
constexpr bool ModbusTellsAnalogOption(int firmwareVersion) {
    return firmwareVersion >= 76;
}

// Before 76 a meter without a front panel menu answers half duplex whatever its setup says.
constexpr bool AlwaysHalfDuplexWithoutPanel(int firmwareVersion) {
    return firmwareVersion < 76;
}

// Above 75 the Cutoff Value has a register of its own to be written.
constexpr bool ModbusTakesCutoffValue(int firmwareVersion) {
    return firmwareVersion > 75;
}

// From 81 on the meter's Modbus check is the published one.
constexpr bool HasPublishedCrc(int firmwareVersion) {
    return firmwareVersion > 80;
}

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
