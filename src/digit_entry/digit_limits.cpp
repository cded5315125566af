#include "digit_entry/digit_limits.h"

#include "meter/field_table.h"

namespace counter {

namespace {

bool IsSign(char character) {
    return character == '+' || character == '-';
}

bool IsDigitUpTo(char character, char highest) {
    return character >= '0' && character <= highest;
}

// The highest first digit of five: the meter's display stops at 19999, but at the positions of Offset 2 and
// of the Cutoff Value it reaches 59999.
char HighestFirstDigit(int fieldPos) {
    return fieldPos == RowOf(Field::Offset2).Pos || fieldPos == RowOf(Field::CutoffValue).Pos ? '5' : '1';
}

char HighestDigit(const DigitLimits& limits, int box) {
    switch (limits.FieldType) {
        case 0:
            return box == 2 ? HighestFirstDigit(limits.FieldPos) : '9';
        case 1:
            return box == 2 ? '2' : '9';
        case 2:
        case 3:
            return limits.TimeEntry > 0 && (box == 3 || box == 5) ? '5' : '9';
        case kByteType:
            return box == 4 ? '2' : '9';
        default:
            return '9';
    }
}

}  // namespace

int FirstBox(int fieldType) {
    switch (fieldType) {
        case 0:
            return 2;
        case 1:
            return 1;
        case kByteType:
            return 4;
        default:
            return 0;
    }
}

bool BoxAdmits(const DigitLimits& limits, int box, char character) {
    const int type = limits.FieldType;
    if (type == 5 || type == 6) return true;
    const bool hasSign = type >= 1 && type <= 4;
    if (hasSign && box == FirstBox(type)) return IsSign(character);
    return IsDigitUpTo(character, HighestDigit(limits, box));
}

}  // namespace counter
