// The calibration procedure: corrects the meter's time base against a known frequency at its input.
//
//   A1                         a stream that runs is stopped
//   X311Z   12 digits come     offset and scale factor, 6 digits each
//   X124Z    4 digits come     its exponent, the second digit
//   W12B0000Z                  no correction is in the way
//   W311000000...Z  W124....   offset 0, a scale that makes the frequency read 900,000
//   B1      a value comes      3 s later
//   W311............Z          the meter has its offset and scale factor back
//   W124....Z                  and its exponent
//   W12B....                   the correction
//
// with a second of rest after each. Two writes are without the "Z" that ends the others: required. No reply
// is tested: with a meter that is silent the steps run on with the last text that any reply left, as
// required, and what had been read is put back.
#pragma once

#include <functional>
#include <string>

#include "calibration/calibration_numbers.h"
#include "link/link.h"

namespace counter {

// Stages as a user follows them. `Limited` comes only where the correction was cut.
enum class CalibrationStage { Calculating, Limited, Returning, Setting, Done };

inline constexpr const char* kCalculatingText = "Calculating the calibration factor.";
inline constexpr const char* kLimitedText = "  Maximum correction applied ";
inline constexpr const char* kReturningText = "Returning the meter to its original scale factor and offset.";
inline constexpr const char* kSettingText = "Setting the new calibration factor to";
inline constexpr const char* kPpmText = "PPM";
inline constexpr const char* kDoneText = "Done.";

struct CalibrationResult {
    Correction Applied;  // known from the stage Limited or Returning on
    // How the replies came, which the procedure itself does not ask: 0, the first number of a receive that
    // failed, 27 where the line has gone, 1 and 2 for a reply to X311Z or X124Z of a wrong length,
    // 1 or 23 for one to B1 that is no value.
    int LinkError = 0;
};

// Told at each stage, with what is known by then.
using CalibrationTell = std::function<void(CalibrationStage stage, const CalibrationResult& sofar)>;

// The whole procedure, about 15 seconds. `frequency` is the known frequency in Hertz as a user types it.
CalibrationResult RunCalibration(Link& link, const std::string& frequency, const CalibrationTell& tell);

}  // namespace counter
