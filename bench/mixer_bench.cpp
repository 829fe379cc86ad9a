// The gas mixer: a list to fill by, of a fill that can be and of one that can't, beside the block of van der Waals and
// beside one pressure by the real gas.

#include <benchmark/benchmark.h>

#include "mixer/fill_advice.h"

namespace tav::bench {
namespace {

const FillRequest kTrimix{kAir, 1, {18, 45, 37}, 220};
const FillRequest kTooRich{{50, 0, 50}, 150, {32, 0, 68}, 200};

void MixerList(benchmark::State& state, const FillRequest& request) {
  for (auto _ : state) {
    FillAdvice advice(request, GaugeMark(true));
    benchmark::DoNotOptimize(advice.list.comesOut.O2);
  }
}
BENCHMARK_CAPTURE(MixerList, possible, kTrimix)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(MixerList, drained, kTooRich)->Unit(benchmark::kMicrosecond);

void MixerVanDerWaals(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(Recalculate(kTrimix).AirO2);
}
BENCHMARK(MixerVanDerWaals)->Unit(benchmark::kMicrosecond);

void MixerPressure(benchmark::State& state) {
  const Filling filling(kTrimix);
  const Contents contents = filling.At(kTrimix.desired, kTrimix.desiredFill);
  for (auto _ : state) benchmark::DoNotOptimize(filling.GaugeOf(contents));
}
BENCHMARK(MixerPressure)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tav::bench
