// LineSettings: "baud,parity,databits,stopbits", taken apart.
#pragma once

#include <optional>
#include <string_view>

namespace counter {

struct LineSettings {
    int Baud = 9600;    // bits a second, one of the seven that the meter knows, 300 to 19200
    char Parity = 'n';  // n none, o odd, e even
    int DataBits = 8;   // 7 or 8
    int StopBits = 1;   // 1 or 2
};

// Nothing where the text is not of that form or asks for what the meter can't do.
std::optional<LineSettings> ParseLineSettings(std::string_view text);

}  // namespace counter
