// Rows of the menu in words, row by row as literals.
#include "menu_view/menu_words.h"

#include <gtest/gtest.h>

#include "menu_bench.h"

namespace counter::test {
namespace {

std::string Lines(const std::vector<MenuWords>& words) {
    std::string lines;
    for (const MenuWords& one : words) lines += LineOf(one) + "\n";
    return lines;
}

// clang-format off
TEST(MenuWords, TellEachDigit) {
    const struct {
        const char* Row;
        std::vector<Patch> Patches;
        const char* Lines;
    } cases[] = {
        {"ConFiG", {}, "digit 3: Display Type, 0 = Normal, Expnt\n"
                       "digit 4: Meter Class and Custom Curve, 1 = Extended, no curve\n"
                       "digit 5: Square Root, 0 = off\n"
                       "digit 6: Cutoff Enable, 0 = Enabled\n"},
        // What the panel shows is told, and what it hides.
        {"ConFiG", {{185, "BC"}}, "digit 3: Display Type, b = Rmt Dsply 4\n"
                                  "digit 4: Meter Class and Custom Curve, 1 = Extended, no curve, stored is 3\n"
                                  "digit 5: Square Root, 0 = off\n"
                                  "digit 6: Cutoff Enable, 0 = Enabled\n"},
        {"SEtuP", {{199, "01"}, {197, "8F"}}, "digit 2: Power-On Total, 1 = Restore Total\n"
                                              "digit 3: Leading Zeros, 0 = Blank Zeros\n"
                                              "digit 4: Group 1 entry form, 0 = Scale and Offset\n"
                                              "digit 6: Control Inputs, F = Item 2, Item 3, Function Reset\n"},
        {"bAtCH", {{199, "02"}, {171, "1D"}}, "digits 2 and 3: Batch Count, Dn,All,Preset\n"
                                              "digit 4: Batch Total Reset, 1 = External\n"
                                              "digit 5: Batch Item 2, 0 = Grand Total\n"
                                              "digit 6: Batch Start, 1 = Start Immediate\n"},
        {"AL SEt", {{203, "46"}, {201, "21"}}, "digit 2: 1 = Relay 1 Alarm State Active Off, Relay 2 Alarm State Active On\n"
                                               "digit 3: 0 = Alarm 1 Type Non-Latching, Alarm 2 Type Non-Latching\n"
                                               "digit 4: 5 = Alarm 1 State Disabled, Alarm 2 State Active Low\n"
                                               "digit 5: 4 = Deviation 1 Type Band Deviation, Deviation 2 Type Band Deviation, no deviation in the menu\n"
                                               "digit 6: Alarms 1,2 No. Rdgs to Alarm, 1 = 2 Readings\n"},
        {"SEr 2", {{189, "95"}}, "digit 3: Include LF, 1 = on\ndigit 4: Incl Alarm Data, 0 = off\n"
                                 "digit 5: Output Mode, 0 = Continuous\ndigit 6: Address, 5. = 21\n"},
        {"SEr 2", {{189, "00"}}, "digit 3: Include LF, 0 = off\ndigit 4: Incl Alarm Data, 0 = off\n"
                                 "digit 5: Output Mode, 0 = Continuous\ndigit 6: Address, 0 = not in its list\n"},
        {"Loc 1", {{183, "04"}}, "digit 3: Lockout Input Type, 0 = free\ndigit 4: Lockout Setup, Config, 1 = locked\n"
                                 "digit 5: Lockout GateTime,Timeout,Batch, 0 = free\ndigit 6: Lockout Filter, 0 = free\n"},
        {"InPut",  {{193, "4C"}, {199, "83"}}, "digits 1 to 6: Mode, VF 4-20 mA\nbeside: Function, A, A Total\n"},
        {"DecPt1", {{151, "13"}}, "digits 1 to 6: Decimal Point 1, 1111.11\n"},
        {"GAtE t", {}, "S to digit 4: Gate Time, 000.10 seconds\n"},
        {"SCALE1", {{43, "8186A0"}, {165, "52"}}, "S to digit 6: Scale 1, -1.00000\nbeside: Multiplier 1, 0.001\n"},
        {"rESoLn", {{199, "0B"}, {155, "06"}}, "digits 5 and 6: Resolution, 10\n"},
    };
    for (const auto& c : cases) {
        const MenuBench bench(c.Patches);
        EXPECT_EQ(Lines(WordsOfRow(bench.View, bench.Image, bench.RowOf(c.Row))), c.Lines) << c.Row;
    }
    const MenuBench four({{193, "29"}, {203, "02"}});  // four relays, alarm 1 disabled
    EXPECT_EQ(Lines(WordsOfSetpoint(four.View, 1)), "S to digit 6: Setpoint 2, +020000\n");
    EXPECT_EQ(Lines(WordsOfRow(four.View, four.Image, 0)) + Lines(WordsOfRow(four.View, four.Image, 50)), "");
}
// clang-format on

}  // namespace
}  // namespace counter::test
