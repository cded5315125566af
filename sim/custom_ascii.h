// Custom ASCII: the meter's own command language.
//
//     command   [ "|" ] "*" address command [ data ] [ "Z" ] CR [ LF ]
//     reply     text CR [ LF ]
//
// Writes, resets and everything that is not understood have no reply.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "sim/device.h"

namespace sim {

// The character that means address 0..31: "0".."9", "A".."V".
char AddressChar(int address);
// A string that only wakes the meter up: "|**|", or more asterisks.
bool IsWakeUp(std::string_view line);
// The command after the head of a line (without CR). Nothing when the head is broken or names another
// address.
std::optional<std::string> CommandBehindHead(std::string_view line, int address);

// Carries out a command (text after the head) and returns the reply without its line end; nothing when there
// is none.
std::optional<std::string> Execute(Device& device, std::string_view command, double nowMs);

}  // namespace sim
