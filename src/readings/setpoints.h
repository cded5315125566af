// The setpoints of a setup that alarms compare an item with: limits that a chart can show.
#pragma once

#include <string>
#include <vector>

#include "meter/setup_image.h"

namespace counter {

struct ShownSetpoint {
    int Alarm = 1;  // 1..4
    double Value = 0;
    std::string Text;  // in the meter's own decimals: "100.00"
    friend bool operator==(const ShownSetpoint&, const ShownSetpoint&) = default;
};

// Those of the alarms that the relay board has and that are not disabled, whose source is the item 1..3 or
// its filtered form. `firmwareVersion` and `meterType` are the meter's.
std::vector<ShownSetpoint> SetpointsOf(const SetupImage& image, int firmwareVersion, int meterType, int item);

}  // namespace counter
