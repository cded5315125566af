#include "sim/face.h"

#include <gtest/gtest.h>

#include "tool.h"

namespace sim {
namespace {

// Minus, digits with the point, Item or "R", alarms that are on.
std::string TextOf(const FaceState& face) {
    std::string text = face.Digits;
    text.insert(static_cast<std::size_t>(face.Point), ".");
    text = (face.Minus ? "-" : "+") + text + (face.Remote ? " R" : " " + std::to_string(face.Item));
    for (std::size_t i = 0; i < 4; ++i)
        if (face.Alarms[i]) text += " A" + std::to_string(i + 1);
    return text;
}

TEST(Face, ShowsTheDisplayedItemOrARemoteValue) {
    static constexpr struct {
        const char* Name;
        int Position;
        const char *Digits, *Command, *Face;
    } kCases[] = {
        // clang-format off
        {"point",                  151, "16", "",        "+0.10000 1 A1"},
        {"Item 2",                 157, "02", "",        "+  5000. 2 A1"},
        {"leading zeros",          197, "40", "",        "+010000. 1 A1"},
        {"alarms off",             203, "0A", "",        "+ 10000. 1"},
        {"low, at its setpoint",   203, "01", "",        "+ 10000. 1 A1"},
        {"below its setpoint",     55,  "002711", "",    "+ 10000. 1"},
        {"alarm 1 on Item 2",      169, "80", "",        "+ 10000. 1"},
        {"after two readings",     201, "01", "",        "+ 10000. 1"},
        {"remote",                 151, "11", "H-12.34", "-  12.34 R A1"},
        {"remote to both",         151, "11", "L.5",     "+    0.5 R A1"},
        {"remote to Item 3",       151, "11", "K7",      "+ 10000. 1 A1"},
        {"more than six digits",   151, "11", "H1234567", "+234567. R A1"},
        {"remote display",         185, "64", "",        "+      . R"},
        {"remote display, told",   185, "64", "H42",     "+    42. R"},
        // clang-format on
    };
    for (const auto& c : kCases) {
        Tool tool(Patched({{c.Position, c.Digits}}));
        tool.Ask("*1" + std::string(c.Command) + "\r\n");
        EXPECT_EQ(TextOf(tool.Meter.Face(tool.NowMs)), c.Face) << c.Name;
    }
}

}  // namespace
}  // namespace sim
