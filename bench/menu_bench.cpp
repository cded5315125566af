// The front-panel menu, beside one pass of ValueDecode over all value fields of the same image.
#include <benchmark/benchmark.h>

#include "menu_view/menu_view.h"
#include "meter/default_setup.h"
#include "meter/field_table.h"
#include "meter/value_codec.h"

namespace {

using namespace counter;

// A batch with four relays, two analog outputs and coordinates: as long as a menu gets, nearly.
SetupImage LongMenu() {
    SetupImage image;
    BuildDefaultSetup(image);
    DigitsPut(image, 143, "04");
    DigitsPut(image, 193, "2C");
    DigitsPut(image, 197, "20");
    DigitsPut(image, 199, "82");
    return image;
}

void BM_MenuView(benchmark::State& state) {
    SetupImage image = LongMenu();
    const MeterIdentity meter{3, 83};
    const DerivedValues shared;
    for (auto _ : state) benchmark::DoNotOptimize(BuildMenuView(image, meter, shared));
    state.SetLabel(std::to_string(BuildMenuView(image, meter, shared).MenuRowCount) + " rows");
}
BENCHMARK(BM_MenuView);

void BM_AllValueFields(benchmark::State& state) {
    const SetupImage image = LongMenu();
    const ValueContext context;
    for (auto _ : state) {
        for (const FieldRow& row : FieldTable()) {
            if (row.IsValue()) {
                int decPt = 1;
                benchmark::DoNotOptimize(ValueDecode(image, context, 10 + row.ValueCode, row.Pos, decPt));
            }
        }
    }
}
BENCHMARK(BM_AllValueFields);

}  // namespace
