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

// Of a refresh within a wait the handlers stay live; the lists that the outer rule still fills must not write
// what they pass through.
TEST(SetupView, HandlersAreDeadWhileARuleWaits) {
    // clang-format off
    RunStories({
        {"a pick is shown and not written",    "", "~cboBaudRate #6; optCoord1[0]", "cboBaudRate= 19200; @191=50"},
        {"and written afterwards",             "", "~cboBaudRate #6; optCoord1[0]; cboBaudRate #6", "@191=60"},
        {"a refresh leaves the multipliers",   "165=95; 155=02", "~tab 5; optCoord1[0]", "@165=95"},
    });
    // clang-format on
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
    bench.View.Activate();
    bench.View.RestorePage();
    EXPECT_EQ(bench.Seen("tab"), "3");
}

}  // namespace
}  // namespace counter::test
