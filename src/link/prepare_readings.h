// PrepareReadings: asks the meter how it frames the readings of its stream.
#pragma once

#include "link/frame_rules.h"
#include "link/link.h"

namespace counter {

// The conversation, each line after "*" and the address, replies being a byte as two hexadecimal digits:
//
//   A1              a stream left running stops; then 300 ms
//   G132 -> flags   bit 7: a line feed ends the frames; then 300 ms
//   G133 -> flags   only to meters above version 34; bit 6: custom characters are in force; then 50 ms
//   G15D -> lead    only with custom characters; then 50 ms
//   G1E0 -> end     only with custom characters; then 50 ms
//
// No failure ends it: a meter that doesn't answer leaves what is in RawReply to be taken, and a
// text that is no hexadecimal number counts as 0. FrameBackStep keeps its value while custom characters are
// off, which is required. Returns the rules' Failure: 0, or the LinkError of the first question that failed.
int PrepareReadings(Link& link, int firmwareVersion, FrameRules& rules);

}  // namespace counter
