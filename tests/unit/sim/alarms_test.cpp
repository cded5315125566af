#include "sim/alarms.h"

#include <gtest/gtest.h>

#include <string>

namespace sim {
namespace {

TEST(Alarms, FollowTheirSetup) {
    const struct {
        const char* Name;
        int Fitted;
        int Position;  // a byte of the setup, and its digits
        std::uint32_t Byte;
        const char* Alarms;  // after readings 100, 99, 101, 99
    } kCases[] = {
        // Setpoints 1 and 4 are 100, 2 and 3 are -100.
        // clang-format off
        {"high, at the setpoint",    4, 203, 0x00, "1111 0110 1111 0110"},
        {"no relay board",           0, 203, 0x00, "0000 0000 0000 0000"},
        {"two relays",               2, 203, 0x00, "1100 0100 1100 0100"},
        {"1 low",                    4, 203, 0x01, "1111 1110 0111 1110"},
        {"2 low",                    4, 203, 0x04, "1011 0010 1011 0010"},
        {"1 and 4 disabled by 2, 3", 4, 203, 0x02, "0111 0110 0111 0110"},
        {"2 by 3",                   4, 203, 0x0C, "1011 0010 1011 0010"},
        {"4 low",                    4, 231, 0x04, "1111 0111 1110 0111"},
        {"1 latching",               4, 203, 0x10, "1111 1110 1111 1110"},
        {"4 latching",               4, 231, 0x20, "1111 0111 1111 0111"},
        {"1, 2 after 2 readings",    4, 201, 0x01, "0011 0110 0111 0110"},
        {"3, 4 after 4 readings",    4, 229, 0x02, "1100 0100 1100 0110"},
        {"1 watches Item 2",         4, 169, 0x80, "0111 0110 0111 0110"},
        {"3 watches Item 3",         4, 169, 0x0C, "1101 0100 1101 0100"},
        {"a remote display Item 3",  4, 185, 0x60, "0000 0000 0000 0000"},
        // clang-format on
    };
    for (const auto& c : kCases) {
        Memory memory;
        for (int position : {55, 217}) memory.SetNumber(position, 6, 100);
        for (int position : {49, 223}) memory.SetNumber(position, 6, 0xFFFF9C);
        memory.SetNumber(c.Position, 2, c.Byte);
        Alarms alarms;
        std::string seen;
        for (int reading : {100, 99, 101, 99}) {
            alarms.Judge(AlarmSetupsOf(memory, ItemPlan{}, c.Fitted), {reading, -reading - 2, -reading - 2});
            seen += seen.empty() ? "" : " ";
            for (bool on : alarms.On()) seen += on ? '1' : '0';
        }
        EXPECT_EQ(seen, c.Alarms) << c.Name;
    }
    EXPECT_EQ(FilteredItem(ItemPlanOf(0x26)), Reading::Item2) << "burst";
    EXPECT_EQ(FilteredItem(ItemPlanOf(0x02)), Reading::Item3) << "batch";
}

}  // namespace
}  // namespace sim
