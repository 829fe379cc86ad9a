#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "controls/controls.h"
#include "graph/overlay_line.h"
#include "picture/profile_plot.h"
#include "platform/file_picture.h"

namespace tav {

/// An entry of the menu as it is shown: level 0 is the menu bar; a rule has the caption "-".
struct MenuEntry {
  MenuItem* item = nullptr;
  int level = 0;
};

/// Place of the main window in drawing units (1440 to the inch). That of the very first start has room for a graph
/// beside four legs and twelve rows of the schedule: 1280 x 860 pixels.
struct Placement {
  int left = 1000;
  int top = 1000;
  int width = 19200;
  int height = 12900;
};

/// What the window of a plan shows beside the rows of the plan.
struct PlanLook {
  std::string caption;
  bool modified = false;    ///< its series has unsaved changes
  bool repetitive = false;  ///< a dive behind another one
  std::string notice;       ///< over the plot: why there are no rows, or that the plan does not decompress
  std::string asBefore;     ///< the plot is grey under these words: it is that of before something that is refused
  std::pair<std::int16_t, std::int16_t> selected{0, 0};  ///< rows that are marked; 0 to 0 marks none
  std::vector<PlotPoint> overlay;                        ///< a dashed line over the plot: how a dive would go
  std::vector<KeptLine> kept;                            ///< plans that are drawn thin behind this one
  bool fitPlan = false;                                  ///< the plan fills the window, or has room to grow
  GraphExtras extras;
};

enum class Arrangement { Cascade, TileHorizontal, TileVertical, Icons };

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
  /// Moves the window, unless it is maximised; the view clamps it to the screens that are there.
  virtual void Place(const Placement& placement) = 0;
  /// Where the window is, or would be when it is not maximised.
  [[nodiscard]] virtual Placement PlaceNow() const = 0;
  [[nodiscard]] virtual bool IsMinimised() const = 0;
  virtual void ShowWindow() = 0;
  /// The entries of the menus have changed: recent files, open plans.
  virtual void MenuChanged() = 0;
  /// Shows or hides a pane of the form, which is loaded.
  virtual void ShowPane(PaneForm& pane, bool shown) = 0;
  /// Gives the pane, which is shown, the keyboard.
  virtual void FocusPane(PaneForm& pane) = 0;
  /// The pane that has the keyboard; null for none.
  [[nodiscard]] virtual const PaneForm* FocusedPane() const = 0;
  /// Where the panes are and which are shown, as a text of its own making.
  [[nodiscard]] virtual std::string PanesNow() const = 0;
  /// Puts the panes where such a text tells, and returns those that it tells to be shown; nothing for a text of
  /// another program. To be called before a pane is shown.
  virtual std::optional<std::vector<PaneForm*>> RestorePanes(const std::string& panes) = 0;
  /// Puts the panes where they are at the very first start; all of them are shown then.
  virtual void PlacePanes() = 0;

  /// A document is another than before: its window follows, made when the document is first in front, gone when it is
  /// closed. What it shows is read from the form.
  virtual void StateChanged(std::int16_t document) = 0;
  /// Arranges the windows of the open plans.
  virtual void Arrange(Arrangement arrangement) = 0;
  /// Shows all of the graph. False when all of it is shown.
  virtual bool ResetZoom(std::int16_t document) = 0;
  /// Writes a picture of the graph as SVG or PNG; false when that failed.
  virtual bool ExportGraph(std::int16_t document, const std::string& file, bool svg) = 0;
  /// The same of any picture.
  virtual bool SavePicture(const std::string& file, const FilePicture& picture, bool svg) = 0;
};

}  // namespace tav
