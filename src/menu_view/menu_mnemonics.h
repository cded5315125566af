// How the meter's panel spells Modes, Functions, multipliers and decimal points in seven segments. Spelling,
// case and blanks are the panel's own.
#pragma once

#include <array>
#include <string_view>

#include "meter/meter_words.h"

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
// clang-format off
inline constexpr auto kOwnMnemonics = std::to_array<MnemonicOfMode>({
    {Mode::TimeInterval,Function::TimeAToB,              "A to b"},
    {Mode::TimeInterval,Function::TimeInverse,           " 1/Ab "},
    {Mode::Stopwatch,   Function::StopwatchAToA,         "A to A"},
    {Mode::Stopwatch,   Function::StopwatchAToB,         "A to b"},
    {Mode::Stopwatch,   Function::StopwatchInverseAToA,  " 1/AA "},
    {Mode::Stopwatch,   Function::StopwatchInverseAToB,  " 1/Ab "},
    {Mode::Phase,       Function::Phase0To360,           " 0-360"},
    {Mode::Phase,       Function::PhasePlusMinus180,     " -180+"},
    {Mode::DutyCycle,   Function::DutyCycleAToB,         "A to b"},
    {Mode::DutyCycle,   Function::DutyCycleInverse,      " 1/Ab "},
    {Mode::Vf4To20mA,   Function::VfInverseRate,         "  1/A "},
    {Mode::Vf0To1mA,    Function::VfInverseRate,         "  1/A "},
    {Mode::Vf0To10V,    Function::VfInverseRate,         "  1/A "},
    {Mode::Quadrature,  Function::QuadratureTotal,       " totAL"},
    {Mode::Quadrature,  Function::QuadratureRate,        "  rAtE"},
});
// clang-format on

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
