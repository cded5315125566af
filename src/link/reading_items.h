// The values that a frame of the reading stream carries, as numbers that a table takes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace counter {

// A frame is a line of values without separators of their own: each begins with its sign place, a blank, "-"
// or "+", and blanks after it are leading zeros that the meter blanks. So " 000707. 000147." is two, and so
// is
// "+001.00-002.50"; the sign of an exponent begins nothing. What stands behind a number, as the characters of
// the alarms, is no part of it. Each is the number that it begins with, with the
// meter's own decimals: no blanks, no "+", a digit to either side of the point or no point. A value that
// shows no number, such as "------", is an empty text, so that the ones behind it keep their places. What
// stands before the first value without a blank ("A12.5") belongs to no value.
std::vector<std::string> ItemsOf(std::string_view frame);

// The same values as the meter wrote them, with their sign places and what stands behind them. They point
// into `frame`.
std::vector<std::string_view> ItemTextsOf(std::string_view frame);

}  // namespace counter
