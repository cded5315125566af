// Register map: what the Modbus registers mean in memory.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "sim/device.h"

namespace sim {

using RegisterValues = std::vector<std::uint16_t>;

// `count` holding registers from `first` on; nothing when one of them is not in the map.
std::optional<RegisterValues> ReadHolding(const Device& device, int first, int count);
// Writes the memory of the registers. False, with nothing written, when one of them is not in the map or
// can't be written. A write that reaches the register of protocol and parity, the last one that a whole setup
// writes, makes the line settings of the memory active.
bool WriteHolding(Device& device, int first, const RegisterValues& values);
// Readings in raw counts, two registers each, high word first; nothing when one of the registers is not in
// the map.
std::optional<RegisterValues> ReadInput(const Device& device, int first, int count);

}  // namespace sim
