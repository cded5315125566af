#include "stories.h"

namespace counter::test {
namespace {

TEST(ModeLists, OfferWhatBoardAndClassHave) {
    // clang-format off
    RunStories({
        {"signal conditioners",      "",                       "", "cboMode.list=Rate|Period|Total|Time Interval|Stopwatch|Phase|Duty Cycle"},
        {"rate, extended",           "",                       "", "cboFunction.list=A, B|A Only| Batch|A, A Total|A, B Total|A + B|A - B|A X B|A / B|(A / B) -1"},
        {"signal conditioners, basic", "185=00",               "", "cboMode.list=Rate|Period|Total|Time Interval|Stopwatch; cboFunction.list=A, B|A Only; optBasic=1; optExtended=0"},
        {"V-F, two blanks in one",   "193=4C; 199=91",         "", "cboMode.list=VF 4-20 mA|VF  0-1 mA|VF 0-10 V; cboMode=VF  0-1 mA; cboFunction.list=A Only| Batch|A, A Total|1/(A Rate)"},
        {"V-F, basic: no batch",     "193=4C; 185=00; 199=83", "", "cboFunction.list=A Only|A, A Total; cboFunction=A, A Total"},
        {"quadrature, basic",        "193=4A; 185=00; 199=C1", "", "cboMode=Quadrature; cboFunction.list=Total; @199=C1"},
        {"no board: names of the stored pair", "193=48; 199=A2", "", "cboMode.list=None; cboFunction=None; lblItem1[3]= VF 0-10V A Rate; lblItem3[3]= A Total; @199=A2"},
        {"a code that no board has", "193=4D",                 "", "cboInOpt=(none); cboMode=(none); cboMode.list="},
        {"function beyond a basic meter's list", "193=4C; 185=00; 199=8F", "", "cboFunction=(none); cboFunction.list=A Only|A, A Total; @199=8F"},
        {"phase curve before 77",    "199=62; 233=4C",         "", "cboCusCrv[0].on=0; cboFunction=A to B (+-180)"},
        {"phase curve from 77 on",   "199=62; 233=4D",         "", "cboCusCrv[0].on=1; cboCusCrv[0].list= Disabled| Power Factor| #2 Not Available"},
        {"phase curve, echoing link", "199=62; comms=2",       "", "cboCusCrv[0].list= Disabled| Curve #1| #2 Not Available"},
        {"names without a word",     "199=53",                 "", "cboFunction= 1/AB ; fraItem1[0].show=1; tab2=0; fraTimeOut.on=0; fraTrigSlpB[0].show=1; lblItem2[0]= A Rate"},
    });
    // clang-format on
}

TEST(ModeLists, APickRunsTheChain) {
    // clang-format off
    RunStories({
        {"an illegal pair stays stored until a pick", "199=30", "",                  "cboMode=Rate; cboFunction=A, B; @199=30"},
        {"and goes with it",               "199=30",           "cboFunction #0",     "@199=30; cboMode=Rate"},
        {"or with the mode",               "199=30",           "cboMode #0",         "@199=00"},
        {"a mode brings its function 0",   "199=0B",           "cboMode #2",         "@199=20; cboFunction=A, B; fraItem1[2].show=0; fraItem1[0].show=1"},
        {"or 1 where 0 has no name",       "199=0B",           "cboMode #3",         "@199=41; cboFunction=A to B"},
        {"the same mode keeps it",         "199=0B",           "cboMode #0",         "@199=0B"},
        {"modes above the gap",            "",                 "cboMode #6",         "@199=71; cboMode=Duty Cycle"},
        {"function by name, not number",   "",                 "cboFunction #4",     "@199=05; cboFunction=A, B Total"},
        {"basic V-F: entry 1 is 3",        "193=4C; 185=00; 199=81", "cboFunction #1", "@199=83"},
        {"board to V-F",                   "",                 "cboInOpt #2",        "@193=4C; @199=81; cboMode=VF 4-20 mA; fraRd0In[0].show=1"},
        {"board to V-F keeps function 3",  "199=03",           "cboInOpt #2",        "@199=83"},
        {"board to quadrature",            "",                 "cboInOpt #3",        "@193=4A; @199=C0; fraPulses=Pulses per Rev; fraPulses.show=1; txtPulses=01024."},
        {"no board: the pair stays as stored", "199=13",       "cboInOpt #0",        "@193=48; @199=13; cboFunction=None; fraGateTime.show=0; fraDspyN.show=0"},
        {"and is there with the next",     "199=1B",           "cboInOpt #0; cboInOpt #1", "@199=1B; cboFunction=A + B"},
        {"V-F 15 to basic",                "193=4C; 199=8F",   "optBasic",           "@199=81; cboFunction=A Only; cmdQBasic.back=ColorLightGray"},
        {"phase to basic",                 "199=61",           "optBasic",           "cboMode=Rate; cboFunction=A, B; @199=00; @185=00; cmdQBasic.back=ColorLightGray; cmdQExtended.back=ColorGray"},
        {"phase -180 to basic",            "199=62",           "optBasic",           "cboMode=Rate; cboFunction=A, B; @199=00"},
        {"sum to basic",                   "199=0B; 185=08",   "optBasic",           "@199=00; @185=00; cboCusCrv[0].on=0"},
        {"to extended",                    "185=00; 199=01",   "optExtended",        "@185=04; cboCusCrv[0].on=1; cmdQExtended.back=ColorLightGray; cmdQBasic.back=ColorGray"},
        {"set already: curve 1 becomes 2", "185=08; 199=01",   "optExtended",        "@185=0C; cboCusCrv[0]= #2 Not Available"},
    });
    // clang-format on
}

}  // namespace
}  // namespace counter::test
