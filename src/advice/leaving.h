#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "compute/compute.h"
#include "compute/compute_profile.h"
#include "figures/advice_words.h"
#include "figures/dive_figures.h"

/// What it takes to leave a dive now.
namespace tav {

/// A way to the surface.
struct WayOut {
  Single minutes;
  std::vector<GasTotal> gas;  ///< breathed on open circuit, in the order in which it is; none from the loop
  struct Place {
    Single runTime, depth;
  };
  std::vector<Place> places;  ///< the corners of its line, from the moment on
};

/// The ways to the surface from a moment of a dive: the ascent of a plan that is cut there, by the gradient factors,
/// rates and change list of its template. At the surface nothing is left to do.
struct Surfacing {
  bool onLoop = false;         ///< the diver is on the loop of a rebreather
  std::optional<WayOut> open;  ///< on open circuit with all gases; nothing when a stop never clears
  std::optional<WayOut> loop;  ///< by the plan's own ascent, stops on open circuit with `OCDeco`; nothing
                               ///< off the loop, and when a stop never clears
};

/// The ways up from any moment of a computed dive. Gas is breathed at the rates of the plan, `RMV`, and `DecoRMV` from
/// the first stop on, without any stress.
///
/// Moments in rising order come cheap: each row is loaded once. What the dive refers to outlives the object and is not
/// changed meanwhile.
class Leaving {
 public:
  explicit Leaving(const PlannedDive& dive);
  Leaving(const Leaving&) = delete;
  Leaving& operator=(const Leaving&) = delete;

  /// From the end of a row.
  [[nodiscard]] Surfacing AtEndOf(std::int16_t row);
  /// From a moment within a row, or at its end; `time` is minutes of run time. What lies ahead of the dive, or after
  /// its end, counts as its start or end.
  [[nodiscard]] Surfacing At(Single time);

 private:
  /// From the end of a row, or from a time within it.
  [[nodiscard]] Surfacing From(std::int16_t row, std::optional<Single> time);

  const ClassProfile& rows_;
  bool computed_;
  std::int16_t openFrom_;  ///< the first row on open circuit
  EngineRun open_;
  EngineRun loop_;
  std::optional<WaysUp> openWays_;
  std::optional<WaysUp> loopWays_;
  std::int16_t loaded_ = 0;  ///< rows that the ways have behind them
};

/// From the end of each row, row 0 included.
std::vector<Surfacing> SurfacingOfRows(const PlannedDive& dive);

/// "Tx18/45 1204 l, EAN50 610 l", with that text between the gases.
std::string TextOf(const std::vector<GasTotal>& gases, const AdviceWords& words, std::string_view between = ", ");

/// What leaving now takes in lines: minutes, then each gas.
std::string TextOf(const Surfacing& surfacing, const AdviceWords& words);

}  // namespace tav
