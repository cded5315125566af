#include "meter/derived_values.h"

#include <gtest/gtest.h>

#include <array>
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
        {"basic: interval 2 ends at 1",    1, 0,  4,  2,   {4,  1, 0x5C24}},
        {"V-F, no such function",          2, 1, 10,  0,  {10,  1, 0x2C94}},
        {"V-F function 8 has no name",     2, 1,  9,  8,   {9,  1, 0x2794}},
        {"quadrature rules the mode",      3, 1,  0,  1,  {12,  1, 0x7206}},
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
SetupImage WithBytes(std::initializer_list<std::pair<int, int>> bytes) {
    SetupImage image;
    for (auto [pos, value] : bytes) BytePut(image, pos, value);
    return image;
}

// Decimal Point 1 has code 2, Decimal Point 2 code 5.
TEST(Items, PointsFollowTheLayout) {
    const struct {
        const char* Name;
        int ModeAndFunction, Level, Count;
        std::array<int, 4> Points;
    } cases[] = {
        {"two items by Function 3", 0x03, 0, 2, {2, 2, 5, 0}},
        {"layout 1", 0x26, 1, 2, {2, 5, 2, 0}},
        {"layout 2", 0x0B, 2, 3, {5, 5, 2, 2}},
        {"layout 3", 0x02, 3, 3, {5, 2, 1, 5}},
    };
    for (const auto& c : cases) {
        const SetupImage image = WithBytes({{193, 0x01}, {199, c.ModeAndFunction}, {185, 0x04}, {151, 0x52}});
        const DerivedValues values = DeriveFromImage(image, 83);
        EXPECT_EQ(std::pair(values.ItemLevel, values.ItemCount), std::pair(c.Level, c.Count)) << c.Name;
        EXPECT_EQ(values.ItemDecPts, c.Points) << c.Name;
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
        SetupImage image = WithBytes({{193, c.Byte193}, {143, c.Byte143}, {235, c.MeterType}});
        DerivedValues values = DeriveFromImage(image, c.Version);
        EXPECT_EQ((std::array{values.RelayOption, values.CommOption, values.AnalogOption}), c.Boards)
            << c.Name;
    }
    EXPECT_EQ(DeriveFromImage(WithBytes({{235, 3}}), 83, 7).RelayOption, 1) << "a kind known otherwise";
    EXPECT_EQ(DeriveFromImage(WithBytes({{109, 0xFB}}), 83).ProtocolCode, 2);
}

}  // namespace
}  // namespace counter
