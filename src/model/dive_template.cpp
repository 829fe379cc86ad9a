#include "model/dive_template.h"

#include <algorithm>
#include <unordered_map>

#include "model/number_text.h"

namespace tav {

GasMix AirMix() { return {"Air", 21, 79, 0}; }

void CopyDiveTemplate(const DiveTemplate& source, DiveTemplate& destination) { destination = source; }

void SetUpNewPlan(DiveTemplate& diveTemplate) {
  diveTemplate.KeepsDiluent = true;
  diveTemplate.IntervalOnAir = true;
}

void SetCircuit(DiveTemplate& diveTemplate, bool openCircuit) {
  if (diveTemplate.OpenCircuit != openCircuit && diveTemplate.Team) {
    const SupplyChoice was = *diveTemplate.Team;
    const bool cameSo = diveTemplate.KeptTeam == was.team;
    if (!cameSo) diveTemplate.Team = ForCircuit(was, openCircuit);
    // A lone diver on open circuit comes back as one, though on the loop he is the usual team.
    const bool comesBack = ForCircuit(*diveTemplate.Team, !openCircuit) == was;
    diveTemplate.KeptTeam = cameSo || comesBack ? std::nullopt : std::optional(was.team);
  }
  if (!diveTemplate.OpenCircuit && openCircuit) diveTemplate.WasOnLoop = true;
  diveTemplate.OpenCircuit = openCircuit;
}

std::optional<std::int16_t> FindBlend(std::string_view name, const DiveTemplate& diveTemplate) {
  const auto& blends = diveTemplate.Blends;
  const auto found = std::find_if(blends.begin(), blends.end(), [&](const GasMix& mix) { return mix.Name == name; });
  if (found == blends.end()) return std::nullopt;
  return static_cast<std::int16_t>(found - blends.begin());
}

std::int16_t FindBlendIndex(std::string_view name, const DiveTemplate& diveTemplate) {
  return FindBlend(name, diveTemplate).value_or(0);
}

std::string BlendNameFault(std::string_view name) {
  if (TrimBlanks(name).empty()) return "a gas needs a name";
  if (TrimBlanks(name) != name) return "the name of a gas must not begin or end with a blank";
  if (name.find_first_of(":,\r\n") != std::string_view::npos) {
    return R"(the name of a gas must not hold ":", "," or a line break)";
  }
  return {};
}

std::vector<std::string> ResolveGasChanges(DiveTemplate& diveTemplate) {
  const auto sevenDigits = [](Single value) { return Single(ParseLenient(FormatPlain(value))); };
  std::unordered_map<std::string_view, const GasMix*> blendOf;
  for (const GasMix& blend : diveTemplate.Blends) blendOf[blend.Name] = &blend;
  std::vector<std::string> unknown;
  for (GasChange& change : diveTemplate.ChangeGasMixes) {
    const auto blend = blendOf.find(change.Name);
    if (blend == blendOf.end()) {
      unknown.push_back(change.Name);
      continue;
    }
    change.He = sevenDigits(blend->second->He);
    change.N2 = sevenDigits(blend->second->N2);
    change.O2 = sevenDigits(blend->second->O2);
  }
  return unknown;
}

}  // namespace tav
