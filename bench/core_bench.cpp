// The image's accessors and the value codec.
#include <benchmark/benchmark.h>

#include "meter/default_setup.h"
#include "meter/derived_values.h"
#include "meter/setup_image.h"
#include "meter/value_codec.h"

namespace {

using namespace counter;

SetupImage DefaultImage() {
    SetupImage image;
    BuildDefaultSetup(image);
    return image;
}

void BM_BitsGet(benchmark::State& state) {
    SetupImage image = DefaultImage();
    benchmark::DoNotOptimize(image);
    for (auto _ : state) benchmark::DoNotOptimize(BitsGet(image, 7, 4, 199));
}
BENCHMARK(BM_BitsGet);

void BM_BitsPut(benchmark::State& state) {
    SetupImage image = DefaultImage();
    int value = 0;
    for (auto _ : state) {
        BitsPut(image, 3, 0, 199, value ^= 7);
        benchmark::DoNotOptimize(image);
    }
}
BENCHMARK(BM_BitsPut);

struct ValueCase {
    int TypeCode, Position;
};
constexpr ValueCase kValues[] = {{0, 173}, {1, 137}, {2, 55}, {3, 43}, {4, 103}, {12, 55}};

void BM_ValueDecode(benchmark::State& state) {
    const ValueCase value = kValues[state.range(0)];
    SetupImage image = DefaultImage();
    const ValueContext context;
    int decPt = 2;
    for (auto _ : state)
        benchmark::DoNotOptimize(ValueDecode(image, context, value.TypeCode, value.Position, decPt));
    state.SetLabel("type code " + std::to_string(value.TypeCode));
}
BENCHMARK(BM_ValueDecode)->DenseRange(0, std::size(kValues) - 1);

void BM_ValueEncode(benchmark::State& state) {
    SetupImage image = DefaultImage();
    const ValueContext context;
    for (auto _ : state) {
        ValueEncode(image, context, 2, 55, "-01234.5");
        benchmark::DoNotOptimize(image);
    }
}
BENCHMARK(BM_ValueEncode);

void BM_DeriveFromImage(benchmark::State& state) {
    SetupImage image = DefaultImage();
    benchmark::DoNotOptimize(image);
    for (auto _ : state) benchmark::DoNotOptimize(DeriveFromImage(image, 83));
}
BENCHMARK(BM_DeriveFromImage);

}  // namespace
