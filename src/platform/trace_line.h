// TraceLine: one frame as a line of text.
#pragma once

#include <string>
#include <string_view>

namespace counter {

// Milliseconds since the trace began, ">" sent or "<" received, the bytes in hexadecimal, then the same bytes
// as text with a "." for what can't be printed.
std::string TraceLine(double ms, char direction, std::string_view bytes);

}  // namespace counter
