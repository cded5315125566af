#include "stories.h"

namespace counter::test {
namespace {

TEST(AlarmsPage, SourcesAndPlainLists) {
    // clang-format off
    RunStories({
        {"filtered item and two",        "",               "", "cboAlmSource[1].list=Filtered Item1|Item 1|Item 2; cboAlmSource[1]=Filtered Item1; cboAlmSource[3]=Item 1"},
        {"rate and total, 999999",       "199=03; 185=14", "", "cboAlmSource[1].list=Filtered Item1|Item 1|Item 2|Item 3"},
        {"rate and total, one RH zero",  "199=03; 185=24", "", "cboAlmSource[1].list=Filtered Item1|Item 1|Item 2"},
        {"total, normal",                "199=21; 185=04", "", "cboAlmSource[1].list=Item 1"},
        {"total, first of 1 to 5",       "199=21; 185=14", "", "cboAlmSource[1].list=Item 1|Item 2"},
        {"batch filters item 3",         "199=02",         "", "cboAlmSource[1].list=Filtered Item3|Item 1|Item 2|Item 3"},
        {"no filtered item: repaired",   "199=20; 169=00", "", "@169=55; cboAlmSource[4]=Item 1"},
        {"item 3 of two: repaired",      "169=FE",         "", "@169=56; cboAlmSource[4]=Item 2"},
        {"remote: not read, not repaired", "185=64; 169=05", "", "cboAlmSource[1].list=Item 3; cboAlmSource[1]=Item 3; @169=05"},
        {"remote: a pick stores 3",      "185=64; 169=05", "cboAlmSource[1] #0", "@169=C5"},
        {"picked, with a filtered item", "",               "cboAlmSource[2] #2", "@169=25"},
        {"picked, without",              "199=20",         "cboAlmSource[2] #1", "@169=65"},
        {"point of the filtered item",   "151=32",         "", "txtSetpt[1]= +01000.0; txtDev[1]= +00000.0"},
        {"point of item 2",              "151=32; 169=80", "", "txtSetpt[1]= +0100.00; txtSetpt[2]= +02000.0"},
        {"a pick leaves the texts",      "151=32",         "cboAlmSource[1] #2", "txtSetpt[1]= +01000.0; @169=85"},
        {"a refresh brings the point",   "151=32",         "cboAlmSource[1] #2; txtSetpt[1] := FFFF9C", "txtSetpt[1]= -0001.00; @55=FFFF9C"},
        {"batch: item 2 has no decimals", "199=02; 151=32; 169=80", "", "txtSetpt[1]= +010000.; txtSetpt[2]= +0200.00"},
        {"state 3 is shown as 2",   "203=0F",          "", "cboState[1]= Disabled; cboState[2]= Disabled; @203=0F"},
        {"until it is picked",      "203=0F",          "cboState[1] #1", "@203=0D"},
        {"alarm 1",                 "",                "cboAlmType[1] #1; cboRlyState[1] #1", "@203=50"},
        {"alarm 2",                 "",                "cboState[2] #2; cboAlmType[2] #1; cboRlyState[2] #1", "@203=A8"},
        {"alarms 3 and 4",          "193=29",          "cboState[3] #1; cboAlmType[4] #1; cboRlyState[4] #1; cboNumRdgsAlms[1] #5", "@231=A1; @229=05; @203=00"},
        {"readings",                "",                "cboNumRdgsAlms[0] #7", "@201=07; cboNumRdgsAlms[0]= 128 Readings"},
        {"two relays, two alarms",  "",                "!cboAlmType[3] #1; !cboNumRdgsAlms[1] #1", "fraAlarm[3].show=0; fraNumRdgsAlms[1].show=0"},
        {"captions",                "",                "", "fraAlmType[1]=Alarm 1 Type ; fraAlmType[2]=Alarm 2 Type; fraRlyState[2]=Relay2 Alrm State; fraNumRdgsAlms[0]=Alarms 1,2  No. Rdgs to Alarm"},
    });
    // clang-format on
}

TEST(AlarmsPage, Deviations) {
    // clang-format off
    RunStories({
        {"types of alarms 1 and 2",     "201=18",         "", "cboDevTyp[1]= Split Hysteresis; cboDevTyp[2]= Split Hysteresis; cboDevTyp[1].list= Band Deviation| Split Hysteresis| Span Hysteresis; cboDevTyp[3].list= Band Deviation| Split Hysteresis"},
        {"span and one of each",        "201=30",         "", "cboDevTyp[1]= Span Hysteresis; cboDevTyp[2]= Split Hysteresis; chkDevStatus=0; @201=30"},
        {"before 82: no span",          "233=51; 201=08", "", "cboDevTyp[1].list= Band Deviation| Hysteresis; cboDevTyp[1]= Hysteresis; chkDevStatus=0"},
        {"before 82: codes above 3",    "233=51; 201=F7", "", "chkDevStatus=1; @201=E7; cboDevTyp[2]= Hysteresis; cboDevTyp[1].on=0; txtDev[4].on=0"},
        {"not in menu",                 "201=20",         "", "chkDevStatus=1; @201=20; cboDevTyp[4].on=0"},
        {"without a panel never",       "type=7; 201=20", "", "chkDevStatus=0; chkDevStatus.show=0; txtDev[1].on=1; @201=20"},
        {"unchecked: both are band",    "201=20",         "chkDevStatus 0", "@201=00; cboDevTyp[1].on=1; txtDev[1].on=1"},
        {"checked",                     "201=18",         "chkDevStatus 1; !cboDevTyp[1] #0", "@201=20; txtDev[2].on=0"},
        {"checked already: nothing",    "201=20",         "@201=28; chkDevStatus 1", "@201=28"},
        {"opened anew, unchecked",      "201=20",         "@201=10; reopen", "chkDevStatus=0; @201=10; cboDevTyp[1].on=1; txtDev[3].on=1"},
        {"1 hysteresis",                "201=C7",         "cboDevTyp[1] #1", "@201=CF"},
        {"2 hysteresis",                "",               "cboDevTyp[2] #1", "@201=10"},
        {"span of 1",                   "",               "cboDevTyp[1] #2", "@201=28"},
        {"span of both",                "",               "cboDevTyp[1] #2; cboDevTyp[2] #2", "@201=38"},
        {"span of 2 alone falls back",  "",               "cboDevTyp[2] #2", "@201=10; cboDevTyp[2]= Split Hysteresis"},
        {"and so when 1 leaves it",     "201=38",         "cboDevTyp[1] #0", "@201=10; cboDevTyp[2]= Split Hysteresis"},
        {"alarms 3 and 4",              "193=29; 229=E2", "cboDevTyp[4] #1; cboDevTyp[3] #1; cboDevTyp[4] #0", "@229=CA; @201=00"},
    });
    // clang-format on
}

}  // namespace
}  // namespace counter::test
