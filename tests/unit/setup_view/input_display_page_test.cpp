// The first page, the filter page and the lockouts.
#include "stories.h"

namespace counter::test {
namespace {

TEST(InputDisplayPage, DisplayTypes) {
    // clang-format off
    RunStories({
        {"all",                    "", "", "cboDType.list= Normal, Expnt| Norml 999999| 1 RH Zero| 2 RH Zeros| Time in Secs| Clock hhmmss| Rmt Dsply A| Rmt Dsply S| Rmt Dsply 1| Rmt Dsply 2| Rmt Dsply 3| Rmt Dsply 4| Rmt Dsply C"},
        {"no board: a remote display only", "193=48; 185=64", "", "cboDType.list= | | | | | | Rmt Dsply A| Rmt Dsply S| Rmt Dsply 1| Rmt Dsply 2| Rmt Dsply 3| Rmt Dsply 4| Rmt Dsply C"},
        {"no panel, Modbus link",  "nopanel=1; modbus=1", "", "cboDType.list= Normal, Expnt| Norml 999999| 1 RH Zero| 2 RH Zeros| Time in Secs| Clock hhmmss| Remote A| Remote S| Remote 1| Remote 2| Remote 3| Remote 4"},
        {"C on a Modbus link",     "modbus=1; 185=C5", "", "@185=75; cboDType= Rmt Dsply S"},
        {"unknown type",           "185=D4", "", "cboDType=(none); @185=D4; tab1=0"},
        {"to a remote type",       "197=0F", "cboDType #6; !tab 1; !tab 2", "@185=64; tab1=0; tab2=0; fraAction.show=0; fraTimeOut.on=1; cboExtAB=Enable Tare       Tare if enabled     Tare"},
        {"and back",               "197=0F; 185=64", "cboDType #1", "@185=14; tab1=1; tab2=1; fraAction.show=1; cboExtAB=Item 2            Item 3              Function Reset"},
        {"to remote C",            "", "cboDType #12", "@185=C4; fraRmtDspyC.show=1"},
    });
    // clang-format on
}

TEST(InputDisplayPage, BoxesByModeAndRestoredTotals) {
    // clang-format off
    RunStories({
        {"time out",                    "",       "", "fraTimeOut=Time Out; txtTimeOut=003.00; lblTSecs.on=1; txtGateTime=000.10; txtCal= -00100."},
        {"no time out",                 "199=20", "!txtTimeOut", "fraTimeOut.on=0; txtTimeOut.on=0; lblTSecs.on=0"},
        {"preset, up and down",         "199=24; 151=12; 25=FFFFFF", "", "fraTimeOut=Preset; txtTimeOut= -00000.1; txtTimeOut.on=1; lblTSecs.on=0"},
        {"preset, controlled",          "199=29", "", "fraTimeOut=Preset"},
        {"preset, quadrature",          "193=4A; 199=C0", "", "fraTimeOut=Preset"},
        {"quadrature rate has time out", "193=4A; 199=C1", "", "fraTimeOut=Time Out; fraDspyN.show=0"},
        {"a remote display times out",  "199=24; 185=64", "", "fraTimeOut=Time Out"},
        {"cutoff",                      "193=4C; 199=83", "", "fraPulses=Cutoff Value; txtPulses=10000.; cboCutoffEnable.on=1; fraCutoffEnable.show=1"},
        {"cutoff off",                  "193=4C; 199=83", "cboCutoffEnable #1; !txtPulses", "@185=05; txtPulses.on=0"},
        {"cutoff on again",             "193=4C; 199=83; 185=05", "cboCutoffEnable #0; txtPulses := 000A", "@185=04; @145=000A"},
        {"rate and total without V-F",  "199=03", "!cboCutoffEnable #1", "fraPulses.show=0; fraCutoffEnable.show=0; cboCutoffEnable.on=1"},
        {"rate batch has no cutoff",    "199=02", "", "cboCutoffEnable.on=0"},
        {"item 3 of two",               "157=07", "", "@157=06; cboDspyN= Item 2; cboDspyN.list= Item 1| Item 2; cboAction= Displays Valley"},
        {"item of one",                 "157=02; 199=01", "", "@157=01; cboDspyN.on=0"},
        {"no item",                     "157=F0", "", "@157=F1"},
        {"picks",                       "199=0B", "cboDspyN #2; cboAction #2; cboLeadZ #1; cboDVal #1; cboExtAB #14", "@157=0B; @197=4E; @195=19"},
        {"control inputs before 78",    "233=4D; 197=08", "", "cboExtAB=Hold              External Gate       Function Reset"},
        {"control inputs from 78 on",   "233=4E; 197=09", "", "cboExtAB=Alarm 1 Active    Alarm 2 Active      Both 1,2 Active"},
        {"a meter with a panel",        "",       "", "cmdRead.show=0; lblValue.show=0; fraLeadZ.show=1; chkDevStatus.show=1"},
        {"a meter without",             "type=7", "", "cmdRead.show=1; lblValue.show=1; fraLeadZ.show=0; fraDspyN.show=0; fraAction.show=0"},
        {"restored totals: pulses",             "193=4A; 199=C0",           "cboPwrOnTot #1",                 "@197=80; boxes=1; box=Set Pulses per Revolution = 0"},
        {"restored totals: each time",          "193=4A; 199=C0",           "cboPwrOnTot #1; cboPwrOnTot #1", "boxes=2"},
        {"restored totals: no pulses",          "193=4A; 199=C0; 161=0000", "cboPwrOnTot #1",                 "@197=80; boxes=0"},
        {"restored totals: zeroed totals",      "193=4A; 199=C0; 197=80",   "cboPwrOnTot #0",                 "@197=00; boxes=0"},
        {"restored totals: a Cutoff Value too", "193=4C; 199=83",           "cboPwrOnTot #1",                 "boxes=1"},
        {"restored totals: box not on show",    "",                         "cboPwrOnTot #1",                 "@197=80; boxes=0"},
    });
    // clang-format on
}

TEST(FilterPage, ListsHaveASelectionOnTheirPageAlone) {
    // clang-format off
    RunStories({
        {"just opened",              "195=6B", "", "tab2=1; fraFilter=Filter  Item 1; cboTimConst=(none); cboThresh=(none); cboPeakVal=(none); cboFType=(none)"},
        {"on the page",              "195=6B; 157=09; 197=0A", "tab 2", "cboTimConst= 0.4 Sec; cboThresh= High Adaptive; cboPeakVal= Filtered; cboFType= Conventional; cboAction= Peak then Valley; cboExtAB=Meter Reset       Display Blanking    Meter Reset"},
        {"a refresh takes it again", "", "tab 2; tab 5", "cboTimConst=(none)"},
        {"picks",                    "", "tab 2; cboTimConst #7; cboThresh #0; cboPeakVal #1; cboFType #1", "@195=67"},
        {"no filtered item",         "199=20", "!tab 2", "tab2=0; cboDVal.on=0; fraDVal.on=0; cboDVal.color=ColorGray"},
        {"batch filters item 3",     "199=02", "", "fraFilter=Filter  Item 3; cboDVal.color=ColorBlack"},
    });
    // clang-format on
}

TEST(LockoutsPage, OrderOfTheBits) {
    // clang-format off
    RunStories({
        {"first byte",  "183=89",         "", "chkLock[0]=1; chkLock[3]=1; chkLock[4]=1; chkLock[7]=0; chkLock[1]=0"},
        {"second byte", "181=16",         "", "chkLock[9]=1; chkLock[10]=1; chkLock[15]=1; chkLock[12]=0"},
        {"picks",       "181=FF; 183=00", "tab 6; chkLock[0] 1; chkLock[5] 1; chkLock[8] 0; chkLock[14] 0", "@183=48; @181=D7"},
        {"jumper",      "193=C9",         "", "lblFPLock=Hardware Lockout jumper is installed"},
        {"captions",    "",               "", "lblFPLock=Hardware Lockout jumper is not installed; chkLock[7]=0; tab6=1"},
    });
    // clang-format on
}

}  // namespace
}  // namespace counter::test
