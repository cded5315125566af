// A week of readings, 20 a second, a second's worth an arrival: nothing may grow.
#include "readings/graph_view.h"
#include "readings/list_view.h"
#include "readings/plot_view.h"
#include "readings_bench.h"
#include "support/heap.h"

namespace counter::test {
namespace {

constexpr int kDaySeconds = 24 * 3600;
constexpr int kWeekSeconds = 7 * kDaySeconds;

std::string Second(const std::string& reading) {
    std::string bytes;
    for (int i = 0; i < 20; ++i) bytes += reading + "\r";
    return bytes;
}

// A week of readings, one of `readings` a second, 20 times; `each` comes in front of each second. What is in
// use after a day is all that the week needs.
void Live(ReadingsBench& bench, const Lines& readings, const std::function<void(int second)>& each) {
    std::size_t afterADay = 0;
    bench.Pump.SetTimeOfDay(0);
    for (int second = 0; second < kWeekSeconds; ++second, bench.Pump.Pass(1000)) {
        each(second);
        bench.Line.Inject(readings[static_cast<std::size_t>(second) % readings.size()]);
        if (second == kDaySeconds) afterADay = HeapInUse();
    }
    EXPECT_LE(HeapInUse(), afterADay + 4096);
}

// The most entries that the record has in such a week.
std::size_t WeekOf(ReadingsBench& bench, ChartView& view, const char* third, const Lines& readings) {
    view.Activate();
    TypeScale(view, "", "", third);
    Press(view, view.cmdOK);
    std::size_t most = 0;
    Live(bench, readings, [&](int second) {
        // A plot that is full, or runs across midnight where it would go on for ever, starts over.
        if (second % 36'002 == 0 || second % kDaySeconds == 0) view.Controls.Click(view.cmdContinue);
        most = std::max(most, view.Chart.Record().size());
    });
    return most;
}

TEST(Week, ListKeepsItsTable) {
    ReadingsBench bench;
    ListView view(bench.Program);
    view.Activate();
    Live(bench, {Second("+1"), Second("-99.5")}, [](int) {});
}

TEST(Week, GraphKeepsItsRecordSmall) {
    ReadingsBench bench;
    GraphView view(bench.Program);
    EXPECT_LE(WeekOf(bench, view, "1000", {Second("+1"), Second("-99")}), GraphView::kMostEntries + 100);
    EXPECT_EQ(view.Current().BinCount[16], kWeekSeconds / 2 - 1) << "but the partial one at the start";
    double lowest = 1000;
    for (const ChartEntry& entry : view.Chart.Record()) {
        const auto* box = std::get_if<ChartBox>(&entry);
        if (box && box->X1 == 500 && box->Fill == BoxFill::Black) lowest = std::min(lowest, box->Y1);
    }
    EXPECT_EQ(lowest, 0) << "the bar stands whole on its axis";
}

TEST(Week, PlotRecordsAtMostWhatItsColumnsShow) {
    ReadingsBench bench;
    PlotView view(bench.Program);
    const Lines readings = {Second("5"), Second("-3"), Second("25"), Second("12"), Second("-30")};
    const std::size_t most = WeekOf(bench, view, "36000", readings);
    EXPECT_GT(most, 1000U);
    EXPECT_LE(most, 6000U);
}

}  // namespace
}  // namespace counter::test
