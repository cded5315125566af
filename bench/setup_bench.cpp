// The Setup view and digit entry as models, on a clock that jumps over every wait.
#include <benchmark/benchmark.h>

#include "digit_entry/digit_entry.h"
#include "meter/default_setup.h"
#include "setup_view/setup_view.h"
#include "support/bench_meter.h"

namespace {

using namespace counter;

struct OpenView {
    test::BenchMeter Bench;
    SetupView View{Bench.Program};
    OpenView() {
        Bench.SwitchOn();
        BuildDefaultSetup(Bench.Program.Image);
        View.Load();
    }
};

void BM_SetupViewMakeAndOpen(benchmark::State& state) {
    for (auto _ : state) {
        OpenView open;
        open.View.Activate();
        benchmark::DoNotOptimize(open.View.Controls);
    }
}
BENCHMARK(BM_SetupViewMakeAndOpen);

void BM_SetupViewOpen(benchmark::State& state) {
    OpenView open;
    for (auto _ : state) open.View.Activate();
}
BENCHMARK(BM_SetupViewOpen);

void BM_SetupViewRefresh(benchmark::State& state) {
    OpenView open;
    open.View.Activate();
    for (auto _ : state) open.View.ViewRefresh();
}
BENCHMARK(BM_SetupViewRefresh);

void BM_DigitEntryKey(benchmark::State& state) {
    OpenView open;
    open.View.Activate();
    Session& session = open.Bench.Program;
    Control target;
    DigitEntry dialog({session.Views, session.Image, session.Derived, session.Link});
    session.Views.FieldText = " +010000.";
    session.Views.FieldType = 2;
    session.Views.FieldPos = 55;
    session.Views.EntryTarget = &target;
    dialog.OpenDigitEntry();
    for (auto _ : state) {
        dialog.FocusBox(3);
        dialog.Key('7');
    }
}
BENCHMARK(BM_DigitEntryKey);

}  // namespace
