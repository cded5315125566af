#include "sim/stream.h"

#include <algorithm>

namespace sim {

namespace {

constexpr int kFirstWithOwnCharacters = 35;
constexpr int kSlowestRate = 8;  // codes above it count as it: every 256th reading

struct Ends {
    std::string Start, Stop;
};

std::string CharacterOf(int code) {
    return code == 0 ? std::string() : std::string(1, static_cast<char>(code));
}

Ends EndsOf(const Device& device) {
    const bool own = (device.LiveByte(0x33) & 0x40) && device.Version() >= kFirstWithOwnCharacters;
    if (!own) return {"", device.LineEnd()};
    const std::string lineFeed = device.HasLineFeed() ? "\n" : "";
    return {CharacterOf(device.LiveByte(0x5D)), CharacterOf(device.LiveByte(0xE0)) + lineFeed};
}

std::string AlarmCharacters(const Device& device) {
    std::string text;
    if ((device.LiveByte(0x32) & 0x40) == 0) return text;
    for (int i = 0; i < device.FittedAlarms(); ++i)
        text += device.AlarmsOn()[static_cast<std::size_t>(i)] ? static_cast<char>('A' + i) : '_';
    return text;
}

}  // namespace

std::string Transmission(const Device& device) {
    const Ends ends = EndsOf(device);
    const std::string alarms = AlarmCharacters(device);
    const char items = static_cast<char>('0' + (device.LiveByte(0x33) & 7));
    std::string text;
    for (const std::string& value : device.Values(items)) {
        if (!text.empty() && device.EndOfEach()) text += alarms + ends.Stop + ends.Start;
        text += value;
    }
    return ends.Start + text + alarms + ends.Stop;
}

double TransmissionIntervalMs(const Device& device) {
    return device.ReadingIntervalMs() * (1 << std::min(device.Words().Bits(191, 3, 0), kSlowestRate));
}

}  // namespace sim
