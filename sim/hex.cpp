#include "sim/hex.h"

#include <algorithm>
#include <charconv>

namespace sim {

int DigitValue(char digit) {
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
    return -1;
}

std::string HexOf(std::uint32_t value, int digits) {
    std::string text;
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
        text += "0123456789ABCDEF"[(value >> shift) & 0xF];
    return text;
}

std::optional<std::uint32_t> NumberOf(std::string_view digits) {
    if (digits.empty() || digits.size() > 8) return std::nullopt;
    std::uint32_t value = 0;
    for (char digit : digits) {
        if (DigitValue(digit) < 0) return std::nullopt;
        value = value << 4 | static_cast<std::uint32_t>(DigitValue(digit));
    }
    return value;
}

std::string HexOfBytes(std::string_view bytes) {
    std::string text;
    for (char byte : bytes) text += HexOf(static_cast<unsigned char>(byte), 2);
    return text;
}

std::optional<std::string> BytesOfHex(std::string_view digits) {
    if (digits.size() % 2 != 0) return std::nullopt;
    std::string bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        const auto value = NumberOf(digits.substr(i, 2));
        if (!value) return std::nullopt;
        bytes += static_cast<char>(*value);
    }
    return bytes;
}

bool ParseNumber(std::string_view text, int& out) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), out);
    return error == std::errc{} && end == text.data() + text.size() && out >= 0;
}

std::string_view CutAt(std::string_view& text, char mark) {
    const auto at = std::min(text.find(mark), text.size());
    const std::string_view head = text.substr(0, at);
    text.remove_prefix(std::min(at + 1, text.size()));
    return head;
}

int WordAt(std::string_view bytes, std::size_t at) {
    return static_cast<unsigned char>(bytes[at]) << 8 | static_cast<unsigned char>(bytes[at + 1]);
}

}  // namespace sim
