// The view around its rows: what it takes and leaves, help, and what follows the scrolling.
#include "menu_view/menu_view.h"

#include <gtest/gtest.h>

#include <random>

#include "menu_bench.h"

namespace counter::test {
namespace {

TEST(MenuView, RepairsAPointThatItShowsAndNothingElse) {
    const struct {
        const char* Name;
        std::vector<Patch> Patches;
        const char* Left;
    } cases[] = {
        {"both zero", {{151, "00"}}, "11"},
        {"spare bits stay", {{151, "88"}}, "99"},
        {"the second isn't shown", {{151, "00"}, {199, "01"}}, "01"},
        {"a clock shows none", {{151, "00"}, {185, "54"}}, "00"},
        {"no digits at all", {{151, "ZZ"}}, "11"},
        {"code 7 stays", {{151, "77"}}, "77"},
    };
    for (const auto& c : cases) {
        MenuBench bench(c.Patches);
        EXPECT_EQ(DigitsGet(bench.Image, 151, 2), c.Left) << c.Name;
        DigitsPut(bench.Image, 151, "11");
        SetupImage expected;
        BuildDefaultSetup(expected);
        for (const Patch& patch : c.Patches) DigitsPut(expected, patch.Pos, patch.Digits);
        DigitsPut(expected, 151, "11");
        EXPECT_EQ(bench.Image.SetupData, expected.SetupData) << c.Name;
    }
}

TEST(MenuView, TakesWhatTheSetupViewLeft) {
    // A stopwatch with clock display: 3661 seconds are 01.01.01 once the Setup view has said so.
    MenuBench bench({{199, "50"}, {185, "54"}, {37, "000E4D"}, {55, "000E4D"}});
    EXPECT_EQ(bench.Cells("OFFSt1"), "  | 0| 0.| 3| 6.| 6| 1");
    bench.Shared.ClockMode = 5;
    bench.Build();
    EXPECT_EQ(bench.Cells("OFFSt1"), "  | 0| 1.| 0| 1.| 0| 1");
    EXPECT_EQ(Joined(bench.SetPt()[1].Cells), "+| 0| 1| 0| 1| 0| 1");
    // The third source of two items has the point of the last function that had three.
    bench.Shared.ItemDecPts[3] = 4;
    bench.Build();
    EXPECT_EQ(bench.Cells("An Hi"), "  | 0| 1| 0.| 0| 0| 0");
}

TEST(MenuView, KnowsTheBoards) {
    const std::pair<const char*, const char*> cases[] = {{"48", " None"},
                                                         {"49", " Dual Signal Conditioner"},
                                                         {"4C", " V-to-F Converter"},
                                                         {"4A", " Quadrature"},
                                                         {"4B", " Quadrature"},
                                                         {"4E", ""}};
    for (const auto& [digits, text] : cases) {
        EXPECT_EQ(MenuBench({{193, digits}}).View.lblSigCond, text) << digits;
    }
    EXPECT_EQ(MenuBench({{143, "04"}}, 78, 7).View.AnalogOption, 3) << "a meter without panel";
}

TEST(MenuView, HelpFollowsTheRowCode) {
    const struct {
        int Code, AnalogOption, ProtocolCode, Primary, Secondary;
    } cases[] = {
        {1, 2, 1, 2201, 2201},  {42, 2, 0, 2242, 2242}, {43, 2, 0, 2244, 2244}, {43, 2, 1, 2243, 2243},
        {36, 4, 0, 2236, 2236}, {37, 4, 0, 2235, 2235}, {44, 4, 0, 2243, 2243}, {44, 4, 2, 2242, 2242},
        {49, 2, 1, 2142, 2249}, {52, 4, 0, 2144, 2251}, {53, 2, 1, 2253, 2253},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(MenuHelpId(c.Code, PointerEvent::Primary, c.AnalogOption, c.ProtocolCode), c.Primary)
            << c.Code;
        EXPECT_EQ(MenuHelpId(c.Code, PointerEvent::Secondary, c.AnalogOption, c.ProtocolCode), c.Secondary)
            << c.Code;
    }
    // By row: the view knows its board and its protocol.
    MenuBench bench({{143, "04"}, {109, "04"}, {199, "24"}});
    auto helpOf = [&](int row) { return bench.View.HelpIdOfRow(row, PointerEvent::Primary); };
    EXPECT_EQ(helpOf(bench.RowOf("PrESEt")), 2220) << "that of OFFSt2";
    EXPECT_EQ(helpOf(bench.RowOf("Loc 4")), 2245);
    EXPECT_EQ(helpOf(0), 0);
    EXPECT_EQ(helpOf(bench.View.MenuRowCount + 1), 0);
}

TEST(MenuView, OverlaysFollowTheScrolling) {
    constexpr int kHidden = -1;
    const struct {
        const char* Form197;  // with coordinates the SCALE rows aren't there
        int FirstVisibleRow;
        std::array<int, 4> Tops;  // beside InPut 1, SCALE1 11, SCALE2 13, CALib 26
    } cases[] = {
        {"00", 1, {440, 3140, 3680, 7190}},
        {"00", 2, {kHidden, 2870, 3410, 6920}},
        {"00", 11, {kHidden, 440, 980, 4490}},
        {"00", 12, {kHidden, kHidden, 710, 4220}},
        {"00", 27, {kHidden, kHidden, kHidden, kHidden}},
        {"30", 1, {440, kHidden, kHidden, 8270}},
    };
    for (const auto& c : cases) {
        MenuBench bench({{197, c.Form197}});
        MenuView& view = bench.View;
        view.ScrollTo(30);
        view.ScrollTo(c.FirstVisibleRow);
        std::array<int, 4> tops{};
        const Overlay places[] = {view.InputPlace, view.Scale1Place, view.Scale2Place, view.NoChangePlace};
        for (std::size_t i = 0; i < tops.size(); ++i) tops[i] = places[i].Visible ? places[i].Top : kHidden;
        EXPECT_EQ(tops, c.Tops) << c.Form197 << ", first row " << c.FirstVisibleRow;
    }
}

// Short and long ones too, and such as are not only digits.
TEST(MenuView, OfAnyImageHasAtMost49RowsOfFilledCells) {
    std::mt19937 dice(20260304);  // the same run each time
    const auto below = [&](unsigned count) { return static_cast<int>(dice() % count); };
    MenuBench bench;
    std::string& digits = bench.Image.SetupData;
    for (int run = 0; run < 50000; ++run) {
        digits.resize(run % 8 == 0 ? static_cast<std::size_t>(below(400)) : 260);
        const std::size_t length = digits.size();
        for (char& c : digits)
            c = run % 4 != 1 || below(2) == 0 ? "0123456789ABCDEF"[below(16)] : static_cast<char>(below(256));
        bench.Meter = {below(9), below(256)};
        bench.Shared.ClockMode = 5 * below(2);
        bench.Build();
        ASSERT_EQ(digits.size(), length);
        ASSERT_LE(bench.View.MenuRowCount, 49);
        ASSERT_LE(bench.View.SetPtRowCount, 4);
        ASSERT_GT(bench.View.NoChangePlace.Row, 0) << "CALib is always there";
        for (const MenuRow& row : bench.Main())
            for (const MenuCell& cell : row.Cells) ASSERT_FALSE(cell.View().empty()) << "run " << run;
    }
}

}  // namespace
}  // namespace counter::test
