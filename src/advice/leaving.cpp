#include "advice/leaving.h"

#include <stdexcept>

#include "compute/breathed_gas.h"
#include "compute/plan_cut.h"
#include "model/template_faults.h"
#include "model/text_id.h"

namespace tav {
namespace {

std::optional<WayOut> WayOutBy(WaysUp& ways, std::int16_t row, std::optional<Single> time) {
  std::optional<ClassProfile> way;
  try {
    way = time ? ways.FromWithin(row, *time) : ways.From(row, 0);
  } catch (const std::length_error&) {
    // Steps so small that no table of rows holds them.
    return std::nullopt;
  }
  if (!way) return std::nullopt;
  WayOut out{way->GetRunTime(way->GetLength()) - way->GetRunTime(0), GasTotals(*way), {}};
  for (std::int16_t i = 0; i <= way->GetLength(); ++i) out.places.push_back({way->GetRunTime(i), way->getDepth(i)});
  std::erase_if(out.gas, [](const GasTotal& gas) { return gas.total <= 0; });
  return out;
}

}  // namespace

Leaving::Leaving(const PlannedDive& dive)
    : rows_(dive.plan.rows),
      computed_(dive.plan.fault.IsEmpty() && TemplateFaults(dive.record.Template).empty()),
      openFrom_(FirstOpenRow(rows_, dive.record.Template)),
      open_{dive.record.Template, dive.plan.model, dive.before, dive.record.SurfaceInterval, false, true, openFrom_},
      loop_{dive.record.Template, dive.plan.model, dive.before, dive.record.SurfaceInterval} {}

Surfacing Leaving::From(std::int16_t row, std::optional<Single> time) {
  Surfacing surfacing;
  if (!computed_) return surfacing;
  surfacing.onLoop = row < openFrom_ && !open_.settings.OpenCircuit;
  if ((time ? CreateNewWay(rows_, *time, row) : rows_.getDepth(row)) <= 0) {
    surfacing.open = WayOut();
    if (surfacing.onLoop) surfacing.loop = WayOut();
    return surfacing;
  }
  const auto before = static_cast<std::int16_t>(time ? row - 1 : row);
  if (!openWays_ || before < loaded_) {
    openWays_.emplace(open_, rows_);
    loopWays_.emplace(loop_, rows_);
  }
  loaded_ = before;
  surfacing.open = WayOutBy(*openWays_, row, time);
  if (surfacing.onLoop) surfacing.loop = WayOutBy(*loopWays_, row, time);
  return surfacing;
}

Surfacing Leaving::AtEndOf(std::int16_t row) { return From(row, std::nullopt); }

Surfacing Leaving::At(Single time) {
  std::int16_t row = 0;
  while (row < rows_.GetLength() && rows_.GetRunTime(row) < time) ++row;
  const bool within = row > 0 && time < rows_.GetRunTime(row);
  return From(row, within ? std::optional(time) : std::nullopt);
}

std::vector<Surfacing> SurfacingOfRows(const PlannedDive& dive) {
  Leaving leaving(dive);
  std::vector<Surfacing> surfacing;
  for (int i = 0; i <= dive.plan.rows.GetLength(); ++i) {
    surfacing.push_back(leaving.AtEndOf(static_cast<std::int16_t>(i)));
  }
  return surfacing;
}

std::string TextOf(const std::vector<GasTotal>& gases, const AdviceWords& words, std::string_view between) {
  std::string text;
  for (const GasTotal& gas : gases) {
    if (!text.empty()) text += between;
    text += gas.Name + " " + words.Volume(gas.total);
  }
  return text;
}

std::string TextOf(const Surfacing& surfacing, const AdviceWords& words) {
  const auto line = [&](int title, const std::optional<WayOut>& way) {
    const std::string minutes =
        way ? words.Short(way->minutes) + " " + words.T(Text::Minutes) : words.T(Text::LeavingEndless);
    return words.T(title) + ": " + minutes;
  };
  std::string text;
  if (surfacing.onLoop) text = line(Text::LeavingOnLoop, surfacing.loop) + "\n";
  text += line(surfacing.onLoop ? Text::LeavingOpen : Text::LeavingNow, surfacing.open);
  if (surfacing.open && !surfacing.open->gas.empty()) text += "\n  " + TextOf(surfacing.open->gas, words, "\n  ");
  return text;
}

}  // namespace tav
