// Value fields: the digits of a number in the image to the text of the meter's display and back.
//
//   code  digits  stored                                             shown, point by code 1..6
//   0     4       unsigned                                           "00300."   point from the caller
//   1     4       bit 15 sign, 15 bits of magnitude                  " -00100." point code 1
//   2     6       24-bit two's complement                            " +010000." point from the caller
//   3     6       first digit: 8 sign; five digits of magnitude      " +1.00000" point from the caller
//   4     6       first digit: 8 sign + point code; five digits      " -074.565" point from the field
//
// A point code d leaves d - 1 digits after the point. The point is a mark and nothing is rounded: a number
// of more than six digits loses digits at the left.
#pragma once

#include <string>
#include <string_view>

#include "meter/meter_words.h"
#include "meter/setup_image.h"

namespace counter {

// The point code of values over the V-F converter, by Mode.
constexpr int VfPointCode(int mode) {
    return mode == Mode::Vf0To1mA ? 6 : 5;
}

// What a conversion depends on beside the digits.
struct ValueContext {
    int InputOption = 0;  // with the V-F converter, the board rules the point of code 4
    int ModeIndex = 0;
    int TimeEntry = 0;  // Seconds: a code 2 field holds seconds and is shown as hhmmss
};

// The text of the field at `pos`. `decPt` is the point where the code says that the caller gives it, and
// comes back as the point that was used, 1..6. A type code of 10 more gives the form of a menu cell: sign or
// blank and the number right-aligned in seven characters, without the blank in front of the sign.
std::string ValueDecode(const SetupImage& image, const ValueContext& context, int typeCode, int pos,
                        int& decPt);

// The same where nobody asks for the point that was used.
std::string ValueText(const SetupImage& image, const ValueContext& context, int typeCode, int pos, int decPt);

// Writes the field at `pos` from what was entered: for codes 1 to 4 a sign first, then digits with one point
// among them. The first character is dropped in any case, so a missing sign costs a digit. Checks no range:
// a number that is too large loses its top. A type code other than 0 to 4 writes nothing.
void ValueEncode(SetupImage& image, const ValueContext& context, int typeCode, int pos,
                 std::string_view text);

std::string WithoutBlanksAndPoints(std::string_view text);

// A clock value of sign and six digits as "+12. 34. 56"; six characters get the "+" that they lack.
std::string AddClkDP(std::string_view text);

}  // namespace counter
