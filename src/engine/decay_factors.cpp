#include "engine/decay_factors.h"

#include <bit>
#include <cmath>
#include <numbers>

#include "engine/zhl16.h"

namespace tav {
namespace {

std::array<double, kCompartments> Constants(const Compartments& halfTimes) {
  std::array<double, kCompartments> constants{};
  for (std::size_t i = 0; i < kCompartments; ++i) constants[i] = Single(std::numbers::ln2 / halfTimes[i]);
  return constants;
}

CompartmentPair Exponentials(double time) {
  const CompartmentPair& k = RateConstants();
  CompartmentPair factors;
  for (std::size_t i = 0; i < kCompartments; ++i) factors.He[i] = std::exp(-k.He[i] * time);
  for (std::size_t i = 0; i < kCompartments; ++i) factors.N2[i] = std::exp(-k.N2[i] * time);
  return factors;
}

}  // namespace

const CompartmentPair& RateConstants() {
  static const CompartmentPair constants{Constants(zhl16::kHeHalfTimes), Constants(zhl16::kN2HalfTimes)};
  return constants;
}

const CompartmentPair& DecayFactors::For(Single time) {
  static const CompartmentPair minute = Exponentials(Single(1.0));
  static const CompartmentPair tenth = Exponentials(Single(0.1));
  if (time == 1.0) return minute;
  if (time == Single(0.1)) return tenth;
  // Any spread of the bits serves: a clash costs time, never correctness.
  const std::uint32_t bits = std::bit_cast<std::uint32_t>(time) * 2654435761U;
  Entry& entry = entries_[bits >> 28];
  if (entry.time != time) {
    entry.factors = Exponentials(time);
    entry.time = time;
  }
  return entry.factors;
}

}  // namespace tav
