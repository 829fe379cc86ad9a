#include "app/main_panes.h"

#include <algorithm>
#include <utility>

#include "model/text_id.h"

namespace tav {
namespace {

// The settings hold short texts only, so that the places of the panes are kept in pieces: Panes1, Panes2, ...
constexpr std::size_t kPiece = 200;
constexpr int kMostPieces = 64;

std::string PieceName(int piece) { return "Panes" + std::to_string(piece); }

}  // namespace

MainPanes::MainPanes(const MainServices& services, const DialogServices& dialogs, PlanLooks& looks,
                     const Commands& commands, std::function<void()> editTemplate, std::function<void()> examples,
                     MarginActs margins)
    : services_(services),
      looks_(looks),
      findings_(commands.findings),
      planPane_(PaneServices(dialogs, std::move(editTemplate), std::move(examples))),
      checkPane_(
          dialogs,
          [this](std::int16_t document, std::int16_t first, std::int16_t last) {
            looks_.SelectRows(document, first, last);
          },
          [this](std::int16_t document) { return planPane_.Refusal(document); }),
      marginsPane_(dialogs, std::move(margins)),
      panes_{{planPane_, commands.plan}, {checkPane_, commands.check}, {marginsPane_, commands.margins, false}} {
  for (const Pane& pane : panes_) {
    pane.entry.Click = [this, &pane] {
      Show(pane, !pane.entry.Checked);
      if (pane.entry.Checked) services_.view.FocusPane(pane.form);
    };
  }
  commands.findings.Click = [this] { ShowAndFocus(panes_.at(1)); };
  commands.goToPlan.Click = [this] { ShowAndFocus(panes_.front()); };
}

PlanPaneServices MainPanes::PaneServices(const DialogServices& dialogs, std::function<void()> editTemplate,
                                         std::function<void()> examples) {
  return {dialogs,
          services_.history,
          [this](std::int16_t document) { return services_.runs.Holds(document); },
          std::move(editTemplate),
          std::move(examples),
          [this](std::int16_t document) { ShowRefusal(document); },
          [this](std::int16_t row) {
            if (const auto active = services_.Active()) looks_.SelectRows(*active, row, row);
          }};
}

void MainPanes::Show(const Pane& pane, bool shown) {
  pane.form.Finish();
  if (!shown && pane.entry.Checked) pane.form.Hidden();
  pane.entry.Checked = shown;
  if (shown && !pane.form.IsLoaded()) pane.form.Load();
  if (shown) pane.form.ShowDocument(services_.Active());
  services_.view.ShowPane(pane.form, shown);
}

void MainPanes::ShowAndFocus(const Pane& pane) {
  Show(pane, true);
  services_.view.FocusPane(pane.form);
}

void MainPanes::Shown(const PaneForm& shown, bool isShown) {
  for (const Pane& pane : panes_) {
    if (&pane.form == &shown && pane.entry.Checked != isShown) Show(pane, isShown);
  }
}

void MainPanes::Follow() {
  checkPane_.Check(services_.Active());
  ShowFindings();
  for (const Pane& pane : panes_) {
    if (pane.entry.Checked) pane.form.ShowDocument(services_.Active());
  }
}

void MainPanes::TextsChanged() {
  for (const Pane& pane : panes_) {
    if (pane.form.IsLoaded()) pane.form.Load();
  }
}

void MainPanes::ShowRefusal(std::int16_t document) {
  const bool refused = !planPane_.Refusal(document).empty();
  looks_.ShowAsBefore(document, refused ? services_.T(Text::AsBefore) : "");
  // A plan that holds has been checked when it was computed.
  if (refused || checkPane_.CountNow().marks.empty()) {
    checkPane_.Check(services_.Active());
    ShowFindings();
  }
  services_.Changed(document);
}

void MainPanes::ShowFindings() {
  const frmCheckPane::Count count = checkPane_.CountNow();
  findings_.Caption = count.marks;
  findings_.ToolTipText = count.words;
  findings_.ForeColor = count.colour;
  findings_.Visible = !count.marks.empty();
}

std::string MainPanes::MarkedCells(std::int16_t document) {
  std::string told;
  DocumentForms& forms = services_.forms;
  for (std::int16_t n = forms(document).getFirstProfile(); n != -1; n = forms(n).NextProfile) {
    const std::string cells = planPane_.MarkedCells(n);
    if (cells.empty()) continue;
    const bool inSeries = forms(n).PrevProfile != -1 || forms(n).NextProfile != -1;
    told += (told.empty() ? "" : "\n") + (inSeries ? forms.Caption(n) + "\n" : "") + cells;
  }
  return told;
}

void MainPanes::Finish() {
  for (const Pane& pane : panes_) pane.form.Finish();
}

void MainPanes::SelectRow(std::int16_t row) {
  for (const Pane& pane : panes_) {
    if (pane.entry.Checked) pane.form.SelectRow(row);
  }
  if (const auto active = services_.Active()) looks_.SelectRows(*active, row, row);
}

std::optional<std::int16_t> MainPanes::LegAt(std::int16_t row) const {
  const auto active = services_.Active();
  return active ? services_.forms(*active).LegAt(row) : std::nullopt;
}

std::optional<std::int16_t> MainPanes::LegEndingAt(std::int16_t row) const {
  const auto active = services_.Active();
  const auto leg = LegAt(row);
  return leg && active && services_.forms(*active).LastRowOf(*leg) == row ? leg : std::nullopt;
}

void MainPanes::EditLegOf(std::int16_t row) {
  const auto leg = LegAt(row);
  if (!leg) return;
  ShowAndFocus(panes_.front());
  planPane_.EditLeg(*leg);
}

void MainPanes::Restore() {
  std::string kept;
  for (int i = 1; i <= kMostPieces; ++i) {
    const std::string piece = services_.platform.settings.ReadSetting("Settings", PieceName(i));
    if (piece.empty()) break;
    kept += piece;
  }
  const auto shown = services_.view.RestorePanes(kept);
  if (!shown) return DefaultLayout();
  for (const Pane& pane : panes_) Show(pane, std::ranges::find(*shown, &pane.form) != shown->end());
}

void MainPanes::DefaultLayout() {
  for (const Pane& pane : panes_) Show(pane, pane.atFirst);
  services_.view.PlacePanes();
}

void MainPanes::Keep() const {
  const std::string panes = services_.view.PanesNow();
  SettingsStore& settings = services_.platform.settings;
  int piece = 1;
  for (std::size_t at = 0; at < panes.size() && piece <= kMostPieces; at += kPiece) {
    settings.WriteSetting("Settings", PieceName(piece++), panes.substr(at, kPiece));
  }
  settings.WriteSetting("Settings", PieceName(piece), "");
}

}  // namespace tav
