#include "commands/remote_display.h"

#include <cstdint>
#include <limits>

#include "meter/hex_text.h"
#include "meter/leading_number.h"

namespace counter {

std::string RmtDspyNoDP(std::string text) {
    std::erase(text, '.');
    return text;
}

std::optional<std::string> RemoteDigits(std::string_view text) {
    using Limits = std::numeric_limits<std::int32_t>;
    const double value = RoundHalfEven(LeadingNumber(RmtDspyNoDP(std::string(text))));
    if (value < Limits::min() || value > Limits::max()) return std::nullopt;
    return HexNumber(static_cast<std::uint32_t>(static_cast<std::int32_t>(value)), 8);
}

std::string NoMeterText(const std::string& typed) {
    return "'" + typed + "' has characters that the meter does not have";
}

}  // namespace counter
