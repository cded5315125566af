// bench_week: memory in use over a week of the reading stream, 20 readings a second, in virtual time.
#include <malloc.h>

#include <concepts>
#include <cstdio>
#include <string>

#include "readings/graph_view.h"
#include "readings/list_view.h"
#include "readings/plot_view.h"
#include "readings/readings_bench.h"

namespace {

using namespace counter;

constexpr int kHour = 3600;
constexpr int kWeek = 7 * 24 * kHour;

std::string SecondOf(int second) {
    std::string bytes;
    for (int i = 0; i < 20; ++i) bytes += "+" + std::to_string((second * 37 + i * 11) % 2000) + ".5\r";
    return bytes;
}

// A plot that is full starts over.
void KeepRunning(ReadingView& view, int second) {
    auto* plot = dynamic_cast<PlotView*>(&view);
    if (plot && (plot->Current().ChartFull || second % (24 * kHour) == 0))
        plot->Controls.Click(plot->cmdContinue);
}

template <class View>
void Week(const char* name) {
    test::ReadingsBench bench;
    View view(bench.Program);
    view.Activate();
    if constexpr (std::derived_from<View, ChartView>) test::StartChart(view, "1000", "50", "3600");
    std::printf("%-8s", name);
    for (int second = 0; second <= kWeek; ++second) {
        bench.Pump.SetTimeOfDay(second % (24 * kHour));
        bench.Line.Inject(SecondOf(second));
        KeepRunning(view, second);
        if (second == kHour || second == 24 * kHour || second == kWeek)
            std::printf(" %10.1f", static_cast<double>(mallinfo2().uordblks) / 1024);
    }
    std::printf("\n");
    view.Unload();
}

}  // namespace

int main() {
    std::printf("kB in use after  an hour      a day     a week\n");
    Week<ListView>("List");
    Week<PlotView>("Plot");
    Week<GraphView>("Graph");
}
