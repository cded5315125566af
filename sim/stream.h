// Stream: what the meter transmits of its own accord while continuous output is on.
//
//     plain                  values [ alarms ] CR [ LF ]
//     own characters         [ start ] values [ alarms ] [ stop ] [ LF ]
//
// The values are those of the output items, one after the other, or with an end and a start to each when the
// setup says so. A start or stop character of code 0 is none. Own characters came with version 35; commands
// are answered with CR [ LF ] whatever they are.
//
// Alarm characters, where the setup includes them, are one for each alarm that is fitted: "A" to "D" for one
// that is on, "_" for one that isn't. How a real meter writes them isn't known here; these keep what readers
// of the stream rely on. All frames are equally long, and no character can be taken for a part of a value:
// neither for a digit, sign, point or blank nor for the E of an exponent. Answers to commands carry none.
#pragma once

#include <string>

#include "sim/device.h"

namespace sim {

// One transmission of the latest measurement.
std::string Transmission(const Device& device);
// From one transmission to the next, in ms: 1, 2, 4 ... 256 readings.
double TransmissionIntervalMs(const Device& device);

}  // namespace sim
