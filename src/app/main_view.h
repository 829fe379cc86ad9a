#pragma once

#include <optional>
#include <string>
#include <vector>

#include "controls/controls.h"
#include "graph/overlay_line.h"
#include "picture/profile_plot.h"

namespace tav {

/// An entry of the menu as it is shown: level 0 is the menu bar; a rule has the caption "-".
struct MenuEntry {
  MenuItem* item = nullptr;
  int level = 0;
};

/// Place of the main window in drawing units (1440 to the inch). That of the very first start has room for the tool bar
/// and a readable graph: 1000 x 700 pixels.
struct Placement {
  int left = 1000;
  int top = 1000;
  int width = 15000;
  int height = 10500;
};

class frmMain;
class PaneForm;

/// The main window on the screen, for what its records can't say.
class MainView {
 public:
  MainView() = default;
  MainView(const MainView&) = delete;
  MainView& operator=(const MainView&) = delete;
  virtual ~MainView() = default;

  /// Ties the window to its form, before the form loads.
  virtual void Attach(frmMain& form) = 0;
  /// The form ends, and with it its panes.
  virtual void Detach() = 0;
  /// Moves the window; the view clamps it to the screens that are there.
  virtual void Place(const Placement& placement) = 0;
  /// Where the window is, or would be when it is not maximised.
  [[nodiscard]] virtual Placement PlaceNow() const = 0;
  [[nodiscard]] virtual bool IsMinimised() const = 0;
  virtual void ShowWindow() = 0;
  /// The entries of the menus have changed: recent files.
  virtual void MenuChanged() = 0;
  /// Shows or hides a pane of the form, which is loaded.
  virtual void ShowPane(PaneForm& pane, bool shown) = 0;
  /// Gives the pane, which is shown, the keyboard.
  virtual void FocusPane(PaneForm& pane) = 0;
  /// Where the panes are and which are shown, as a text of its own making.
  [[nodiscard]] virtual std::string PanesNow() const = 0;
  /// Puts the panes where such a text tells, and returns those that it tells to be shown; nothing for a text of
  /// another program. To be called before a pane is shown.
  virtual std::optional<std::vector<PaneForm*>> RestorePanes(const std::string& panes) = 0;
  /// The child window of a document: its graph.
  virtual void ResetZoom(std::int16_t document) = 0;
  /// Marks rows in the graph of a document; 0 to 0 marks none.
  virtual void SelectRows(std::int16_t document, std::int16_t first, std::int16_t last) = 0;
  /// In all graphs, those to come too, the plan fills the window, or has room to grow.
  virtual void FitPlan(bool fit) = 0;
  /// What all graphs show beside the plan, those to come too.
  virtual void ShowExtras(const GraphExtras& extras) = 0;
  /// A dashed line over the plot, which stays through redraws: how a dive would go. Empty takes it away.
  virtual void ShowOverlay(std::int16_t document, const std::vector<PlotPoint>& line) = 0;
  /// The graph is that of the plan as it was before something that is refused: it is grey and says so in these words.
  /// Empty takes that away.
  virtual void ShowAsBefore(std::int16_t document, const std::string& words) = 0;
  /// Writes a picture of the graph; false when that failed.
  virtual bool ExportGraph(std::int16_t document, const std::string& file, bool svg) = 0;
};

}  // namespace tav
