#include "cli/gas_edits.h"

#include <algorithm>
#include <string>
#include <utility>

#include "cli/edit_words.h"
#include "cli/option_values.h"
#include "model/gas_name.h"
#include "model/template_faults.h"
#include "model/text_id.h"

namespace tav {
namespace {

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

}  // namespace

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

void EditGases(const PlanEdits& edits, DiveRecord& dive) {
  DiveTemplate& settings = dive.Template;
  for (const std::string& gas : edits.gases) PutGas(gas, settings);
  for (const std::string& names : edits.renamedGases) RenameGas(names, settings);
  for (const std::string& gas : edits.removedGases) RemoveGas(gas, dive);
  if (edits.noChanges || !edits.changes.empty()) PutChanges(edits.changes, settings);
  for (const std::string& gas : edits.endedChanges) EndChanges(gas, settings);
  for (const std::string& text : edits.depths) PutDepth(text, settings);
}

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

}  // namespace tav
