#include "stories.h"

namespace counter::test {
namespace {

TEST(CommunicationPage, RulesFieldsAndBytes) {
    // clang-format off
    RunStories({
        {"custom ASCII",            "",       "", "fraAddress.show=1; fraOutRate.show=1; chkLF.show=1; fraParity.show=0; fraMBAddr.show=0; fraMBTimeout.show=0; fraRTS.show=1; fraDuplex.show=1"},
        {"Modbus RTU",              "109=04", "", "fraAddress.show=0; chkAlmData.show=0; fraCR.show=0; fraRecogChr.show=0; fraCusRecog.show=0; fraParity.show=1; fraMBAddr.show=1; fraMBTimeout.show=0; fraRTS.show=0"},
        {"Modbus ASCII",            "109=08", "", "fraMBTimeout.show=1; cboProtocol=Modbus ASCII"},
        {"protocol 3",              "109=0C", "", "cboProtocol=(none); fraMBTimeout.show=1"},
        {"RTS is the Counter's",    "type=1", "", "fraRTS.show=0"},
        {"just opened: by the lists", "187=41; parity=2", "", "fraCusRecog.show=0; cboRecogChr=Standard (*); fraTranStart.show=1; lblAscTbl.show=1; cboTranChars=Special Tx Chars; parity=2"},
        {"picked: special characters", "",    "cboTranChars #1", "@187=41; fraTranStart.show=1; fraTranStop.show=1; lblAscTbl.show=1; fraCusRecog.show=0"},
        {"Modbus hides them",       "",       "cboTranChars #1; cboProtocol #1", "@109=04; fraTranStart.show=0; lblAscTbl.show=0"},
        {"coming shows both",       "",       "tab 4", "fraTranStart.show=1; fraTranStop.show=1; cboTranChars=No Special Chars; lblAscTbl.show=0"},
        {"until the rules run",     "",       "tab 4; cboTranChars #0", "fraTranStart.show=0"},
        {"coming under Modbus",     "109=04", "tab 4", "fraTranStart.show=0; fraTranChars.show=0; cboOutItems.on=1"},
        {"coming, remote",          "185=64", "tab 4", "fraTranStart.show=0; fraOutItems.on=0; cboOutRate.on=0; chkLF.on=0; cboRTS.on=0; cboSerMode.on=0; cboBaudRate.on=1"},
        {"recognition",             "",       "cboRecogChr #1", "@187=21; fraCusRecog.show=1"},
        {"standard recognition",    "187=21", "cboRecogChr #0", "@187=01; fraCusRecog.show=0"},
        {"remote C and Modbus",     "185=C4", "cboProtocol #1", "@109=04; @185=74; cboDType= Rmt Dsply S; fraRmtDspyC.show=0"},
        {"remote C stays on opening", "185=C4; 109=04", "", "@185=C4; fraRmtDspyC.show=0"},
        {"and goes with a new Function", "185=C4; 109=04", "cboFunction #0", "@185=74"},
        {"remote C",                "185=C4", "", "fraRmtDspyC.show=1; lblAscTbl.show=1; txtShow=8; txtStopChr=13; lblStopChr=cr "},
        {"through the node",        "ether=1", "", "fraSerComm=Serial Communications via Ethernet"},
        {"byte 187",                  "",       "cboOutItems #7; cboCR #1; cboRTS #1; cboDuplex #1", "@187=9F"},
        {"bytes 189 and 191",         "",       "cboAddress #30; chkAlmData 1; chkLF 1; cboSerMode #0; cboOutRate #8; cboBaudRate #6; cboOutVal #1", "@189=DF; @191=E8"},
        {"byte 109",                  "109=08", "cboParity #2; cboMBTimeout #3", "@109=3A"},
        {"a copy of the parity",      "109=08", "cboParity #2; cboProtocol #1", "parity=2"},
        {"is none in ASCII, the meter's stays", "109=08", "cboParity #2; cboProtocol #0", "parity=0; @109=02"},
        {"box off",                   "189=E1", "chkLF 0", "@189=61"},
        {"address 0 has no entry",    "189=20", "", "cboAddress=(none); @189=20"},
        {"rates that are none",       "191=7F", "", "cboBaudRate=(none); cboOutRate=(none); @191=7F"},
        {"Modbus address 0 repaired", "111=00; 109=04", "", "@111=01; txtMBAddr=1"},
        {"entered 0 until it is",     "109=04", "txtMBAddr := 00", "@111=00; txtMBAddr= 1"},
        {"entered address",           "109=04", "txtMBAddr := 0A", "@111=0A; txtMBAddr=10"},
        {"names of characters",       "",       "", "txtCusRecog=35; lblCusRecog=#; txtTranStop=13; lblTranStop=cr ; lblTranStart=nul"},
        {"entered character",         "",       "tab 4; txtTranStart := 41", "@239=41; lblTranStart=A; @237=0D"},
        {"cancelled character",       "",       "cboRecogChr #1; txtCusRecog := cancel", "lblCusRecog=#; @149=23"},
        {"cancel behind an entry",    "",       "tab 4; txtTranStart := 41; cboRecogChr #1; txtCusRecog := cancel", "lblCusRecog=#"},
        {"cancelled remote C",        "185=C4; 247=42", "txtStartChr := cancel", "lblStartChr=B"},
        {"remote C characters",       "185=C4", "txtStartChr := 20; txtSkip := 05", "@247=20; lblStartChr=sp ; @243=05; txtSkip=5"},
    });
    // clang-format on
}

}  // namespace
}  // namespace counter::test
