#include "stories.h"

namespace counter::test {
namespace {

TEST(AnalogPage, SourcesAndRanges) {
    // clang-format off
    RunStories({
        {"range 3 on a unipolar board",  "167=0D",         "", "cboRange=4-20mA Current; cboRange.list=0-20mA Current|0-10V Voltage|4-20mA Current; @167=0D"},
        {"until it is picked",           "167=0D",         "cboRange #0", "@167=01"},
        {"range 3 on the bipolar board", "143=03; 167=0D", "", "cboRange=-10V to +10V; fraAnaOut2.show=0"},
        {"before 78 it has no fourth",   "143=03; 167=0D; 233=4D", "", "cboRange=(none)"},
        {"dual board",                   "143=04; 167=D5", "", "fraAnaOut=Analog Output 1; fraSource=Source 1; fraAnaLo=Lo Range Reading 1; fraRange=Range 1; fraAnaHi=Hi Range Reading 1; fraAnaOut2.show=1; cboRange2=4-20mA Current; @167=D5"},
        {"one output",                   "",               "!cboRange2 #1", "fraAnaOut=Analog Output; fraSource=Source; fraAnaOut2.show=0"},
        {"range 2 picked",               "143=04; 167=15", "cboRange2 #1", "@167=55"},
        {"sources repaired",             "199=20; 167=07", "", "@167=15; cboSource=Item 1"},
        {"source picked, unfiltered",    "199=20; 143=04", "cboSource #1", "@167=16; cboSource=Item 2"},
        {"output 2 can't leave item 1",  "199=20; 143=04", "cboSource2 #1", "@167=15; cboSource2=Item 1"},
        {"nor by item 1 itself",         "199=20; 143=04", "cboSource2 #0", "@167=15; cboSource2=Item 1"},
        {"output 2 with a filtered item", "143=04",        "cboSource2 #2", "@167=25; cboSource2=Item 2"},
        {"remote stores 3",              "185=64; 143=04; 167=00", "cboSource2 #0; cboSource #0", "@167=33; cboSource.list=Item 3"},
        {"readings follow the source",   "151=32; 167=06", "", "txtAnaHi= +0100.00; txtAnaLo= +0000.00"},
        {"at once",                      "151=32; 167=06", "cboSource #1", "txtAnaHi= +01000.0; @167=05"},
        {"coming to the page refreshes", "151=32; 167=05", "@167=06; tab 5", "txtAnaHi= +0100.00; cboSource=Item 2"},
    });
    // clang-format on
}

}  // namespace
}  // namespace counter::test
