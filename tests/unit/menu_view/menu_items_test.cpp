// Which items the menu has in each Mode and Function, and how it spells those.
#include <gtest/gtest.h>

#include <algorithm>

#include "menu_bench.h"
#include "meter/hex_text.h"

namespace counter::test {
namespace {

struct Pair {
    const char* Board;  // digits of byte 193, with the two-relay and RS232 boards of the default setup
    int Mode, Function;
    const char* InPut;   // spelling of the Mode
    const char* Beside;  // and of the Function
    const char* Items;   // between dSPyno and SourcE
    int BasicMode;       // the pair that a Basic meter has in its place
    int BasicFunction;
};

constexpr const char* kNone = "48";
constexpr const char* kDual = "49";
constexpr const char* kVf = "4C";
constexpr const char* kQuad = "4A";

constexpr const char* kFirst = "InPut|SEtuP|ConFiG|dSPyno|";
constexpr const char* kLast =
    "|SourcE|AL SEt|dEUn1b|dEUn2b|An SEt|An Lo|An Hi|SEr 1|SEr 2|SEr 3|SEr 4|CALib|Loc 1|Loc 2|Loc 3|Loc 4";

// clang-format off
constexpr Pair kPairs[] = {
    {kDual,  0,  0, "  rAtE", "A  b  ", "GAtE t|ti Out|FiLtEr|SLOPE|DecPt1|DecPt2|SCALE1|OFFSt1|SCALE2|OFFSt2",                  0,  0},
    {kDual,  0,  1, "  rAtE", "A OnLy", "GAtE t|ti Out|FiLtEr|SLOPE|DecPt1|SCALE1|OFFSt1",                                       0,  1},
    {kDual,  0,  2, "  rAtE", " bAtCH", "GAtE t|bAtCH|FiLtEr|SLOPE|DecPt1|DecPt2|SCALE1|OFFSt1|SCALE2|OFFSt2|rESoLn",            0,  0},
    {kDual,  0,  3, "  rAtE", "A Atot", "GAtE t|ti Out|FiLtEr|SLOPE|DecPt1|DecPt2|SCALE1|OFFSt1|SCALE2|OFFSt2",                  0,  0},
    {kDual,  0,  5, "  rAtE", "A btot", "GAtE t|ti Out|FiLtEr|SLOPE|DecPt1|DecPt2|SCALE1|OFFSt1|SCALE2|OFFSt2",                  0,  0},
    {kDual,  0, 11, "  rAtE", "A + b ", "GAtE t|ti Out|FiLtEr|SLOPE|DecPt1|DecPt2|SCALE1|OFFSt1|SCALE2|OFFSt2|rESoLn",           0,  0},
    {kDual,  0, 12, "  rAtE", "A - b ", "GAtE t|ti Out|FiLtEr|SLOPE|DecPt1|DecPt2|SCALE1|OFFSt1|SCALE2|OFFSt2|rESoLn",           0,  0},
    {kDual,  0, 13, "  rAtE", "A . b ", "GAtE t|ti Out|FiLtEr|SLOPE|DecPt1|DecPt2|SCALE1|OFFSt1|SCALE2|OFFSt2|rESoLn",           0,  0},
    {kDual,  0, 14, "  rAtE", "A / b ", "GAtE t|ti Out|FiLtEr|SLOPE|DecPt1|DecPt2|SCALE1|OFFSt1|SCALE2|OFFSt2|rESoLn",           0,  0},
    {kDual,  0, 15, "  rAtE", "A/b-1 ", "GAtE t|ti Out|FiLtEr|SLOPE|DecPt1|DecPt2|SCALE1|OFFSt1|SCALE2|OFFSt2|rESoLn",           0,  0},
    {kDual,  1,  0, "PEriod", "A  b  ", "GAtE t|ti Out|FiLtEr|SLOPE|DecPt1|DecPt2|SCALE1|OFFSt1|SCALE2|OFFSt2",                  1,  0},
    {kDual,  1,  1, "PEriod", "A OnLy", "GAtE t|ti Out|FiLtEr|SLOPE|DecPt1|SCALE1|OFFSt1",                                       1,  1},
    {kDual,  2,  0, " totAL", "A  b  ", "GAtE t|SLOPE|DecPt1|DecPt2|SCALE1|OFFSt1|SCALE2|OFFSt2",                                2,  0},
    {kDual,  2,  1, " totAL", "A OnLy", "GAtE t|SLOPE|DecPt1|SCALE1|OFFSt1",                                                     2,  1},
    {kDual,  2,  4, " totAL", "A-b Ud", "GAtE t|SLOPE|DecPt1|SCALE1|OFFSt1|PrESEt",                                              2,  0},
    {kDual,  2,  6, " totAL", " burSt", "GAtE t|ti Out|FiLtEr|SLOPE|DecPt1|DecPt2|SCALE1|OFFSt1|SCALE2|OFFSt2",                  2,  0},
    {kDual,  2,  7, " totAL", "b Arat", "GAtE t|ti Out|FiLtEr|SLOPE|DecPt1|DecPt2|SCALE1|OFFSt1|SCALE2|OFFSt2",                  2,  0},
    {kDual,  2,  9, " totAL", "A bU/d", "GAtE t|SLOPE|DecPt1|SCALE1|OFFSt1|PrESEt",                                              2,  0},
    {kDual,  2, 10, " totAL", "A bInH", "GAtE t|SLOPE|DecPt1|SCALE1|OFFSt1",                                                     2,  0},
    {kDual,  2, 11, " totAL", "A + b ", "GAtE t|SLOPE|DecPt1|DecPt2|SCALE1|OFFSt1|SCALE2|OFFSt2|rESoLn",                         2,  0},
    {kNone,  3,  0, "",       "A  b  ", "GAtE t|DecPt1|SCALE1|OFFSt1",                                                           3,  0},
    {kDual,  4,  1, "ti Int", "A to b", "GAtE t|ti Out|FiLtEr|SLOPE|DecPt1|SCALE1|OFFSt1",                                       4,  1},
    {kDual,  4,  2, "ti Int", " 1/Ab ", "GAtE t|bAtCH|SLOPE|DecPt1|SCALE1|OFFSt1|rESoLn",                                        4,  1},
    {kDual,  5,  0, "StoP t", "A to A", "GAtE t|SLOPE|DecPt1|DecPt2|SCALE1|OFFSt1|SCALE2|OFFSt2",                                5,  0},
    {kDual,  5,  1, "StoP t", "A to b", "GAtE t|SLOPE|DecPt1|DecPt2|SCALE1|OFFSt1|SCALE2|OFFSt2",                                5,  1},
    {kDual,  5,  2, "StoP t", " 1/AA ", "GAtE t|bAtCH|SLOPE|DecPt1|DecPt2|SCALE1|OFFSt1|SCALE2|OFFSt2|rESoLn",                   5,  0},
    {kDual,  6,  1, " PHASE", " 0-360", "GAtE t|ti Out|FiLtEr|SLOPE|DecPt1|SCALE1|OFFSt1",                                       0,  1},
    {kDual,  6,  2, " PHASE", " -180+", "GAtE t|ti Out|bAtCH|FiLtEr|SLOPE|DecPt1|SCALE1|OFFSt1|rESoLn",                          0,  0},
    {kDual,  7,  1, "duty C", "A to b", "GAtE t|ti Out|FiLtEr|SLOPE|DecPt1|SCALE1|OFFSt1",                                       0,  1},
    {kVf,    8,  1, "UF4-20", "A OnLy", "GAtE t|FiLtEr|DecPt1|SCALE1|OFFSt1",                                                    8,  1},
    {kVf,    8,  2, "UF4-20", " bAtCH", "CutoFF|GAtE t|ti Out|bAtCH|FiLtEr|DecPt1|DecPt2|SCALE1|OFFSt1|SCALE2|OFFSt2|rESoLn",    8,  1},
    {kVf,    8,  3, "UF4-20", "A Atot", "CutoFF|GAtE t|FiLtEr|DecPt1|DecPt2|SCALE1|OFFSt1|SCALE2|OFFSt2",                        8,  3},
    {kVf,    8, 15, "UF4-20", "  1/A ", "GAtE t|FiLtEr|DecPt1|SCALE1|OFFSt1",                                                    8, 15},
    {kVf,    9,  1, "UF 0-1", "A OnLy", "GAtE t|FiLtEr|DecPt1|SCALE1|OFFSt1",                                                    9,  1},
    {kVf,   10,  1, "UF0-10", "A OnLy", "GAtE t|FiLtEr|DecPt1|SCALE1|OFFSt1",                                                   10,  1},
    {kQuad, 12,  0, " quAdr.", " totAL", "PULSES|GAtE t|DecPt1|SCALE1|OFFSt1|PrESEt",                                           12,  0},
    {kQuad, 12,  1, " quAdr.", "  rAtE", "GAtE t|ti Out|FiLtEr|DecPt1|DecPt2|SCALE1|OFFSt1|SCALE2|OFFSt2|rESoLn",               12,  0},
};
// clang-format on

// The cells of a mnemonic: a blank in front of each character, and lone blanks to the end.
std::string Spelled(std::string_view text, std::size_t columns) {
    std::string cells;
    for (std::size_t i = 0; i < columns; ++i) {
        cells.append(i > 0 ? "| " : " ").append(i < text.size() ? text.substr(i, 1) : "");
    }
    return cells;
}

void ExpectMenu(const Pair& stored, const char* byte185, const Pair& shown) {
    std::string pair = HexNumber(static_cast<unsigned>(16 * stored.Mode + stored.Function), 2);
    SCOPED_TRACE("byte 199 " + pair + ", byte 185 " + byte185);
    MenuBench bench({{193, stored.Board}, {199, pair}, {185, byte185}});
    EXPECT_EQ(Names(bench.Main()), std::string(kFirst) + shown.Items + kLast);
    EXPECT_EQ(bench.Cells("InPut"), Spelled(std::string(" ") + shown.InPut, 7));
    EXPECT_EQ(Joined(bench.View.grdInput), Spelled(shown.Beside, 6));
    EXPECT_EQ(DigitsGet(bench.Image, 199, 2), pair) << "an illegal pair stays stored";
}

TEST(MenuItems, OfEachPairOnAnExtendedMeter) {
    for (const Pair& pair : kPairs) ExpectMenu(pair, "04", pair);
}

TEST(MenuItems, OfEachPairOnABasicMeter) {
    for (const Pair& pair : kPairs) {
        auto isItsBasic = [&](const Pair& other) {
            return other.Mode == pair.BasicMode && other.Function == pair.BasicFunction;
        };
        ExpectMenu(pair, "00", *std::find_if(std::begin(kPairs), std::end(kPairs), isItsBasic));
    }
}

// clang-format off
TEST(MenuItems, FollowBoardsFormsAndFlags) {
    const struct {
        const char* Name;
        std::vector<Patch> Patches;
        std::vector<std::string> Items;  // with a "-" in front: absent
    } cases[] = {
        {"no relays",                 {{193, "09"}},                           {"-SourcE", "-AL SEt", "-AL S34", "-dEUn1b", "-dEUn2b", "An SEt"}},
        {"four relays",               {{193, "29"}},                           {"SourcE", "AL SEt", "AL S34", "dEUn2b", "dEUn3b", "dEUn4b"}},
        {"relay code 3 is two",       {{193, "69"}},                           {"AL SEt", "-AL S34", "-dEUn3b"}},
        {"no deviations",             {{193, "29"}, {201, "20"}},              {"-dEUn1b", "-dEUn2b", "-dEUn3b", "-dEUn4b", "AL S34"}},
        {"no communication",          {{193, "41"}},                           {"-SEr 1", "-SEr 4", "CALib"}},
        {"communication code 3",      {{193, "59"}},                           {"-SEr 1", "-SEr 2", "-SEr 3", "-SEr 4"}},
        {"no analog board",           {{143, "00"}},                           {"-An SEt", "-An Lo", "-An Hi"}},
        {"two analog outputs",        {{143, "04"}},                           {"An Lo 1", "An Hi 1", "An Lo 2", "An Hi 2", "-An Lo"}},
        {"coordinates 1",             {{197, "20"}},                           {"-SCALE1", "-OFFSt1", "Lo In1", "Lo rd1", "Hi In1", "Hi rd1", "SCALE2"}},
        {"coordinates 2",             {{197, "10"}},                           {"SCALE1", "-SCALE2", "-OFFSt2", "Lo In2", "Lo rd2", "Hi In2", "Hi rd2"}},
        {"coordinates 2, one item",   {{197, "10"}, {199, "01"}},              {"-Lo In2", "-Hi rd2", "-SCALE2"}},
        {"coordinates 2, V-F board",  {{197, "10"}, {193, "4C"}, {199, "83"}}, {"-Lo In2", "-SCALE2", "DecPt2"}},
        {"curve, A only",             {{185, "08"}, {199, "01"}},              {"-SCALE1", "-OFFSt1", "rd0 In"}},
        {"curve over coordinates",    {{185, "08"}, {199, "01"}, {197, "20"}}, {"-Lo In1", "-Hi rd1", "rd0 In"}},
        {"curve, rate and total",     {{185, "08"}, {199, "03"}},              {"-SCALE1", "-SCALE2", "rd0 In"}},
        {"curve, total A only",       {{185, "08"}, {199, "21"}},              {"-SCALE1", "rd0 In"}},
        {"curve, A + B",              {{185, "08"}, {199, "0B"}},              {"SCALE1", "SCALE2", "-rd0 In"}},
        {"curve, phase",              {{185, "08"}, {199, "62"}},              {"SCALE1", "-rd0 In"}},
        {"curve, 1/A",                {{185, "08"}, {193, "4C"}, {199, "8F"}}, {"-SCALE1", "rd0 In"}},
        {"curve, V-F batch",          {{185, "08"}, {193, "4C"}, {199, "82"}}, {"SCALE1", "-rd0 In"}},
        {"root, A, B",                {{185, "06"}},                           {"SCALE1", "-SCALE2", "-OFFSt2", "rd0 In"}},
        {"root, coordinates 2",       {{185, "06"}, {197, "10"}},              {"Lo In2", "rd0 In"}},
        {"root, A + B",               {{185, "06"}, {199, "0B"}},              {"-SCALE2", "-rd0 In"}},
        {"root, total",               {{185, "06"}, {199, "20"}},              {"SCALE2", "-rd0 In"}},
        {"root, phase",               {{185, "06"}, {199, "61"}},              {"SCALE1", "-rd0 In"}},
        {"root, duty cycle",          {{185, "06"}, {199, "71"}},              {"SCALE1", "rd0 In"}},
        {"root, V-F batch",           {{185, "06"}, {193, "4C"}, {199, "82"}}, {"SCALE2", "-rd0 In"}},
        {"cutoff disabled",           {{185, "05"}, {193, "4C"}, {199, "83"}}, {"-CutoFF"}},
        {"clock hhmmss",              {{185, "54"}},                           {"-DecPt1", "-DecPt2", "OFFSt1", "OFFSt2"}},
        {"preset, remote display",    {{185, "64"}, {199, "24"}},              {"PrESEt"}},
        {"no board, legal pair",      {{193, "48"}, {199, "0C"}},              {"rESoLn", "DecPt2", "-SLOPE"}},
        {"no board, illegal pair",    {{193, "48"}, {199, "04"}},              {"FiLtEr", "ti Out", "-DecPt2"}},
        {"no board, Mode 13",         {{193, "48"}, {199, "D2"}},              {"-bAtCH", "-rESoLn", "-DecPt2", "SCALE1"}},
    };
    for (const auto& c : cases) {
        MenuBench bench(c.Patches);
        for (const std::string& name : c.Items) {
            bool absent = name.front() == '-';
            EXPECT_EQ(bench.RowOf(absent ? name.substr(1) : name) == 0, absent) << c.Name << ": " << name;
        }
    }
}
// clang-format on

TEST(MenuItems, HaveTheirCodes) {
    // Four relays, two analog outputs, a batch, coordinates; 0 is the header.
    MenuBench bench({{193, "2C"}, {143, "04"}, {199, "82"}, {197, "20"}});
    const std::vector<int> expected = {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  11, 12, 15, 16,
                                       17, 18, 19, 20, 26, 27, 28, 29, 30, 31, 32, 33, 34, 35,
                                       36, 37, 38, 39, 40, 41, 42, 43, 44, 45, 46, 47};
    const auto& codes = bench.View.MenuRowCodes;
    EXPECT_EQ(std::vector<int>(codes.begin(), codes.begin() + bench.View.MenuRowCount + 1), expected);
}

}  // namespace
}  // namespace counter::test
