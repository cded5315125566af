#include "settings/settings_keys.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cstdio>

namespace counter {

namespace {

using S = Settings;

// clang-format off
constexpr std::array<SettingsKey, 15> kKeys = {{
    // name               line from length kind                 number                text            least most but
    {"MeterType",           1,  1,  1, SettingsKind::Decimal,   &S::MeterType,         nullptr,         0,     8,  4},
    {"BaudIndex",           1,  2,  1, SettingsKind::Decimal,   &S::BaudIndex,         nullptr,         0,     6},
    {"CommPortNumber",      1,  3,  2, SettingsKind::Decimal,   &S::CommPortNumber,    nullptr,         1,    99},
    {"SerialProtocol",      1,  5,  1, SettingsKind::Decimal,   &S::SerialProtocol,    nullptr,         0,     2},
    {"ParityIndex",         1,  6,  1, SettingsKind::Decimal,   &S::ParityIndex,       nullptr,         0,     2},
    {"MeterAddressValue",   1,  8,  1, SettingsKind::Address,   &S::MeterAddressValue, nullptr,         0,    31},
    {"ModbusAddress",       1,  9,  3, SettingsKind::Decimal,   &S::ModbusAddress,     nullptr,         1,   255},
    {"LongWakeUp",          1, 12,  1, SettingsKind::Decimal,   &S::LongWakeUp,        nullptr,         0,     1},
    {"FirmwareVersion",     1, 13,  3, SettingsKind::Decimal,   &S::FirmwareVersion,   nullptr,         0,   255},
    {"CommsEnabled",        1, 16,  1, SettingsKind::Decimal,   &S::CommsEnabled,      nullptr,         0,     2},
    {"ProgramKind",         1, 17,  1, SettingsKind::Decimal,   &S::ProgramKind,       nullptr,         0,     9},
    {"TcpPort",             2,  1,  4, SettingsKind::Hex,       &S::TcpPort,           nullptr,         1, 65535},
    {"NodeAddress",         2,  5, 12, SettingsKind::HexDigits, nullptr,               &S::NodeAddress},
    {"NodeUdpPort",         2, 17,  4, SettingsKind::Hex,       &S::NodeUdpPort,       nullptr,         0, 65535},
    {"NodeIp",              2, 21,  8, SettingsKind::IpAddress, nullptr,               &S::NodeIp},
}};
// clang-format on

std::string Refusal(const SettingsKey& key, const std::string& legal) {
    return std::string(key.Name) + " is " + legal;
}

std::optional<int> WholeNumber(std::string_view text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

std::string Padded(const char* format, int length, int number) {
    char text[16];
    std::snprintf(text, sizeof text, format, length, number);
    return text;
}

// The number as the file holds it.
std::string NumberText(const SettingsKey& key, int number) {
    switch (key.Kind) {
        case SettingsKind::Address:
            return std::string(1, AddressChar(number));
        case SettingsKind::Hex:
            return Padded("%0*X", key.Length, number);
        default:
            return Padded("%0*d", key.Length, number);
    }
}

std::optional<std::string> HexDigitsText(const SettingsKey& key, std::string_view value) {
    if (static_cast<int>(value.size()) != key.Length) return std::nullopt;
    std::string digits;
    for (const char c : value) {
        if (!std::isxdigit(static_cast<unsigned char>(c))) return std::nullopt;
        digits += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    }
    return digits;
}

std::optional<std::string> IpText(std::string_view value) {
    std::string digits;
    for (int byte = 0; byte < 4; ++byte) {
        const std::size_t end = byte < 3 ? value.find('.') : value.size();
        if (end == std::string_view::npos) return std::nullopt;
        const std::optional<int> number = WholeNumber(value.substr(0, end));
        if (!number || *number < 0 || *number > 255) return std::nullopt;
        digits += Padded("%0*X", 2, *number);
        value.remove_prefix(std::min(end + 1, value.size()));
    }
    return digits;
}

bool LegalNumber(const SettingsKey& key, std::optional<int> number) {
    return number && *number >= key.Least && *number <= key.Most && *number != key.But;
}

}  // namespace

std::span<const SettingsKey> SettingsKeys() {
    return kKeys;
}

const SettingsKey* FindSettingsKey(std::string_view name) {
    const auto found =
        std::find_if(kKeys.begin(), kKeys.end(), [&](const auto& key) { return key.Name == name; });
    return found == kKeys.end() ? nullptr : &*found;
}

std::optional<int> SettingsNumber(const Settings& settings, const SettingsKey& key) {
    if (key.Number == nullptr) return std::nullopt;
    return settings.*key.Number;
}

std::string SettingsText(const Settings& settings, const SettingsKey& key) {
    if (const auto number = SettingsNumber(settings, key)) return std::to_string(*number);
    return settings.*key.Text;
}

std::string SetSettingsKey(SettingsLines& lines, const SettingsKey& key, std::string_view value) {
    std::optional<std::string> text;
    std::string legal;
    if (key.Kind == SettingsKind::HexDigits) {
        text = HexDigitsText(key, value);
        legal = std::to_string(key.Length) + " hexadecimal digits";
    } else if (key.Kind == SettingsKind::IpAddress) {
        text = IpText(value);
        legal = "four numbers 0 to 255 with points between them";
    } else {
        const std::optional<int> number = WholeNumber(value);
        if (LegalNumber(key, number)) text = NumberText(key, *number);
        legal = "a number " + std::to_string(key.Least) + " to " + std::to_string(key.Most);
        if (key.But != kNoNumber) legal += " other than " + std::to_string(key.But);
    }
    if (!text) return Refusal(key, legal);
    SettingsPut(key.Line == 1 ? lines.SettingsLine1 : lines.SettingsLine2, key.Position, *text);
    return {};
}

SettingsLines NewSettingsLines() {
    return {"3501000100100831010000", "2711000000000000F6CB00000000"};
}

}  // namespace counter
