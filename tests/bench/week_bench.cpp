// bench_week: memory in use over a week of the reading stream, 20 readings a second, in virtual time.
#include <malloc.h>

#include <cstdio>
#include <string>

#include "readings/graph_view.h"
#include "readings/list_view.h"
#include "readings/plot_view.h"
#include "support/bench_meter.h"

namespace {

using namespace counter;

constexpr int kHour = 3600;
constexpr int kWeek = 7 * 24 * kHour;

// A clock whose day goes on with the test's seconds.
struct DayPump : test::VirtualPump {
    int Second = 0;
    WallTime LocalTime() const override {
        return {2026, 3, 4, Second / kHour % 24, Second / 60 % 60, Second % 60, 0};
    }
};

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

void Week(const char* name, test::BenchMeterOf<DayPump>& bench, ReadingView& view) {
    std::printf("%-8s", name);
    for (int second = 0; second <= kWeek; ++second) {
        bench.Pump.Second = second;
        bench.Line.Inject(SecondOf(second));
        KeepRunning(view, second);
        if (second == kHour || second == 24 * kHour || second == kWeek)
            std::printf(" %10.1f", static_cast<double>(mallinfo2().uordblks) / 1024);
    }
    std::printf("\n");
    view.Unload();
}

template <class View>
void WeekOfChart(const char* name) {
    test::BenchMeterOf<DayPump> bench;
    bench.Line.Unplug();
    bench.SwitchOn();
    View view(bench.Program);
    view.Activate();
    view.Controls.Type(view.txtMidVal, "1000");
    view.Controls.Type(view.txtSmallVal, "50");
    view.Controls.Type(view.txtThird, "3600");
    view.Controls.Click(view.cmdOK);
    Week(name, bench, view);
}

void WeekOfList() {
    test::BenchMeterOf<DayPump> bench;
    bench.Line.Unplug();
    bench.SwitchOn();
    ListView view(bench.Program);
    view.Activate();
    Week("List", bench, view);
}

}  // namespace

int main() {
    std::printf("kB in use after  an hour      a day     a week\n");
    WeekOfList();
    WeekOfChart<PlotView>("Plot");
    WeekOfChart<GraphView>("Graph");
}
