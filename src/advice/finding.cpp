#include "advice/finding.h"

#include <array>

namespace tav {

std::string_view IdOf(Rule rule) {
  constexpr std::array<std::string_view, 23> kIds{"hypoxic",
                                                  "hyperoxic",
                                                  "above_ceiling",
                                                  "does_not_decompress",
                                                  "narcotic",
                                                  "cns",
                                                  "otu",
                                                  "density",
                                                  "counter_diffusion",
                                                  "change_hidden",
                                                  "change_unknown",
                                                  "change_hyperoxic",
                                                  "setpoint",
                                                  "leg_lengthened",
                                                  "leg_at_surface",
                                                  "gas_short",
                                                  "change_skipped",
                                                  "two_pressures",
                                                  "turn_passed",
                                                  "surface_pressure",
                                                  "interval_on_loop",
                                                  "loop_changes",
                                                  "gas_name"};
  return kIds.at(static_cast<std::size_t>(rule));
}

std::string_view IdOf(Severity severity) {
  constexpr std::array<std::string_view, 3> kIds{"danger", "caution", "note"};
  return kIds.at(static_cast<std::size_t>(severity));
}

}  // namespace tav
