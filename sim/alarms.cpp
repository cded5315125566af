#include "sim/alarms.h"

#include <algorithm>

namespace sim {

namespace {

// Where the setup keeps an alarm. Alarms share bytes in pairs.
struct Place {
    int Setpoint;     // position of six digits
    int StateByte;    // position of the byte of states and types
    int StateBit;     // the lower of two bits; the type is at bit 4 + StateBit / 2
    int ReadingByte;  // position of the byte whose low three bits count readings
    int SourceBit;    // the lower of two bits at position 169
};

constexpr Place kPlaces[] = {
    {55, 203, 0, 201, 6}, {49, 203, 2, 201, 4}, {223, 231, 0, 229, 2}, {217, 231, 2, 229, 0}};

constexpr int kActiveHigh = 0, kActiveLow = 1;  // other states are disabled
constexpr int kFirstRemoteDisplay = 6;          // Display Types from here on watch Item 3 alone

int SetpointOf(const Memory& memory, const Place& place) {
    const auto digits = static_cast<int>(memory.Number(place.Setpoint, 6));
    return digits & 0x800000 ? digits - 0x1000000 : digits;
}

Reading SourceOf(const Memory& memory, const ItemPlan& plan, const Place& place) {
    if (memory.Bits(185, 7, 4) >= kFirstRemoteDisplay) return Reading::Item3;
    switch (memory.Bits(169, place.SourceBit + 1, place.SourceBit)) {
        case 0:
            return FilteredItem(plan);
        case 2:
            return Reading::Item2;
        case 3:
            return Reading::Item3;
        default:
            return Reading::Item1;
    }
}

AlarmSetup SetupOf(const Memory& memory, const ItemPlan& plan, const Place& place) {
    AlarmSetup setup;
    const int state = memory.Bits(place.StateByte, place.StateBit + 1, place.StateBit);
    const int typeBit = 4 + place.StateBit / 2;
    setup.Enabled = state == kActiveHigh || state == kActiveLow;
    setup.ActiveLow = state == kActiveLow;
    setup.Latching = memory.Bits(place.StateByte, typeBit, typeBit) != 0;
    setup.Setpoint = SetpointOf(memory, place);
    setup.Source = SourceOf(memory, plan, place);
    setup.Readings = 1 << memory.Bits(place.ReadingByte, 2, 0);
    return setup;
}

}  // namespace

AlarmSetups AlarmSetupsOf(const Memory& memory, const ItemPlan& plan, int fitted) {
    AlarmSetups setups;
    for (std::size_t i = 0; i < static_cast<std::size_t>(fitted); ++i)
        setups[i] = SetupOf(memory, plan, kPlaces[i]);
    return setups;
}

void Alarms::Judge(const AlarmSetups& setups, const std::array<int, 3>& items) {
    for (std::size_t i = 0; i < on_.size(); ++i) {
        const AlarmSetup& setup = setups[i];
        const int value = items[static_cast<std::size_t>(setup.Source)];
        const bool beyond =
            setup.Enabled && (setup.ActiveLow ? value <= setup.Setpoint : value >= setup.Setpoint);
        const bool held = on_[i] && setup.Enabled && setup.Latching;
        running_[i] = beyond ? std::min(running_[i] + 1, setup.Readings) : 0;
        on_[i] = running_[i] == setup.Readings || held;
    }
}

void Alarms::ResetLatched() {
    on_ = {};
}

}  // namespace sim
