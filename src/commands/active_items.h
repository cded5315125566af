// Lines of values: what the meter sends when it is asked for all its readings at once.
//
// The values follow one another without separators, " 12345.67-00001.50": each begins with the place of its
// sign, a blank or "-". Which items a meter has is not told; the number of values follows from the length.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace counter {

// By number: 1 to 3 are the items, 4 is Peak, 5 is Valley; 0 is not used.
using ActiveItems = std::array<std::string, 6>;

inline constexpr std::size_t kPeak = 4;
inline constexpr std::size_t kValley = 5;

struct SplitLine {
    ActiveItems Values;
    std::string Rest;  // after the last value; of a reply without Peak and Valley also in Values
};

// Splits a line, sign place included, into a tenth of its length and one values. With Peak and Valley, the
// last two of three or four values are those. A value beyond the fifth is dropped: no meter sends a line of
// 50 and more characters.
SplitLine SplitActiveItems(std::string_view rawReply, bool withPeakValley);

}  // namespace counter
