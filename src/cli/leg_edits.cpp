#include "cli/leg_edits.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "cli/edit_words.h"
#include "cli/option_values.h"
#include "model/template_faults.h"
#include "model/text_id.h"

namespace tav {
namespace {

constexpr int kMostActions = INT16_MAX;

/// The actions of a dive while they are changed; their numbers stay those from before.
class LegList {
 public:
  explicit LegList(DiveRecord& dive) : dive_(dive) {
    const ClassUseractions& actions = dive.UserActions;
    for (std::int16_t i = 1; i <= actions.GetLength() && i > 0; ++i) {
      entries_.push_back({i, actions.getDepth(i), actions.gettime(i), actions.getmixnumber(i), !IsLeg(i, actions)});
    }
  }

  void Remove(const std::string& text) { Action(text, "--remove-leg", text).removed = true; }

  void Alter(const std::string& text) {
    const auto [number, leg] = Parted(text, '=', "--leg", kForm);
    Entry& entry = Leg(number, "--leg", text);
    const Entry typed = Typed(leg, "--leg", entry.mix);
    entry.depth = typed.depth;
    entry.time = typed.time;
    entry.mix = typed.mix;
  }

  void Insert(const std::string& text) {
    const auto [number, leg] = Parted(text, '=', "--insert-leg", kForm);
    const int place = WholeNumberOf(number, "--insert-leg", 1, kMostActions);
    const auto at = std::ranges::find(entries_, place, &Entry::number);
    const bool behind = at == entries_.end();
    if (behind && place != dive_.UserActions.GetLength() + 1)
      throw OptionError("--insert-leg " + text, {Text::MarginsNoSuchLeg, {number}});
    Put(leg, "--insert-leg", behind ? End() : at);
  }

  void Add(const std::string& text) { Put(text, "--add-leg", End()); }

  /// To the place of another, or of an ascent but the final one, with those between one place on.
  void Move(const std::string& text) {
    const auto [from, to] = Parted(text, '=', "--move-leg", "N=M");
    const Entry& leg = Leg(from, "--move-leg", text);
    const Entry& other = Action(to, "--move-leg", text);
    const auto first = entries_.begin() + (&leg - entries_.data());
    const auto last = entries_.begin() + (&other - entries_.data());
    first < last ? std::rotate(first, first + 1, last + 1) : std::rotate(last, first, first + 1);
  }

  /// Ascents go on with the gas of the leg before.
  void Store() {
    ClassUseractions& actions = dive_.UserActions;
    actions.clear();
    for (const Entry& entry : entries_) {
      if (entry.removed) continue;
      entry.isAscent ? actions.AddAscent() : actions.AddLeg(entry.time, entry.depth, entry.mix);
    }
  }

 private:
  static constexpr const char* kForm = "N=DEPTH:TIME, N=DEPTH:TIME@GAS";

  struct Entry {
    int number = 0;  ///< 0: new
    Single depth;
    Single time;
    std::int16_t mix = 0;
    bool isAscent = false;
    bool removed = false;
  };
  using Place = std::vector<Entry>::iterator;

  /// A leg, or an ascent but the final one.
  Entry& Action(const std::string& number, const char* option, const std::string& text) {
    const auto found = std::ranges::find(entries_, WholeNumberOf(number, option, 1, kMostActions), &Entry::number);
    if (found != End() && found != entries_.end() && !found->removed) return *found;
    throw OptionError(option + (" " + text), {Text::MarginsNoSuchLeg, {number}});
  }

  Entry& Leg(const std::string& number, const char* option, const std::string& text) {
    Entry& found = Action(number, option, text);
    if (found.isAscent) throw OptionError(option + (" " + text), {Text::MarginsNoSuchLeg, {number}});
    return found;
  }

  Entry Typed(const std::string& text, const std::string& option, std::int16_t usual) {
    const TypedLeg leg = LegOf(text, option);
    const std::int16_t mix = leg.gas.empty() ? usual : MixNumber(leg.gas, dive_.Template);
    const Message fault = LegFault(leg.time, leg.depth, mix, dive_.Template);
    if (!fault.IsEmpty()) throw OptionError(fault);
    return {0, leg.depth, leg.time, mix};
  }

  /// Behind the last leg, ahead of the final ascent.
  Place End() { return !entries_.empty() && entries_.back().isAscent ? entries_.end() - 1 : entries_.end(); }

  void Put(const std::string& text, const std::string& option, Place at) {
    if (std::ranges::count(entries_, false, &Entry::removed) >= kMostActions) throw OptionError(Text::TooManyActions);
    const auto isLeg = [](const Entry& entry) { return !entry.isAscent && !entry.removed; };
    // The gas of the leg before, or of the one that was the first.
    const auto before = std::find_if(std::make_reverse_iterator(at), entries_.rend(), isLeg);
    const auto behind = std::find_if(at, entries_.end(), isLeg);
    const std::int16_t usual = before != entries_.rend() ? before->mix : behind != entries_.end() ? behind->mix : 0;
    entries_.insert(at, Typed(text, option, usual));
  }

  DiveRecord& dive_;
  std::vector<Entry> entries_;
};

}  // namespace

void EditLegs(const PlanEdits& edits, DiveRecord& dive) {
  const std::pair<const std::vector<std::string>*, void (LegList::*)(const std::string&)> steps[] = {
      {&edits.removedLegs, &LegList::Remove},  {&edits.legs, &LegList::Alter},
      {&edits.insertedLegs, &LegList::Insert}, {&edits.addedLegs, &LegList::Add},
      {&edits.movedLegs, &LegList::Move},
  };
  if (std::ranges::all_of(steps, [](const auto& step) { return step.first->empty(); })) return;
  LegList legs(dive);
  for (const auto& [texts, step] : steps) {
    for (const std::string& text : *texts) (legs.*step)(text);
  }
  legs.Store();
}

}  // namespace tav
