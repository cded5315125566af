// .PRM files: a custom curve as text, the first two items of the file. The meter's two blocks of a curve are
// 21 words each, so a proper item is 84 upper-case hexadecimal digits:
//
//   9A00...(84 digits)      goes to the lower block, and is sent second
//   00FF...(84 digits)      goes to the upper block, and is sent first
//
// An item ends at a comma or a line end (CR LF, LF or CR); one in quotes is what is between them. What
// comes after the second item, or after the end mark of a DOS text, is ignored.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace counter {

struct CurveItems {
    std::string First;
    std::string Second;
};

// Six times a proper item. What is longer is no curve, and would hold the line for minutes as one frame.
inline constexpr std::size_t kMostItemLength = 512;

// Whether each item is what a block of the meter holds: 84 upper-case hexadecimal digits. Another can only
// fail when it is read back, with the meter's curve gone.
bool IsProperCurve(const CurveItems& items);

// Nothing where there are not two items or one is longer than kMostItemLength. What else an item is, nobody
// asks: the meter's answer is the proof.
std::optional<CurveItems> ParsePrm(std::string_view content);

}  // namespace counter
