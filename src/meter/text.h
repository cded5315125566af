// Small helpers for the text of fields and entries.
#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

namespace counter {

// Without the blanks at both ends; other characters than " " may count as blank.
constexpr std::string_view Trimmed(std::string_view text, std::string_view blanks = " ") {
    const std::size_t first = std::min(text.find_first_not_of(blanks), text.size());
    return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

// With small letters for its capitals, those of ASCII.
inline std::string SmallLetters(std::string_view text) {
    std::string small(text);
    for (char& c : small) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return small;
}

// The name of a character code, for a label beside the field that holds it: three characters for the control
// codes 0..32, trailing blanks included ("cr ", "sp "); from 33 to 255 the character itself, one byte; an
// empty text for any other number.
inline std::string AsciiName(int code) {
    constexpr int kNames = 33;
    constexpr std::string_view kControlNames =
        "nulsohstxetxeotenqackbelbs ht lf vt ff cr so si dle"
        "dc1dc2dc3dc4naksynetbcanem subescfs gs rs us sp ";
    static_assert(kControlNames.size() == 3 * kNames);
    if (code < 0 || code > 255) return {};
    if (code < kNames) return std::string(kControlNames.substr(3 * static_cast<std::size_t>(code), 3));
    return std::string(1, static_cast<char>(code));
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

// The same for a terminal or a line of plain text: what a meter sends may hold anything at all, and a control
// character moves the cursor, rings, or makes the terminal answer. Each becomes \xNN, those from 80 to 9F
// too.
inline std::string Printable(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string printable;
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        const bool control = code < 0x20 || (code >= 0x7F && code < 0xA0);
        printable += control ? std::string("\\x") + kDigits[code / 16] + kDigits[code % 16] : Utf8({&c, 1});
    }
    return printable;
}

// The other way: what people write, as the meter's one byte a character. Nothing where the meter has no such
// character (U+0100 and above), and where the text is not UTF-8.
inline std::optional<std::string> FromUtf8(std::string_view characters) {
    std::string text;
    for (std::size_t i = 0; i < characters.size(); ++i) {
        auto code = static_cast<unsigned char>(characters[i]);
        if (code >= 0x80) {
            const bool twoBytes = (code == 0xC2 || code == 0xC3) && i + 1 < characters.size();
            const auto next = static_cast<unsigned char>(twoBytes ? characters[++i] : '\0');
            if ((next & 0xC0) != 0x80) return std::nullopt;
            code = static_cast<unsigned char>((code & 0x03) << 6 | (next & 0x3F));
        }
        text += static_cast<char>(code);
    }
    return text;
}

}  // namespace counter
