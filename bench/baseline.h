#pragma once

/// What the machine can do at best, measured in the same process as the plans: the yardstick of every figure.
namespace tav::bench {

struct Baseline {
  double stopMinute;   ///< ns of a bare stop-minute: 16 compartments, two gases, ready factors, one ceiling
  double exponential;  ///< ns of one exp
};

/// Measured once, the best of several rounds.
const Baseline& MeasuredBaseline();

/// ns that a plan would take if it were nothing but arithmetic: its stop-minutes, and for each row 32 exponentials and
/// one more stop-minute.
double BareArithmetic(double stopMinutes, double rows);

}  // namespace tav::bench
