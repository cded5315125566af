// Coming and going, help, and what the view does while it waits.
#include "stories.h"

namespace counter::test {
namespace {

TEST(SetupView, ComesToTheFront) {
    // clang-format off
    RunStories({
        {"on its first page",         "",       "tab 4; reopen", "tab=0"},
        {"behind an entry on the page it was", "151=22", "tab 3; txtSetpt[1] := 000064", "tab=3; txtSetpt[1]= +00010.0; cboTimConst=(none)"},
        {"once alone",                "",       "tab 3; txtSetpt[1] := 000064; tab 6; reopen", "tab=0; cboRlyOpt=2-Relay Board"},
        {"from the image, not from old lists", "", "cboMode #2; cboOutItems #3; @199=03; @187=06; reopen", "cboMode=Rate; cboFunction=A, A Total; cboOutItems=Valley"},
        {"as its version is",         "",       "@233=51; reopen", "cboDevTyp[1].list= Band Deviation| Hysteresis"},
    });
    // clang-format on
}

TEST(SetupView, APageComesBackAsItIsComeTo) {
    // clang-format off
    RunStories({
        {"filter",        "195=6B",         "tab 2; ~cboTimConst #7; help", "tab=2; cboTimConst= 6.4 Sec; cboFType= Conventional"},
        {"communication", "187=41",         "tab 4; help", "tab=4; fraTranStart.show=1; fraTranStop.show=1; lblAscTbl.show=1; fraCusRecog.show=0"},
        {"batch",         "199=02; 171=02", "tab 1; help", "tab=1; lblItem2[3]= # Batches; cboResoln[3].show=0"},
        {"behind an entry of a script", "195=6B", "tab 2; txtSetpt[1] := 000064", "tab=2; cboTimConst= 0.4 Sec"},
    });
    // clang-format on
}

// The user acts in each wait; lists that a rule still fills must not write what they pass through. What was
// left ends there: the image is another by then, and sources that it lacks are not repaired.
TEST(SetupView, HandlersAreLiveWhileARuleWaits) {
    // clang-format off
    RunStories({
        {"a pick is written",                "", "~cboBaudRate #6; optCoord1[0]", "cboBaudRate= 19200; @191=60"},
        {"also while the view is built",     "", "~cboBaudRate #6; ~cboMode #2; reopen", "cboBaudRate= 19200; @191=60; @199=20; cboMode=Total; tab2=0"},
        {"a refresh leaves the multipliers", "165=95; 155=02", "~tab 5; optCoord1[0]", "@165=95"},
        {"a page come to in a build",        "195=6B", "~tab 2; reopen", "tab=2; cboTimConst= 0.4 Sec"},
        {"a refresh that was left",          "199=20", "~cmdMainMenu; ~@169=00; cboDType #1", "@169=00"},
        {"a new Function that was left",     "199=20", "~cmdMainMenu; ~@169=00; cboFunction #0", "@169=00"},
        {"a build that was left",            "199=20", "~cmdMainMenu; ~@169=00; ~@171=80; reopen", "@169=00; @171=80"},
        {"left and opened again",            "199=20", "~cmdMainMenu; ~tab 4; ~reopen; reopen; cboBaudRate #6", "tab=0; @191=60; cboRlyOpt=2-Relay Board"},
    });
    // clang-format on
}

// A wait over a node is a second.
TEST(SetupView, ALongWaitShowsAnHourglass) {
    SetupBench bench("ether=1");
    bench.Bench.Pump.After(5, [&] { EXPECT_TRUE(bench.Bench.Program.Home.Hourglass); });
    bench.Open();
    EXPECT_FALSE(bench.Bench.Program.Home.Hourglass);
}

TEST(SetupView, ALeftViewTakesNoFocus) {
    SetupBench bench;
    bench.Open();
    bench.View.TakeFocus = [&](const Control& control) { ADD_FAILURE() << control.Name; };
    bench.Do("~cmdMainMenu; cmdQBasic");
    EXPECT_EQ(bench.Bench.Program.Views.HelpId, 1102);
}

TEST(SetupView, HelpFollowsWhatWasTouched) {
    SetupBench bench;
    bench.Open();
    bench.Do("cboTranChars #1");  // brings the label of the character table
    int asked = 0;
    bench.View.OpenHelp = [&](int number) { asked = number; };
    const std::pair<const char*, int> cases[] = {{"optBasic", 1156},     {"optCoord2[0]", 1135},
                                                 {"optScale2[0]", 1135}, {"lblAscTbl", 1138},
                                                 {"cmdQExtended", 1156}, {"cboOutItems #1", 1180}};
    for (const auto& [deed, number] : cases) {
        bench.Do(deed);
        bench.View.HelpKey();
        EXPECT_EQ(asked, number) << deed;
    }
    bench.Do("tab 3");
    bench.View.HelpKey();
    bench.View.ComeBack();
    EXPECT_EQ(bench.Seen("tab"), "3");
}

}  // namespace
}  // namespace counter::test
