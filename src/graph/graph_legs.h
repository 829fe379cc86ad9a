#pragma once

#include <cstdint>
#include <string>

#include "model/single.h"

namespace tav {

/// What the graph of a plan does to the legs of it. Whatever the plan refuses leaves it as it was, and is told in a
/// sentence; the text is empty for what has been done. Rows are those of the profile.
class GraphLegs {
 public:
  GraphLegs() = default;
  GraphLegs(const GraphLegs&) = delete;
  GraphLegs& operator=(const GraphLegs&) = delete;
  virtual ~GraphLegs() = default;

  /// The plan ends with its ascent.
  [[nodiscard]] virtual bool HasAscent() const = 0;
  /// A leg ends with this row: it is a waypoint that can be moved.
  [[nodiscard]] virtual bool EndsLeg(std::int16_t row) const = 0;
  /// Selects a row everywhere it shows; row 0 selects none. A waypoint stays selected while it is moved.
  virtual void Select(std::int16_t row) = 0;

  /// The waypoint of a row is about to be moved, the later legs with it. False while the plan can't be changed.
  virtual bool BeginMove(std::int16_t row) = 0;
  /// Why there is no move, where it can be told.
  [[nodiscard]] virtual std::string Refusal() const = 0;
  /// Other commands end a move, too.
  [[nodiscard]] virtual bool IsMoving() const = 0;
  /// Computes and shows the plan with the waypoint so much (depth units, minutes) from where the move began.
  virtual std::string Move(Single depth, Single minutes) = 0;
  /// Makes the place in force a change of the plan, one step of undo, or brings the plan back.
  virtual void EndMove(bool keep) = 0;

  virtual std::string Remove(std::int16_t row) = 0;
  /// A leg behind the last one, to that depth, up to that run time.
  virtual std::string Add(Single depth, Single runTime) = 0;
};

}  // namespace tav
