#include "sim/device.h"

#include <algorithm>
#include <vector>

namespace sim {

namespace {

// Bits 2..0 of the option byte for each input board, 0..3.
constexpr int kInputCodes[] = {0, 1, 4, 2};
// A thousand readings a second are more than any line carries, and few enough to be made one by one.
constexpr double kFastestHz = 1000;

Memory StartMemory(const MeterOptions& options) {
    Memory memory;
    memory.LoadImage(StartImage(options));
    return memory;
}

constexpr Reading kItems[] = {Reading::Item1, Reading::Item2, Reading::Item3};

// The readings of command B0..B7.
std::vector<Reading> ReadingsOf(char which, int items, int displayed) {
    std::vector<Reading> active(kItems, kItems + items);
    switch (which) {
        case '0':
            return active;
        case '1':
        case '2':
        case '3':
            return {kItems[which - '1']};
        case '4':
            return {Reading::Peak};
        case '5':
            return {kItems[displayed - 1]};
        case '6':
            return {Reading::Valley};
        case '7':
            active.insert(active.end(), {Reading::Peak, Reading::Valley});
            return active;
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
    : memory_(StartMemory(options)),
      inputBoard_(options.InputBoard),
      commBoard_(options.CommBoard),
      relayBoard_(options.RelayBoard),
      analogBoard_(options.AnalogBoard),
      extended_(options.Extended),
      liveBytes_(options.LiveBytes),
      readings_(options, memory_),
      readingIntervalMs_(1000 / std::min(options.RateHz.value_or(kFastestHz), kFastestHz)) {}

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
            return Version() == 78 && (OptionByte() >> 5 & 3) == 3 ? OptionByte() & ~0x40 : OptionByte();
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

void Device::Follow(double nowMs) {
    if (!nextReadingMs_) nextReadingMs_ = nowMs;
    for (; *nextReadingMs_ <= nowMs; *nextReadingMs_ += readingIntervalMs_) Measure(*nextReadingMs_);
}

void Device::AdoptSetup() {
    adoptedChanges_ = memory_.Changes();
    readings_.Adopt(memory_, Plan());
    alarmSetups_ = AlarmSetupsOf(memory_, Plan(), FittedAlarms());
}

// Hours may have to be made up for, so a measurement asks the memory for nothing that has not changed.
void Device::Measure(double nowMs) {
    if (adoptedChanges_ != memory_.Changes()) AdoptSetup();
    readings_.Measure(nowMs);
    alarms_.Judge(alarmSetups_, {Value(Reading::Item1), Value(Reading::Item2), Value(Reading::Item3)});
}

int Device::Value(Reading which) const {
    return which == Reading::Item3 && remoteItem3_ ? remoteItem3_->Count : readings_.Value(which);
}

std::string Device::ValueTextOf(Reading which) const {
    if (which == Reading::Item3 && remoteItem3_)
        return ValueText(remoteItem3_->Count, remoteItem3_->Decimals);
    return ValueText(Value(which), DecimalsOf(memory_, Plan(), which));
}

std::vector<std::string> Device::Values(char which) const {
    std::vector<std::string> values;
    for (Reading reading : ReadingsOf(which, Plan().Items, DisplayedItem()))
        values.push_back(ValueTextOf(reading));
    return values;
}

std::string Device::ValueLines(char which) const {
    if (which == '0' && EndOfEach()) return ValueTextOf(Reading::Item1);
    std::string lines;
    for (const std::string& value : Values(which)) {
        if (EndOfEach() && !lines.empty()) lines += LineEnd();
        lines += value;
    }
    return lines;
}

int Device::DisplayedItem() const {
    return std::clamp(memory_.Bits(157, 1, 0), 1, Plan().Items);
}

// Alarms drive relays: four of code 1, two of the other codes; meter types from 5 on always have two.
int Device::FittedAlarms() const {
    const int code = OptionByte() >> 5 & 3;
    if (memory_.Bits(235, 7, 0) >= 5) return 2;
    return code == 0 ? 0 : code == 1 ? 4 : 2;
}

void Device::SetRemoteItem3(const RemoteValue& value) {
    if (Plan().Items < 3) remoteItem3_ = value;
}

RemoteValue Device::RemoteValueOfCount(int count) const {
    return {std::to_string(count), count, DecimalsOf(memory_, ItemPlan{}, Reading::Item1)};
}

void Device::Reset(int coil) {
    const bool all = coil == 1;
    if (all) {
        Transmit(false);
        RequestLine();
    }
    if (all || coil == 2) readings_.Restart();
    if (all || coil == 3) alarms_.ResetLatched();
    if (all || coil == 4) readings_.ResetPeak();
    if (all || coil == 5) readings_.ResetValley();
    if (all || coil == 6) remoteShown_ = remoteItem3_ = std::nullopt;
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
