// Values for the meter's display that come from outside.
//
// In Custom ASCII the meter takes the text as the user typed it. A Modbus meter takes a whole number of 32
// bits and shows it with its own decimal point, so a point in the text is dropped, not applied.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace counter {

// The text without any ".".
std::string RmtDspyNoDP(std::string text);

// The eight hexadecimal digits of a value for a Modbus meter, two's complement where it is negative: "12.34"
// is 000004D2. Text that begins with no number is 0. Nothing for a value outside -2147483648..2147483647.
std::optional<std::string> RemoteDigits(std::string_view text);

// Why what was typed, in UTF-8, is no text for the meter.
std::string NoMeterText(const std::string& typed);

}  // namespace counter
