// The keys of the settings: what a person reads and sets by name, and where it is in the two lines.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "settings/settings.h"

namespace counter {

enum class SettingsKind {
    Decimal,    // a number in decimal digits
    Address,    // a number 0..31 as one character
    Hex,        // a number in hexadecimal digits
    HexDigits,  // digits taken as they are
    IpAddress,  // dotted decimal, stored as four bytes in hexadecimal
};

inline constexpr int kNoNumber = -1;

struct SettingsKey {
    std::string_view Name;
    int Line;      // 1 or 2
    int Position;  // from 1
    int Length;    // characters
    SettingsKind Kind;
    int Settings::*Number;  // where it is parsed to, one of the two
    std::string Settings::*Text;
    int Least = 0;  // for numbers
    int Most = 0;
    int But = kNoNumber;  // one between them that is none: there is no meter kind 4
};

// All keys, in the order of the file.
std::span<const SettingsKey> SettingsKeys();
const SettingsKey* FindSettingsKey(std::string_view name);

// The key's value out of parsed settings: a number, or a text for NodeAddress and NodeIp.
std::optional<int> SettingsNumber(const Settings& settings, const SettingsKey& key);
std::string SettingsText(const Settings& settings, const SettingsKey& key);

// Puts a value into the lines. Returns an empty text when done, otherwise one line that says what is legal,
// with the lines unchanged.
std::string SetSettingsKey(SettingsLines& lines, const SettingsKey& key, std::string_view value);

// What a new file begins with: a Counter of version 83 on port 1, 9600 baud, Custom ASCII, address 1, no
// node.
SettingsLines NewSettingsLines();

}  // namespace counter
