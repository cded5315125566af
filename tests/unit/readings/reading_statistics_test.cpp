// What a run amounts to: figures of each item, the rate, and when a meter counts as silent.
#include "readings/reading_statistics.h"

#include "link/reading_items.h"
#include "readings/graph_view.h"
#include "readings/list_view.h"
#include "readings/plot_view.h"
#include "readings/reading_words.h"
#include "readings_bench.h"

namespace counter::test {
namespace {

TEST(ReadingStatistics, FiguresOfEachItem) {
    ReadingStatistics figures;
    figures.Begin(0);
    for (const char* frame : {" 1000004.", " 1000007.5-  2.50", " 1000013.------", " 1000016.-  1.5"})
        figures.Take(ItemsOf(frame), 0);
    const ItemFigures& first = figures.Of(1);
    EXPECT_EQ(first.Count, 4);
    EXPECT_EQ(first.Current, 1000016);
    EXPECT_EQ(first.Smallest, 1000004);
    EXPECT_EQ(first.Largest, 1000016);
    EXPECT_EQ(first.Mean, 1000010.125);
    EXPECT_NEAR(first.Deviation(), 5.3910, 1e-4) << "a million and a few units";
    EXPECT_EQ(first.Decimals, 1);
    EXPECT_EQ(figures.Of(2).Count, 2) << "one frame has no second item, one shows no number for it";
    EXPECT_EQ(figures.Of(2).Largest, -1.5);
    EXPECT_EQ(figures.Of(2).Decimals, 2);
    EXPECT_EQ(figures.ItemsSeen(), 2);
    EXPECT_EQ(figures.Readings, 4);
    figures.Take({"1" + std::string(400, '0')}, 0);
    EXPECT_EQ(first.Count, 4) << "no double holds it";
    EXPECT_FALSE(first.Shows);
    figures.Begin(0);
    EXPECT_EQ(first.Count + figures.Readings + figures.ItemsSeen(), 0);
}

TEST(ReadingStatistics, RateAndSilence) {
    const struct {
        const char* Name;
        int Readings;
        double EveryMs, ThenMs, Rate;
        RunState State;
    } cases[] = {{"none yet", 0, 0, 2999, 0, RunState::Starting},
                 {"none at all", 0, 0, 3000, 0, RunState::Silent},
                 {"20 a second", 400, 50, 2999, 20, RunState::Running},
                 {"20 a second, then none", 400, 50, 3000, 20, RunState::Silent},
                 {"1000 a second", 9000, 1, 0, 1000, RunState::Running},
                 {"a slow meter", 5, 20'000, 59'999, 0.05, RunState::Running},
                 {"a slow meter that went", 5, 20'000, 60'000, 0.05, RunState::Silent}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        ReadingStatistics figures;
        double now = 0;
        figures.Begin(now);
        for (int i = 0; i < c.Readings; ++i) figures.Take({"1"}, now += c.EveryMs);
        EXPECT_NEAR(figures.Rate(), c.Rate, c.Rate / 1000);
        EXPECT_EQ(figures.StateAt(now + c.ThenMs, RunHold::None), c.State);
        EXPECT_EQ(figures.SilentSeconds(now + c.ThenMs), static_cast<int>(c.ThenMs / 1000));
        EXPECT_EQ(figures.StateAt(now + c.ThenMs, RunHold::Paused), RunState::Paused);
        figures.Continue(now + 60'000);
        EXPECT_NE(figures.StateAt(now + 60'000, RunHold::None), RunState::Silent);
        figures.End();
        EXPECT_EQ(figures.StateAt(now, RunHold::Full), RunState::Stopped);
    }
}

// Each view counts what it takes: a pause keeps the figures, a new run begins them anew.
template <class View>
void ExpectCounts(const char* name, long long after, long long below) {
    SCOPED_TRACE(name);
    ReadingsBench bench;
    View view(bench.Program);
    view.Load();
    EXPECT_EQ(view.State(), RunState::Stopped);
    view.Activate();
    const bool isPlot = std::is_same_v<View, PlotView>;
    Control* resume = view.Controls.Find("cmdContin");
    if constexpr (std::is_base_of_v<ChartView, View>) {
        EXPECT_EQ(view.State(), RunState::Stopped) << "the scale entry";
        StartChart(view, "10", "1", "10");
        resume = &view.cmdContinue;
    } else {
        bench.MeterSends(0, "rest");  // what comes next sizes the grid and isn't listed
    }
    EXPECT_EQ(view.State(), RunState::Starting);
    for (const char* frame : {"rest", " 10. 5.0", "- 90.- 6.0"}) bench.MeterSends(100, frame);
    EXPECT_EQ(view.State(), RunState::Running);
    EXPECT_EQ(view.Statistics.Of(1).Largest, 10);
    EXPECT_EQ(view.Statistics.Of(2).Smallest, -6) << "behind the eight characters that a chart parses";
    EXPECT_EQ(view.ItemValue(2), -6);
    EXPECT_EQ(view.Controls.Select(view.cboItem, 1), Refusal::None);
    const char* outside = view.HasBars() ? ", outside 1 / 0" : "";
    EXPECT_EQ(
        Sentence(WordsOf(view)),
        std::string("Running, 10.0/s, current -6.0, min -6.0, max 5.0, mean -0.50, s 7.78, n 2") + outside);
    Press(view, view.cmdPause);
    EXPECT_EQ(view.State(), RunState::Paused);
    bench.MeterSends(20'000, " 77.");
    Press(view, *resume);
    EXPECT_EQ(view.State(), RunState::Running) << "the pause is no silence";
    bench.MeterSends(100, "rest");
    bench.MeterSends(100, " 12.");
    bench.MeterSends(100, " 13.");
    EXPECT_EQ(view.Statistics.Readings, after);
    EXPECT_EQ(view.Statistics.Below, below);
    bench.Pump.Pass(11'000);
    EXPECT_EQ(view.State(), RunState::Silent);
    bench.MeterSends(0, " 14.");
    EXPECT_EQ(view.State(), isPlot ? RunState::Full : RunState::Running);
    EXPECT_EQ(view.Statistics.Readings, after + (isPlot ? 0 : 1));
    view.Activate();
    EXPECT_EQ(view.Statistics.Readings == 0, resume->Name == "cmdContin") << "a new run, or a scale entry";
}

TEST(ReadingStatistics, EachViewCountsWhatItTakes) {
    ExpectCounts<ListView>("List", 3, 0);
    ExpectCounts<PlotView>("Plot", 4, 0);
    ExpectCounts<GraphView>("Graph", 4, 1);
}

}  // namespace
}  // namespace counter::test
