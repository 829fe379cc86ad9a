#include "baseline.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cmath>
#include <limits>

#include "engine/decay_factors.h"
#include "engine/zhl16.h"

namespace tav::bench {
namespace {

MValueCoefficients Coefficients() {
  MValueCoefficients m;
  for (std::size_t i = 0; i < kCompartments; ++i) {
    m.HeA[i] = zhl16::kHeA[i];
    m.N2A[i] = zhl16::kN2A_B[i];
    m.HeB[i] = zhl16::kHeB[i];
    m.N2B[i] = zhl16::kN2B[i];
  }
  return m;
}

/// The state of a diver at a stop.
struct Stop {
  Loads loads;
  MValueCoefficients m = Coefficients();
  DecayFactors decay;

  Stop() {
    loads.He.fill(9);
    loads.N2.fill(12);
  }

  double Minute(const CompartmentKernels& kernels) {
    kernels.LoadConstant(loads, {2.0, 9.0}, decay.For(1.0));
    return kernels.DeepestCeiling(loads, m, 0.7, 10.0);
  }
};

void BareStopMinute(benchmark::State& state, const CompartmentKernels& kernels) {
  Stop stop;
  for (auto _ : state) benchmark::DoNotOptimize(stop.Minute(kernels));
}

void OneExp(benchmark::State& state) {
  double x = -0.1;
  for (auto _ : state) {
    benchmark::DoNotOptimize(x);
    benchmark::DoNotOptimize(std::exp(x));
  }
}

const int kRegistered = [] {
  benchmark::RegisterBenchmark("bare/stop_minute/portable", [](auto& s) { BareStopMinute(s, PortableKernels()); });
  if (WideKernels() != nullptr) {
    benchmark::RegisterBenchmark("bare/stop_minute/wide", [](auto& s) { BareStopMinute(s, *WideKernels()); });
  }
  benchmark::RegisterBenchmark("bare/exp", OneExp);
  return 0;
}();

template <class Work>
double BestNanoseconds(Work work) {
  using Clock = std::chrono::steady_clock;
  constexpr int kTimes = 20000;
  double best = std::numeric_limits<double>::max();
  for (int round = 0; round < 20; ++round) {
    const auto start = Clock::now();
    for (int i = 0; i < kTimes; ++i) work();
    const std::chrono::duration<double, std::nano> took = Clock::now() - start;
    best = std::min(best, took.count() / kTimes);
  }
  return best;
}

}  // namespace

const Baseline& MeasuredBaseline() {
  static const Baseline measured = [] {
    Stop stop;
    double x = -0.1;
    const double minute = BestNanoseconds([&] { benchmark::DoNotOptimize(stop.Minute(BestKernels())); });
    const double exponential = BestNanoseconds([&] {
      benchmark::DoNotOptimize(x);
      benchmark::DoNotOptimize(std::exp(x));
    });
    return Baseline{minute, exponential};
  }();
  return measured;
}

double BareArithmetic(double stopMinutes, double rows) {
  const Baseline& bare = MeasuredBaseline();
  return stopMinutes * bare.stopMinute + rows * (32 * bare.exponential + bare.stopMinute);
}

}  // namespace tav::bench
