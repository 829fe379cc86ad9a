#include "cli/computed_dive.h"
#include "cli/row_json.h"
#include "cli/supply_json.h"
#include "figures/dive_figures.h"

namespace tav {
namespace {

Json DiveJson(const ComputedDive& dive) {
  const DocumentState& document = *dive.document;
  Json json{{"template", document.Template.Templatename},
            {"metric", document.Template.Metric},
            {"surface_interval", Digits(document.SurfaceInterval)},
            {"total_cns", Digits(document.TotalCNS)},
            {"total_otu", Digits(document.TotalOTU)},
            {"n2_compartments", ArrayJson(document.N2Compartments)},
            {"he_compartments", ArrayJson(document.HeCompartments)},
            {"decompresses", document.Decompresses}};
  json["rows"] = RowsJson(*dive.rows);
  for (const StopReason& reason : dive.reasons) {
    json["rows"][static_cast<std::size_t>(reason.row)]["why"] = {{"compartment", reason.compartment},
                                                                 {"half_time", Digits(reason.halfTimeN2)},
                                                                 {"half_time_he", Digits(reason.halfTimeHe)},
                                                                 {"load", Digits(reason.load)},
                                                                 {"tolerated", Digits(reason.tolerated)},
                                                                 {"next_stop", Digits(reason.nextStop)},
                                                                 {"gf", Digits(reason.GF)},
                                                                 {"model", ModelOf(reason)}};
  }
  const DiveFigures figures = FiguresOf(*dive.rows);
  Json gases = Json::array();
  for (const GasTotal& gas : GasTotals(*dive.rows)) gases.push_back({{"mix", gas.Name}, {"used", Digits(gas.total)}});
  json["totals"] = {{"run_time", Digits(figures.runTime)},
                    {"stops", Digits(figures.stopTime)},
                    {"cns", Digits(figures.CNS)},
                    {"otu", Digits(figures.OTU)},
                    {"gas", std::move(gases)}};
  json["findings"] = Json::array();
  for (const Finding& finding : dive.findings) {
    json["findings"].push_back({{"rule", IdOf(finding.rule)},
                                {"severity", IdOf(finding.severity)},
                                {"rows", {finding.firstRow, finding.lastRow}},
                                {"text", finding.text}});
  }
  json["gas_supply"] = SupplyJson(dive.supply);
  return json;
}

}  // namespace

std::string DivesJson(const std::vector<ComputedDive>& dives) {
  Json json{{"dives", Json::array()}};
  for (const ComputedDive& dive : dives) json["dives"].push_back(DiveJson(dive));
  return Written(json) + "\n";
}

}  // namespace tav
