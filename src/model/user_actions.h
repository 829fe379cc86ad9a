#pragma once

#include <cstdint>
#include <vector>

#include "model/single.h"

namespace tav {

/// What the user did to a plan: legs and ascent commands, in order. The plan is rebuilt from this list at every
/// change, and the list is what a profile file stores.
///
/// Entries count from 1; element 0 stands for the state before the dive. A 16-bit index bounds the list: NewAction
/// throws std::length_error beyond 32,767 entries. Every index must be in 0 to GetLength; another one throws
/// std::out_of_range.
class ClassUseractions {
 public:
  static constexpr std::int16_t kLeg = 0;     ///< go to the depth in the time, on the mix
  static constexpr std::int16_t kAscent = 1;  ///< compute the ascent to the surface

  ClassUseractions() { Class_Initialize(); }
  void Class_Initialize() { clear(); }

  [[nodiscard]] std::int16_t getaction(std::int16_t index) const { return At(index).action; }
  [[nodiscard]] std::int16_t getmixnumber(std::int16_t index) const { return At(index).mix; }
  [[nodiscard]] Single gettime(std::int16_t index) const { return At(index).time; }
  [[nodiscard]] Single getDepth(std::int16_t index) const { return At(index).depth; }

  /// A leg: depth in depth units, time in minutes, mix number.
  void setuser(std::int16_t index, Single depth, Single time, std::int16_t mix);
  /// An ascent command: time and depth become -1; the mix stays.
  void setdeco(std::int16_t index);
  /// Appends a leg.
  void AddLeg(Single time, Single depth, std::int16_t mix) {
    NewAction();
    setuser(GetLength(), depth, time, mix);
  }
  /// Appends an ascent command, on the gas of the last entry.
  void AddAscent() {
    const std::int16_t mix = getmixnumber(GetLength());
    AddLeg(-1, -1, mix);
    setdeco(GetLength());
  }
  /// Drops the last entry and returns the time of the one that is last now; 0 on an empty list.
  Single DeleteLast();
  void NewAction();
  /// Back to a fresh element 0.
  void clear() { actions_.assign(1, {}); }
  [[nodiscard]] std::int16_t GetLength() const { return static_cast<std::int16_t>(actions_.size() - 1); }

  friend bool operator==(const ClassUseractions&, const ClassUseractions&) = default;

 private:
  struct Action {
    Single time;
    Single depth;
    std::int16_t mix = 0;
    std::int16_t action = kLeg;

    friend bool operator==(const Action& a, const Action& b) {
      return a.time == b.time && a.depth == b.depth && a.mix == b.mix && a.action == b.action;
    }
  };

  [[nodiscard]] const Action& At(std::int16_t index) const { return actions_.at(static_cast<std::size_t>(index)); }
  Action& At(std::int16_t index) { return actions_.at(static_cast<std::size_t>(index)); }

  std::vector<Action> actions_;
};

}  // namespace tav
