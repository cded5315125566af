// The calibration procedure: corrects the meter's time base against a known frequency at its input.
//
//   A1                         a stream that runs is stopped
//   X311Z   12 digits come     offset and scale factor, 6 digits each
//   X124Z    4 digits come     its exponent, the second digit
//   X12BZ    4 digits come     the correction that the meter has
//   B1      a value comes      whether anything is at the input
//   W12B0000Z                  no correction is in the way
//   W311000000...Z  W124....   offset 0, a scale that makes the frequency read 900,000
//   B1      a value comes      3 s later
//   W311............Z          the meter has its offset and scale factor back
//   W124....Z                  and its exponent
//   W12B....                   the correction
//   X311Z  X124Z  X12BZ        what the meter has kept of it
//
// with a second of rest after each write. Two writes are without the "Z" that ends the others: required. The
// meter confirms no write, so reading back is the whole proof.
//
// What the meter answers is doubted, and the user asked, twice: before the first write, where what is to be
// put back is no scale or nothing is at the input, and before the correction, where the reading is no
// measurement. Who says so goes on with whatever came; otherwise the meter keeps what it had.
#pragma once

#include <functional>
#include <string>

#include "calibration/calibration_numbers.h"
#include "link/link.h"

namespace counter {

// Stages as a user follows them. `Limited` comes only where the correction was cut, and those from
// Calculating to Setting only where they are reached.
enum class CalibrationStage { Calculating, Limited, Returning, Setting, Done };

inline constexpr const char* kCalculatingText = "Calculating the calibration factor.";
inline constexpr const char* kLimitedText = "  Maximum correction applied ";
inline constexpr const char* kReturningText = "Returning the meter to its original scale factor and offset.";
inline constexpr const char* kSettingText = "Setting the new calibration factor to";
inline constexpr const char* kPpmText = "PPM";
inline constexpr const char* kDoneText = "Done.";
inline constexpr const char* kNeedsAsciiText =
    "Calibration needs Custom ASCII, and the link uses Modbus: nothing is sent.";

// What the meter was left with.
enum class CalibrationEnd {
    Untouched,   // nothing was written
    PutBack,     // what it had was written again
    Calibrated,  // its scale was, and the new correction
};

struct CalibrationResult {
    Correction Applied;  // measured; known from the stage Limited or Returning on
    CalibrationEnd End = CalibrationEnd::Untouched;
    // What speaks against the end that was meant, in words: a doubt that stopped the procedure. Empty:
    // nothing.
    std::string Doubt;
    // What did not come back as it was written, with what came instead: the meter did not keep it, or
    // answered badly. Empty: it holds what was written.
    std::string NotKept;
    // 0, the first number of a receive that failed, 1 and 2 for a reply of a wrong length, 1 or 23 for one to
    // B1 that is no value, 3 for what the meter did not keep, 4 for a doubt.
    int LinkError = 0;

    // Calibrated, and proven by reading back.
    bool Good() const { return End == CalibrationEnd::Calibrated && NotKept.empty(); }
};

// What the meter was left with, for people: "The meter has its scale and calibration factor back.". kDoneText
// where all is good.
std::string OutcomeOf(const CalibrationResult& result);

// Who follows a procedure; each may be empty.
struct CalibrationUser {
    // Told at each stage, with what is known by then.
    std::function<void(CalibrationStage stage, const CalibrationResult& sofar)> Tell = {};
    // Asked about a doubt, which is a sentence; true: go on. Nobody to ask: go on.
    std::function<bool(const std::string& doubt)> GoOn = {};
    // Looked at in each rest. True: what was measured is finished, what was not is put back.
    std::function<bool()> EndWanted = {};
};

// The whole procedure, about 18 seconds. `frequency` is the known frequency in Hertz as a user types it.
CalibrationResult RunCalibration(Link& link, const std::string& frequency, const CalibrationUser& user);

}  // namespace counter
