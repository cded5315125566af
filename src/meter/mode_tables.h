// What the meter measures in each Mode and Function: names, items, layout of the scaling page, sources.
#pragma once

#include <array>
#include <string_view>

#include "meter/firmware.h"
#include "meter/meter_words.h"

namespace counter {

inline constexpr int kModes = 13;      // 0..12
inline constexpr int kFunctions = 16;  // 0..15 in each Mode

inline constexpr std::array<std::string_view, kModes> ModeNames = {
    "Rate",       "Period",    "Total",     "None", "Time Interval", "Stopwatch", "Phase", "Duty Cycle",
    "VF 4-20 mA", "VF 0-1 mA", "VF 0-10 V", "",     "Quadrature"};

// A mode word. Bits 1..0 are the layout 0..3 of the scaling page, 3..2 the item that the filter applies to
// (0 none), 13..8 the row of ItemRows; bit 15 is always 0. The others are flags:
inline constexpr int kWordCurve = 0x0010;        // Custom Curve offered, on an Extended meter
inline constexpr int kWordInnerSlopeB = 0x0020;  // Trigger Slope B inside the first item
inline constexpr int kWordTwoItems = 0x0040;     // two items in layout 0, Trigger Slope B in the second
inline constexpr int kWordSquareRoot = 0x0080;   // Square Root offered
inline constexpr int kWordTimeOut = 0x4000;      // Time Out shown

constexpr int LayoutOfWord(int modeWord) {
    return modeWord & 3;
}
constexpr int FilterItemOfWord(int modeWord) {
    return modeWord >> 2 & 3;
}
constexpr int ItemRowOfWord(int modeWord) {
    return modeWord >> 8 & 63;
}

// What alarms and analog outputs may take as their source.
struct SourceCode {
    int Rule = 0;          // 2: a second item on some Display Types; 3: all three on one
    int FilteredItem = 0;  // the item that is offered in its filtered form too, 0 none
    int Items = 0;         // how many items are offered
};

struct Assignment {
    int Mode;
    int Function;
    std::string_view Name;  // empty: no list offers the pair
    int Word;
    SourceCode Source;
};

// Each pair that has a name or a word. Names without a word and words without a name are meant so: " 1/AB "
// and " 1/AA " can be selected and then have layout 0, no filter and no Time Out; Function 8 of the V-F Modes
// can't be selected.
// clang-format off
inline constexpr auto Assignments = std::to_array<Assignment>({
    {Mode::Rate,          Function::AandB,                "A, B",            0x4144, {0, 1, 2}},
    {Mode::Rate,          Function::AOnly,                "A Only",          0x4294, {0, 1, 1}},
    {Mode::Rate,          Function::Batch,                " Batch",          0x030F, {0, 3, 3}},
    {Mode::Rate,          Function::RateAndTotal,         "A, A Total",      0x4494, {3, 1, 2}},
    {Mode::Rate,          Function::ARateBTotal,          "A, B Total",      0x4544, {0, 1, 2}},
    {Mode::Rate,          Function::Sum,                  "A + B",           0x4606, {0, 1, 3}},
    {Mode::Rate,          Function::Difference,           "A - B",           0x4706, {0, 1, 3}},
    {Mode::Rate,          Function::Product,              "A X B",           0x4806, {0, 1, 3}},
    {Mode::Rate,          Function::Ratio,                "A / B",           0x4906, {0, 1, 3}},
    {Mode::Rate,          Function::RatioLessOne,         "(A / B) -1",      0x4A06, {0, 1, 3}},
    {Mode::Period,        Function::AandB,                "A, B",            0x4B44, {0, 1, 2}},
    {Mode::Period,        Function::AOnly,                "A Only",          0x4C94, {0, 1, 1}},
    {Mode::Period,        Function::Sum,                  "A + B",           0x4D06, {0, 1, 3}},
    {Mode::Period,        Function::Difference,           "A - B",           0x4E06, {0, 1, 3}},
    {Mode::Period,        Function::Product,              "A X B",           0x4F06, {0, 1, 3}},
    {Mode::Period,        Function::Ratio,                "A / B",           0x5006, {0, 1, 3}},
    {Mode::Total,         Function::AandB,                "A, B",            0x1140, {0, 0, 2}},
    {Mode::Total,         Function::AOnly,                "A Only",          0x1210, {2, 0, 1}},
    {Mode::Total,         Function::AMinusBUpDown,        "A -B  UpDn",      0x1330, {0, 0, 1}},
    {Mode::Total,         Function::Burst,                " Burst",          0x5409, {0, 2, 2}},
    {Mode::Total,         Function::BTotalARate,          "B, A Rate",       0x5509, {0, 2, 2}},
    {Mode::Total,         Function::UpDownControl,        "A, B UpDnCtl",    0x1610, {0, 0, 1}},
    {Mode::Total,         Function::InhibitControl,       "A, B InhibitCtl", 0x1710, {2, 0, 1}},
    {Mode::Total,         Function::Sum,                  "A + B",           0x1802, {0, 0, 3}},
    {Mode::Total,         Function::Difference,           "A - B",           0x1902, {0, 0, 3}},
    {Mode::Total,         Function::Product,              "A X B",           0x1A02, {0, 0, 3}},
    {Mode::Total,         Function::Ratio,                "A / B",           0x1B02, {0, 0, 3}},
    {Mode::None,          Function::AandB,                "None",            0x0000, {0, 0, 0}},
    {Mode::TimeInterval,  Function::TimeAToB,             "A to B",          0x5C24, {0, 1, 1}},
    {Mode::TimeInterval,  Function::TimeInverse,          " 1/AB ",          0x0000, {0, 1, 1}},
    {Mode::Stopwatch,     Function::StopwatchAToA,        "A to A",          0x1D00, {3, 0, 2}},
    {Mode::Stopwatch,     Function::StopwatchAToB,        "A to B",          0x1E20, {3, 0, 2}},
    {Mode::Stopwatch,     Function::StopwatchInverseAToA, " 1/AA ",          0x0000, {3, 0, 2}},
    {Mode::Stopwatch,     Function::StopwatchInverseAToB, " 1/AB ",          0x0000, {3, 0, 2}},
    {Mode::Phase,         Function::Phase0To360,          "A to B (0-360)",  0x5F24, {0, 1, 1}},
    {Mode::Phase,         Function::PhasePlusMinus180,    "A to B (+-180)",  0x6024, {0, 1, 1}},
    {Mode::DutyCycle,     Function::DutyCycleAToB,        "(A to B)/A",      0x6124, {0, 1, 1}},
    {Mode::Vf4To20mA,     Function::AOnly,                "A Only",          0x2294, {0, 1, 1}},
    {Mode::Vf4To20mA,     Function::Batch,                " Batch",          0x630F, {0, 3, 3}},
    {Mode::Vf4To20mA,     Function::RateAndTotal,         "A, A Total",      0x2494, {3, 1, 2}},
    {Mode::Vf4To20mA,     Function::VfBurst,              "",                0x2519, {0, 0, 0}},
    {Mode::Vf4To20mA,     Function::VfInverseRate,        "1/(A Rate)",      0x2694, {0, 1, 1}},
    {Mode::Vf0To1mA,      Function::AOnly,                "A Only",          0x2794, {0, 1, 1}},
    {Mode::Vf0To1mA,      Function::Batch,                " Batch",          0x680F, {0, 3, 3}},
    {Mode::Vf0To1mA,      Function::RateAndTotal,         "A, A Total",      0x2994, {3, 1, 2}},
    {Mode::Vf0To1mA,      Function::VfBurst,              "",                0x2A19, {0, 0, 0}},
    {Mode::Vf0To1mA,      Function::VfInverseRate,        "1/(A Rate)",      0x2B94, {0, 1, 1}},
    {Mode::Vf0To10V,      Function::AOnly,                "A Only",          0x2C94, {0, 1, 1}},
    {Mode::Vf0To10V,      Function::Batch,                " Batch",          0x6D0F, {0, 3, 3}},
    {Mode::Vf0To10V,      Function::RateAndTotal,         "A, A Total",      0x2E94, {3, 1, 2}},
    {Mode::Vf0To10V,      Function::VfBurst,              "",                0x2F19, {0, 0, 0}},
    {Mode::Vf0To10V,      Function::VfInverseRate,        "1/(A Rate)",      0x3094, {0, 1, 1}},
    {Mode::Quadrature,    Function::QuadratureTotal,      "Total",           0x3100, {0, 0, 1}},
    {Mode::Quadrature,    Function::QuadratureRate,       "Rate",            0x7206, {0, 1, 1}},
});

// Captions of items; the spelling, "Inteval" included, is required. In the V-F Modes the name after that of a
// batch's Item 2 is the one for its other form, the count of batches.
inline constexpr std::array<std::string_view, 49> ItemNames = {
    " A Rate",                 //  0
    " B Rate",                 //  1
    " A Period",               //  2
    " B Period",               //  3
    " A Total",                //  4
    " B Total",                //  5
    " A Grand Total",          //  6
    " A Rate + B Rate",        //  7
    " A Rate - B Rate",        //  8
    " A Rate X B Rate",        //  9
    " A Rate / B Rate",        // 10
    "(A Rate / B Rate) -1",    // 11
    " A Period + B Period",    // 12
    " A Period - B Period",    // 13
    " A Period X B Period",    // 14
    " A Period / B Period",    // 15
    " A - B Total",            // 16
    " A Total, B U/D Ctl",     // 17
    "A Total, B Inhibit Ctl",  // 18
    " A Total + B Total",      // 19
    " A Total - B Total",      // 20
    " A Total X B Total",      // 21
    " A Total / B Total",      // 22
    " Time Inteval A to B",    // 23
    " Stopwatch A to A",       // 24
    " Stopwatch A to B",       // 25
    " Phase A to B 0-360",     // 26
    " Phase A to B +-180",     // 27
    " Duty Cycle(AtoB)/A",     // 28
    " VF 4-20mA A Rate",       // 29
    " VF 4-20mA A Total",      // 30
    " Grand Total",            // 31
    " # of Batches",           // 32
    " VF 4-20mA 1/A Rate",     // 33
    " VF 0-1mA A Rate",        // 34
    " VF 0-1mA A Total",       // 35
    " Grand Total",            // 36
    " # of Batches",           // 37
    " VF 0-1mA 1/A Rate",      // 38
    " VF 0-10V A Rate",        // 39
    " VF 0-10V A Total",       // 40
    " Grand Total",            // 41
    " # Batches",              // 42
    "VF 0-10V 1/A Rate",       // 43
    "CW Tot - CCW Tot",        // 44
    "CW Rate-CCW Rate",        // 45
    " CW Rate",                // 46
    " CCW Rate",               // 47
    " Grand Total Time",       // 48
};

// Rows of three items, indexes of ItemNames; row 0 is what a pair without a word has.
inline constexpr std::array<std::array<int, 3>, 51> ItemRows = {{
    { 0,  0,  0},                                                          //  0
    { 0,  1,  0}, { 0,  0,  0}, { 4,  6,  0}, { 0,  4,  0}, { 0,  5,  0},  //  1 to  5
    { 7,  0,  1}, { 8,  0,  1}, { 9,  0,  1}, {10,  0,  1}, {11,  0,  1},  //  6 to 10
    { 2,  3,  0}, { 2,  0,  0}, {12,  2,  3}, {13,  2,  3}, {14,  2,  3},  // 11 to 15
    {15,  2,  3}, { 4,  5,  0}, { 4,  0,  0}, {16,  0,  0}, { 4,  0,  0},  // 16 to 20
    { 5,  0,  0}, {17,  0,  0}, {18,  0,  0}, {19,  4,  5}, {20,  4,  5},  // 21 to 25
    {21,  4,  5}, {22,  4,  5}, {23,  0,  0}, {24, 48,  0}, {25, 48,  0},  // 26 to 30
    {26,  0,  0}, {27,  0,  0}, {28,  0,  0}, {29,  0,  0}, {29, 31,  4},  // 31 to 35
    {29,  4,  0}, {30,  0,  0}, {33,  0,  0}, {34,  0,  0}, {34, 36,  4},  // 36 to 40
    {34,  4,  0}, {35,  0,  0}, {38,  0,  0}, {39,  0,  0}, {39, 41,  4},  // 41 to 45
    {39,  4,  0}, {40,  0,  0}, {43,  0,  0}, {44,  0,  0}, {45, 46, 47},  // 46 to 50
}};
// clang-format on

template <typename Entry>
using ModeGrid = std::array<std::array<Entry, kFunctions>, kModes>;

// One column of Assignments by Mode and Function.
template <typename Entry>
consteval ModeGrid<Entry> GridOf(Entry Assignment::*column) {
    ModeGrid<Entry> grid{};
    for (const Assignment& row : Assignments) {
        grid[static_cast<std::size_t>(row.Mode)][static_cast<std::size_t>(row.Function)] = row.*column;
    }
    return grid;
}

inline constexpr ModeGrid<std::string_view> FunctionNames = GridOf(&Assignment::Name);
inline constexpr ModeGrid<int> ModeTable = GridOf(&Assignment::Word);
inline constexpr ModeGrid<SourceCode> SourceTable = GridOf(&Assignment::Source);

// The entry of a pair; an empty one outside the grid, as a damaged setup can ask for Modes 13 to 15.
template <typename Entry>
constexpr Entry EntryOf(const ModeGrid<Entry>& grid, int mode, int function) {
    if (mode < 0 || mode >= kModes || function < 0 || function >= kFunctions) return {};
    return grid[static_cast<std::size_t>(mode)][static_cast<std::size_t>(function)];
}

// The three Modes of the V-F converter: 4-20 mA, 0-1 mA, 0-10 V.
constexpr bool IsVfMode(int mode) {
    return mode >= Mode::Vf4To20mA && mode <= Mode::Vf0To10V;
}

// The name of a pair; empty where the pair doesn't exist.
constexpr std::string_view FunctionName(int mode, int function) {
    return EntryOf(FunctionNames, mode, function);
}

// Phase from -180 to +180, which has a curve of its own, "Power Factor".
constexpr bool IsPhasePlusMinus180(int mode, int function) {
    return mode == Mode::Phase && function == Function::PhasePlusMinus180;
}

// The word of a pair, 0 where it has none. One word depends on the meter's version: with the curve of phase
// its flag is set.
constexpr int ModeWordOf(int mode, int function, int firmwareVersion) {
    int word = EntryOf(ModeTable, mode, function);
    return PhaseCurveOffered(firmwareVersion) && IsPhasePlusMinus180(mode, function) ? word | kWordCurve
                                                                                     : word;
}

}  // namespace counter
