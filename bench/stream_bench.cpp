// The reading stream: frames a second through each cutter alone, and through the cutter into the views.
#include <benchmark/benchmark.h>

#include <concepts>
#include <string>
#include <vector>

#include "link/latest_cutter.h"
#include "link/list_cutter.h"
#include "readings/graph_view.h"
#include "readings/list_view.h"
#include "readings/plot_view.h"
#include "readings/readings_bench.h"

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

template <class View>
void BM_View(benchmark::State& state) {
    test::ReadingsBench bench;
    View view(bench.Program);
    view.Activate();
    if constexpr (std::derived_from<View, ChartView>) test::StartChart(view, "1500", "50", "100");
    const std::vector<std::string> arrivals = Arrivals(9);
    for (auto _ : state) {
        for (const std::string& bytes : arrivals) bench.Line.Inject(bytes);
    }
    state.SetItemsProcessed(state.iterations() * kFrames);
}
BENCHMARK(BM_View<ListView>);
BENCHMARK(BM_View<PlotView>);
BENCHMARK(BM_View<GraphView>);

}  // namespace
