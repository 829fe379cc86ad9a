#include "cli/plan_json.h"

#include <ostream>
#include <variant>

#include "cli/gas_edits.h"
#include "cli/json_writer.h"
#include "model/number_text.h"
#include "persist/template_block.h"
#include "persist/template_fields.h"

namespace tav {
namespace {

/// As the block tells them, each of which --set takes. Gases and cylinders have lists of their own.
void WriteSettings(JsonWriter& json, const DiveTemplate& settings) {
  json.Object("settings", [&] {
    for (const BlockValue& setting : BlockValues(settings)) {
      if (setting.key != kBlendsKey && setting.key != "# Cylinder") json.Member(setting.key, setting.value);
    }
    json.Member("AutoDecoGas", settings.AutoDecoGas ? "1" : "0");
    json.Member("Templatename", settings.Templatename);
  });
}

void WriteRates(JsonWriter& json, const char* name, const std::vector<RateEntry>& rates) {
  json.List(name, [&] {
    for (const RateEntry& rate : rates) {
      json.Object([&] {
        json.Member("depth", rate.Depth);
        json.Member("rate", rate.Rate);
      });
    }
  });
}

void WriteValues(JsonWriter& json, const DiveTemplate& settings) {
  json.Object("values", [&] {
    for (const TemplateField& field : kTemplateFields) {
      std::visit([&](auto member) { json.Member(field.key, settings.*member); }, field.field);
    }
    json.Member("TimeToHeight", int{settings.TimeToHeight});
    json.Member("UseGF", settings.UseGF);
    json.Member("GFHigh", settings.GFHigh);
    json.Member("GFLow", settings.GFLow);
    WriteRates(json, "AscendRates", settings.AscendRates);
    WriteRates(json, "DescendRates", settings.DescendRates);
    json.Member("KeepsDiluent", settings.KeepsDiluent);
    json.Member("IntervalOnAir", settings.IntervalOnAir);
    const SupplyChoice team = SupplyChoiceOf(settings);
    json.Object("Team", [&] {
      json.Member("told", settings.Team.has_value());
      json.Member("team", team.team);
      json.Member("stress", team.stress);
      json.Member("minutes", team.minutes);
      json.Member("rule", NameOf(team.rule));
    });
    const DiveLimits limits = LimitsOf(settings);
    json.Object("Limits", [&] {
      json.Member("told", settings.Limits.has_value());
      json.Member("run", limits.run);
      json.Member("stops", limits.stops);
      json.Member("cns", limits.cns);
      json.Member("gas", limits.gas);
    });
  });
}

void WriteGases(JsonWriter& json, const DiveRecord& dive) {
  const DiveTemplate& settings = dive.Template;
  json.List("gases", [&] {
    for (std::size_t i = 0; i < settings.Blends.size(); ++i) {
      const GasMix& gas = settings.Blends[i];
      json.Object([&] {
        json.Member("name", gas.Name);
        json.Member("o2", gas.O2);
        json.Member("n2", gas.N2);
        json.Member("he", gas.He);
        json.Member("used", HasUse(i, dive));
      });
    }
  });
  json.List("changes", [&] {
    for (const GasChange& change : settings.ChangeGasMixes) {
      json.Object([&] {
        json.Member("depth", change.Depth);
        json.Member("gas", change.Name);
      });
    }
  });
}

/// As --cylinder takes it.
std::string LineOf(const Cylinder& cylinder) {
  std::string line = cylinder.Gas + ":" + std::to_string(cylinder.Count) + "/" + FormatPlain(cylinder.Size);
  if (!cylinder.InLitres()) line += "/" + FormatPlain(cylinder.RatedPressure);
  line += "/" + FormatPlain(cylinder.Fill) + "/" + FormatPlain(cylinder.Reserve);
  return line + (cylinder.BailOut ? "/bail-out" : "");
}

void WriteCylinders(JsonWriter& json, const DiveTemplate& settings) {
  json.List("cylinders", [&] {
    for (const Cylinder& cylinder : settings.Cylinders) {
      json.Object([&] {
        json.Member("line", LineOf(cylinder));
        json.Member("gas", cylinder.Gas);
        json.Member("count", int{cylinder.Count});
        json.Member("size", cylinder.Size);
        json.Member("rated_pressure", cylinder.InLitres() ? std::nullopt : std::optional(cylinder.RatedPressure));
        json.Member("fill", cylinder.Fill);
        json.Member("reserve", cylinder.Reserve);
        json.Member("pressure_unit", cylinder.InLitres() ? "bar" : "psi");
        json.Member("bail_out", cylinder.BailOut);
      });
    }
  });
}

void WriteLegs(JsonWriter& json, const DiveRecord& dive) {
  const ClassUseractions& actions = dive.UserActions;
  json.List("legs", [&] {
    for (std::int16_t i = 1; i <= actions.GetLength() && i > 0; ++i) {
      const bool isAscent = actions.getaction(i) == ClassUseractions::kAscent;
      json.Object([&] {
        json.Member("action", int{i});
        json.Member("depth", isAscent ? std::nullopt : std::optional(actions.getDepth(i)));
        json.Member("time", isAscent ? std::nullopt : std::optional(actions.gettime(i)));
        json.Member("gas", dive.Template.Blends.at(static_cast<std::size_t>(actions.getmixnumber(i))).Name);
        json.Member("ascent", isAscent);
      });
    }
  });
}

void WriteDive(JsonWriter& json, int number, const DiveRecord& dive) {
  const DiveTemplate& settings = dive.Template;
  json.Member("number", number);
  json.Member("surface_interval", dive.SurfaceInterval);
  json.Member("metric", settings.Metric);
  json.Member("circuit", settings.OpenCircuit ? "open" : "closed");
  json.Member("setpoint", settings.Setpoint);
  json.Member("deco_setpoint", settings.DecoSetpoint);
  WriteSettings(json, settings);
  WriteValues(json, settings);
  WriteGases(json, dive);
  WriteCylinders(json, settings);
  json.Object("texts", [&] {
    json.Member("name", settings.Texts.name);
    json.Member("place", settings.Texts.place);
    json.Member("notes", settings.Texts.notes);
  });
  WriteLegs(json, dive);
}

}  // namespace

void WritePlanJson(const std::string& file, const std::vector<DiveRecord>& dives, std::ostream& out) {
  JsonWriter json(out);
  json.Object([&] {
    json.Member("file", file);
    json.List("dives", [&] {
      int number = 0;
      for (const DiveRecord& dive : dives) json.Object([&] { WriteDive(json, ++number, dive); });
    });
  });
  out << "\n";
}

}  // namespace tav
