#include "settings/settings.h"

#include <algorithm>
#include <cstdlib>

#include "meter/meter_words.h"

namespace counter {

namespace {

std::string Part(const std::string& line, int from, int length) {
    const auto start = static_cast<std::size_t>(from - 1);
    return start < line.size() ? line.substr(start, static_cast<std::size_t>(length)) : std::string();
}

// The number at the beginning of the text, blanks in front allowed; 0 where there is none.
int Number(const std::string& text, int base = 10) {
    std::size_t start = text.find_first_not_of(' ');
    if (start == std::string::npos || text[start] == '-' || text[start] == '+') return 0;
    return static_cast<int>(std::strtol(text.c_str() + start, nullptr, base));
}

int Field(const std::string& line, int from, int length = 1) {
    return Number(Part(line, from, length));
}

int MeterTypeOf(int digit) {
    return digit == 4 || digit > 8 ? 0 : digit;
}

int BaudIndexOf(const std::string& character) {
    const bool legal = character.size() == 1 && character[0] >= '0' && character[0] <= '6';
    return legal ? character[0] - '0' : -1;
}

// Seven characters lie between "9" and "A". ":" counts as 10 too: required.
int AddressValue(const std::string& character) {
    if (character.empty()) return 0;
    const int value = static_cast<unsigned char>(character[0]) - '0';
    return value > 10 ? value - 7 : value;
}

void TakeAddress(Settings& settings) {
    const int value = settings.MeterAddressValue;
    if (value > 31) return;
    settings.MeterAddressChar = AddressChar(value);
    settings.MeterAddressLabel = std::string(1, AddressChar(value > 15 ? value - 16 : value));
    if (value > 15) settings.MeterAddressLabel += '.';
}

std::string HexAddress(int address) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    return {kDigits[address / 16 % 16], kDigits[address % 16]};
}

std::string DottedIp(const std::string& digits) {
    std::string text;
    for (int byte = 0; byte < 4; ++byte) {
        if (byte > 0) text += '.';
        text += std::to_string(Number(Part(digits, 1 + 2 * byte, 2), 16));
    }
    return text;
}

bool AllAre(const std::string& text, char wanted) {
    return std::all_of(text.begin(), text.end(), [wanted](char c) { return c == wanted; });
}

void ParseLine1(const std::string& line, Settings& settings) {
    settings.MeterType = MeterTypeOf(Field(line, 1));
    settings.BaudIndex = BaudIndexOf(Part(line, 2, 1));
    settings.CommPortNumber = Field(line, 3, 2);
    settings.SerialProtocol = Field(line, 5);
    settings.ParityIndex = Field(line, 6);
    settings.MeterAddressValue = AddressValue(Part(line, 8, 1));
    settings.ModbusAddress = std::max(1, Field(line, 9, 3));
    settings.LongWakeUp = Field(line, 12);
    settings.FirmwareVersion = Field(line, 13, 3);
    settings.CommsEnabled = Field(line, 16);
    settings.ProgramKind = Field(line, 17);
    settings.ModbusLink = settings.SerialProtocol != Protocol::CustomAscii;
    settings.ModbusAddressHex = HexAddress(settings.ModbusAddress);
    settings.MeterNameSuffix = IsTransmitter(settings.MeterType) ? " Counter Transmitter" : " Counter";
    TakeAddress(settings);
}

void ParseLine2(const std::string& line, Settings& settings) {
    settings.TcpPort = Number(Part(line, 1, 4), 16);
    settings.NodeAddress = Part(line, 5, 12);
    settings.NodeUdpPort = Number(Part(line, 17, 4), 16);
    settings.NodeIp = DottedIp(Part(line, 21, 8));
    settings.EthernetMode = !AllAre(settings.NodeAddress, '0') && !AllAre(settings.NodeAddress, 'F');
}

void TakeChanges(const std::string& from, const std::string& to, std::string& now) {
    for (std::size_t i = 0; i < to.size(); ++i) {
        if (i < from.size() && from[i] == to[i]) continue;
        SettingsPut(now, static_cast<int>(i) + 1, to.substr(i, 1));
    }
}

}  // namespace

SettingsLines SplitSettings(std::string_view text) {
    SettingsLines lines;
    for (std::string* line : {&lines.SettingsLine1, &lines.SettingsLine2}) {
        const std::size_t end = std::min(text.find_first_of(",\r\n"), text.size());
        *line = std::string(text.substr(0, end));
        text.remove_prefix(end);
        if (text.substr(0, 2) == "\r\n") text.remove_prefix(1);
        if (!text.empty()) text.remove_prefix(1);
    }
    return lines;
}

std::string NormaliseLine1(std::string_view line) {
    std::string text(line);
    if (text.size() == 17) text += "10000";
    text += "00000";
    text.resize(std::min<std::size_t>(text.size(), kSettingsLine1Length));
    return text;
}

void ParseSettings(const SettingsLines& fileLines, Settings& settings) {
    settings.FileLines = fileLines;
    settings.Lines = {NormaliseLine1(fileLines.SettingsLine1), fileLines.SettingsLine2};
    ParseLine1(settings.Lines.SettingsLine1, settings);
    ParseLine2(settings.Lines.SettingsLine2, settings);
}

std::string IllegalLine(const Settings& settings) {
    if (settings.BaudIndex < 0) return kBaudDigitReason;
    if (settings.SerialProtocol > Protocol::ModbusAscii)
        return "the protocol digit, position 5 of line 1, is none of 0 to 2";
    if (settings.ModbusLink && settings.ParityIndex > Parity::Even) {
        return "the parity digit, position 6 of line 1, is none of 0 to 2";
    }
    return {};
}

std::string FormatSettings(const SettingsLines& lines) {
    return lines.SettingsLine1 + "\r\n" + lines.SettingsLine2 + "\r\n";
}

char AddressChar(int address) {
    return static_cast<char>(address < 10 ? '0' + address : 'A' + address - 10);
}

SettingsLines WithChanges(const SettingsLines& from, const SettingsLines& to, SettingsLines now) {
    TakeChanges(from.SettingsLine1, to.SettingsLine1, now.SettingsLine1);
    TakeChanges(from.SettingsLine2, to.SettingsLine2, now.SettingsLine2);
    return now;
}

void SettingsPut(std::string& line, int from, std::string_view text) {
    const auto start = static_cast<std::size_t>(from - 1);
    if (line.size() < start + text.size()) line.resize(start + text.size(), '0');
    line.replace(start, text.size(), text);
}

}  // namespace counter
