// Small helpers for the text of fields and entries.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace counter {

// Without the blanks at both ends.
constexpr std::string_view Trimmed(std::string_view text) {
    std::size_t first = std::min(text.find_first_not_of(' '), text.size());
    return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

// Text of the meter or of an entry, one byte a character, as UTF-8, which screens and file names take.
inline std::string Utf8(std::string_view text) {
    std::string characters;
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 0x80) {
            characters += c;
        } else {
            characters += static_cast<char>(0xC0 | (code >> 6));
            characters += static_cast<char>(0x80 | (code & 0x3F));
        }
    }
    return characters;
}

}  // namespace counter
