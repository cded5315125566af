// The three bits that hold how alarms 1 and 2 deviate: bits 5..3 of byte 201.
#pragma once

#include "meter/firmware_rules.h"

namespace counter {

struct DeviationCode {
    int Type1 = 0;           // alarm 1: 0 band, 1 hysteresis (split, where span exists), 2 span hysteresis
    int Type2 = 0;           // alarm 2, the same
    bool NotInMenu = false;  // the meter's menu has no deviations
};

// What the code 0..7 means. Where the meter knows span hysteresis, 5 to 7 are span for alarm 1 and 0 to 2 for
// alarm 2; otherwise, and for 0 to 4, the low two bits are the two types.
constexpr DeviationCode DeviationFromCode(int code, int firmwareVersion) {
    bool span = SpanHysteresisOffered(firmwareVersion);
    if (span && code >= 5) return {2, code - 5, false};
    return {code & 1, (code >> 1) & 1, span ? code == 4 : code > 3};
}

}  // namespace counter
