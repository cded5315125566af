// Face: what the front of the meter shows.
#pragma once

#include <array>
#include <string>

#include "sim/device.h"

namespace sim {

struct FaceState {
    std::string Digits = "      ";  // six: digits, and blanks for leading zeros unless the setup shows them
    int Point = 6;                  // the digit after which the point is lit, 1 to 6
    bool Minus = false;
    std::array<bool, 4> Alarms{};  // alarms 1 to 4 are on
    int Item = 1;                  // the displayed Item; 0 while a remote value is shown in its place
    bool Remote = false;           // a remote value is shown, or waited for by a remote display

    bool operator==(const FaceState&) const = default;
};

// After the latest measurement. A remote display that was sent nothing is blank.
FaceState FaceOf(const Device& device);

}  // namespace sim
