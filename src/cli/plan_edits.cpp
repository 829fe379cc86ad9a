#include "cli/plan_edits.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <utility>

#include "cli/option_values.h"
#include "model/altitude.h"
#include "model/gas_name.h"
#include "model/number_text.h"
#include "model/template_faults.h"
#include "model/text_id.h"
#include "persist/profile_file.h"
#include "persist/template_fields.h"
#include "supply/cylinder_sets.h"

namespace tav {
namespace {

constexpr int kMostActions = INT16_MAX;

struct Pair {
  std::string before;
  std::string behind;
};

/// The two sides of the first `sign`, neither of them empty.
Pair Parted(const std::string& text, char sign, const char* option, const char* form) {
  const std::size_t at = text.find(sign);
  if (at == std::string::npos || at == 0 || at + 1 == text.size())
    throw OptionError({Text::OptionMustBe, {option, text, form}});
  return {text.substr(0, at), text.substr(at + 1)};
}

bool IsLeg(std::int16_t action, const ClassUseractions& actions) {
  return actions.getaction(action) == ClassUseractions::kLeg;
}

bool HasLegs(const ClassUseractions& actions) {
  for (std::int16_t i = 1; i <= actions.GetLength() && i > 0; ++i) {
    if (IsLeg(i, actions)) return true;
  }
  return false;
}

/// The legs breathe the gases of the names that they had in the list `before`.
void KeepGasesOfLegs(const std::vector<GasMix>& before, DiveRecord& dive) {
  ClassUseractions& actions = dive.UserActions;
  const std::vector<GasMix>& now = dive.Template.Blends;
  for (std::int16_t i = 1; i <= actions.GetLength() && i > 0; ++i) {
    const auto old = static_cast<std::size_t>(actions.getmixnumber(i));
    const std::string& name = before[old].Name;
    if (old < now.size() && now[old].Name == name) continue;
    const bool isLeg = IsLeg(i, actions);
    const auto mix = FindBlend(name, dive.Template);
    if (isLeg && !mix) throw OptionError({Text::EditGasBreathed, {name}});
    actions.setuser(i, actions.getDepth(i), actions.gettime(i),
                    mix.value_or(actions.getmixnumber(static_cast<std::int16_t>(i - 1))));
    if (!isLeg) actions.setdeco(i);
  }
}

/// The list of gases, for words.
std::string NamesOf(const std::vector<GasMix>& gases) {
  std::string names;
  for (const GasMix& gas : gases) names += (names.empty() ? "" : ", ") + gas.Name;
  return names;
}

/// The place of a gas that is not Air.
std::size_t GasToAlter(const std::string& name, const std::string& option, const DiveTemplate& settings) {
  const auto mix = FindBlend(name, settings);
  if (!mix) throw OptionError({Text::UsageNoneOf, {option, name, NamesOf(settings.Blends)}});
  if (*mix == 0) throw OptionError(option, Text::EditAirStays);
  return static_cast<std::size_t>(*mix);
}

// Settings

/// "Name" of "# Name=value"; empty for another line.
std::string NameOf(std::string_view line) {
  const std::size_t equals = line.find('=');
  const bool isNamed = line.starts_with("# ") && equals != std::string_view::npos;
  return isNamed ? std::string(TrimBlanks(line.substr(2, equals - 2))) : std::string();
}

/// Of "# Name=".
bool TakesAway(const std::string& line) {
  return !NameOf(line).empty() && line.find('=') == line.find_last_not_of(' ');
}

/// Writes the settings and reads them again without the comment lines of these names.
void TakeAway(const std::set<std::string>& names, DiveTemplate& settings) {
  const std::string block = WriteTemplateBlock(settings);
  std::string kept;
  LineReader each(block);
  while (const auto line = each.Next()) {
    if (!names.contains(NameOf(*line))) kept.append(*line).append("\n");
  }
  DiveTemplate read;
  FormatFaults faults("", FormatFaults::Mode::Collect);  // which the whole plan is asked for in the end
  LineReader lines(kept);
  ReadDiveBlock(read, lines, faults);
  read.TemplateFolder = settings.TemplateFolder;
  settings = std::move(read);
}

/// What can't stand as one line of a block, or would end it.
bool IsLine(const std::string& line) {
  const std::size_t equals = line.find('=');
  if (equals == std::string::npos || line.find_first_of("\r\n") != std::string::npos) return false;
  const bool isComment = line.starts_with('#');
  if (isComment ? NameOf(line).empty() : TrimBlanks(std::string_view(line).substr(0, equals)).empty()) return false;
  return !IsMarker(std::string_view(line).substr(equals + 1), kEndOfBlock);
}

/// Takes out the lines that a later one of their name stands in place of. Cylinders are told in a line each.
void KeepLast(std::vector<std::string>& lines) {
  std::set<std::string> met;
  std::vector<std::string> kept;
  for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
    const std::string name = NameOf(*line);
    if (met.contains(name)) continue;
    if (!name.empty() && (name != "Cylinder" || TakesAway(*line))) met.insert(name);
    kept.push_back(*line);
  }
  lines.assign(kept.rbegin(), kept.rend());
}

void Set(std::vector<std::string> lines, DiveRecord& dive) {
  for (const std::string& line : lines) {
    if (!IsLine(line)) throw OptionError({Text::OptionMustBe, {"--set", line, "KEY=VALUE, # NAME=VALUE"}});
    // Kept in files, but nothing reads it.
    if (TrimBlanks(std::string_view(line).substr(0, line.find('='))) == "CeilingOverride")
      throw OptionError({Text::UsageNotExpected, {"--set " + line}});
  }
  KeepLast(lines);
  std::set<std::string> takenAway;
  for (const std::string& line : lines) {
    // Further on there may be cylinders.
    if (TakesAway(line) && std::ranges::count(lines, NameOf(line), NameOf) == 1) takenAway.insert(NameOf(line));
  }
  std::erase_if(lines, TakesAway);
  // A gas change names one of the list, which must be read by then.
  std::stable_partition(lines.begin(), lines.end(), [](const std::string& line) {
    return TrimBlanks(std::string_view(line).substr(0, line.find('='))) == kBlendsKey;
  });
  std::string block(kStartOfBlock);
  for (const std::string& line : lines) block += "\n" + line;
  (block += "\n").append(kEndOfBlock);

  DiveTemplate& settings = dive.Template;
  const std::vector<GasMix> before = settings.Blends;
  const Single decoRMV = settings.DecoRMV;
  FormatFaults faults("", FormatFaults::Mode::Collect);
  LineReader reader(block);
  KeyLines told = ReadTemplateBlock(settings, reader, faults);
  // A block of all keys but one of these is a file that says so by leaving it out; lines typed say nothing of it.
  if (told[std::string(kBlendsKey)].empty()) settings.Blends = before;
  if (told[std::string(kDecoRMV)].empty()) settings.DecoRMV = decoRMV;
  // What a file may hold all the same is a slip where it was typed just now.
  for (const FormatFault& fault : faults.List()) {
    if (fault.text.text == Text::KeyFactorsSwapped) continue;
    const auto line = static_cast<std::size_t>(fault.line) - 2;  // behind the start of the block
    const std::string option = line < lines.size() ? "--set " + lines[line] : "--set";
    if (fault.text.text == Text::KeyUnknown) throw OptionError({Text::UsageNotExpected, {option}});
    const bool isPassedOver = fault.text.text == Text::PassedOver;
    throw OptionError(option, isPassedOver ? fault.text.values.front() : fault.text);
  }
  for (const Cylinder& cylinder : settings.Cylinders) {
    const bool was = std::ranges::find(before, cylinder.Gas, &GasMix::Name) != before.end();
    if (was && !FindBlend(cylinder.Gas, settings)) throw OptionError({Text::EditGasBreathed, {cylinder.Gas}});
  }
  KeepGasesOfLegs(before, dive);
  if (!takenAway.empty()) TakeAway(takenAway, settings);
}

// Gases

/// NAME, or NAME:O2/HE for one whose name does not tell it.
void PutGas(const std::string& text, DiveTemplate& settings) {
  const std::size_t colon = text.find(':');
  if (colon == std::string::npos) {
    MixNumber(text, settings);
    return;
  }
  const auto [name, shares] = Parted(text, ':', "--gas", "NAME, NAME:O2/HE");
  const auto [oxygen, helium] = Parted(shares, '/', "--gas", "NAME, NAME:O2/HE");
  const std::string told = "--gas " + text;
  const Single O2 = NumberOf(oxygen, told, 0, 100);
  const Single He = NumberOf(helium, told, 0, 100);
  if (O2 + He > 100) throw OptionError({Text::OptionMoreThanWhole, {"--gas", text}});
  const GasMix mix{name, O2, 100 - O2 - He, He};
  if (FindBlend(name, settings)) {
    settings.Blends[GasToAlter(name, told, settings)] = mix;
    return;
  }
  if (!BlendNameFault(name).empty()) throw OptionError(told, Text::GasNameFault);
  if (GasNamed(name, settings.Blends)) throw OptionError(told, Text::GasNameTaken);
  settings.Blends.push_back(mix);
}

void RenameGas(const std::string& text, DiveTemplate& settings) {
  auto [old, name] = Parted(text, '=', "--rename-gas", "OLD=NEW");
  // A name may hold the sign itself.
  for (const GasMix& gas : settings.Blends) {
    const std::size_t length = gas.Name.size();
    if (length <= old.size() || length + 1 >= text.size() || !text.starts_with(gas.Name + "=")) continue;
    old = gas.Name;
    name = text.substr(length + 1);
  }
  const std::string told = "--rename-gas " + text;
  const std::size_t mix = GasToAlter(old, "--rename-gas", settings);
  if (!BlendNameFault(name).empty()) throw OptionError(told, Text::GasNameFault);
  const auto known = GasNamed(name, settings.Blends);
  // The same in other letters is no other gas.
  if (known && static_cast<std::size_t>(*known) != mix) throw OptionError(told, Text::GasNameTaken);
  settings.Blends[mix].Name = name;
  for (GasChange& change : settings.ChangeGasMixes) {
    if (change.Name == old) change.Name = name;
  }
  for (Cylinder& cylinder : settings.Cylinders) {
    if (cylinder.Gas == old) cylinder.Gas = name;
  }
}

void RemoveGas(const std::string& name, DiveRecord& dive) {
  const std::size_t mix = GasToAlter(name, "--remove-gas", dive.Template);
  if (HasUse(mix, dive)) throw OptionError("--remove-gas", {Text::EditGasBreathed, {name}});
  const std::vector<GasMix> before = dive.Template.Blends;
  dive.Template.Blends.erase(dive.Template.Blends.begin() + static_cast<std::ptrdiff_t>(mix));
  KeepGasesOfLegs(before, dive);
}

/// The name of a gas in the list, which takes in one that only its name tells.
std::string KnownName(const std::string& typed, DiveTemplate& settings) {
  return settings.Blends[static_cast<std::size_t>(MixNumber(typed, settings))].Name;
}

/// The ascent takes the first gas of the list whose depth is that of the diver or deeper: the shallower stands first.
/// An entry whose place fits its new depth keeps it, and the others keep their order.
void PutDepth(const std::string& text, DiveTemplate& settings) {
  const std::size_t at = text.rfind('=');
  if (at == std::string::npos || at == 0 || at + 1 == text.size())
    throw OptionError({Text::OptionMustBe, {"--from", text, "GAS=DEPTH"}});
  const Single depth = NumberOf(text.substr(at + 1), "--from " + text, 0, kMaximumDepth);
  std::vector<GasChange>& changes = settings.ChangeGasMixes;
  GasChange change{KnownName(text.substr(0, at), settings), 0, 0, 0, depth};
  // Of several the deepest, from which the gas is breathed.
  auto place = changes.end();
  for (auto each = changes.begin(); each != changes.end(); ++each) {
    if (each->Name == change.Name && (place == changes.end() || each->Depth > place->Depth)) place = each;
  }
  if (place != changes.end()) {
    settings.AutoDecoGas = false;
    const bool fits = (place == changes.begin() || (place - 1)->Depth <= depth) &&
                      (place + 1 == changes.end() || (place + 1)->Depth >= depth);
    if (fits || place->Depth == depth) {
      place->Depth = depth;
      return;
    }
    changes.erase(place);
  }
  const auto deeper = std::ranges::find_if(changes, [&](const GasChange& other) { return other.Depth > depth; });
  changes.insert(deeper, std::move(change));
}

void EndChanges(const std::string& typed, DiveTemplate& settings) {
  std::vector<GasChange>& changes = settings.ChangeGasMixes;
  const auto known = GasNamed(typed, settings.Blends);
  const bool isEntry = std::ranges::find(changes, typed, &GasChange::Name) != changes.end();
  const std::string name = known && !isEntry ? settings.Blends[static_cast<std::size_t>(*known)].Name : typed;
  std::string names;
  for (const GasChange& change : changes) names += (names.empty() ? "" : ", ") + change.Name;
  const auto ended = std::erase_if(changes, [&](const GasChange& change) { return change.Name == name; });
  if (ended == 0) throw OptionError({Text::UsageNoneOf, {"--not-from", typed, names}});
}

void PutChanges(const std::vector<std::string>& texts, DiveTemplate& settings) {
  settings.ChangeGasMixes.clear();
  for (const std::string& text : texts) {
    const auto [depth, gas] = Parted(text, ':', "--change", "DEPTH:GAS");
    const Single from = NumberOf(depth, "--change " + text, 0, kMaximumDepth);
    settings.ChangeGasMixes.push_back({KnownName(gas, settings), 0, 0, 0, from});
  }
  // The ascent takes the first gas of the list whose depth is that of the diver or deeper.
  std::ranges::stable_sort(settings.ChangeGasMixes, [](const auto& a, const auto& b) { return a.Depth < b.Depth; });
}

void PutCylinders(const std::vector<std::string>& texts, DiveTemplate& settings) {
  settings.Cylinders.clear();
  for (const std::string& text : texts) {
    Cylinder cylinder = CylinderOf(text, settings);
    settings.Cylinders.push_back(std::move(cylinder));
  }
}

std::size_t CylinderPlace(const std::string& number, const std::string& told, const DiveTemplate& settings) {
  const int place = WholeNumberOf(number, told, 1, INT16_MAX);
  if (static_cast<std::size_t>(place) > settings.Cylinders.size())
    throw OptionError(told, {Text::EditNoCylinder, {number}});
  return static_cast<std::size_t>(place) - 1;
}

void PutPart(Cylinder& cylinder, const std::string& part, const std::string& value, const std::string& told,
             DiveTemplate& settings) {
  if (part == "count") {
    cylinder.Count = static_cast<std::int16_t>(WholeNumberOf(value, told, 1, kMostCylinders));
  } else if (part == "size") {
    cylinder.Size = NumberOf(value, told);
  } else if (part == "rated") {
    if (cylinder.InLitres()) throw OptionError(told, Text::EditCylinderInLitres);
    cylinder.RatedPressure = NumberOf(value, told);
    if (!(cylinder.RatedPressure > 0)) throw OptionError(told, Text::CylinderNoRated);
  } else if (part == "fill") {
    cylinder.Fill = NumberOf(value, told);
  } else if (part == "reserve") {
    cylinder.Reserve = NumberOf(value, told);
  } else if (part == "gas") {
    cylinder.Gas = KnownName(value, settings);
  } else {
    throw OptionError({Text::UsageNoneOf, {"--alter-cylinder", part, "count, size, rated, fill, reserve, gas"}});
  }
}

/// Numbers of cylinders stay those from before. Parts may need each other: a reserve and a fill above it.
void EditCylinders(const PlanEdits& edits, DiveTemplate& settings) {
  std::map<std::size_t, std::string> altered;
  for (const std::string& text : edits.cylinderParts) {
    constexpr const char* kForm = "N:PART=VALUE";
    const auto [number, setting] = Parted(text, ':', "--alter-cylinder", kForm);
    const auto [part, value] = Parted(setting, '=', "--alter-cylinder", kForm);
    const std::string told = "--alter-cylinder " + text;
    const std::size_t place = CylinderPlace(number, told, settings);
    PutPart(settings.Cylinders[place], part, value, told, settings);
    altered[place] = told;
  }
  for (const auto& [place, told] : altered) {
    const Message fault = CylinderFault(settings.Cylinders[place]);
    if (!fault.IsEmpty()) throw OptionError(told, fault);
  }
  std::set<std::size_t, std::greater<>> removed;
  for (const std::string& number : edits.removedCylinders)
    removed.insert(CylinderPlace(number, "--remove-cylinder", settings));
  for (const std::size_t place : removed)
    settings.Cylinders.erase(settings.Cylinders.begin() + static_cast<std::ptrdiff_t>(place));
  for (const std::string& gas : edits.addedCylinders) {
    const UsualCylinder& usual = UsualCylinders()[UsualCylinderOf(settings.Metric)];
    settings.Cylinders.push_back(usual.With(KnownName(gas, settings)));
  }
}

// Legs

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

// Dives

/// The settings, gases and cylinders of the last dive once more, and an ascent.
void AddDive(const std::string& minutes, std::vector<DiveRecord>& dives) {
  DiveRecord dive;
  dive.Template = dives.back().Template;
  dive.Template.Texts = {};  // a series has them in its first dive
  dive.SurfaceInterval = NumberOf(minutes, "--add-dive", 0, kMaximumSurfaceInterval);
  dive.UserActions.AddAscent();
  dives.push_back(std::move(dive));
}

void RemoveDive(std::size_t dive, std::vector<DiveRecord>& dives) {
  if (dives.size() == 1) throw OptionError("--remove-dive", Text::EditOnlyDive);
  if (dive == 0) {
    // A series has them in its first dive.
    if (dives[1].Template.Texts == PlanTexts()) dives[1].Template.Texts = dives[0].Template.Texts;
    dives[1].SurfaceInterval = 0;
  }
  dives.erase(dives.begin() + static_cast<std::ptrdiff_t>(dive));
}

void ChangeCircuit(const std::string& circuit, DiveTemplate& settings) {
  const bool open = circuit == kOpenCircuit;
  if (!open && circuit != kClosedCircuit) {
    const std::string words = std::string(kOpenCircuit) + ", " + kClosedCircuit;
    throw OptionError({Text::UsageNoneOf, {"--circuit", circuit, words}});
  }
  SetCircuit(settings, open);
}

void PutAltitude(const std::string& text, const char* option, void (*set)(DiveTemplate&, Single),
                 DiveTemplate& settings) {
  if (text.empty()) return;
  const std::string told = option + (" " + text);
  set(settings, NumberOf(text, told));
  for (const TemplateFault& fault : TemplateFaults(settings)) {
    if (fault.key.ends_with("Altitude")) throw OptionError(told, fault.text);
  }
}

/// What a loop does can't be told of a dive without one.
void RefuseLinesOfLoop(const std::vector<std::string>& lines) {
  for (const std::string& line : lines) {
    const std::string name = NameOf(line);
    if (name == "Loop" || name == "Surface interval") throw OptionError({Text::EditNoLoop, {"--set " + line}});
  }
}

void EditDive(const PlanEdits& edits, DiveRecord& dive) {
  DiveTemplate& settings = dive.Template;
  if (!edits.circuit.empty()) ChangeCircuit(edits.circuit, settings);
  if (!edits.settings.empty()) Set(edits.settings, dive);
  if (settings.OpenCircuit) RefuseLinesOfLoop(edits.settings);
  PutAltitude(edits.altitude, "--altitude", SetAltitude, settings);
  PutAltitude(edits.endAltitude, "--end-altitude", SetEndAltitude, settings);
  for (const std::string& gas : edits.gases) PutGas(gas, settings);
  for (const std::string& names : edits.renamedGases) RenameGas(names, settings);
  for (const std::string& gas : edits.removedGases) RemoveGas(gas, dive);
  if (edits.noChanges || !edits.changes.empty()) PutChanges(edits.changes, settings);
  for (const std::string& gas : edits.endedChanges) EndChanges(gas, settings);
  for (const std::string& text : edits.depths) PutDepth(text, settings);
  if (edits.noCylinders || !edits.cylinders.empty()) PutCylinders(edits.cylinders, settings);
  EditCylinders(edits, settings);
  EditLegs(edits, dive);
  ResolveGasChanges(settings);
}

/// Whatever a reader refuses must not come to stand in a file.
void CheckReads(const std::vector<DiveRecord>& dives) {
  FormatFaults faults("", FormatFaults::Mode::Collect);
  ReportSeriesFaults(ReadProfileText(WriteProfileText(dives), faults), faults);
  for (const FormatFault& fault : faults.List()) {
    if (fault.error) throw OptionError(fault.text);
  }
}

}  // namespace

bool HasUse(std::size_t gas, const DiveRecord& dive) {
  const DiveTemplate& settings = dive.Template;
  const std::string& name = settings.Blends.at(gas).Name;
  for (std::int16_t i = 1; i <= dive.UserActions.GetLength() && i > 0; ++i) {
    const auto mix = static_cast<std::size_t>(dive.UserActions.getmixnumber(i));
    if (IsLeg(i, dive.UserActions) && settings.Blends.at(mix).Name == name) return true;
  }
  return std::ranges::find(settings.ChangeGasMixes, name, &GasChange::Name) != settings.ChangeGasMixes.end() ||
         std::ranges::find(settings.Cylinders, name, &Cylinder::Gas) != settings.Cylinders.end();
}

void Edit(const PlanEdits& edits, std::vector<DiveRecord>& dives) {
  std::size_t number = dives.size() - 1;
  if (!edits.dive.empty())
    number = static_cast<std::size_t>(WholeNumberOf(edits.dive, "--dive", 1, static_cast<int>(dives.size()))) - 1;
  if (!edits.addDive.empty()) {
    AddDive(edits.addDive, dives);
    number = dives.size() - 1;
  }
  if (edits.removeDive) {
    RemoveDive(number, dives);
  } else {
    DiveRecord& dive = dives[number];
    const bool needsLegs = HasLegs(dive.UserActions) || !edits.addDive.empty();
    if (!edits.interval.empty()) {
      if (number == 0) throw OptionError({Text::SurfaceTimeOfFirst, {"--interval"}});
      dive.SurfaceInterval = NumberOf(edits.interval, "--interval", 0, kMaximumSurfaceInterval);
    }
    EditDive(edits, dive);
    if (needsLegs && !HasLegs(dive.UserActions)) throw OptionError(Text::NoLegs);
  }
  CheckReads(dives);
}

}  // namespace tav
