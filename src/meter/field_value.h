// A field's value as people read it, its digits as stored, and whether two images agree in it.
#pragma once

#include <string>

#include "meter/field_table.h"
#include "meter/setup_image.h"

namespace counter {

struct FieldValue {
    std::string Text;       // what to show; for a number its decimal digits
    bool IsNumber = false;  // a number without a list, or a code that has no entry in its list
    int Number = 0;         // the stored code, 0..255; 0 for values and carried digits
};

// A value is the text of the Setup view without blanks around it ("+010000."), with the point that the view
// would use; an entry of a list is trimmed alike; carried digits are as they are. The version by which
// points are worked out is the image's own.
FieldValue ValueOfField(const SetupImage& image, Field field);

// The digits as stored: 2 for a byte and its bits, 4, 6 or 24 for others; less where the image ends.
std::string FieldDigits(const SetupImage& image, Field field);

// Whether the field's bytes are hexadecimal in all that is there of them. What isn't reads as 0 and still is
// no 0: nobody may take a damaged file for a setup of zeros.
bool FieldIsHex(const SetupImage& image, Field field);

// True where both images store the same bits in the field. A byte that is not hexadecimal equals only the
// same characters; missing digits count as they read, as a pair of zeros.
bool FieldEqual(const SetupImage& a, const SetupImage& b, Field field);

}  // namespace counter
