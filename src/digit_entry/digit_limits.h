// What each box of the digit entry admits: only what the meter's front panel could show at that place.
//
//   type  value                          boxes   first boxes
//   0     unsigned, five digits          2..6    box 2: 0 and 1, but 0..5 at positions 25 and 145
//   1     sign and five digits           1..6    box 1: sign, box 2: 0..2
//   2, 3  sign and six digits            0..6    box 0: sign; a clock value has tens below 6 in boxes 3 and 5
//   4     sign, six digits and a point   0..6    box 0: sign
//   5, 6  used by no field               0..6    any character
//   7     a byte, three digits           4..6    box 4: 0..2
#pragma once

namespace counter {

inline constexpr int kDigitBoxes = 7;
inline constexpr int kLastBox = 6;

// Types with rules of their own.
inline constexpr int kFreePointType = 4;
inline constexpr int kByteType = 7;

// What the limits depend on.
struct DigitLimits {
    int FieldType = 0;       // 0..7
    int FieldPos = 0;        // position of the field in the image
    int TimeEntry = 0;       // above 0: a clock value hh.mm.ss
    bool FreePoint = false;  // the user moves the point: type 4 without a V-F converter
};

// The box 0..6 in which a value of this type begins; the boxes in front of it can't be used.
int FirstBox(int fieldType);

// Whether `box`, FirstBox..6, takes the character. A "." is no digit of a box: the keys treat it apart.
bool BoxAdmits(const DigitLimits& limits, int box, char character);

}  // namespace counter
