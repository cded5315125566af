#include "sim/custom_ascii.h"

#include <gtest/gtest.h>

#include "tool.h"

namespace sim {
namespace {

std::string Told(Device& device, const char* command) {
    return Execute(device, command, 0).value_or("nothing");
}

TEST(CustomAscii, SmallReadsOfTheDefaultSetup) {
    static constexpr struct {
        const char *Command, *Reply;
    } kCases[] = {
        // clang-format off
        {"X311Z", "0000000186A0"},  // offset 1, scale 1
        {"X124Z", "5507"},
        {"XL69Z", "000000000000000000000000000000000000000000000000000000000000000000000000000000000000"},
        {"X100Z", "0000"}, {"G130", "49"}, {"G12D", "00"}, {"G12B", "04"}, {"G128", "80"},   {"G132", "21"},
        {"G133", "01"},    {"G15D", "00"}, {"G1E0", "0D"}, {"R141", "02"}, {"G233", "0121"},
        // clang-format on
    };
    Device device{MeterOptions{}};
    for (const auto& c : kCases) EXPECT_EQ(Told(device, c.Command), c.Reply) << c.Command;
}

TEST(CustomAscii, WhatIsNotUnderstoodHasNoReplyAndNoEffect) {
    Device device{MeterOptions{}};
    for (const char* command :
         {"X",         "XR1A",          "XR1AZZ",    "X01AZ", "XRG0Z", "XR19Z", "xR1AZ",    "G1",
          "G130Z",     "R130",          "B8",        "B1 ",   "Q1",    "WR1A",  "W124123Z", "W12412345Z",
          "W124123gZ", "W20012345678Z", "W0241234Z", "A2",    "C7"})
        EXPECT_EQ(Told(device, command), "nothing") << command;
    EXPECT_EQ(device.Words().ImageText(), kDefaultImage);
    EXPECT_FALSE(device.TakeLineRequest());
}

TEST(CustomAscii, WritesLandWhereTheyAreReadBack) {
    static constexpr struct {
        const char *Write, *Read, *Reply;
        int Position;  // in the image; 0 outside
    } kCases[] = {
        // clang-format off
        {"W124A5C3Z",             "X124Z", "A5C3",         165},
        {"W12B801E",              "X12BZ", "801E",         137},  // without Z
        {"W3110000000DBBA0Z",  "X311Z", "0000000DBBA0", 37},
        {"W43500C350FF3CB00402Z", "X335Z", "00C350FF3CB0", 249},
        {"W1320402Z",          "X132Z", "0402",         109},
        {"W1FF1234Z",             "X1FFZ", "1234",         0},
        // clang-format on
    };
    for (const auto& c : kCases) {
        Device device{MeterOptions{}};
        EXPECT_EQ(Told(device, c.Write), "nothing") << c.Write;
        EXPECT_EQ(Told(device, c.Read), c.Reply) << c.Write;
        if (c.Position == 0) continue;
        EXPECT_EQ(device.Words().ImageText().substr(c.Position - 1, std::string(c.Reply).size()), c.Reply);
    }
}

TEST(CustomAscii, ResetsOfTheExtremesHaveTheirOwnLetters) {
    Device device{MeterOptions{}};
    Execute(device, "B1", 0);
    Execute(device, "C9", 12500);
    EXPECT_EQ(Execute(device, "B6", 12500), " 011500.");
    EXPECT_EQ(Execute(device, "B4", 12500), " 012000.") << "the peak is kept";
    Execute(device, "C3", 15000);
    EXPECT_EQ(Execute(device, "B4", 15000), " 011000.");
}

TEST(CustomAscii, RemoteValuesGoToTheDisplayToItem3OrToBoth) {
    static constexpr struct {
        const char *Command, *ModeFunction;
        const char *Shown, *Item3;  // its text, and the answer to B3
    } kCases[] = {
        // clang-format off
        {"H12.34",  "00", "12.34",   "-000100."},
        {"K-1.5",   "00", "nothing", "-00001.5"},
        {"L 7",     "00", " 7",      " 000007."},
        {"L7",      "0B", "7",       "-000100."},  // Item 3 is in use
        // clang-format on
    };
    for (const auto& c : kCases) {
        Device device(Patched({{199, c.ModeFunction}}));
        EXPECT_EQ(Told(device, c.Command), "nothing") << c.Command;
        EXPECT_EQ(device.RemoteShown().value_or(RemoteValue{"nothing"}).Text, c.Shown) << c.Command;
        EXPECT_EQ(Told(device, "B3"), c.Item3) << c.Command;
    }
}

TEST(CustomAscii, CurveTablesAreKeptBesideTheImage) {
    Device device{MeterOptions{}};
    const auto digits = [](char digit) { return std::string(83, digit) + "F"; };
    for (const char* block : {"54", "69", "EA", "FF"})
        Execute(device, "WL" + std::string(block) + digits(block[0]) + "Z", 0);
    Execute(device, "C0", 0);
    for (const char* block : {"54", "69", "EA", "FF"})
        EXPECT_EQ(Execute(device, "XL" + std::string(block) + "Z", 0), digits(block[0])) << block;
    EXPECT_EQ(device.Words().ImageText(), kDefaultImage);
}

TEST(CustomAscii, HeadsNameOneAddress) {
    static constexpr struct {
        const char* Line;
        int Address;
        const char* Command;
    } kCases[] = {
        // clang-format off
        {"*1XR1AZ", 1, "XR1AZ"},     {"*GXR1AZ", 16, "XR1AZ"},     {"*VC0", 31, "C0"},
        {"|*1C0", 1, "C0"},          {"*2XR1AZ", 1, "nothing"},    {"1XR1AZ", 1, "nothing"},
        {"**1C0", 1, "nothing"},     {"||*1C0", 1, "nothing"},     {"*1", 1, "nothing"},
        {"|**|", 1, "nothing"},      {"*************", 1, "nothing"}, {"", 1, "nothing"},
        // clang-format on
    };
    for (const auto& c : kCases)
        EXPECT_EQ(CommandBehindHead(c.Line, c.Address).value_or("nothing"), c.Command) << c.Line;
    for (const char* wake : {"|**|", "|************|"}) EXPECT_TRUE(IsWakeUp(wake)) << wake;
    for (const char* other : {"|*1C0", "*************"}) EXPECT_FALSE(IsWakeUp(other)) << other;
}

}  // namespace
}  // namespace sim
