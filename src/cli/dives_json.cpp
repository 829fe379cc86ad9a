#include "cli/computed_dive.h"
#include "cli/row_columns.h"
#include "cli/surfacing_output.h"
#include "figures/dive_figures.h"
#include "figures/row_gradients.h"
#include "supply/supply_text.h"

namespace tav {
namespace {

constexpr const char* VerdictName(GasVerdict verdict) {
  switch (verdict) {
    case GasVerdict::IntoReserve:
      return "into_reserve";
    case GasVerdict::NotTold:
      return "not_told";
    case GasVerdict::RunsOut:
      return "runs_out";
    case GasVerdict::NoCylinder:
      return "no_cylinder";
    case GasVerdict::NotBreathed:
      return "not_breathed";
    case GasVerdict::UnknownGas:
      return "unknown_gas";
    case GasVerdict::Enough:
      break;
  }
  return "enough";
}

/// A number, where it is known.
std::optional<double> Known(bool known, double number) { return known ? std::optional(number) : std::nullopt; }

/// What the gauge of the cylinders that are breathed shows when a volume is left, in "pressure_unit", and, with an "s"
/// to the name, that of each line of cylinders in its own; both null without them.
void WritePressures(JsonWriter& json, const std::string& name, const GasStore* store, std::optional<double> left) {
  if (store == nullptr || !left || !store->HasCylinders()) {
    json.Member(name, std::nullopt);
    return json.Member(name + "s", std::nullopt);
  }
  json.Member(name, store->Pressure(*left));
  const GasStore::Gauges gauges = store->At(*left);
  json.List(name + "s", [&] {
    for (const std::optional<double> pressure : gauges.pressures) json.Value(pressure);
  });
}

void WriteStore(JsonWriter& json, const GasStore& store) {
  json.Member("mix", store.gas);
  json.List("cylinders", [&] {
    for (const Cylinder& cylinder : store.cylinders) {
      json.Object([&] {
        json.Member("count", cylinder.Count);
        json.Member("size", cylinder.Size);
        json.Member("rated_pressure", Known(!cylinder.InLitres(), cylinder.RatedPressure));
        json.Member("fill", cylinder.Fill);
        json.Member("reserve", cylinder.Reserve);
        json.Member("bail_out", cylinder.BailOut);
      });
    }
  });
  json.Member("pressure_unit", store.gaugeInBar ? "bar" : "psi");
  json.Member("carried", store.carried);
  json.Member("reserve", store.reserve);
  json.Member("used", store.used);
  json.Member("need", store.Need());
  json.Member("left", Known(store.HasCylinders(), store.Left()));
  WritePressures(json, "start_pressure", &store, store.carried);
  WritePressures(json, "end_pressure", &store, store.Left());
  json.Member("enough", store.verdict == GasVerdict::NotTold ? std::nullopt : std::optional(!IsShort(store)));
  json.Member("verdict", VerdictName(store.verdict));
}

void WriteLeg(JsonWriter& json, const GasSupply& supply, const LegSupply& leg) {
  const GasStore* store = supply.Of(leg.gas);
  json.Member("leg", leg.leg);
  json.Member("row", leg.row);
  json.Member("depth", leg.depth);
  json.Member("run_time", leg.runTime);
  json.Member("mix", leg.gas);
  json.Member("left", Known(store != nullptr && store->HasCylinders(), leg.left));
  json.Member("sorting_out", leg.sorting);
  json.Member("ascent", Known(leg.decompresses, leg.ascent));
  json.Member("minimum_gas", Known(leg.decompresses, leg.Minimum()));
  WritePressures(json, "minimum_pressure", store, Known(leg.decompresses, leg.Minimum()));
  WritePressures(json, "turn_pressure", store, leg.turnLeft);
  json.Member("enough", !IsShort(supply, leg));
  json.Member("verdict", VerdictName(supply.VerdictOf(leg)));
}

/// The diver's choice, gases and legs; null when no cylinders are told.
void WriteSupply(JsonWriter& json, const GasSupply& supply) {
  if (!supply.IsTold()) return json.Member("gas_supply", std::nullopt);
  json.Object("gas_supply", [&] {
    json.Member("team", supply.choice.team);
    json.Member("stress", supply.choice.stress);
    json.Member("minutes", supply.choice.minutes);
    json.Member("rule", NameOf(supply.choice.rule));
    json.List("gases", [&] {
      for (const GasStore& store : supply.gases) json.Object([&] { WriteStore(json, store); });
    });
    json.List("legs", [&] {
      for (const LegSupply& leg : supply.legs) json.Object([&] { WriteLeg(json, supply, leg); });
    });
    json.List("bail_out", [&] {
      for (const LegSupply& way : supply.waysOut) json.Object([&] { WriteLeg(json, supply, way); });
    });
    json.Member("bail_out_never_ends", supply.neverUp);
    json.Object("loop_estimate", [&] {
      json.Member("oxygen", supply.loop.oxygen);
      json.List("diluent", [&] {
        for (const LoopUse::Diluent& diluent : supply.loop.diluents) {
          json.Object([&] {
            json.Member("mix", diluent.gas);
            json.Member("volume", diluent.volume);
          });
        }
      });
    });
  });
}

void WriteReason(JsonWriter& json, const StopReason& reason) {
  json.Object("why", [&] {
    json.Member("compartment", reason.compartment);
    json.Member("half_time", reason.halfTimeN2);
    json.Member("half_time_he", reason.halfTimeHe);
    json.Member("load", reason.load);
    json.Member("tolerated", reason.tolerated);
    json.Member("next_stop", reason.nextStop);
    json.Member("gf", reason.GF);
    json.Member("model", ModelOf(reason));
  });
}

void WriteDive(JsonWriter& json, const ComputedDive& dive, const ShownOutput& shown) {
  const DiveRecord& record = dive.dive.record;
  const ClassProfile& rows = dive.dive.plan.rows;
  const EndState& end = dive.dive.plan.end;
  json.Member("template", record.Template.Templatename);
  json.Member("metric", record.Template.Metric);
  json.Member("surface_interval", record.SurfaceInterval);
  json.Member("total_cns", end.TotalCNS);
  json.Member("total_otu", end.TotalOTU);
  WriteLoads(json, "n2_compartments", end.N2Compartments);
  WriteLoads(json, "he_compartments", end.HeCompartments);
  json.Member("decompresses", end.Decompresses);
  json.List("rows", [&] {
    auto reason = dive.reasons.begin();
    const auto gradients = RowGradients(dive.dive.plan.loadedRows, record.Template, dive.dive.plan.model);
    for (std::size_t i = 0; i < gradients.size(); ++i) {
      json.Object([&] {
        WriteRow(json, rows.Row(static_cast<std::int16_t>(i)), gradients[i]);
        if (!dive.surfacing.empty()) WriteSurfacing(json, dive.surfacing[i]);
        if (reason != dive.reasons.end() && reason->row == static_cast<std::int16_t>(i)) WriteReason(json, *reason++);
      });
    }
  });
  const DiveFigures figures = FiguresOf(rows);
  json.Object("totals", [&] {
    json.Member("run_time", figures.runTime);
    json.Member("stops", figures.stopTime);
    json.Member("cns", figures.CNS);
    json.Member("otu", figures.OTU);
    json.List("gas", [&] {
      for (const GasTotal& gas : GasTotals(rows)) {
        json.Object([&] {
          json.Member("mix", gas.Name);
          json.Member("used", gas.total);
        });
      }
    });
  });
  WriteFindings(json, "findings", dive.findings);
  WriteSupply(json, dive.supply);
  shown.Write(json);
}

}  // namespace

void WriteFindings(JsonWriter& json, std::string_view name, const std::vector<Finding>& findings) {
  json.List(name, [&] {
    for (const Finding& finding : findings) {
      json.Object([&] {
        json.Member("rule", IdOf(finding.rule));
        json.Member("severity", IdOf(finding.severity));
        json.List("rows", [&] {
          json.Value(finding.firstRow);
          json.Value(finding.lastRow);
        });
        json.Member("text", finding.text);
      });
    }
  });
}

void WriteDivesJson(const std::vector<ComputedDive>& dives, const std::vector<ShownOutput>& shown, std::ostream& out) {
  JsonWriter json(out);
  json.Object([&] {
    json.List("dives", [&] {
      for (std::size_t i = 0; i < dives.size(); ++i) json.Object([&] { WriteDive(json, dives[i], shown[i]); });
    });
  });
  out << "\n";
}

}  // namespace tav
