#include "sim/device.h"

#include <algorithm>
#include <vector>

namespace sim {

namespace {

// Bits 2..0 of the option byte for each input board, 0..3.
constexpr int kInputCodes[] = {0, 1, 4, 2};

int DecimalsOf(const Memory& memory, Reading which) {
    const bool second = which == Reading::Item2 || which == Reading::Item3;
    const int code = second ? memory.Bits(151, 6, 4) : memory.Bits(151, 2, 0);
    return std::clamp(code, 1, 6) - 1;
}

std::vector<Reading> ReadingsOf(const Memory& memory, char which) {
    using enum Reading;
    switch (which) {
        case '0':
            return {Item1, Item2, Item3};
        case '1':
            return {Item1};
        case '2':
            return {Item2};
        case '3':
            return {Item3};
        case '4':
            return {Peak};
        case '5':
            return ReadingsOf(memory, static_cast<char>('0' + std::max(memory.Bits(157, 1, 0), 1)));
        case '6':
            return {Valley};
        case '7':
            return {Item1, Item2, Item3, Peak, Valley};
        default:
            return {};
    }
}

}  // namespace

LineSettings LineSettingsOf(const Memory& memory) {
    LineSettings line;
    const int protocol = memory.Bits(109, 3, 2);
    line.Protocol = protocol > 2 ? LineProtocol::CustomAscii : static_cast<LineProtocol>(protocol);
    line.BaudIndex = memory.Bits(191, 6, 4);
    line.Baud = BaudRateOf(line.BaudIndex);
    line.Parity = memory.Bits(109, 1, 0);
    line.Address = memory.Bits(189, 4, 0);
    line.ModbusAddress = memory.Bits(111, 7, 0);
    return line;
}

Device::Device(const MeterOptions& options)
    : inputBoard_(options.InputBoard),
      commBoard_(options.CommBoard),
      relayBoard_(options.RelayBoard),
      analogBoard_(options.AnalogBoard),
      extended_(options.Extended),
      liveBytes_(options.LiveBytes) {
    memory_.LoadImage(StartImage(options));
}

int Device::LiveByte(int address) const {
    if (const auto set = liveBytes_.find(address); set != liveBytes_.end()) return set->second;
    const bool extended = extended_.value_or(memory_.Bits(185, 3, 2) != 0);
    switch (address) {
        case 0x28:
            return extended ? 0x80 : 0;
        // Bit 2 is clear when there are two relays of code 3, which the option byte of version 78 tells as 1.
        case 0x2B:
            return (OptionByte() >> 5 & 3) == 3 ? 0 : 0x04;
        case 0x2D:
            return BoardByte();
        case 0x30:
            return memory_.Bits(233, 7, 0) == 78 && (OptionByte() >> 5 & 3) == 3 ? OptionByte() & ~0x40
                                                                                 : OptionByte();
        case 0x32:
            return memory_.Bits(189, 7, 0);
        case 0x33:
            return memory_.Bits(187, 7, 0);
        case 0x5D:
            return memory_.Bits(239, 7, 0);
        case 0xE0:
            return memory_.Bits(237, 7, 0);
        default:
            return 0;
    }
}

int Device::ToldByte(int position) const {
    switch (position) {
        case 143:
            return AnalogOption();
        case 193:
            return OptionByte();
        case 199:
            return BoardByte();
        default:
            return memory_.Bits(position, 7, 0);
    }
}

std::string Device::ValueLines(char which, double nowMs) {
    const bool endOfEach = memory_.Bits(187, 3, 3) != 0;
    std::string lines;
    for (Reading reading : ReadingsOf(memory_, which)) {
        if (endOfEach && !lines.empty()) lines += LineEnd();
        lines += ValueText(Value(reading, nowMs), DecimalsOf(memory_, reading));
    }
    return lines;
}

void Device::Reset(int coil) {
    if (coil == 1) RequestLine();
    if (coil == 4) readings_.ResetPeak();
    if (coil == 5) readings_.ResetValley();
}

// Mode and Function; the first digit divided by 4 is the input board, where 0 counts as 1. A Mode of another
// board than the one that is fitted gives way to the first Mode of the fitted board.
int Device::BoardByte() const {
    const int byte = memory_.Bits(199, 7, 0);
    if (!inputBoard_ || std::max(byte >> 6, 1) == std::max(*inputBoard_, 1)) return byte;
    return (*inputBoard_ & 3) << 6 | (byte & 0xF);
}

int Device::OptionByte() const {
    int byte = memory_.Bits(193, 7, 0);
    if (inputBoard_) byte = (byte & ~0x07) | kInputCodes[*inputBoard_ & 3];
    if (commBoard_) byte = (byte & ~0x18) | (*commBoard_ & 3) << 3;
    if (relayBoard_) byte = (byte & ~0x60) | (*relayBoard_ & 3) << 5;
    return byte;
}

}  // namespace sim
