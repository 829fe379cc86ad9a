#pragma once

namespace tav {

/// A 32-bit float that computes in 64 bits: reading promotes to double, assigning rounds.
///
/// Loads, depths and times are kept in 32 bits and every expression between them runs in 64; the last digit of a
/// schedule depends on it. Use Single for every stored quantity, double for everything in between, float nowhere.
class Single {
 public:
  constexpr Single() = default;
  constexpr Single(double value) : value_(static_cast<float>(value)) {}
  constexpr operator double() const { return static_cast<double>(value_); }

  constexpr Single& operator+=(double value) { return *this = Single(static_cast<double>(value_) + value); }
  constexpr Single& operator-=(double value) { return *this = Single(static_cast<double>(value_) - value); }

 private:
  float value_ = 0;
};

static_assert(sizeof(Single) == 4);

}  // namespace tav
