#include "reports/comparison_table.h"

#include <algorithm>
#include <functional>
#include <string_view>

#include "figures/model_name.h"
#include "model/number_text.h"
#include "model/number_texts.h"
#include "model/text_id.h"
#include "persist/template_block.h"

namespace tav {
namespace {

/// How a setting is told: its name, and what its value is.
struct SettingWords {
  std::string_view key;
  int name;
  enum class Value { AsInFile, YesNo, Circuit, Units, Factors, Changes } value = Value::AsInFile;
};

using Value = SettingWords::Value;

constexpr SettingWords kSettings[] = {
    {"Setpoint", Text::TemplateSetpoint},
    {"DecoSetpoint", Text::TemplateDecoSetpoint},
    {"OCDeco", Text::TemplateOpenForDeco, Value::YesNo},
    {"Open Circuit", Text::ReportApparatus, Value::Circuit},
    {"O2Narcotic", Text::TemplateO2Narcotic, Value::YesNo},
    {"MinPPO2", Text::TemplateMinPPO2},
    {"Maximal END", Text::TemplateMaxEND},
    {"MaxPPO2", Text::TemplateMaxPPO2},
    {"DecoPPO2", Text::TemplateDecoPPO2},
    {"AdeptedToHeight", Text::CompareAdapted, Value::YesNo},
    {"TimeToHeight", Text::TemplateTimeToAdapt},
    {"StartAltitude", Text::TemplateStartAltitude},
    {"StartPressure", Text::CompareStartPressure},
    {"EndAltitude", Text::CompareEndAltitude},
    {"EndPressure", Text::TemplateSurfacePressure},
    {"PPO2Low", Text::TemplateWarnPPO2Low, Value::YesNo},
    {"PPO2High", Text::TemplateWarnPPO2High, Value::YesNo},
    {"MaxEnd", Text::TemplateWarnEND, Value::YesNo},
    {"RMV", Text::TemplateRMV},
    {"DecoRMV", Text::TemplateDecoRMV},
    {"StepSize", Text::TemplateStepSize},
    {"LastStop", Text::TemplateLastStop},
    {"Metric", Text::ReportUnits, Value::Units},
    {"DepthAdjust", Text::ReportAdjustDepth, Value::YesNo},
    {"GF", Text::ReportFactors, Value::Factors},
    {"AscendRates", Text::TemplateAscentRates},
    {"DescendRates", Text::TemplateDescentRates},
    {kBlendsKey, Text::TemplateGases},
    {"Change Gas Mixes", Text::TemplateGasChanges, Value::Changes},
    {"# Loop", Text::TemplateKeepsDiluent, Value::YesNo},
    {"# Surface interval", Text::IntervalOnAir, Value::YesNo},
    {"# Cylinder", Text::CompareCylinders},
    {"# Team", Text::CompareTeam},
    {"# Limits", Text::CompareLimits},
};

/// The gases of the way up, the deepest first: "EAN50 21 m, Oxygen 6 m".
std::string ChangesInWords(const ComparedPlan& plan, const AdviceWords& words) {
  std::vector<GasChange> changes = plan.Settings().ChangeGasMixes;
  std::ranges::stable_sort(changes, std::greater{}, &GasChange::Depth);
  const AdviceWords own(words.Texts(), words.Numbers(), plan.Settings().Metric);
  std::string told;
  for (const GasChange& change : changes) {
    told += (told.empty() ? "" : ", ") + change.Name + " " + own.Depth(change.Depth);
  }
  return told;
}

/// A setting of a file for the reader: numbers with his separators, flags in words.
std::string InWords(const std::string& value, Value what, const ComparedPlan& plan, const AdviceWords& words) {
  const auto either = [&](int yes, int no) { return words.T(!value.empty() && value != "0" ? yes : no); };
  switch (what) {
    case Value::YesNo:
      return either(Text::ReportYes, Text::ReportNo);
    case Value::Circuit:
      return either(Text::ReportOpenCircuit, Text::ReportConstantPPO2);
    case Value::Units:
      return either(Text::ReportMetric, Text::ReportImperial);
    case Value::Factors:
      if (!plan.Settings().UseGF) return words.T(Text::ReportOff);
      return TextOf(GradientFactors{plan.Settings().GFLow, plan.Settings().GFHigh});
    case Value::Changes:
      return ChangesInWords(plan, words);
    case Value::AsInFile:
      break;
  }
  if (const auto number = ParseStrict(value)) return words.Numbers().Plain(*number);
  return value.ends_with(',') ? value.substr(0, value.size() - 1) : value;
}

class Comparison {
 public:
  Comparison(const std::vector<ComparedPlan>& plans, const AdviceWords& words)
      : plans_(plans), words_(words), builder_(Columns(), words) {}

  ColumnTable Build() {
    Settings();
    Legs();
    builder_.AddStops();
    builder_.AddTotals();
    builder_.AddGases(ColumnTableBuilder::Carried::EachItsOwn);
    builder_.AddWarnings();
    ColumnTable table = builder_.Take();
    for (const ComparedPlan& plan : plans_) {
      if (plan.Settings().Metric == words_.Metric()) continue;
      table.notes.push_back(words_.T(Text::CompareUnits, {plan.name}));
    }
    for (ColumnTable::Row& row : table.rows) Mark(row);
    return table;
  }

 private:
  [[nodiscard]] std::vector<ColumnTableBuilder::Column> Columns() const {
    std::vector<ColumnTableBuilder::Column> columns;
    for (const ComparedPlan& plan : plans_) {
      columns.push_back({plan.column, {plan.name, plan.detail}, plan.before ? &*plan.before : nullptr});
    }
    return columns;
  }

  template <class TextOfPlan>
  void Row(const std::string& label, TextOfPlan textOf) {
    std::vector<std::string> texts;
    for (const ComparedPlan& plan : plans_) texts.push_back(textOf(plan));
    if (std::ranges::any_of(texts, [&](const std::string& text) { return text != texts.front(); }))
      builder_.AddRow(label, texts);
  }

  void Settings() {
    Row(words_.T(Text::ReportModel), [](const ComparedPlan& plan) { return ModelName(plan.model); });
    Row(words_.T(Text::CompareInterval), [&](const ComparedPlan& plan) {
      return plan.before ? words_.Short(plan.column.record.SurfaceInterval) + " " + words_.T(Text::WhatIfMinutes) : "";
    });
    for (const DifferingSetting& setting : DifferingSettings(plans_)) {
      const auto* known = std::ranges::find(kSettings, setting.key, &SettingWords::key);
      const bool named = known != std::end(kSettings);
      std::size_t at = 0;
      Row(named ? words_.T(known->name) : setting.key, [&](const ComparedPlan& plan) {
        return InWords(setting.values[at++], named ? known->value : Value::AsInFile, plan, words_);
      });
    }
  }

  void Legs() {
    std::vector<std::vector<std::string>> legs;
    std::size_t most = 0;
    for (const ComparedPlan& plan : plans_) {
      const AdviceWords own(words_.Texts(), words_.Numbers(), plan.Settings().Metric);
      std::vector<std::string>& told = legs.emplace_back();
      const ClassUseractions& actions = plan.column.record.UserActions;
      for (std::int16_t i = 1; i <= actions.GetLength(); ++i) {
        if (actions.getaction(i) != ClassUseractions::kLeg) continue;
        told.push_back(own.Depth(actions.getDepth(i)) + " " + own.Short(actions.gettime(i)) + " " +
                       own.T(Text::WhatIfMinutes) + " " +
                       plan.Settings().Blends.at(static_cast<std::size_t>(actions.getmixnumber(i))).Name);
      }
      most = std::max(most, told.size());
    }
    for (std::size_t leg = 0; leg < most; ++leg) {
      std::vector<std::string> texts;
      texts.reserve(legs.size());
      for (const std::vector<std::string>& told : legs) texts.push_back(leg < told.size() ? told[leg] : "");
      builder_.AddRow(words_.T(Text::CompareLeg, {std::to_string(leg + 1)}), texts);
    }
  }

  /// What is not as in the first plan; of totals also by how much.
  void Mark(ColumnTable::Row& row) const {
    const ColumnTable::Cell& first = row.cells.front();
    for (ColumnTable::Cell& cell : row.cells) {
      cell.differs = cell.figure != first.figure || cell.note != first.note;
    }
    for (ColumnTable::Cell& cell : row.cells) {
      if (!cell.value || !first.value || cell.figure == first.figure) continue;
      const double more = *cell.value - *first.value;
      std::string difference = std::string(more > 0 ? "+" : "") + words_.Short(more);
      cell.note = cell.note.empty() ? difference : difference + ", " + cell.note;
    }
  }

  const std::vector<ComparedPlan>& plans_;
  const AdviceWords& words_;
  ColumnTableBuilder builder_;
};

}  // namespace

ColumnTable ComparisonTable(const std::vector<ComparedPlan>& plans, const AdviceWords& words) {
  return Comparison(plans, words).Build();
}

}  // namespace tav
