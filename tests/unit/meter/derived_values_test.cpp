#include "meter/derived_values.h"

#include <gtest/gtest.h>

#include <array>
#include <tuple>
#include <utility>

namespace counter {
namespace {

TEST(NormaliseModeFunction, MakesThePairLegal) {
    // clang-format off
    const struct {
        const char* Name;
        int InputOption, Extended, Mode, Function;
        std::array<int, 3> After;  // Mode, Function, word
    } cases[] = {
        {"mode 3 becomes rate",            1, 1,  3,  5,   {0,  0, 0x4144}},
        {"V-F mode on signal cond.",       1, 1,  8,  1,   {0,  0, 0x4144}},
        {"function 0 has no name",         1, 1,  4,  0,   {4,  1, 0x5C24}},
        {"basic: phase, other function",   1, 0,  6,  2,   {0,  0, 0x4144}},
        {"basic: function above 1",        1, 0,  2, 13,   {2,  0, 0x1140}},
        {"basic: interval 2 ends at 1",    1, 0,  4,  2,   {4,  1, 0x5C24}},
        {"V-F, no such function",          2, 1, 10,  0,  {10,  1, 0x2C94}},
        {"V-F function 8 has no name",     2, 1,  9,  8,   {9,  1, 0x2794}},
        {"basic: V-F batch becomes 1",     2, 0,  9,  2,   {9,  1, 0x2794}},
        {"basic: V-F total stays",         2, 0,  9,  3,   {9,  3, 0x2994}},
        {"quadrature rules the mode",      3, 1,  0,  1,  {12,  1, 0x7206}},
        {"basic: quadrature total",        3, 0, 12,  1,  {12,  0, 0x3100}},
        {"no board keeps the pair",        0, 0,  9,  2,   {9,  2, 0x680F}},
        {"no board, no such mode",         0, 1, 15,  5,  {15,  1, 0x0000}},
        {"unknown board, no function",     5, 1,  1,  9,   {1,  1, 0x4C94}},
    };
    // clang-format on
    for (const auto& c : cases) {
        DerivedValues values{c.InputOption, c.Mode, c.Function, c.Extended == 1};
        NormaliseModeFunction(values, 83);
        EXPECT_EQ((std::array{values.ModeIndex, values.FunctionIndex, values.ModeWord}), c.After) << c.Name;
        EXPECT_EQ(values.ItemRow, c.After[2] >> 8 & 63) << c.Name;
    }
}

// An image of zeros with bytes put in.
SetupImage With(std::initializer_list<std::pair<int, int>> bytes) {
    SetupImage image;
    for (auto [pos, value] : bytes) BytePut(image, pos, value);
    return image;
}

// Extended meter with two signal conditioners: Mode and Function of byte 199, Display Type.
SetupImage Counting(int modeAndFunction, int displayType) {
    return With({{193, 0x01}, {199, modeAndFunction}, {185, displayType << 4 | 0x04}, {151, 0x52}});
}

TEST(Sources, FollowModeAndDisplayType) {
    // clang-format off
    const struct {
        const char* Name;
        int ModeAndFunction, DisplayType, Sources;  // tens: filtered item, units: items
    } cases[] = {
        {"total A, normal",             0x21, 0, 1},
        {"total A, first of 1 to 5",    0x21, 1, 2},
        {"total A, remote",             0x21, 6, 1},
        {"rate and total, normal",      0x03, 0, 12},
        {"rate and total, 999999",      0x03, 1, 13},
        {"batch",                       0x02, 1, 33},
    };
    // clang-format on
    for (const auto& c : cases) {
        DerivedValues values = DeriveFromImage(Counting(c.ModeAndFunction, c.DisplayType), 83);
        EXPECT_EQ(values.FilteredItem * 10 + values.SourceItems, c.Sources) << c.Name;
    }
}

TEST(Sources, ThatArentOfferedAreItem1) {
    DerivedValues values;
    values.SourceItems = 2;
    EXPECT_EQ(SourceInForce(values, 0), 1);
    EXPECT_EQ(SourceInForce(values, 2), 2);
    EXPECT_EQ(SourceInForce(values, 3), 1);
    values.FilteredItem = 1;
    EXPECT_EQ(SourceInForce(values, 0), 0);
    values.DisplayType = 6;
    EXPECT_EQ(SourceInForce(values, 0), 3) << "a remote display has Item 3 alone";
}

TEST(Items, LayoutCountAndPointsFollowTheMode) {
    // clang-format off
    const struct {
        const char* Name;
        int ModeAndFunction, Level, Count;
        std::array<int, 4> Points;  // with Decimal Point 1 at code 2 and 2 at code 5
        int Group2;
    } cases[] = {
        {"one item",                 0x01, 0, 1, {2, 2, 5, 0}, 5},
        {"two items by flag",        0x00, 0, 2, {2, 2, 5, 0}, 5},
        {"two items by Function 3",  0x03, 0, 2, {2, 2, 5, 0}, 5},
        {"layout 1",                 0x26, 1, 2, {2, 5, 2, 0}, 5},
        {"layout 2",                 0x0B, 2, 3, {5, 5, 2, 2}, 2},
        {"layout 3",                 0x02, 3, 3, {5, 2, 1, 5}, 5},
        {"word 0 in Mode 5",         0x53, 0, 2, {2, 2, 5, 0}, 5},
    };
    // clang-format on
    for (const auto& c : cases) {
        DerivedValues values = DeriveFromImage(Counting(c.ModeAndFunction, 0), 83);
        EXPECT_EQ(std::pair(values.ItemLevel, values.ItemCount), std::pair(c.Level, c.Count)) << c.Name;
        EXPECT_EQ(values.ItemDecPts, c.Points) << c.Name;
        EXPECT_EQ(Group2DecPt(values), c.Group2) << c.Name;
    }
}

TEST(Boxes, ShowPresetOrCutoffByMode) {
    // clang-format off
    const struct {
        const char* Name;
        int InputCode, ModeAndFunction, DisplayType;
        std::array<int, 3> Shown;  // preset, cutoff, clock mode
    } cases[] = {
        {"up and down count",              1, 0x24, 0, {1, 0, 0}},
        {"up and down control",            1, 0x29, 5, {1, 0, 0}},
        {"remote display: time out",       1, 0x24, 6, {0, 0, 0}},
        {"quadrature total",               2, 0xC0, 0, {1, 0, 0}},
        {"V-F batch",                      4, 0x82, 0, {0, 1, 0}},
        {"V-F rate and total",             4, 0xA3, 0, {0, 1, 0}},
        {"batch of rate",                  1, 0x02, 0, {0, 0, 0}},
        {"stopwatch as clock",             1, 0x50, 5, {0, 0, 5}},
        {"clock display of another mode",  1, 0x00, 5, {0, 0, 0}},
    };
    // clang-format on
    for (const auto& c : cases) {
        SetupImage image = Counting(c.ModeAndFunction, c.DisplayType);
        BytePut(image, 193, c.InputCode);
        DerivedValues values = DeriveFromImage(image, 83);
        EXPECT_EQ((std::array<int, 3>{values.PresetActive, values.CutoffActive, values.ClockMode}), c.Shown)
            << c.Name;
    }
}

TEST(Boards, AreReadFromTheirBits) {
    // clang-format off
    const struct {
        const char* Name;
        int Byte193, Byte143, MeterType, Version;
        std::array<int, 3> Boards;  // relay, comm, analog
    } cases[] = {
        {"raw 1 is four relays",    0x28, 2, 3, 83, {2, 1, 2}},
        {"raw 3 of both",           0x78, 1, 3, 83, {1, 2, 1}},
        {"from type 5 two relays",  0x20, 0, 5, 83, {1, 0, 0}},
        {"type 7",                  0x00, 0, 7, 78, {1, 0, 3}},
        {"type 7, before 78",       0x00, 2, 7, 77, {1, 0, 2}},
        {"before 74 always 12 bit", 0x00, 0, 7, 73, {1, 0, 1}},
        {"from 74 as stored",       0x00, 4, 3, 74, {0, 0, 4}},
    };
    // clang-format on
    for (const auto& c : cases) {
        SetupImage image = With({{193, c.Byte193}, {143, c.Byte143}, {235, c.MeterType}});
        DerivedValues values = DeriveFromImage(image, c.Version);
        EXPECT_EQ((std::array{values.RelayOption, values.CommOption, values.AnalogOption}), c.Boards)
            << c.Name;
    }
    EXPECT_EQ(DeriveFromImage(With({{235, 3}}), 83, 7).RelayOption, 1) << "a kind known otherwise";
    EXPECT_EQ(DeriveFromImage(With({{109, 0xFB}}), 83).ProtocolCode, 2);
}

TEST(DeviationCode, MeansSpanFrom82On) {
    // clang-format off
    const struct {
        int Code, Version;
        std::tuple<int, int, bool> Meaning;  // types of alarms 1 and 2, not in menu
    } cases[] = {
        {0, 82, {0, 0, false}}, {1, 82, {1, 0, false}}, {2, 82, {0, 1, false}}, {3, 82, {1, 1, false}},
        {4, 82, {0, 0, true}},  {5, 82, {2, 0, false}}, {6, 82, {2, 1, false}}, {7, 82, {2, 2, false}},
        {3, 81, {1, 1, false}}, {4, 81, {0, 0, true}},  {5, 81, {1, 0, true}},  {7, 81, {1, 1, true}},
    };
    // clang-format on
    for (const auto& c : cases) {
        DeviationCode code = DeviationFromCode(c.Code, c.Version);
        EXPECT_EQ(std::tuple(code.Type1, code.Type2, code.NotInMenu), c.Meaning)
            << c.Code << " at " << c.Version;
    }
}

}  // namespace
}  // namespace counter
