// Numbers as text: hexadecimal as the meter reads and writes it, upper-case digits, most significant first;
// and decimal, as options are told.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace sim {

// 0..15, or -1 for a character that is no upper-case hexadecimal digit.
int DigitValue(char digit);
// The low `digits` digits of `value`, with leading zeros.
std::string HexOf(std::uint32_t value, int digits);
// Nothing when the text is empty, longer than 8 digits or holds another character.
std::optional<std::uint32_t> NumberOf(std::string_view digits);

std::string HexOfBytes(std::string_view bytes);
// Nothing when the length is odd or a character is no digit.
std::optional<std::string> BytesOfHex(std::string_view digits);

// The 16 bit number in two bytes at `at`, which must be there, the higher one first.
int WordAt(std::string_view bytes, std::size_t at);

// A whole decimal number without a sign.
bool ParseNumber(std::string_view text, int& out);
// Text before the first `mark`, which is removed with it; the whole text when there is none.
std::string_view CutAt(std::string_view& text, char mark);

}  // namespace sim
