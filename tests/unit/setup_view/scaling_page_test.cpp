#include "stories.h"

namespace counter::test {
namespace {

TEST(ScalingPage, FormsAndTexts) {
    // clang-format off
    RunStories({
        {"default",                     "",                        "", "txtScale1[0]= +1.00000; cboMult1[0]=        1; txtOffset1[0]= +000000.; optScale1[0]=1; optCoord1[0]=0; txtLoIn1[0].on=0; cboMult2[0].on=1"},
        {"coordinates of group 1",      "197=20",                  "", "optCoord1[0]=1; txtHiRd1[0].on=1; fraHiRd1[0].on=1; txtScale1[0].on=0; fraMult1[0].on=0; txtScale2[0].on=1"},
        {"a pick of each form",         "",                        "optCoord2[0]; optCoord1[0]; optScale2[0]", "@197=20; txtScale2[0].on=1; txtLoIn1[0].on=1"},
        {"rate batch has no way to coordinates", "199=02",         "!optCoord1[3]", "optCoord1[3].on=0; optScale1[3]=1"},
        {"but may be in them",          "199=02; 197=20",          "", "optCoord1[3].on=1; optCoord1[3]=1; optScale1[3].on=1"},
        {"and not come back",           "199=02; 197=20",          "optScale1[3]; !optCoord1[3]", "@197=00"},
        {"V-F, group 2",                "193=4C; 199=83",          "", "optCoord2[0].on=0; optCoord1[0].on=1"},
        {"V-F, coordinates stored",     "193=4C; 199=83; 197=10",  "", "optCoord2[0].on=1; optCoord2[0]=1"},
        {"V-F rules the point of inputs", "193=4C; 199=91; 103=C12345", "", "txtLoIn1[0]= -0.74565"},
        {"points of two items",         "151=24",                  "", "txtOffset1[0]= +000.000; txtHiRd1[0]= +010.000; txtHiRd2[0]= +01000.0; txtHiIn1[0]= +010000."},
        {"point 1 rules a sum's inputs", "199=0B; 151=24",         "", "txtHiRd1[2]= +010.000; txtHiRd2[2]= +010.000; cboDecPt1[2]= 111. 111; cboDecPt2[2]= 22222. 2"},
        {"illegal points",              "151=70",                  "", "cboDecPt1[0]=(none); cboDecPt2[0]=(none); txtOffset1[0]= +000000.; txtOffset2[0]= +0.00000; @151=70"},
        {"a new point moves in the box", "37=000064",              "cboDecPt1[0] #2", "txtOffset1[0]=+0001.00; @37=000064; @151=13; txtHiIn1[0]= +010000."},
        {"and is shown anew later",     "37=000064",               "cboDecPt1[0] #2; tab 5", "txtOffset1[0]= +0001.00"},
        {"point 2",                     "61=FFFF9C",               "cboDecPt2[0] #5", "txtHiRd2[0]=-0.00100; @151=61"},
        {"point of the Preset",         "199=24",                  "cboDecPt1[0] #1", "txtTimeOut= +00000.0"},
        {"point of the Cutoff Value",   "193=4C; 199=83",          "cboDecPt1[0] #1", "txtPulses=1000.0"},
        {"stopwatch as a clock",        "199=50; 185=54; 37=000E4D", "", "txtOffset1[0]=+01. 01. 01; txtOffset2[0]=+00. 00. 00; fraDecPt1[0].on=0; cboDecPt1[0].on=0; txtLoRd1[0]= +000000."},
        {"another clock has no seconds", "185=54; 37=000E4D",      "", "txtOffset1[0]=+00. 36. 61"},
        {"stopwatch in seconds",        "199=50; 185=44; 37=000E4D", "", "txtOffset1[0]= +003661."},
        {"coordinates can't be a clock", "185=54; 197=20",         "", "txtLoIn1[0].back=ColorRed; txtHiRd1[0].back=ColorRed; txtLoIn2[0].back=ColorWhite"},
        {"multipliers",                 "165=A0",                  "cboMult1[0] #1; cboMult2[0] #9", "@165=91"},
        {"unknown multipliers",         "165=BF",                  "", "cboMult1[0]=(none); cboMult2[0]=(none); @165=BF"},
        {"unknown resolution",          "199=0B; 155=3C",          "", "cboResoln[2]=   100000; @155=3C"},
        {"picked resolution",           "199=0B; 155=3C",          "cboResoln[2] #2", "@155=32"},
        {"an entry",                    "151=22; 197=20",          "tab 1; txtHiRd1[0] := 000064", "txtHiRd1[0]= +00010.0; @85=000064; tab=1"},
    });
    // clang-format on
}

TEST(ScalingPage, CurveAndRoot) {
    // clang-format off
    RunStories({
        {"curve in force",            "199=01; 185=08", "!optScale1[0]", "optScale1[0]=0; optCoord1[0]=0; txtScale1[0].on=0; txtLoIn1[0].on=0; optScale2[0].on=0; txtRd0In[0].on=1; chkSqRt[0].on=0; cboCusCrv[0]= Curve #1"},
        {"curve that can't be",       "199=00; 185=08", "",              "optScale1[0]=1; optScale1[0].on=1; txtScale1[0].on=1; cboCusCrv[0].on=0; cboCusCrv[0].color=ColorGray"},
        {"curve dropped: the form is back", "199=01; 185=08; 197=20", "cboCusCrv[0] #0", "@185=04; optCoord1[0]=1; txtLoIn1[0].on=1; @197=20; txtRd0In[0].on=0"},
        {"another layout has no curve", "199=01; 185=08", "cboFunction #5", "fraItem1[2].show=1; txtScale1[2].on=1; optScale1[2]=1"},
        {"curve picked: no root",     "199=01; 185=06", "cboCusCrv[0] #1", "@185=08; cboCusCrv[0].back=ColorLightYellow; chkSqRt[0]=0; chkSqRt[0].on=0"},
        {"curve 2 without V-F",       "199=01",         "cboCusCrv[0] #2", "@185=0C; cboCusCrv[0].back=ColorRed"},
        {"curve 2 stored",            "199=01; 185=0C", "",                "cboCusCrv[0].back=ColorRed"},
        {"curve 2 with V-F",          "193=4C; 199=81", "cboCusCrv[0] #2", "@185=0C; cboCusCrv[0].back=ColorLightYellow; cboCusCrv[0]= Curve #2"},
        {"basic meter loses its curve", "193=4C; 199=81; 185=00", "",      "cboCusCrv[0].on=0; cboCusCrv[0]= Disabled"},
        {"root",                      "199=01",         "chkSqRt[0] 1",    "@185=06; txtRd0In[0].on=1; fraRd0In[0].on=1"},
        {"root off",                  "199=01; 185=06", "chkSqRt[0] 0",    "@185=04; txtRd0In[0].on=0"},
        {"root where none is: kept",  "199=00; 185=06", "!chkSqRt[0] 1",   "chkSqRt[0]=0; chkSqRt[0].on=0; @185=06"},
        {"Read 0 In without a word",  "199=53",         "",                "fraRd0In[0].show=0"},
    });
    // clang-format on
}

TEST(ScalingPage, ItemsSlopesAndBatch) {
    // clang-format off
    RunStories({
        {"two items",                   "",               "", "fraItem1[0].show=1; fraItem2[0].show=1; fraItem1[1].show=0; lblItem1[0]= A Rate; lblItem2[0]= B Rate; fraTrigSlpB[4].show=1; fraTrigSlpB[0].show=0"},
        {"one item",                    "199=41",         "", "fraItem2[0].show=0; lblItem1[0]= Time Inteval A to B; fraTrigSlpB[0].show=1; fraTrigSlpB[4].show=0"},
        {"stopwatch has a grand total", "199=50",         "", "fraItem2[0].show=1; lblItem2[0]= Grand Total Time; fraTrigSlpB[0].show=0"},
        {"burst",                       "199=26",         "", "fraItem1[1].show=1; fraItem2[1].show=1; lblItem1[1]= A Total; lblItem2[1]= A Rate; fraTrigSlpB[1].show=0"},
        {"B with A's rate",             "199=27",         "", "fraTrigSlpB[1].show=1; lblItem1[1]= B Total"},
        {"sum",                         "199=0B",         "", "fraItem3[2].show=1; lblItem3[2]= B Rate; fraTrigSlpB[2].show=1"},
        {"batch",                       "199=02",         "", "fraItem3[3].show=1; lblItem2[3]= A Grand Total; fraTrigSlpB[3].show=0; cboBatCount.on=1; fraTimeOut.on=0"},
        {"from three items to one",     "199=0B",         "cboFunction #1", "fraItem1[2].show=0; fraItem2[2].show=0; fraItem3[2].show=0; fraItem2[0].show=0"},
        {"slopes",                      "159=FD",         "cboTrigSlpA[0] #1; cboTrigSlpB[4] #0", "@159=FE"},
        {"slope A is the V-F board's",  "193=4C; 199=81", "!cboTrigSlpA[0] #1", "cboTrigSlpA[0].on=0; cboTrigSlpA[0].color=ColorGray"},
        {"batch: bit 7 goes, bit 6 stays",       "171=E8", "",                        "@171=68; cboBatCount=Dn,Preset,All"},
        {"batch: picks",                         "199=02; 171=40", "cboBatCount #6; cboBatStart #1; cboBatReset #1", "@171=75"},
        {"batch: count of batches, just opened", "199=02; 171=02", "",                "lblItem2[3]= # Batches; cboResoln[3].show=0; cboBatItm2=# Batches"},
        {"batch: built again: the wrong name",   "199=02; 171=02", "cboFunction #2",  "lblItem2[3]= A Rate + B Rate; cboResoln[3].show=0"},
        {"batch: V-F: the right name",           "193=4C; 199=82; 171=02", "cboFunction #1", "lblItem2[3]= # of Batches; cboBatCount.on=0; @171=02"},
        {"batch: count picked",                  "199=02", "cboBatItm2 #1",           "lblItem2[3]= # Batches; cboResoln[3].show=0; @171=02"},
        {"batch: and left",                      "199=02; 171=02", "cboBatItm2 #0",   "lblItem2[3]= Grand Total; cboResoln[3].show=1; @171=00"},
        {"batch: no other Function counts them", "171=02",         "cboFunction #0",  "lblItem2[0]= B Rate"},
        {"batch: opened anew: no old selection", "199=02; 171=02", "@171=00; reopen", "lblItem2[3]= A Grand Total; cboBatItm2=Grand Total; cboResoln[3].show=1"},
    });
    // clang-format on
}

TEST(ScalingPage, ClicksAskForAnEntry) {
    // clang-format off
    RunStories({
        {"scale",                "",               "txtScale2[0]",  "asked=type 3 at 31"},
        {"offset 1",             "",               "txtOffset1[0]", "asked=type 2 at 37"},
        {"offset 1, clock",      "185=54",         "txtOffset1[0]", "asked=type 2 at 37 time 1"},
        {"offset 1, stopwatch",  "185=54; 199=50", "txtOffset1[0]", "asked=type 2 at 37 time 2"},
        {"offset 2, stopwatch",  "185=54; 199=50", "txtOffset2[0]", "asked=type 2 at 25 time 1"},
        {"low in 2",             "197=10",         "txtLoIn2[0]",   "asked=type 4 at 79"},
        {"read 0 in",            "199=01; 185=06", "txtRd0In[0]",   "asked=type 4 at 79 low"},
        {"time out",             "",               "txtTimeOut",    "asked=type 0 at 173"},
        {"preset",               "199=24",         "txtTimeOut",    "asked=type 2 at 25"},
        {"pulses",               "193=4A; 199=C0", "txtPulses",     "asked=type 0 at 161 low"},
        {"cutoff value",         "193=4C; 199=83", "txtPulses",     "asked=type 0 at 145 low"},
        {"calibration",          "",               "txtCal",        "asked=type 1 at 137"},
        {"setpoint 3",           "193=29",         "txtSetpt[3]",   "asked=type 2 at 223"},
        {"deviation 4",          "193=29",         "txtDev[4]",     "asked=type 2 at 205"},
        {"second analog output", "143=04",         "txtAnaLo2",     "asked=type 2 at 255"},
        {"byte",                 "109=04",         "txtMBAddr",     "asked=type 7 at 111"},
    });
    // clang-format on
}

}  // namespace
}  // namespace counter::test
