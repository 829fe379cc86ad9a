#include "cli/surfacing_output.h"

#include <algorithm>

#include "cli/row_columns.h"
#include "model/text_id.h"

namespace tav {

void WriteSurfacing(JsonWriter& json, const Surfacing& surfacing) {
  json.Object("surfacing", [&] {
    if (!surfacing.open) json.Member("open", std::nullopt);
    if (surfacing.open) {
      json.Object("open", [&] {
        json.Member("time", surfacing.open->minutes);
        json.List("gas", [&] {
          for (const GasTotal& gas : surfacing.open->gas) {
            json.Object([&] {
              json.Member("mix", gas.Name);
              json.Member("volume", gas.total);
            });
          }
        });
      });
    }
    if (!surfacing.loop) return json.Member("loop", std::nullopt);
    json.Object("loop", [&] { json.Member("time", surfacing.loop->minutes); });
  });
}

std::string SurfacingCsvHeads() { return ",surfacing_time,surfacing_gas,surfacing_loop_time"; }

std::string SurfacingCsv(const Surfacing& surfacing) {
  std::string gases;
  if (surfacing.open) {
    for (const GasTotal& gas : surfacing.open->gas) {
      gases += (gases.empty() ? "" : "; ") + gas.Name + " " + FormatPlain(gas.total);
    }
  }
  const auto minutes = [](const std::optional<WayOut>& way) { return way ? FormatPlain(way->minutes) : std::string(); };
  return "," + minutes(surfacing.open) + "," + CsvField(gases) + "," + minutes(surfacing.loop);
}

void AddSurfacing(const ScheduleText& schedule, const std::vector<Surfacing>& surfacing, const AdviceWords& words,
                  ShownOutput::Table& table, std::vector<TextColumns::Column>& columns) {
  using Side = TextColumns::Column::Side;
  const bool rebreather = std::ranges::any_of(surfacing, &Surfacing::onLoop);
  const auto minutes = [&](const std::optional<WayOut>& way) {
    return way ? words.Short(way->minutes) : words.T(Text::HeadNever);
  };
  const auto add = [&](std::vector<std::string>& line, const std::vector<std::string>& cells) {
    line.insert(line.end(), cells.begin() + (rebreather ? 0 : 1), cells.end());
  };
  const std::string unit = words.T(Text::Minutes);
  add(table.heads.at(0),
      {words.T(Text::HeadOnLoop), words.T(rebreather ? Text::HeadOnOpenCircuit : Text::HeadToSurface),
       words.T(Text::HeadWayUpGas)});
  add(table.heads.at(1), {unit, unit, ""});
  for (std::size_t i = 0; i < table.rows.size(); ++i) {
    const Surfacing& from = surfacing.at(static_cast<std::size_t>(schedule.Rows().at(i).row));
    add(table.rows[i].cells, {from.onLoop ? minutes(from.loop) : "", minutes(from.open),
                              from.open ? TextOf(from.open->gas, words) : std::string()});
  }
  columns.resize(columns.size() + (rebreather ? 2 : 1), {Side::Right, 0, 3});
  columns.push_back({Side::Left, 0, 2});
}

}  // namespace tav
