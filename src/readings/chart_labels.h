// What the axes of a chart say, and the numbers that users type for them.
#pragma once

#include <string>
#include <string_view>

namespace counter {

// The value axis, as typed.
struct ValueScale {
    float MidValue = 0;
    float SmallDiv = 1;  // never 0
    int Decimals = 0;    // 0..6: the more of what is after the points of both texts
};

// A lone comma is a decimal point. A small division of 0, or none, is 1.
ValueScale ReadValueScale(std::string_view midText, std::string_view smallText);

// The number that the text begins with, in single precision; 0 where there is none, and the largest number
// there is where it is too large. A lone comma is a decimal point.
float TypedNumber(std::string_view text);

// How far a typed text is a number: all of it; to some point in it; not at all. Blanks, or nothing, are all
// that a number needs to be its default.
enum class Typed { Number, NumberAndMore, NoNumber };
Typed JudgeTyped(std::string_view text);

// The value `divisions` small divisions above the middle: all decimals, and a point also where there are
// none, "5.".
std::string ValueLabel(const ValueScale& scale, int divisions);

// With this many digits after the point, and no point where there are none; never "-0".
std::string DecimalText(double value, int decimals);

// As short as the number can be written: "12", "0.5".
std::string ShortNumber(double value);

// Seconds: at most six decimals without trailing zeros, no zero before the point, and a point also after a
// whole number: ".5", "60.". "0" for 0.
std::string TimeLabel(double seconds);

// The nearest whole number, halves to the even one. A half of the decimal numbers that a meter and a user
// write counts as one, though binary fractions miss it by a hair: (0.05 + 1.5) / 0.1 is 15.5.
double WholeUnits(double number);

// The decimal number that single precision represents: 123.4 where the number held is 123.40000153.
double AsTyped(float number);

}  // namespace counter
