#include "sim/custom_ascii.h"

#include <gtest/gtest.h>

#include "tool.h"

namespace sim {
namespace {

std::string Told(Device& device, const char* command) {
    return Execute(device, command, 0).value_or("nothing");
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
