#include "cli/cylinder_edits.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "cli/edit_words.h"
#include "cli/option_values.h"
#include "model/text_id.h"
#include "supply/cylinder_sets.h"

namespace tav {
namespace {

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

}  // namespace

// Parts may need each other: a reserve and a fill above it.
void EditCylinders(const PlanEdits& edits, DiveTemplate& settings) {
  if (edits.noCylinders || !edits.cylinders.empty()) PutCylinders(edits.cylinders, settings);
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

}  // namespace tav
