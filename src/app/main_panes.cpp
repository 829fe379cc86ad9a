// The panes beside the graphs: shown, hidden, remembered, and brought up to date with the plan in front.

#include <algorithm>

#include "app/main_form.h"

namespace tav {
namespace {

// The settings hold short texts only, so that the places of the panes are kept in pieces: Panes1, Panes2, ...
constexpr std::size_t kPiece = 200;
constexpr int kMostPieces = 64;

std::string PieceName(int piece) { return "Panes" + std::to_string(piece); }

}  // namespace

PlanPaneServices frmMain::PaneServices() {
  return {Dialogs(),
          services_.history,
          [this](std::int16_t document) { return services_.runs.Holds(document); },
          [this] { EditTemplateOfActive(); },
          [this](std::int16_t document) { ShowRefusal(document); },
          [this](std::int16_t row) {
            if (const auto active = Active()) services_.view.SelectRows(*active, row, row);
          }};
}

void frmMain::WirePanes() {
  for (const Pane& pane : panes_) {
    pane.entry.Click = [this, &pane] {
      ShowPane(pane, !pane.entry.Checked);
      if (pane.entry.Checked) services_.view.FocusPane(pane.form);
    };
  }
  sbFindings.Click = [this] {
    ShowPane(panes_.back(), true);
    services_.view.FocusPane(checkPane_);
  };
  mnuGoToPlan.Click = [this] {
    ShowPane(panes_.front(), true);
    services_.view.FocusPane(planPane_);
  };
}

void frmMain::ShowPane(const Pane& pane, bool shown) {
  pane.form.Finish();
  pane.entry.Checked = shown;
  if (shown && !pane.form.IsLoaded()) pane.form.Load();
  if (shown) pane.form.ShowDocument(Active());
  services_.view.ShowPane(pane.form, shown);
}

void frmMain::PaneShown(const PaneForm& shown, bool isShown) {
  for (const Pane& pane : panes_) {
    if (&pane.form == &shown && pane.entry.Checked != isShown) ShowPane(pane, isShown);
  }
}

void frmMain::PlanChanged() {
  checkPane_.Check(Active());
  ShowFindings();
  for (const Pane& pane : panes_) {
    if (pane.entry.Checked) pane.form.ShowDocument(Active());
  }
  if (const auto whatIf = whatIf_.lock(); whatIf && whatIf->IsLoaded()) whatIf->PlanChanged();
}

void frmMain::ShowRefusal(std::int16_t document) {
  constexpr int kAsBefore = 8002;
  const bool refused = !planPane_.Refusal(document).empty();
  services_.view.ShowAsBefore(document, refused ? T(kAsBefore) : "");
  // A plan that holds has been checked when it was computed.
  if (refused || checkPane_.CountNow().marks.empty()) {
    checkPane_.Check(Active());
    ShowFindings();
  }
  SyncCommands();
}

std::string frmMain::MarkedCells(std::int16_t document) {
  std::string told;
  for (std::int16_t n = services_.forms(document).getFirstProfile(); n != -1; n = services_.forms(n).NextProfile) {
    const std::string cells = planPane_.MarkedCells(n);
    if (cells.empty()) continue;
    const bool inSeries = services_.forms(n).PrevProfile != -1 || services_.forms(n).NextProfile != -1;
    told += (told.empty() ? "" : "\n") + (inSeries ? services_.forms.Caption(n) + "\n" : "") + cells;
  }
  return told;
}

void frmMain::ShowFindings() {
  const frmCheckPane::Count count = checkPane_.CountNow();
  sbFindings.Caption = count.marks;
  sbFindings.ToolTipText = count.words;
  sbFindings.ForeColor = count.colour;
  sbFindings.Visible = !count.marks.empty();
}

void frmMain::FinishEdits() {
  for (const Pane& pane : panes_) pane.form.Finish();
}

void frmMain::SelectInPanes(std::int16_t row) {
  for (const Pane& pane : panes_) {
    if (pane.entry.Checked) pane.form.SelectRow(row);
  }
  if (const auto active = Active()) services_.view.SelectRows(*active, row, row);
}

std::optional<std::int16_t> frmMain::LegAt(std::int16_t row) const {
  const auto active = Active();
  return active ? services_.forms(*active).LegAt(row) : std::nullopt;
}

std::optional<std::int16_t> frmMain::LegEndingAt(std::int16_t row) const {
  const auto active = Active();
  const auto leg = LegAt(row);
  return leg && active && services_.forms(*active).LastRowOf(*leg) == row ? leg : std::nullopt;
}

void frmMain::EditLegOf(std::int16_t row) {
  const auto leg = LegAt(row);
  if (!leg) return;
  ShowPane(panes_.front(), true);
  services_.view.FocusPane(planPane_);
  planPane_.EditLeg(*leg);
}

void frmMain::RestorePanes() {
  std::string kept;
  for (int i = 1; i <= kMostPieces; ++i) {
    const std::string piece = services_.platform.settings.ReadSetting("Settings", PieceName(i));
    if (piece.empty()) break;
    kept += piece;
  }
  const auto shown = services_.view.RestorePanes(kept);
  for (const Pane& pane : panes_) {
    // At first all of them are shown.
    ShowPane(pane, !shown || std::find(shown->begin(), shown->end(), &pane.form) != shown->end());
  }
}

void frmMain::KeepPanes() {
  const std::string panes = services_.view.PanesNow();
  SettingsStore& settings = services_.platform.settings;
  int piece = 1;
  for (std::size_t at = 0; at < panes.size() && piece <= kMostPieces; at += kPiece) {
    settings.WriteSetting("Settings", PieceName(piece++), panes.substr(at, kPiece));
  }
  settings.WriteSetting("Settings", PieceName(piece), "");
}

}  // namespace tav
