#include <filesystem>
#include <optional>
#include <ostream>

#include "cli/commands.h"
#include "cli/page_output.h"
#include "cli/plan_input.h"
#include "cli/plan_output.h"
#include "cli/row_json.h"
#include "cli/terminal_text.h"
#include "reports/plan_slate.h"
#include "reports/what_if_table.h"
#include "start/user_texts.h"

namespace tav {
namespace {

constexpr int kWithAscent = 7723;

/// The number of an option, 0 or more.
Single Wished(const std::string& text, const char* option, Single usual, double most) {
  return text.empty() ? usual : NumberOf(text, option, 0, most);
}

/// A plan that can't be computed with the change that was asked for is unusable input; a bail-out that can't be is only
/// one column less.
void RefuseFaults(const std::vector<WhatIfColumn>& columns, const std::string& file) {
  for (const WhatIfColumn& column : columns) {
    if (column.fault.empty() || column.kind == WhatIfColumn::Kind::BailOut) continue;
    throw FileError(file, 0, column.Id() + ": " + column.fault);
  }
}

Json GasJson(const std::vector<GasNeed>& gases) {
  Json list = Json::array();
  for (const GasNeed& gas : gases) {
    const std::optional<bool> enough = gas.Enough();
    list.push_back({{"mix", gas.mix},
                    {"used", Digits(gas.used)},
                    {"carried", gas.carried ? Json(Digits(*gas.carried)) : Json()},
                    {"enough", enough ? Json(*enough) : Json()}});
  }
  return list;
}

Json WarningsJson(const std::vector<GasWarning>& warnings) {
  Json list = Json::array();
  for (const GasWarning& warning : warnings) list.push_back(WarningJson(warning));
  return list;
}

std::string ColumnsJson(const std::vector<WhatIfColumn>& columns) {
  Json json{{"columns", Json::array()}};
  for (const WhatIfColumn& column : columns) {
    json["columns"].push_back({{"name", column.Id()},
                               {"run_time", Digits(column.rows.GetRunTime(column.rows.GetLength()))},
                               {"decompresses", column.decompresses},
                               {"warnings", WarningsJson(column.warnings)},
                               {"rows", RowsJson(column.rows)},
                               {"gas", GasJson(column.gas)}});
  }
  return Written(json) + "\n";
}

}  // namespace

int WhatIfCommand(const WhatIfOptions& whatIf, const OutputOptions& options, const ProgramFolders& folders,
                  std::ostream& out, std::ostream& err) {
  const LazyTexts texts(folders.ProgramFolder(), LazyTexts::Language::User);
  PlanSession session(texts);
  try {
    ApplyOptions(options, session);
    const auto documents = OpenProfile(session.Forms(), whatIf.file, ReadPlannable(whatIf.file, texts, err));
    const std::int16_t document = ChosenDive(whatIf.dive, documents);
    WhatIf plan(session.Forms(), document);
    if (!plan.Fault().empty()) throw FileError(whatIf.file, 0, plan.Fault());
    const bool metric = plan.Settings().Metric;
    WhatIfWish wish = WhatIfWish::Usual(metric);
    wish.minutes = Wished(whatIf.longer, "--longer", wish.minutes, WhatIfWish::kMostMinutes);
    wish.depth = Wished(whatIf.deeper, "--deeper", wish.depth, WhatIfWish::kMostDepth);
    std::vector<WhatIfColumn> columns = plan.Columns(wish);
    RefuseFaults(columns, whatIf.file);
    if (!columns.back().fault.empty()) {
      err << whatIf.file << ": " << columns.back().Id() << ": " << columns.back().fault << "\n";
      columns.pop_back();
    }
    const AdviceWords words(texts, {}, metric);
    if (!whatIf.pdf.empty()) {
      PageOutput pdf(folders, whatIf.pdf);
      Slate slate(pdf.Pages(), session.Model());
      WriteSlates({slate, session.Forms(), texts, {".", ""}, options.supply}, document, columns, wish);
      pdf.WritePdf(std::filesystem::path(whatIf.file).stem().string());
    }
    if (options.form == OutputForm::Json) {
      out << ColumnsJson(columns);
    } else if (whatIf.pdf.empty()) {
      out << whatIf.file << "\n";
      if (plan.AddsAscent()) out << words.T(kWithAscent) << "\n";
      out << "\n" << AlignedText(TableOf(columns, wish, plan.Settings(), words), kLineWidth);
    }
    return columns.front().decompresses ? ExitStatus::kFine : ExitStatus::kDoesNotDecompress;
  } catch (const std::exception& error) {
    return Refused(error, "whatif", texts, err);
  }
}

}  // namespace tav
