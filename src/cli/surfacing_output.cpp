#include "cli/surfacing_output.h"

#include <algorithm>
#include <sstream>

#include "cli/row_columns.h"
#include "model/text_columns.h"
#include "model/text_id.h"
#include "model/utf8.h"

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

std::string WithSurfacing(const ScheduleText& schedule, const std::vector<Surfacing>& surfacing,
                          const AdviceWords& words) {
  using Side = TextColumns::Column::Side;
  const bool rebreather = std::ranges::any_of(surfacing, &Surfacing::onLoop);
  const auto minutes = [&](const std::optional<WayOut>& way) {
    return way ? words.Short(way->minutes) : words.T(Text::HeadNever);
  };
  const std::string unit = words.T(Text::Minutes);
  std::vector<std::vector<std::string>> cells{
      {words.T(Text::HeadOnLoop), words.T(rebreather ? Text::HeadOnOpenCircuit : Text::HeadToSurface),
       words.T(Text::HeadWayUpGas)},
      {unit, unit, ""}};
  for (const ScheduleRow& row : schedule.Rows()) {
    const Surfacing& from = surfacing.at(static_cast<std::size_t>(row.row));
    cells.push_back({from.onLoop ? minutes(from.loop) : "", minutes(from.open),
                     from.open ? TextOf(from.open->gas, words) : std::string()});
  }
  std::vector<TextColumns::Column> columns{{Side::Right, 0, 3}, {Side::Right, 0, 3}, {Side::Left, 0, 2}};
  if (!rebreather) {
    columns.erase(columns.begin());
    for (std::vector<std::string>& line : cells) line.erase(line.begin());
  }
  TextColumns beside(std::move(columns));
  for (const std::vector<std::string>& line : cells) beside.Fit(line);

  std::vector<std::string> lines;
  std::istringstream in(schedule.Aligned());
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  std::size_t width = 0;
  for (const std::string& line : lines) width = std::max(width, Letters(line));
  std::string text;
  for (std::size_t i = 0; i < lines.size(); ++i) text += AtLeft(lines[i], width) + beside.Line(cells.at(i));
  return text;
}

}  // namespace tav
