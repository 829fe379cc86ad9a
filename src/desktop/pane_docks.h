#pragma once

#include <QList>
#include <QObject>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

class QDockWidget;
class QMainWindow;

namespace tav {

class frmMain;
class PaneForm;

/// The panes of the main form as docks of its window: one for each, at the right at first, tabbed, floated and moved as
/// the user likes. The content of a dock is made when it is first shown.
class PaneDocks : public QObject {
 public:
  /// `leave` takes the keyboard out of a pane that the user closes.
  PaneDocks(QMainWindow& window, frmMain& form, std::function<void()> leave);
  ~PaneDocks() override;

  void Show(PaneForm& pane, bool shown);
  void Focus(PaneForm& pane);
  /// The one that has the keyboard; null for none.
  [[nodiscard]] const PaneForm* Focused() const;
  [[nodiscard]] std::string State();
  std::optional<std::vector<PaneForm*>> Restore(const std::string& state);
  /// All of them below each other at the right, in their first sizes.
  void DefaultLayout();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] QDockWidget& DockOf(PaneForm& pane) const { return *docks_.at(&pane); }
  /// All are shown within the window: then their sizes are what the user has made of them.
  [[nodiscard]] bool AreWhole() const;
  void NoteSizes();
  void GiveSizes();

  QMainWindow& window_;
  std::function<void()> leave_;
  std::map<PaneForm*, QDockWidget*> docks_;
  QList<QDockWidget*> order_;  ///< beside the graphs, from the top, at first
  QList<QDockWidget*> below_;  ///< below them, shown when they are asked for
  bool placedBelow_ = false;   ///< one of these has been shown, and has the height that the user gave it
  QList<int> widths_;          ///< in that order, as they were when all were shown last
  QList<int> heights_;
  bool first_ = false;  ///< the first layout waits for the window to be shown
};

}  // namespace tav
