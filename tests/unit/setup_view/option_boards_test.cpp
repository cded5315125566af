#include "stories.h"

namespace counter::test {
namespace {

TEST(OptionBoards, AreShownAndFollowed) {
    // clang-format off
    RunStories({
        {"default",                   "",        "", "cboRlyOpt=2-Relay Board; cboComOpt=RS232 Board; cboAnaOpt=16 Bit Unipolar; tab3=1; tab4=1; tab5=1; tab6=1; fraAlarm[3].show=0"},
        {"relay code 3",              "193=69",  "", "cboRlyOpt=2-Relay Board; @193=69"},
        {"relay code 1 is four",      "193=29",  "", "cboRlyOpt=4-Relay Board; fraAlarm[4].show=1; fraNumRdgsAlms[1].show=1"},
        {"four relays picked",        "",        "cboRlyOpt #2", "@193=29; fraAlarm[3].show=1; tab3=1"},
        {"no relays",                 "",        "cboRlyOpt #0; !tab 3", "@193=09; tab3=0"},
        {"a transmitter's one choice", "type=5", "cboRlyOpt #0", "cboRlyOpt.list=2-Relay Board; @193=49; tab3=1"},
        {"comm code 3",               "193=59",  "", "cboComOpt=RS485/U/E/MB; tab4=1; @193=59"},
        {"no comm board",             "",        "cboComOpt #0", "@193=41; tab4=0"},
        {"no analog board",           "",        "cboAnaOpt #0", "@143=00; tab5=0"},
        {"none stored",               "143=00",  "cboAnaOpt #1", "@143=01; tab5=1; fraAnaOut.show=1"},
        {"boards of a meter are fixed", "frommeter=1", "!cboInOpt #0; !cboRlyOpt #0; !cboComOpt #0", "cboAnaOpt.on=1"},
        {"without a panel",           "type=7; 143=00; 193=48", "", "fraRlyOpt.show=0; fraComOpt.show=0; fraAnaOpt.show=0; tab3=1; tab5=1; tab6=0; cboAnaOpt=16 Bit Uni/Bipolar"},
    });
    // clang-format on
}

// The analog board follows version and link; one that fits none of them ends the program.
TEST(OptionBoards, AnalogBoardByVersionAndLink) {
    // clang-format off
    RunStories({
        {"70 has 12 bits alone",       "comms=1; 233=46; 143=01",                      "", "boxes=0; cboAnaOpt=12 Bit Unipolar; cboAnaOpt.on=1; cboAnaOpt.list=None|12 Bit Unipolar"},
        {"70 whatever is stored",      "comms=1; 233=46; 143=00",                      "", "boxes=0; cboAnaOpt=12 Bit Unipolar; cboAnaOpt.on=1; cboAnaOpt.list=None|12 Bit Unipolar"},
        {"70 with 16 bits",            "comms=1; 233=46; 143=02",                      "", "ended=1; box=The Analog Output module is not compatible with this instrument"},
        {"73 with an unknown board",   "comms=1; 233=49; 143=09",                      "", "ended=1; box=The Analog Output module is not compatible with this instrument"},
        {"70 without a link",          "233=46; 143=04",                               "", "boxes=0; cboAnaOpt=12 Bit Unipolar; cboAnaOpt.on=1; cboAnaOpt.list=None|12 Bit Unipolar|16 Bit Unipolar|16 Bit Uni/Bipolar|16 Bit Dual Unipolar"},
        {"74",                         "comms=1; 233=4A; 143=02",                      "", "boxes=0; cboAnaOpt=16 Bit Unipolar; cboAnaOpt.on=1; cboAnaOpt.list=None|12 Bit Unipolar|16 Bit Unipolar"},
        {"77 shows at most 2",         "comms=1; 233=4D; 143=03",                      "", "boxes=0; cboAnaOpt=16 Bit Unipolar; cboAnaOpt.on=1; cboAnaOpt.list=None|12 Bit Unipolar|16 Bit Unipolar"},
        {"77 with two outputs",        "comms=1; 233=4D; 143=04",                      "", "ended=1; box=The Analog Output module is not compatible with this instrument"},
        {"78 with two outputs",        "comms=1; 233=4E; 143=04",                      "", "boxes=0; cboAnaOpt=16 Bit Dual Unipolar; cboAnaOpt.on=1; cboAnaOpt.list=None|12 Bit Unipolar|16 Bit Unipolar|16 Bit Uni/Bipolar|16 Bit Dual Unipolar"},
        {"83 with an unknown board",   "143=77",                                       "", "boxes=0; cboAnaOpt=(none); cboAnaOpt.on=1; cboAnaOpt.list=None|12 Bit Unipolar|16 Bit Unipolar|16 Bit Uni/Bipolar|16 Bit Dual Unipolar"},
        {"73 read: can't tell",        "comms=1; frommeter=1; 233=49; 143=01",         "", "boxes=0; cboAnaOpt=12 Bit Unipolar; cboAnaOpt.on=1; cboAnaOpt.list=None|12 Bit Unipolar"},
        {"74 read over ASCII",         "comms=1; frommeter=1; 233=4A; 143=01",         "", "boxes=0; cboAnaOpt=12 Bit Unipolar; cboAnaOpt.on=0; cboAnaOpt.list=None|12 Bit Unipolar|16 Bit Unipolar"},
        {"75 read over Modbus: can't", "comms=1; frommeter=1; 233=4B; 143=01; 109=04", "", "boxes=0; cboAnaOpt=12 Bit Unipolar; cboAnaOpt.on=1; cboAnaOpt.list=None|12 Bit Unipolar|16 Bit Unipolar"},
        {"76 read over Modbus",        "comms=1; frommeter=1; 233=4C; 143=01; 109=04", "", "boxes=0; cboAnaOpt=12 Bit Unipolar; cboAnaOpt.on=0; cboAnaOpt.list=None|12 Bit Unipolar|16 Bit Unipolar"},
    });
    // clang-format on
}

}  // namespace
}  // namespace counter::test
