#include "system/line_settings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>

namespace counter {

namespace {

constexpr std::array kBauds = {300, 600, 1200, 2400, 4800, 9600, 19200};

// What stands before the next comma, which is taken off with it.
std::string_view TakePart(std::string_view& rest) {
    const std::size_t comma = std::min(rest.find(','), rest.size());
    const std::string_view part = rest.substr(0, comma);
    rest.remove_prefix(std::min(comma + 1, rest.size()));
    return part;
}

// -1 where the whole text is not a number.
int Number(std::string_view text) {
    int value = -1;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && stop == end ? value : -1;
}

}  // namespace

std::optional<LineSettings> ParseLineSettings(std::string_view text) {
    if (std::count(text.begin(), text.end(), ',') != 3) return std::nullopt;
    LineSettings settings;
    settings.Baud = Number(TakePart(text));
    const std::string_view parity = TakePart(text);
    settings.DataBits = Number(TakePart(text));
    settings.StopBits = Number(TakePart(text));

    if (std::find(kBauds.begin(), kBauds.end(), settings.Baud) == kBauds.end()) return std::nullopt;
    if (parity != "n" && parity != "o" && parity != "e") return std::nullopt;
    settings.Parity = parity[0];
    if (settings.DataBits != 7 && settings.DataBits != 8) return std::nullopt;
    if (settings.StopBits != 1 && settings.StopBits != 2) return std::nullopt;
    return settings;
}

}  // namespace counter
