#include "stories.h"

namespace counter::test {
namespace {

TEST(OptionBoards, AreShownAndFollowed) {
    // clang-format off
    const Story stories[] = {
        {"default",                   "",        "", "cboRlyOpt=2-Relay Board; cboComOpt=RS232 Board; cboAnaOpt=16 Bit Unipolar; tab3=1; tab4=1; tab5=1; tab6=1; fraAlarm[3].show=0"},
        {"relay code 3",              "193=69",  "", "cboRlyOpt=2-Relay Board; @193=69"},
        {"relay code 1 is four",      "193=29",  "", "cboRlyOpt=4-Relay Board; fraAlarm[4].show=1; fraNumRdgsAlms[1].show=1"},
        {"four relays picked",        "",        "cboRlyOpt #2", "@193=29; fraAlarm[3].show=1; tab3=1"},
        {"no relays",                 "",        "cboRlyOpt #0; !tab 3", "@193=09; tab3=0"},
        {"a transmitter's one choice stores none", "type=5", "cboRlyOpt #0", "cboRlyOpt.list=2-Relay Board; @193=09; tab3=0"},
        {"comm code 3",               "193=59",  "", "cboComOpt=RS485/U/E/MB; tab4=1; @193=59"},
        {"no comm board",             "",        "cboComOpt #0", "@193=41; tab4=0"},
        {"no analog board",           "",        "cboAnaOpt #0", "@143=00; tab5=0"},
        {"none stored",               "143=00",  "cboAnaOpt #1", "@143=01; tab5=1; fraAnaOut.show=0"},
        {"boards of a meter are fixed", "frommeter=1", "!cboInOpt #0; !cboRlyOpt #0; !cboComOpt #0", "cboAnaOpt.on=1"},
        {"without a panel",           "type=7; 143=00; 193=48", "", "fraRlyOpt.show=0; fraComOpt.show=0; fraAnaOpt.show=0; tab3=1; tab5=1; tab6=0; cboAnaOpt=16 Bit Uni/Bipolar"},
    };
    // clang-format on
    RunStories(stories);
}

TEST(OptionBoards, AnalogBoardByVersionAndLink) {
    constexpr const char* kFatal = "The Analog Output module is not compatible with this instrument";
    const struct {
        const char *Name, *Given;
        const char* Entries;  // null: the program ends
        const char *Picked, *Enabled;
    } cases[] = {
        // clang-format off
        {"70 has 12 bits alone",          "comms=1; 233=46; 143=01", "None|12 Bit Unipolar", "12 Bit Unipolar", "1"},
        {"70 whatever is stored",         "comms=1; 233=46; 143=00", "None|12 Bit Unipolar", "12 Bit Unipolar", "1"},
        {"70 with 16 bits",               "comms=1; 233=46; 143=02", nullptr, "", ""},
        {"73 with an unknown board",      "comms=1; 233=49; 143=09", nullptr, "", ""},
        {"70 without a link",             "233=46; 143=04",          "None|12 Bit Unipolar|16 Bit Unipolar|16 Bit Uni/Bipolar|16 Bit Dual Unipolar", "12 Bit Unipolar", "1"},
        {"74",                            "comms=1; 233=4A; 143=02", "None|12 Bit Unipolar|16 Bit Unipolar", "16 Bit Unipolar", "1"},
        {"77 shows at most 2",            "comms=1; 233=4D; 143=03", "None|12 Bit Unipolar|16 Bit Unipolar", "16 Bit Unipolar", "1"},
        {"77 with two outputs",           "comms=1; 233=4D; 143=04", nullptr, "", ""},
        {"78 with two outputs",           "comms=1; 233=4E; 143=04", "None|12 Bit Unipolar|16 Bit Unipolar|16 Bit Uni/Bipolar|16 Bit Dual Unipolar", "16 Bit Dual Unipolar", "1"},
        {"83 with an unknown board",      "143=77",                  "None|12 Bit Unipolar|16 Bit Unipolar|16 Bit Uni/Bipolar|16 Bit Dual Unipolar", "(none)", "1"},
        {"73 read: can't tell",           "comms=1; frommeter=1; 233=49; 143=01", "None|12 Bit Unipolar", "12 Bit Unipolar", "1"},
        {"74 read over ASCII",            "comms=1; frommeter=1; 233=4A; 143=01", "None|12 Bit Unipolar|16 Bit Unipolar", "12 Bit Unipolar", "0"},
        {"75 read over Modbus: can't",    "comms=1; frommeter=1; 233=4B; 143=01; 109=04", "None|12 Bit Unipolar|16 Bit Unipolar", "12 Bit Unipolar", "1"},
        {"76 read over Modbus",           "comms=1; frommeter=1; 233=4C; 143=01; 109=04", "None|12 Bit Unipolar|16 Bit Unipolar", "12 Bit Unipolar", "0"},
        // clang-format on
    };
    for (const auto& c : cases) {
        SetupBench bench(c.Given);
        bench.Open();
        EXPECT_EQ(bench.Ended, c.Entries == nullptr) << c.Name;
        EXPECT_EQ(bench.Seen("box"), c.Entries ? "no message" : kFatal) << c.Name;
        if (!c.Entries) continue;
        EXPECT_EQ(bench.Seen("cboAnaOpt.list"), c.Entries) << c.Name;
        EXPECT_EQ(bench.Seen("cboAnaOpt"), c.Picked) << c.Name;
        EXPECT_EQ(bench.Seen("cboAnaOpt.on"), c.Enabled) << c.Name;
    }
}

}  // namespace
}  // namespace counter::test
