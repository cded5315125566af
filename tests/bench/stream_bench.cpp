// The reading stream: frames a second through each cutter alone, and through the cutter into the views.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "link/latest_cutter.h"
#include "link/list_cutter.h"
#include "readings/graph_view.h"
#include "readings/list_view.h"
#include "readings/plot_view.h"
#include "support/bench_meter.h"

namespace {

using namespace counter;

constexpr int kFrames = 1000;

// Frames as they would arrive: all at once, or in pieces of `piece` bytes.
std::vector<std::string> Arrivals(std::size_t piece) {
    std::string bytes;
    for (int i = 0; i < kFrames; ++i) bytes += "+" + std::to_string(1000 + i) + ".25\r";
    std::vector<std::string> arrivals;
    for (std::size_t at = 0; at < bytes.size(); at += piece) arrivals.push_back(bytes.substr(at, piece));
    return arrivals;
}

// Argument: bytes an arrival.
template <class Cutter>
void BM_Cutter(benchmark::State& state) {
    const std::vector<std::string> arrivals = Arrivals(static_cast<std::size_t>(state.range(0)));
    const FrameRules rules;
    Cutter cutter(rules);
    Frame frame;
    for (auto _ : state) {
        for (const std::string& bytes : arrivals) {
            cutter.Receive(bytes);
            while (cutter.Next(frame)) benchmark::DoNotOptimize(frame.Text.data());
        }
    }
    state.SetItemsProcessed(state.iterations() * kFrames);
}
BENCHMARK(BM_Cutter<ListCutter>)->Arg(1)->Arg(9)->Arg(1 << 20);
BENCHMARK(BM_Cutter<LatestCutter>)->Arg(1)->Arg(9)->Arg(1 << 20);

struct Desk : test::BenchMeter {
    Desk() {
        Line.Unplug();
        SwitchOn();
    }
    void Feed(benchmark::State& state) {
        const std::vector<std::string> arrivals = Arrivals(9);
        for (auto _ : state) {
            for (const std::string& bytes : arrivals) Line.Inject(bytes);
        }
        state.SetItemsProcessed(state.iterations() * kFrames);
    }
};

void BM_ListView(benchmark::State& state) {
    Desk desk;
    ListView view(desk.Program);
    view.Activate();
    desk.Feed(state);
}
BENCHMARK(BM_ListView);

template <class View>
void BM_ChartView(benchmark::State& state) {
    Desk desk;
    View view(desk.Program);
    view.Activate();
    view.Controls.Type(view.txtMidVal, "1500");
    view.Controls.Type(view.txtSmallVal, "50");
    view.Controls.Type(view.txtThird, "100");
    view.Controls.Click(view.cmdOK);
    desk.Feed(state);
}
BENCHMARK(BM_ChartView<PlotView>);
BENCHMARK(BM_ChartView<GraphView>);

}  // namespace
