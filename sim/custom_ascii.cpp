#include "sim/custom_ascii.h"

#include <algorithm>

#include "sim/hex.h"

namespace sim {

namespace {

// Value of a digit of base 36, which counts words in block commands; 0 for another character.
int CountOf(char digit) {
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'A' && digit <= 'Z') return digit - 'A' + 10;
    return 0;
}

// The coil number of each reset letter. Valley is 9, out of the run of the others, as the meter has it.
int CoilOf(char digit) {
    switch (digit) {
        case '0':
            return 1;
        case '1':
            return 2;
        case '2':
            return 3;
        case '3':
            return 4;
        case '9':
            return 5;
        case '4':
            return 6;
        default:
            return 0;
    }
}

// Bytes of the working memory from `address` down.
std::string LiveBytes(const Device& device, int address, int count) {
    std::string digits;
    for (int i = 0; i < count && i <= address; ++i)
        digits += HexOf(static_cast<std::uint32_t>(device.LiveByte(address - i)), 2);
    return digits;
}

std::optional<std::string> NotEmpty(std::string reply) {
    if (reply.empty()) return std::nullopt;
    return reply;
}

// X, W, G and R: a letter, a count, the highest address in two digits, then data.
std::optional<std::string> Access(Device& device, std::string_view command) {
    if (command.size() < 4) return std::nullopt;
    const int count = CountOf(command[1]);
    const auto address = NumberOf(command.substr(2, 2));
    std::string_view data = command.substr(4);
    if (count == 0 || !address) return std::nullopt;
    const int highest = static_cast<int>(*address);
    switch (command[0]) {
        case 'X':  // reads end in Z
            if (data != "Z") return std::nullopt;
            return NotEmpty(device.Words().Block(highest, count));
        case 'W':  // writes may
            if (data.ends_with('Z')) data.remove_suffix(1);
            device.Words().SetBlock(highest, count, data);
            return std::nullopt;
        case 'G':
            return data.empty() ? NotEmpty(LiveBytes(device, highest, count)) : std::nullopt;
        case 'R': {  // two decimal digits; only the analog option is known
            if (count != 1 || highest != 0x41 || !data.empty()) return std::nullopt;
            const std::string digits = "0" + std::to_string(device.AnalogOption());
            return digits.substr(digits.size() - 2);
        }
        default:
            return std::nullopt;
    }
}

// H to the display, K to Item 3, L to both; the value is all that follows.
void TakeRemote(Device& device, std::string_view command) {
    const RemoteValue value = RemoteValueOf(command.substr(1));
    if (command[0] != 'K') device.ShowRemote(value);
    if (command[0] != 'H') device.SetRemoteItem3(value);
}

}  // namespace

char AddressChar(int address) {
    return static_cast<char>(address < 10 ? '0' + address : 'A' + address - 10);
}

bool IsWakeUp(std::string_view line) {
    if (line.size() < 3 || line.front() != '|' || line.back() != '|') return false;
    const std::string_view inner = line.substr(1, line.size() - 2);
    return std::all_of(inner.begin(), inner.end(), [](char c) { return c == '*'; });
}

std::optional<std::string> CommandBehindHead(std::string_view line, int address) {
    if (line.starts_with('|')) line.remove_prefix(1);
    if (line.size() < 3 || line[0] != '*' || line[1] != AddressChar(address)) return std::nullopt;
    return std::string(line.substr(2));
}

std::optional<std::string> Execute(Device& device, std::string_view command, double nowMs) {
    device.Follow(nowMs);
    switch (command[0]) {
        case 'A':
            if (command == "A0" || command == "A1") device.Transmit(command == "A0");
            return std::nullopt;
        case 'B':
            return command.size() == 2 ? NotEmpty(device.ValueLines(command[1])) : std::nullopt;
        case 'C':
            if (command.size() == 2) device.Reset(CoilOf(command[1]));
            return std::nullopt;
        case 'H':
        case 'K':
        case 'L':
            TakeRemote(device, command);
            return std::nullopt;
        default:
            return Access(device, command);
    }
}

}  // namespace sim
