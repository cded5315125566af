#include "system/line_settings.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace counter {

namespace {

constexpr std::array kBauds = {300, 600, 1200, 2400, 4800, 9600, 19200};

// What comes before the next comma, which is taken off with it.
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

std::optional<QSerialPort::Parity> ParityOf(std::string_view letter) {
    if (letter == "n") return QSerialPort::NoParity;
    if (letter == "o") return QSerialPort::OddParity;
    if (letter == "e") return QSerialPort::EvenParity;
    return std::nullopt;
}

}  // namespace

std::optional<LineSettings> ParseLineSettings(std::string_view text) {
    if (std::count(text.begin(), text.end(), ',') != 3) return std::nullopt;
    LineSettings settings;
    settings.Baud = Number(TakePart(text));
    const auto parity = ParityOf(TakePart(text));
    const int dataBits = Number(TakePart(text));
    const int stopBits = Number(TakePart(text));

    if (std::find(kBauds.begin(), kBauds.end(), settings.Baud) == kBauds.end()) return std::nullopt;
    if (!parity || (dataBits != 7 && dataBits != 8) || (stopBits != 1 && stopBits != 2)) return std::nullopt;
    settings.Parity = *parity;
    settings.DataBits = dataBits == 7 ? QSerialPort::Data7 : QSerialPort::Data8;
    settings.StopBits = stopBits == 2 ? QSerialPort::TwoStop : QSerialPort::OneStop;
    return settings;
}

LineSettings SettingsFor(std::string_view portName, const LineSettings& settings) {
    LineSettings line = settings;
    if (!portName.starts_with("pts/")) return line;
    line.Parity = QSerialPort::NoParity;
    line.DataBits = QSerialPort::Data8;
    return line;
}

}  // namespace counter
