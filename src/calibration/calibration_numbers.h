// The numbers of a calibration: which scale makes the known frequency read 900,000, and what the reading that
// comes of it says about the meter's time base.
//
// A meter reads frequency x mantissa x 10 to the exponent: the mantissa is six hexadecimal digits that count
// hundred-thousandths, the exponent one decimal digit, 5 for a factor of 1.
#pragma once

#include <string>
#include <string_view>

namespace counter {

// What the known frequency should read.
inline constexpr double kTargetReading = 900000;
// Parts per million that the meter's calibration word is allowed to correct.
inline constexpr int kMostPpm = 29999;

// The frequency in Hertz that a text means. Text that begins with no number is 1; so is a number that no
// scale could be worked out for: a negative one, or one beyond all measure. Nothing is refused.
double FrequencyOf(std::string_view text);

struct TestScale {
    std::string Mantissa;  // six hexadecimal digits, 0186A0 to 0F4240
    int Exponent = 5;      // -300 to 310; the meter takes its last decimal digit alone
};

// For a frequency as FrequencyOf gives it.
TestScale TestScaleFor(double hertz);

// The word with the meter's exponent, "0700" from "0500" for exponent 7: only the last digit of an exponent
// goes into it, so that one of 10 and more, which frequencies up to 9 Hz need, loses its tens: required. A
// word of less than two digits stays as it is.
std::string WithExponent(std::string word, int exponent);

// What the reply to a reading says, its decimal point cut out wherever it is: the meter's own point has
// nothing to do with the test scale.
double ReadingOf(std::string reply);

// Whether a reply is a number as the meter shows one: a sign, digits, a point.
bool IsReading(std::string_view reply);

// What speaks against calibrating at the frequency that a user has typed, as sentences: it is no number, or
// one at which the correction can only come out as the largest that there is. Empty: nothing.
std::string DoubtOfFrequency(std::string_view text);

struct Correction {
    int Ppm = 0;           // -29999..29999
    bool Limited = false;  // it was larger
};

// The correction for a reading, to the nearest part per million: 900,027 is -30.
Correction CorrectionFor(double reading);

// The calibration word: four hexadecimal digits, the magnitude and the sign in bit 15.
std::string CorrectionWord(int ppm);

}  // namespace counter
