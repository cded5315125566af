// The digits of each row, cell by cell: "S|1|2|3|4|5|6".
#include "menu_view/menu_cells.h"

#include <gtest/gtest.h>

#include "menu_bench.h"
#include "meter/hex_text.h"

namespace counter::test {
namespace {

struct CellCase {
    const char* Name;
    std::vector<Patch> Patches;
    const char *Row, *Cells;
};

void ExpectAll(const std::vector<CellCase>& cases) {
    for (const CellCase& c : cases) EXPECT_EQ(MenuBench(c.Patches).Cells(c.Row), c.Cells) << c.Name;
}

// The digits of "S|1|...|6" as a number.
int NumberIn(std::string cells) {
    std::erase_if(cells, [](char c) { return c < '0' || c > '9'; });
    return cells.empty() ? -1 : std::stoi(cells);
}

// clang-format off
TEST(MenuCells, OfValues) {
    ExpectAll({
        // The point after the last digit isn't lit, apart from the rows that set it.
        {"PULSES begins in S",        {{193, "4A"}, {199, "C0"}},                 "PULSES", " 0| 1| 0| 2| 4.| | "},
        {"CutoFF moves right",        {{193, "4C"}, {199, "83"}},                 "CutoFF", "  |  | 1| 0| 0| 0| 0"},
        {"CutoFF with its point",     {{193, "4C"}, {199, "83"}, {151, "12"}},    "CutoFF", "  |  | 1| 0| 0| 0.| 0"},
        {"CutoFF all decimals",       {{193, "4C"}, {199, "83"}, {151, "16"}},    "CutoFF", "  |  .| 1| 0| 0| 0| 0"},
        {"DecPt2 code 4",             {{151, "41"}},                              "DecPt2", "  | 2| 2| 2.| 2| 2| 2"},
        {"DecPt2 code 7 is none",     {{151, "71"}},                              "DecPt2", "  | | | | | | "},
        {"SCALE1 negative",           {{43, "8186A0"}},                           "SCALE1", " -| 1.| 0| 0| 0| 0| 0"},
        {"OFFSt1 of a clock display", {{37, "000E4D"}, {185, "54"}, {151, "13"}}, "OFFSt1", "  | 0| 0.| 3| 6.| 6| 1"},
        {"Lo In1 has its own point",  {{103, "C12345"}, {197, "20"}},             "Lo In1", " -| 0| 7| 4.| 5| 6| 5"},
        {"Lo rd1 takes DecPt1",       {{197, "20"}, {151, "23"}, {97, "002710"}}, "Lo rd1", "  | 0| 1| 0| 0.| 0| 0"},
        {"OFFSt2 of A / B - 1",       {{151, "23"}, {199, "0F"}},                 "OFFSt2", "  | 0| 0| 0| 0.| 0| 0"},
        {"OFFSt2 of quadrature rate", {{151, "23"}, {199, "C1"}, {193, "4A"}},    "OFFSt2", "  | 0| 0| 0| 0.| 0| 0"},
        {"OFFSt2 of a batch",         {{151, "23"}, {199, "02"}},                 "OFFSt2", "  | 0| 0| 0| 0| 0.| 0"},
        {"Hi In1 of 0-1 mA",          {{197, "20"}, {193, "4C"}, {199, "91"}},    "Hi In1", "  | 0.| 1| 0| 0| 0| 0"},
        {"Hi In1 of 4-20 mA",         {{197, "20"}, {193, "4C"}, {199, "81"}},    "Hi In1", "  | 0| 1.| 0| 0| 0| 0"},
        {"Lo rd2 takes DecPt2",       {{197, "10"}, {151, "23"}},                 "Lo rd2", "  | 0| 0| 0| 0| 0.| 0"},
        {"PrESEt takes DecPt1",       {{151, "23"}, {199, "24"}},                 "PrESEt", "  | 0| 0| 0| 0.| 0| 0"},
        {"dEUn1, filtered source",    {{151, "23"}},                              "dEUn1b", "  | 0| 0| 0| 0.| 0| 0"},
        {"dEUn2, item 2",             {{151, "23"}, {169, "25"}},                 "dEUn2b", "  | 0| 0| 0| 0| 0.| 0"},
        {"dEUn3, grand total",        {{151, "23"}, {169, "09"}, {199, "02"}, {193, "29"}}, "dEUn3b", "  | 0| 0| 0| 0| 0| 0"},
        {"dEUn4, item 3 of three",    {{151, "23"}, {169, "07"}, {199, "02"}, {193, "29"}}, "dEUn4b", "  | 0| 0| 0| 0| 0.| 0"},
        {"An Hi, source 3 of two",    {{151, "23"}},                              "An Hi",   "  | 0| 1| 0| 0| 0| 0"},
        {"An Hi 1, item 2",           {{151, "23"}, {167, "12"}, {143, "04"}},    "An Hi 1", "  | 0| 1| 0| 0| 0.| 0"},
        {"An Hi 2, item 1",           {{151, "23"}, {167, "12"}, {143, "04"}},    "An Hi 2", "  | 0| 1| 0| 0.| 0| 0"},
        {"InPut of a Mode 13",        {{193, "48"}, {199, "D0"}},                 "InPut",  "  | | | | | | "},
        {"rESoLn all decimals",       {{199, "0B"}, {155, "00"}},                 "rESoLn", " | 0.| 0| 0| 0| 0| 1"},
        {"rESoLn code 11 is none",    {{199, "0B"}, {155, "0B"}},                 "rESoLn", " | | | | | | "},
    });
}

TEST(MenuCells, ShowTheFieldOfEachItem) {
    // Every value field of six digits holds its own position, so that the row tells where it reads.
    std::vector<Patch> patches = {{193, "29"}, {143, "04"}, {197, "30"}};
    std::vector<std::string> digits;
    for (int pos : {1, 7, 13, 19, 25, 31, 37, 43, 49, 55, 61, 67, 73, 79, 85, 91, 97, 103, 205, 211, 217, 223, 249, 255})
        digits.push_back(HexNumber(static_cast<unsigned>(pos), 6));
    for (const std::string& field : digits) patches.push_back({static_cast<int>(ParseHex(field)), field});
    const struct {
        const char *Digits197, *Digits199;
        std::vector<std::pair<const char*, int>> Rows;
    } cases[] = {
        {"00", "00", {{"OFFSt1", 37}, {"OFFSt2", 25}, {"dEUn1b", 19}, {"dEUn2b", 13}, {"dEUn3b", 211}, {"dEUn4b", 205},
                      {"An Lo 1", 7}, {"An Hi 1", 1}, {"An Lo 2", 255}, {"An Hi 2", 249}}},
        {"30", "00", {{"Lo In1", 103}, {"Lo rd1", 97}, {"Hi In1", 91}, {"Hi rd1", 85},
                      {"Lo In2", 79}, {"Lo rd2", 73}, {"Hi In2", 67}, {"Hi rd2", 61}}},
        {"00", "24", {{"PrESEt", 25}}},
    };
    for (const auto& c : cases) {
        patches[2].Digits = c.Digits197;
        patches.push_back({199, c.Digits199});
        MenuBench bench(patches);
        for (auto [row, pos] : c.Rows) EXPECT_EQ(NumberIn(bench.Cells(row)), pos) << row;
        EXPECT_EQ(NumberIn(Joined(bench.SetPt()[1].Cells)), 55);
        EXPECT_EQ(NumberIn(Joined(bench.SetPt()[2].Cells)), 49);
        EXPECT_EQ(NumberIn(Joined(bench.SetPt()[3].Cells)), 223);
        EXPECT_EQ(NumberIn(Joined(bench.SetPt()[4].Cells)), 217);
    }
    EXPECT_EQ(NumberIn(MenuBench({{31, "000007"}}).Cells("SCALE2")), 7);
    EXPECT_EQ(NumberIn(MenuBench({{79, "000007"}, {185, "06"}}).Cells("rd0 In")), 7);
}

TEST(MenuCells, ShowTheBitsOfEachItem) {
    MenuBench bench({{109, "36"}, {143, "04"}, {159, "02"}, {167, "E7"}, {169, "5B"}, {171, "D6"}, {181, "1C"}, {183, "5A"},
                     {187, "EE"}, {191, "D8"}, {193, "29"}, {195, "57"}, {197, "DA"}, {199, "02"}, {229, "0A"}, {231, "89"}});
    const std::pair<const char*, const char*> cases[] = {
        {"SEtuP",  " | |1|1|0|1|A"}, {"bAtCH",  " | |1|0|1|1|0"}, {"FiLtEr", " | |1|0|1|0|7"}, {"SLOPE",  " | | | | |1|0"},
        {"SourcE", " | | |1|1|2|3"}, {"AL S34", " | |2|0|7|1|2"}, {"An SEt", " | | |3|2|1|3"}, {"SEr 1",  " | | | |1|5|8"},
        {"SEr 3",  " | |1|3|0|1|6"}, {"SEr 4",  " | | | |3|1|2"}, {"Loc 1",  " | | |1|0|1|0"}, {"Loc 2",  " | | |0|1|0|1"},
        {"Loc 3",  " | | |1|1|0|0"}, {"Loc 4",  " | | |0|0|0|1"},
    };
    for (auto [row, cells] : cases) EXPECT_EQ(bench.Cells(row), cells) << row;
}

TEST(MenuCells, FollowTheRulesOfDigits) {
    ExpectAll({
        {"SEtuP of one item",            {{197, "D5"}, {199, "01"}},              "SEtuP",  " | |1|1|0| |5"},
        {"ConFiG, Display Type 12",      {{185, "C4"}},                           "ConFiG", " | | |C|1|0|0"},
        {"ConFiG, curve 1",              {{185, "0A"}, {199, "01"}},              "ConFiG", " | | |0|2|0|0"},
        {"ConFiG, curve 2 without V-F",  {{185, "0C"}, {199, "01"}},              "ConFiG", " | | |0|2|0|0"},
        {"ConFiG, curve 2 of V-F",       {{185, "0D"}, {199, "81"}, {193, "4C"}}, "ConFiG", " | | |0|3|0|1"},
        {"ConFiG, no curve of A, B",     {{185, "0A"}},                           "ConFiG", " | | |0|1|1|0"},
        {"ConFiG, no curve of A + B",    {{185, "08"}, {199, "2B"}},              "ConFiG", " | | |0|1|0|0"},
        {"ConFiG, curve of phase",       {{185, "08"}, {199, "62"}},              "ConFiG", " | | |0|2|0|0"},
        {"ConFiG, curve of 1/A",         {{185, "08"}, {199, "8F"}, {193, "4C"}}, "ConFiG", " | | |0|2|0|0"},
        {"ConFiG, no curve of duty",     {{185, "08"}, {199, "71"}},              "ConFiG", " | | |0|1|0|0"},
        {"ConFiG, no root of a total",   {{185, "06"}, {199, "20"}},              "ConFiG", " | | |0|1|0|0"},
        {"ConFiG, no root of duty",      {{185, "06"}, {199, "71"}},              "ConFiG", " | | |0|1|0|0"},
        {"dSPyno 0 is 1",                {{157, "08"}},                           "dSPyno", " | | | | |2|1"},
        {"dSPyno above the items",       {{157, "03"}},                           "dSPyno", " | | | | |0|2"},
        {"AL SEt, both disabled",        {{203, "4A"}, {201, "1D"}},              "AL SEt", " | |1|0|8|3|5"},
        {"AL SEt, even low, odd high",   {{203, "24"}},                           "AL SEt", " | |0|2|3|0|0"},
        {"AL SEt, even high, odd off",   {{203, "02"}},                           "AL SEt", " | |0|0|2|0|0"},
        {"AL SEt, state 3 counts on",    {{203, "0F"}},                           "AL SEt", " | |0|0|d|0|0"},
        {"An SEt of one output",         {{167, "E7"}},                           "An SEt", " | | | | |1|3"},
        {"SEr 2, address 21",            {{189, "B5"}},                           "SEr 2",  " | | |1|0|1|5."},
        {"SEr 2, address 16",            {{189, "10"}},                           "SEr 2",  " | | |0|0|0|0."},
        {"SEr 2, address 31",            {{189, "1F"}},                           "SEr 2",  " | | |0|0|0|F."},
        {"SEr 2, address 11",            {{189, "0B"}},                           "SEr 2",  " | | |0|0|0|b"},
    });
}

TEST(MenuCells, NamesCarryTheMarkOfADeviation) {
    const struct {
        const char *Digits201, *Digits229;
        int Version;
        const char* Names;
    } cases[] = {
        {"00", "08", 83, "dEUn1b|dEUn2b|dEUn3H|dEUn4b"},
        {"08", "10", 83, "dEUn1H|dEUn2b|dEUn3b|dEUn4H"},
        {"10", "20", 83, "dEUn1b|dEUn2H|dEUn3b|dEUn4b"},
        {"28", "00", 82, "dEUn1h|dEUn2b|dEUn3b|dEUn4b"},
        {"30", "00", 82, "dEUn1h|dEUn2H|dEUn3b|dEUn4b"},
        {"38", "00", 82, "dEUn1h|dEUn2h|dEUn3b|dEUn4b"},
        {"28", "00", 81, "dEUn1H|dEUn2b|dEUn3b|dEUn4b"},
        {"38", "00", 81, "dEUn1H|dEUn2H|dEUn3b|dEUn4b"},
    };
    for (const auto& c : cases) {
        std::string names = Names(MenuBench({{201, c.Digits201}, {229, c.Digits229}, {193, "29"}}, c.Version).Main());
        EXPECT_NE(names.find(c.Names), std::string::npos) << c.Digits201 << " " << names;
    }
}

TEST(MenuCells, OfMultipliers) {
    const struct {
        const char *Digits165, *Scale1, *Scale2;
    } cases[] = {
        {"50", " 0.| 0| 0| 0| 0| 1", "  |  |  |  |  | 1"},
        {"14", "  |  |  |  | 0.| 1", "  | 0.| 0| 0| 0| 1"},
        {"A9", "  | 1| 0| 0| 0| 0", " 1| 0| 0| 0| 0| 0"},
        {"BF", " | | | | | ",       " | | | | | "},
    };
    for (const auto& c : cases) {
        MenuBench bench({{165, c.Digits165}});
        EXPECT_EQ(Joined(bench.View.grdScale1), c.Scale1) << c.Digits165;
        EXPECT_EQ(Joined(bench.View.grdScale2), c.Scale2) << c.Digits165;
    }
}

TEST(MenuCells, OfSetpoints) {
    const struct {
        const char* Name;
        std::vector<Patch> Patches;
        const char* Rows;
        int Height;
    } cases[] = {
        {"two relays",            {},                                    " SETPT1:+| 0| 1| 0| 0| 0| 0 SETPT2:+| 0| 2| 0| 0| 0| 0", 2},
        {"points of the sources", {{151, "62"}, {169, "24"}},            " SETPT1:+| 0| 1| 0| 0| 0.| 0 SETPT2:+| 0.| 2| 0| 0| 0| 0", 2},
        {"1 negative, 2 off",     {{55, "FFFFFF"}, {203, "08"}},         " SETPT1:-| 0| 0| 0| 0| 0| 1", 2},
        {"state 3 is off",        {{203, "03"}},                         " SETPT2:+| 0| 2| 0| 0| 0| 0", 2},
        {"no relays",             {{193, "09"}},                         "", 2},
        {"1 and 2 of four off",   {{193, "29"}, {203, "0A"}, {223, "000001"}}, " SETPT3:+| 0| 0| 0| 0| 0| 1 SETPT4:+| 0| 0| 0| 0| 0| 0", 4},
        {"3 of four off",         {{193, "29"}, {203, "0A"}, {231, "02"}}, " SETPT4:+| 0| 0| 0| 0| 0| 0", 4},
        {"all four off",          {{193, "29"}, {203, "0A"}, {231, "0A"}}, "", 4},
    };
    for (const auto& c : cases) {
        MenuBench bench(c.Patches);
        std::string rows;
        for (const MenuRow& row : bench.SetPt().subspan(1)) rows.append(row.Name).append(":" + Joined(row.Cells));
        EXPECT_EQ(rows, c.Rows) << c.Name;
        EXPECT_EQ(bench.View.SetPtHeight, c.Height) << c.Name;
    }
}
// clang-format on

TEST(MenuCells, APointThatComesFirstIsACharacter) {
    EXPECT_EQ(Joined(CellsOfValue("-.12345", CellPoints::Inside)), " -.| .| 1| 2| 3| 4| 5");
    EXPECT_EQ(Joined(CellsOfValue(".12345", CellPoints::Inside)), " .| 1| 2| 3| 4| 5| ");
}

TEST(MenuCells, AnAddressRowHasThreeDigits) {
    MenuBench bench({{111, "0F"}});
    EXPECT_EQ(Joined(Row41(bench.Image).Cells), "  |  |  |  | 0| 1| 5");
}

}  // namespace
}  // namespace counter::test
