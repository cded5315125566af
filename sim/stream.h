// Stream: what the meter transmits of its own accord while continuous output is on.
//
//     plain                  values CR [ LF ]
//     own characters         [ start ] values [ stop ] [ LF ]
//
// The values are those of the output items, one after the other, or with an end and a start to each when the
// setup says so. A start or stop character of code 0 is none. Own characters came with version 35; commands
// are answered with CR [ LF ] whatever they are.
#pragma once

#include <string>

#include "sim/device.h"

namespace sim {

// One transmission of the latest measurement.
std::string Transmission(const Device& device);
// From one transmission to the next, in ms: 1, 2, 4 ... 256 readings.
double TransmissionIntervalMs(const Device& device);

}  // namespace sim
