// edit by hand: the conversation at a terminal.
#include "edit_bench.h"

namespace counter::test {
namespace {

TEST(EditByHand, TellsEachEffectAndGoesOnBehindAMistake) {
    EditBench bench;
    bench.Terminal = true;
    const std::pair<const char*, const char*> talk[] = {
        {"select cboBaudRate 19200", "  cboBaudRate  9600  ->  19200\n"},
        {"select cboBaudRate 19200", "  nothing changed\n"},
        {"selct cboBaudRate 300",
         "no action 'selct'; actions are tab select check click enter cancel; did you mean 'select'?\n"},
        {"enter txtLoIn1[0] +1", "txtLoIn1[0] is disabled. The scale or a curve is in force.\n"},
        {"click optCoord1[0]",
         "  optScale1[0]  1  ->  0\n"
         "  optCoord1[0]  0  ->  1\n"
         "  can be reached now: txtLoIn1[0] txtLoRd1[0] txtHiIn1[0] txtHiRd1[0]\n"
         "  no longer: txtScale1[0] cboMult1[0] txtOffset1[0]\n"},
        {"undo",
         "  optScale1[0]  0  ->  1\n"
         "  optCoord1[0]  1  ->  0\n"
         "  can be reached now: txtScale1[0] cboMult1[0] txtOffset1[0]\n"
         "  no longer: txtLoIn1[0] txtLoRd1[0] txtHiIn1[0] txtHiRd1[0]\n"},
        {"list Gate",
         "txtGateTime  value  Gate Time               000.10\n"
         "chkLock[2]   box    GateTime,Timeout,Batch  0\n"},
        {"list cboDuplex", "cboDuplex  list  Full/Half Duplex  Full Duplex  Full Duplex | Half Duplex\n"},
        {"show txtLoIn1[0]",
         "txtLoIn1[0]: value 'Low In 1', +000000., is disabled. The scale or a curve is in force.\n"},
        {"show cboDuplx", "no control 'cboDuplx'; did you mean 'cboDuplex'?\n"},
        {"show txtDev", "no control 'txtDev'; there is txtDev[1] txtDev[2] txtDev[3] txtDev[4]\n"},
        {"show fraFilter", "fraFilter: shown only 'Filter  Item 1'\n"},
        {"# nothing", ""},
    };
    std::string typed, wanted;
    for (const auto& [line, answer] : talk) {
        typed += line + std::string("\n");
        wanted += std::string("edit> ") + answer;
    }
    const auto before = bench.Store.Contents;
    EXPECT_EQ(bench.Run({"edit", "d"}, typed + "quit\n"), 0);
    EXPECT_EQ(bench.Err, wanted + "edit> nothing is written\n");
    EXPECT_EQ(bench.Store.Contents, before);

    EXPECT_EQ(bench.Run({"edit", "d", "--out", "e", "--json"}, typed), 0) << "the end of input writes";
    EXPECT_EQ(bench.Err, wanted + "edit> \ne is written\n");
    EXPECT_EQ(bench.Digits(191, 2) + bench.Digits(197, 2), "6000");
    EXPECT_EQ(bench.View()["controls"]["cboBaudRate"]["index"], 6) << "one document on standard output";
}

TEST(EditByHand, TheReadLoopAndAnEndedProgram) {
    EditBench bench;
    bench.Terminal = true;
    bench.SetUp("07", 235);
    EXPECT_EQ(bench.Run({"edit", "d"}, "select cboBaudRate 300\nclick cmdRead\nundo\nclick cmdRead\nundo\n"),
              0);
    EXPECT_NE(bench.Err.find("the meter is being read; click cmdRead first\n"), std::string::npos)
        << bench.Err;
    EXPECT_NE(bench.Err.find("  cboBaudRate  300  ->  9600\n"), std::string::npos) << bench.Err;
    bench.Store.Contents["home/Settings.SSS"] = "3501000100100831810000\r\n2711000000000000F6CB00000000\r\n";
    EXPECT_EQ(bench.Run({"edit", "d", "--out", "e"}, "tab 0\n"), 1);
    EXPECT_EQ(bench.Err.find("edit> "), std::string::npos) << "nothing can be asked for any more";
    EXPECT_EQ(bench.Store.Contents.count("e"), 0U);
}

}  // namespace
}  // namespace counter::test
