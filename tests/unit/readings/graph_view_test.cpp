// The histogram: frame, bins, doubling, arrows, and the refused scale.
#include "readings/graph_view.h"

#include "chart_record.h"

namespace counter::test {
namespace {

struct GraphDesk : ReadingsBench {
    explicit GraphDesk(const char* vertical = "10", const char* mid = "0", const char* small = "1") {
        View.Load();
        View.Activate();
        TypeScale(View, mid, small, vertical);
        Press(View, View.cmdOK);
        Line.Inject("rest\r");
        New();
    }
    // What was drawn since the last call.
    Lines New() { return RecordFrom(View.Chart, std::exchange(mark_, View.Chart.Record().size())); }
    GraphView View{Program};

  private:
    std::size_t mark_ = 0;
};

TEST(GraphView, BarsGrowBySlicesAndDoubleTheScalePastTheTop) {
    GraphDesk desk("10", "100", "0.5");
    for (int i = 1; i <= 10; ++i) desk.MeterSends(50, "100.5");
    EXPECT_EQ(desk.View.Chart.Scale(), (ChartScale{-150, 1030, 1000, -80}));
    EXPECT_EQ(desk.View.Current().BarScale, 10) << "the 10th reaches the top";
    desk.MeterSends(50, "100.5");
    ExpectGolden(desk.View.Chart, "graph_doubling.golden");
    GraphDesk tiny("0.3");
    tiny.MeterSends(50, "1");
    EXPECT_FLOAT_EQ(tiny.View.Current().BarScale, 1.2F) << "never past the top";
}

TEST(GraphView, BinsAreCentredAndHalvesGoToTheEvenOne) {
    const struct {
        const char *Small, *Reading;
        int Bin;  // -1 low arrow, 31 high arrow
    } cases[] = {{"1", "0", 15},        {"1", "15", 30},      {"1", "-15", 0},      {"1", "15.5", 30},
                 {"1", "15.51", 31},    {"1", "-15.5", 0},    {"1", "-15.6", -1},   {"1", "0.5", 16},
                 {"1", "1.5", 16},      {"1", "-0.5", 14},    {"1", "-.junk", 15},  {"", "3", 18},
                 {"0.25", "1", 19},     {"-1", "4", 11},      {"1", "9E99999", 31}, {"0.1", "0.05", 16},
                 {"0.1", "0.15", 16},   {"0.1", "-0.35", 12}, {"0.02", "0.07", 18}, {"0.1", "0.0501", 16},
                 {"0.1", "0.1499", 16}, {"0.1", "1.55", 30},  {"0.1", "-1.55", 0}};
    for (const auto& c : cases) {
        GraphDesk desk("10", "0", c.Small);
        desk.MeterSends(50, c.Reading);
        BinCounts counts{};
        if (c.Bin >= 0 && c.Bin < kBins) counts[static_cast<std::size_t>(c.Bin)] = 1;
        EXPECT_EQ(desk.View.Current().BinCount, counts) << c.Reading;
        EXPECT_EQ(desk.View.Current().LowShown, c.Bin < 0) << c.Reading;
        EXPECT_EQ(desk.View.Current().HighShown, c.Bin > 30) << c.Reading;
    }
}

TEST(GraphView, LabelsAreWholeNumbersWhateverTheScale) {
    const std::pair<const char*, const char*> cases[] = {
        {"3", "5"}, {"2.5", "0"}, {"17.5", "20"}, {"5e6", "5000000"}};
    for (const auto& [vertical, top] : cases) {
        const GraphDesk desk(vertical);  // seven value labels come after the topmost count
        EXPECT_EQ(std::get<ChartText>(desk.View.Chart.Record().end()[-8]).Text, top) << vertical;
    }
}

TEST(GraphView, ArrowsBlinkAndAReadingInRangeWipesThem) {
    GraphDesk desk;
    const std::string low = "text \"<-\" left -10 top -5 halves 0";
    const std::string high = "text \"->\" left 950 top -5 halves 0";
    // clang-format off
    const struct {
        const char *Name, *Reading;
        Lines Drawn;
    } steps[] = {
        {"low shows",           "-99", {low}},
        {"low goes",            "-99", {"white -10,-12 20,-40"}},
        {"high shows",          "99",  {high}},
        {"low shows again",     "-99", {low}},
        {"in range wipes both", "0",   {"white -10,-12 20,-40", "white 950,-12 980,-40", "black 470,0 490,100"}},
        {"nothing to wipe",     "0",   {"black 470,100 490,200"}},
        {"high was on",         "99",  {}},
        {"high shows again",    "99",  {high}},
    };
    // clang-format on
    for (const auto& step : steps) {
        desk.MeterSends(50, step.Reading);
        EXPECT_EQ(desk.New(), step.Drawn) << step.Name;
    }
}

TEST(GraphView, PauseKeepsTheBarsAndOkStartsFromEmptyOnes) {
    GraphDesk desk;
    desk.MeterSends(50, "1");
    for (Control* button : {&desk.View.cmdPause, &desk.View.cmdContinue, &desk.View.cmdContinue}) {
        Press(desk.View, *button);
        desk.MeterSends(50, "1");
    }
    EXPECT_EQ(desk.View.Current().BinCount[16], 2) << "one in the pause, one behind it";
    Press(desk.View, desk.View.cmdNewScale);
    TypeScale(desk.View, "0", "1", "4");
    Press(desk.View, desk.View.cmdOK);
    EXPECT_EQ(desk.View.Current().BinCount[16], 0);
    EXPECT_EQ(desk.View.Current().BarScale, 4);
}

TEST(GraphView, AScaleWithoutACountIsRefusedInWords) {
    for (const char* vertical : {"", "         ", "0.0", "-5", "x"}) {
        GraphDesk desk(vertical);
        EXPECT_EQ(desk.View.lblStatus.Caption, "Initial Vertical Scale must be a number above 0.")
            << vertical;
        EXPECT_EQ(desk.View.lblStatus.TextColor, ColorRed);
        EXPECT_EQ(desk.View.Controls.Focused(), &desk.View.txtVertScale);
        EXPECT_EQ(desk.Sent(), Lines{}) << "the entry stays open";
        TypeScale(desk.View, "", "", "7");
        Press(desk.View, desk.View.cmdOK);
        EXPECT_FALSE(desk.View.lblStatus.Visible);
    }
}

TEST(GraphView, APartOfItAndItsBarsOneByOne) {
    GraphDesk desk;
    for (const char* reading : {"1", "1", "1", "0"}) desk.MeterSends(50, reading);
    EXPECT_EQ(desk.View.Spot(16).Text, "1.   3 readings");
    EXPECT_EQ(desk.View.NearestSpot(0.512), 16U);
    EXPECT_DOUBLE_EQ(desk.View.Spot(16).X, 0.51);
    ChartSurface part;
    desk.View.DrawWindow(part, {0.49, 0.53, 0, 0.2});  // the bar of 1, up to a count of 2
    const Lines record = RecordFrom(part);
    EXPECT_EQ(std::count(record.begin(), record.end(), "black 250,0 750,1000"), 1);
    EXPECT_EQ(desk.View.ValuesText().substr(0, 32), "Value\tReadings\n-15.\t0\n-14.\t0\n-13");
}

}  // namespace
}  // namespace counter::test
