// NodeChecksum: the check of frames to an Ethernet node, in nine variants that the frame's own byte 14 picks.
#pragma once

#include <cstdint>
#include <string_view>

namespace counter {

// The check of a frame of 16 bytes or more, a multiple of 4, as the number whose high byte is byte 15 and
// whose low byte is byte 16; what is there counts as 0. `variant` 0..8; a login uses 1..8.
std::uint16_t NodeChecksum(std::string_view frame, int variant);

}  // namespace counter
