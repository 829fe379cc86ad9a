#include "model/user_actions.h"

#include <stdexcept>

namespace tav {

void ClassUseractions::setuser(std::int16_t index, Single depth, Single time, std::int16_t mix) {
  At(index) = {time, depth, mix, kLeg};
}

void ClassUseractions::setdeco(std::int16_t index) {
  Action& action = At(index);
  action.time = -1.0;
  action.depth = -1.0;
  action.action = kAscent;
}

Single ClassUseractions::DeleteLast() {
  if (GetLength() < 1) return 0;
  actions_.pop_back();
  return actions_.back().time;
}

void ClassUseractions::NewAction() {
  if (GetLength() == INT16_MAX) throw std::length_error("a plan holds at most 32,767 actions");
  actions_.emplace_back();
}

}  // namespace tav
