// How the meter's panel spells Modes, Functions, multipliers and decimal points in seven segments. Spelling,
// case and blanks are the panel's own.
#pragma once

#include <array>
#include <string_view>

namespace counter {

// By Mode; six characters, empty where there is no such Mode.
inline constexpr std::array<std::string_view, 13> kModeMnemonics = {
    "  rAtE", "PEriod", " totAL", "",       "ti Int", "StoP t", " PHASE",
    "duty C", "UF4-20", "UF 0-1", "UF0-10", "",       " quAdr."};

// By Function; six characters.
inline constexpr std::array<std::string_view, 16> kFunctionMnemonics = {
    "A  b  ", "A OnLy", " bAtCH", "A Atot", "A-b Ud", "A btot", " burSt", "b Arat",
    "Atot A", "A bU/d", "A bInH", "A + b ", "A - b ", "A . b ", "A / b ", "A/b-1 "};

struct MnemonicOfMode {
    int Mode;
    int Function;
    std::string_view Text;
};

// Functions that a Mode spells in its own way.
inline constexpr auto kOwnMnemonics = std::to_array<MnemonicOfMode>({{4, 1, "A to b"},
                                                                     {4, 2, " 1/Ab "},
                                                                     {5, 0, "A to A"},
                                                                     {5, 1, "A to b"},
                                                                     {5, 2, " 1/AA "},
                                                                     {5, 3, " 1/Ab "},
                                                                     {6, 1, " 0-360"},
                                                                     {6, 2, " -180+"},
                                                                     {7, 1, "A to b"},
                                                                     {7, 2, " 1/Ab "},
                                                                     {8, 15, "  1/A "},
                                                                     {9, 15, "  1/A "},
                                                                     {10, 15, "  1/A "},
                                                                     {12, 0, " totAL"},
                                                                     {12, 1, "  rAtE"}});

// By the code of a multiplier; seven characters.
inline constexpr std::array<std::string_view, 11> kMultipliers = {"0.00001", " 0.0001", "  0.001", "   0.01",
                                                                  "    0.1", "      1", "     10", "    100",
                                                                  "   1000", "  10000", " 100000"};

// By the code of a decimal point, 1 to 6.
inline constexpr std::array<std::string_view, 7> kPoints1 = {"",        "111111.", "11111.1", "1111.11",
                                                             "111.111", "11.1111", "1.11111"};
inline constexpr std::array<std::string_view, 7> kPoints2 = {"",        "222222.", "22222.2", "2222.22",
                                                             "222.222", "22.2222", "2.22222"};

// The entry of a list; empty where the list has none, so that its cells are blank.
template <std::size_t Size>
constexpr std::string_view EntryOrBlank(const std::array<std::string_view, Size>& list, int index) {
    return index >= 0 && index < static_cast<int>(Size) ? list[static_cast<std::size_t>(index)]
                                                        : std::string_view();
}

constexpr std::string_view FunctionMnemonic(int mode, int function) {
    for (const MnemonicOfMode& own : kOwnMnemonics) {
        if (own.Mode == mode && own.Function == function) return own.Text;
    }
    return EntryOrBlank(kFunctionMnemonics, function);
}

}  // namespace counter
