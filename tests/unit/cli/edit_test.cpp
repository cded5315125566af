// counterctl edit and show --as setup from the outside: scripts, refusals, what is written, the JSON
// document.
#include "edit_bench.h"

namespace counter::test {
namespace {

TEST(Edit, EveryActionWritesItsField) {
    const struct {
        const char *Name, *Script;
        int Pos;
        const char* Digits;
    } cases[] = {
        // clang-format off
        {"by index",                   "select cboBaudRate #6",                         191, "60"},
        {"by text, blanks ignored",    "select cboBaudRate 19200",                      191, "60"},
        {"a text with a # in it",      "select cboCusCrv[0] Curve #1",                  185, "08"},
        {"and a comment behind",       "select cboBaudRate 300 # slow # very",          191, "00"},
        {"box on",                     "check chkAlmData 1",                            189, "61"},
        {"box off again",              "check chkLF 1\ncheck chkLF 0",                  189, "21"},
        {"option",                     "click optCoord1[0]",                            197, "20"},
        {"number",                     "enter txtSetpt[1] -012345",                      55, "FFCFC7"},
        {"first digits alone",         "enter txtSetpt[1] -2",                           55, "FCCBB0"},
        {"arrows",                     "enter txtSetpt[1] >>>7<<9",                      55, "017AE8"},
        {"no keys, just OK",           "enter txtSetpt[1]",                              55, "002710"},
        {"cancel",                     "cancel txtSetpt[1] -012345",                     55, "002710"},
        {"cancel behind Enter",        "cancel txtSetpt[1] -012345~",                    55, "FFCFC7"},
        {"byte",                       "select cboProtocol #1\nenter txtMBAddr 255",    111, "FF"},
        {"byte that is too large",     "select cboProtocol #1\nenter txtMBAddr 256~\nenter txtMBAddr 007", 111, "07"},
        {"blanks, tab, CR, comment",   "\ttab  4\t# the last\r\nselect cboBaudRate #6 # fast", 191, "60"},
        {"comment right behind",       "check chkLF 1#set",                             189, "A1"},
        {"keys and a comment",         "enter txtSetpt[1] -012345 #",                    55, "FFCFC7"},
        {"from tab to tab, CR LF",     "tab 3\r\n\r\n# alarms\r\ntab 4\r\nselect cboBaudRate #6\r\n", 191, "60"},
        // clang-format on
    };
    for (const auto& c : cases) {
        EditBench bench;
        bench.SetUp("01", 199);  // Rate, A Only: has all of these
        ASSERT_EQ(bench.Edit(c.Script), 0) << c.Name << ": " << bench.Err;
        const std::string digits = c.Digits;
        EXPECT_EQ(bench.Digits(c.Pos, static_cast<int>(digits.size())), digits) << c.Name;
        EXPECT_FALSE(bench.View()["ended"]) << c.Name;
    }
}

TEST(Edit, WhatAUserCouldNotDoIsRefused) {
    const struct {
        const char *Script, *Line;
    } cases[] = {
        {"frob", "line 1: no action 'frob'; actions are tab select check click enter cancel"},
        {"# one\n\ntab x", "line 3: usage: tab N, with N from 0 on"},
        {"tab 7", "line 1: tab 7 does not exist"},
        {"tab 2", "line 1: tab 2 is not offered. This Mode and Function filter no item."},
        {"select cboFrob #1", "line 1: no control 'cboFrob'"},
        {"select", "line 1: a control is missing"},
        {"select # cboMode", "line 1: a control is missing"},
        {"select cboBaudRate", "line 1: usage: select CONTROL #I or select CONTROL TEXT"},
        {"select cboParity #3", "line 1: cboParity is hidden"},
        {"select cboDuplex #2",
         "line 1: cboDuplex has no entry #2; entries are #0 'Full Duplex' #1 'Half Duplex'"},
        {"select cboDuplex Full",
         "line 1: cboDuplex has no entry 'Full'; entries are #0 'Full Duplex' #1 'Half Duplex'"},
        {"select cboDuplex #1 Half",
         "line 1: cboDuplex has no entry '#1 Half'; entries are #0 'Full Duplex' #1 'Half Duplex'"},
        {"select chkLF #1", "line 1: chkLF is not a list"},
        {"check chkLF 2", "line 1: usage: check CONTROL 0|1"},
        {"check cboMode 1", "line 1: cboMode is not a check box"},
        {"click txtCal", "line 1: txtCal is not a button or option button"},
        {"click cmdMainMenu now", "line 1: usage: click CONTROL"},
        {"enter cboMode 1", "line 1: cboMode is not a value field"},
        {"enter txtSetpt +1",
         "line 1: no control 'txtSetpt'; there is txtSetpt[1] txtSetpt[2] txtSetpt[3] txtSetpt[4]"},
        {"enter txtSetpt[x] +1",
         "line 1: 'txtSetpt[x]' is not a control's name and index, as in txtSetpt[1]"},
        {"enter txtSetpt[3] +1", "line 1: txtSetpt[3] is hidden"},
        {"enter txtLoIn1[0] +1", "line 1: txtLoIn1[0] is disabled. The scale or a curve is in force."},
        {"check chkAlmData 1\nselect cboDVal #1",
         "line 2: cboDVal is disabled. This Mode and Function filter no item."},
        {"click cmdMainMenu\ntab 0", "line 2: the Setup view was left for the main menu"},
    };
    for (const auto& c : cases) {
        EditBench bench;
        bench.SetUp("20", 199);  // Total: no filtered item
        const auto before = bench.Store.Contents;
        EXPECT_EQ(bench.Edit(c.Script), 1) << c.Script;
        EXPECT_EQ(bench.Err, "counterctl: " + std::string(c.Line) + "\n");
        EXPECT_EQ(bench.Out, "") << c.Script;
        EXPECT_EQ(bench.Store.Contents, before) << c.Script << ": nothing is written";
    }
}

TEST(Edit, ReadsAndWritesTheFilesNamed) {
    EditBench bench;
    bench.Store.Contents["s"] = "select cboBaudRate #6";
    EXPECT_EQ(bench.Run({"edit", "d", "--script", "s", "--out", "e"}), 0);
    EXPECT_EQ(bench.Out + bench.Err, "");
    EXPECT_EQ(bench.Digits(191, 2), "60");
    EXPECT_EQ(bench.Store.Contents["d"].substr(190, 2), "50");
    EXPECT_EQ(bench.Run({"edit", "d", "--script", "-"}, "select cboBaudRate #6\n"), 0) << "over FILE";
    EXPECT_EQ(bench.Store.Contents["d"], bench.Store.Contents["e"]);
    EXPECT_EQ(bench.Store.Contents["d"].substr(260), "\r\n");
    EXPECT_EQ(bench.Run({"edit", "none"}), 2);
    EXPECT_EQ(bench.Err, "counterctl: none: No such file or directory\n");
    EXPECT_EQ(bench.Run({"edit", "d", "--script", "none"}), 2);
    bench.Store.ReadOnly.insert("e");
    EXPECT_EQ(bench.Run({"edit", "d", "--out", "e", "--json"}), 2);
    EXPECT_EQ(bench.Out, "");
    EXPECT_EQ(bench.Err, "counterctl: e: Permission denied\n");
}

TEST(Edit, SettingsOrImageSayWhichMeterIsMeant) {
    EditBench bench;
    EXPECT_EQ(bench.Edit(""), 0) << "without settings the image names the meter";
    EXPECT_EQ(bench.Shown("fraRTS")["visible"], true);
    EXPECT_EQ(bench.Shown("cboRlyOpt")["enabled"], true);
    EXPECT_EQ(bench.Run({"edit", "d", "--from-meter"}, "select cboRlyOpt #0"), 1)
        << "a meter's boards are fixed";
    EXPECT_EQ(bench.Err,
              "counterctl: line 1: cboRlyOpt is disabled. The boards of a meter that was read are fixed.\n");
    bench.Store.Contents["home/Settings.SSS"] = "7501000100100830010000\r\n2711000000000000F6CB00000000\r\n";
    EXPECT_EQ(bench.Edit(""), 0);
    EXPECT_EQ(bench.Shown("cmdRead")["visible"], true);
    EXPECT_EQ(bench.View()["tabs"][6], Json({{"caption", "Lockouts"}, {"offered", false}}));
    bench.Store.Contents["home/Settings.SSS"] = "3501000100100831010000\r\n2711112233445566F6CB00000000\r\n";
    EXPECT_EQ(bench.Edit(""), 0);
    EXPECT_EQ(bench.Shown("fraSerComm")["caption"], "Serial Communications via Ethernet");
    bench.SetUp("07", 235);
    EXPECT_EQ(bench.Run({"edit", "d", "--from-meter", "--json"}), 0);
    EXPECT_EQ(bench.Shown("cmdRead")["visible"], true) << "the meter's kind comes from the image";
    bench.Store.Contents["home/Settings.SSS"] = "3501110100100830010000\r\n2711000000000000F6CB00000000\r\n";
    EXPECT_EQ(bench.Run({"edit", "d", "--from-meter", "--json"}), 0) << bench.Err;
    EXPECT_EQ(bench.Shown("cmdRead")["visible"], false) << "over Modbus from the settings";
    EXPECT_EQ(bench.Shown("cboRlyOpt")["enabled"], false);
}

// The loop runs until its button is pressed again; the actions after the first press run within it.
TEST(Edit, TheReadLoopLetsActionsIn) {
    EditBench bench;
    bench.SetUp("07", 235);
    EXPECT_EQ(bench.Edit("click cmdRead\nselect cboBaudRate #6\nselect cboBaudRate #4"), 0) << bench.Err;
    EXPECT_EQ(bench.Digits(191, 2), "40");
    EXPECT_EQ(bench.Shown("cmdRead")["caption"], "Stop");
    EXPECT_EQ(bench.Shown("lblValue")["back"], "ColorGreen");
    EXPECT_EQ(bench.View()["ended"], false);
    EXPECT_EQ(bench.Edit("click cmdRead\nclick cmdRead\nselect cboBaudRate #2"), 0) << bench.Err;
    EXPECT_EQ(bench.Shown("cmdRead")["caption"], "Read");
    EXPECT_EQ(bench.Digits(191, 2), "20");
    EXPECT_EQ(bench.Edit("click cmdRead\ntab 6\n"), 1);
    EXPECT_EQ(bench.Err, "counterctl: line 2: tab 6 is not offered. A transmitter has no panel to lock.\n");
}

TEST(Edit, MessagesAreToldOnBothRoads) {
    EditBench bench;
    bench.SetUp("4A0900C0", 193);  // a quadrature board that counts
    EXPECT_EQ(bench.Edit("select cboPwrOnTot #1"), 0) << bench.Err;
    EXPECT_EQ(bench.Err, "Set Pulses per Revolution = 0\n");
    EXPECT_EQ(bench.View()["messages"],
              Json::parse(R"([{"title":"","text":"Set Pulses per Revolution = 0"}])"));
}

TEST(Edit, SettingsAreWrittenOnlyByAGoodRun) {
    EditBench bench;
    const std::string before = "3301000100100831010000\r\n2711000000000000F6CB00000000\r\n";
    bench.Store.Contents["home/Settings.SSS"] = before;
    EXPECT_EQ(bench.Edit("click cmd9600\ntab 9"), 1);
    EXPECT_EQ(bench.Store.Contents["home/Settings.SSS"], before);
    bench.Store.ReadOnly.insert("e");
    EXPECT_EQ(bench.Edit("click cmd9600"), 2);
    EXPECT_EQ(bench.Store.Contents["home/Settings.SSS"], before);
    bench.Store.ReadOnly.clear();
    EXPECT_EQ(bench.Edit("click cmd9600\nclick cmd9600"), 0) << bench.Err;
    EXPECT_EQ(bench.Store.Contents["home/Settings.SSS"],
              "3501000100100831010000\r\n2711000000000000F6CB000000000\r\n");
}

TEST(Edit, AMessageMayEndTheProgram) {
    EditBench bench;
    bench.SetUp("48", 233);  // version 72, and the image's analog board is a later one
    bench.Store.Contents["home/Settings.SSS"] = "3501000100100721010000\r\n2711000000000000F6CB00000000\r\n";
    EXPECT_EQ(bench.Run({"show", "d", "--as", "setup", "--json"}), 0);
    EXPECT_EQ(bench.View()["ended"], true);
    EXPECT_EQ(bench.View()["messages"][0]["title"], "Error");
    EXPECT_EQ(bench.Edit("# nothing to do\ntab 0"), 1);
    EXPECT_NE(bench.Err.find("counterctl: line 2: the program has ended\n"), std::string::npos) << bench.Err;
    bench.Store.Contents["home/Settings.SSS"] = "3501000100100831810000\r\n2711000000000000F6CB00000000\r\n";
    EXPECT_EQ(bench.Edit("tab 0"), 1) << "settings of another program";
    EXPECT_EQ(bench.Store.Contents.count("e"), 0U);
    EXPECT_EQ(bench.Edit(""), 1);
    EXPECT_EQ(bench.LastErrLine(), "counterctl: the program has ended");
    EXPECT_EQ(bench.View()["ended"], true);
    EXPECT_EQ(bench.View()["messages"][0]["title"], "Program Error");
    EXPECT_EQ(bench.Store.Contents.count("e"), 0U) << "a program that ended keeps no setup";
}

TEST(ShowSetup, JsonHasEveryPart) {
    EditBench bench;
    EXPECT_EQ(bench.Run({"show", "d", "--as", "setup", "--json"}), 0) << bench.Err;
    const Json view = bench.View();
    EXPECT_EQ(view["tab"], 0);
    EXPECT_EQ(view["tabs"].size(), 7U);
    EXPECT_EQ(view["tabs"][2], Json({{"caption", "Filter"}, {"offered", true}}));
    EXPECT_EQ(view["values"],
              Json::parse(R"({"InputOption":1,"ModeIndex":0,"FunctionIndex":0,"ExtendedMeter":1,
        "DisplayType":0,"ClockMode":0,"DecPt1":1,"DecPt2":1,"ItemLevel":0,"ItemCount":2,"ItemRow":1,
        "ModeWord":16708,"FilteredItem":1,"SourceItems":2,"ItemDecPts":[1,1,1,1],"RelayOption":1,"CommOption":1,
        "AnalogOption":2,"ProtocolCode":0,"PresetActive":0,"CutoffActive":0})"));
    std::string setup = bench.Store.Contents["d"].substr(0, 260);
    EXPECT_EQ(view["setup"], setup.replace(166, 2, "05")) << "Item 3 is no source here, and is repaired";
    const struct {
        const char *Control, *Properties;
    } cases[] = {
        {"cboParity", R"({"visible":true,"enabled":true,"entries":[" None"," Odd"," Even"],"index":0})"},
        {"txtScale1[0]", R"({"visible":true,"enabled":true,"text":" +1.00000"})"},
        {"chkLF", R"({"visible":true,"enabled":true,"value":0})"},
        {"optScale1[0]", R"({"visible":true,"enabled":true,"value":1})"},
        {"fraFilter", R"({"visible":true,"enabled":true,"caption":"Filter  Item 1"})"},
        {"cmdQBasic", R"({"visible":true,"enabled":true,"caption":"Basic","back":"ColorGray"})"},
    };
    const Json& controls = view["controls"];
    for (const auto& c : cases) EXPECT_EQ(controls[c.Control], Json::parse(c.Properties)) << c.Control;
    EXPECT_FALSE(controls.contains("tabSetup")) << "told by tab and tabs";
}

TEST(ShowSetup, TextIsAPageByTabAndFrame) {
    EditBench bench;
    bench.SetUp("20", 199);
    EXPECT_EQ(bench.Run({"show", "d", "--as", "setup"}), 0);
    const char* lines[] = {
        "--- 2  Filter --- not offered\n",
        "--- 4  Communication ---\n  Serial Communications\n    Serial Protocol",
        "  Baud Rate                     9600                          cboBaudRate\n",
        "  [ ] Include LF                                              chkLF\n",
        "  Setpoint 1                    +010000.                      txtSetpt[1]\n",
        "  Low In 1                      +000000.                      txtLoIn1[0]  (disabled)\n",
        "  <Main Menu>                                                   cmdMainMenu\n",
    };
    for (const char* line : lines) EXPECT_NE(bench.Out.find(line), std::string::npos) << line << bench.Out;
}

}  // namespace
}  // namespace counter::test
