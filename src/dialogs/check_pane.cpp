#include "dialogs/check_pane.h"

#include <algorithm>
#include <array>

#include "advice/plan_check.h"
#include "model/text_id.h"

namespace tav {
namespace {

/// How a severity looks: a shape of its own beside the colour, for those who tell no colours apart.
struct Look {
  const char* mark;
  Colour colour;
  int name;
  int one;   ///< "1 danger"
  int many;  ///< "%1 dangers"
};

constexpr std::array<Look, 3> kLooks{
    {{"\u25a0", RGB(192, 0, 0), Text::Danger, Text::OneDanger, Text::Dangers},      // a square
     {"\u25b2", RGB(176, 96, 0), Text::Caution, Text::OneCaution, Text::Cautions},  // a triangle
     {"\u25cf", RGB(0, 80, 176), Text::Note, Text::OneNote, Text::Notes}}};         // a dot

const Look& LookOf(Severity severity) { return kLooks.at(static_cast<std::size_t>(severity)); }

}  // namespace

frmCheckPane::frmCheckPane(const DialogServices& services,
                           std::function<void(std::int16_t document, std::int16_t first, std::int16_t last)> selectRows,
                           std::function<std::string(std::int16_t document)> refusal)
    : PaneForm("frmCheckPane", services), selectRows_(std::move(selectRows)), refusal_(std::move(refusal)) {
  fgFindings.HasHeader = false;
  fgFindings.TextColumns = {0, 1};
  fgFindings.Click = fgFindings.Return = [this] { SelectFinding(); };
}

void frmCheckPane::Form_Load() {
  Localize();
  ShowHead();
  fgFindings.Caption = T(Text::CheckTitle);
}

void frmCheckPane::Check(std::optional<std::int16_t> document) {
  std::vector<Finding> findings;
  std::string fault;
  if (document) {
    DocumentForms& forms = services_.forms;
    const DocumentState& state = services_.Documents()(*document);
    fault = forms(*document).EvaluationFault();
    if (fault.empty() && refusal_) fault = refusal_(*document);
    if (fault.empty()) {
      const PlannedDive dive = forms(*document).Planned();
      const GasSupply supply = SupplyOf(dive);
      findings = CheckPlan(dive, AdviceWords(texts_, platform_.separators, state.Template.Metric), supply);
    }
  }
  const bool same = document == document_ && fault == fault_ && findings == findings_;
  if (same) return;
  if (marked_ && document_) selectRows_(*document_, 0, 0);
  marked_ = false;
  document_ = document;
  fault_ = std::move(fault);
  findings_ = std::move(findings);
  if (IsLoaded()) Fill();
}

void frmCheckPane::ShowDocument(std::optional<std::int16_t> document) {
  // The plan in front is checked at each of its changes.
  if (document != document_) Check(document);
  Fill();
}

void frmCheckPane::ShowHead() {
  const std::string count = CountNow().words;
  Caption = count.empty() ? T(Text::CheckTitle) : count;
}

void frmCheckPane::Fill() {
  ShowHead();
  std::vector<std::vector<GridCell>> cells;
  cells.reserve(findings_.size());
  for (const Finding& finding : findings_) {
    const Look& look = LookOf(finding.severity);
    const std::string spoken = T(look.name) + ": " + finding.text;
    cells.push_back({{look.mark, look.colour, true, false, spoken}, {finding.text, -1, false, false, spoken}});
  }
  fgFindings.Cells = cells;
  fgFindings.Visible = !findings_.empty();
  lbNothing.Visible = findings_.empty() && document_.has_value();
  lbNothing.Caption = fault_.empty() ? T(Text::CheckNothing) : T(Text::CheckFault, {fault_});
}

void frmCheckPane::SelectFinding() {
  const auto index = static_cast<std::size_t>(fgFindings.SelectedRow);
  if (!document_ || index >= findings_.size()) return;
  const Finding& finding = findings_[index];
  selectRows_(*document_, finding.firstRow, finding.lastRow);
  marked_ = finding.lastRow > 0;
}

frmCheckPane::Count frmCheckPane::CountNow() const {
  if (!document_ || !fault_.empty()) return {};
  if (findings_.empty()) return {"\u2713", T(Text::CheckCountNothing)};
  Count count;
  for (std::size_t i = 0; i < kLooks.size(); ++i) {
    const auto number = std::ranges::count(findings_, static_cast<Severity>(i), &Finding::severity);
    if (number == 0) continue;
    const Look& look = kLooks.at(i);
    const bool first = count.marks.empty();
    count.marks += (first ? "" : "  ") + std::string(look.mark) + " " + std::to_string(number);
    count.words += (first ? T(Text::CheckTitle) + ": " : ", ") +
                   (number == 1 ? T(look.one) : T(look.many, {std::to_string(number)}));
  }
  count.colour = LookOf(findings_.front().severity).colour;
  return count;
}

}  // namespace tav
