// Modbus server: functions 03, 04, 05, 06, 08 and 16 on the device.
#pragma once

#include <string>
#include <string_view>

#include "sim/device.h"

namespace sim {

// The answer that refuses a request: the function with its high bit set, then the code.
std::string ExceptionPdu(std::string_view request, int code);

// Carries out a request (function and data, at least one byte) and returns the answer in the same form.
// Exceptions: 1 function not known, 2 a register or coil that does not exist or can't be written, 3 count,
// value or length.
std::string AnswerModbus(Device& device, std::string_view request, double nowMs);

}  // namespace sim
