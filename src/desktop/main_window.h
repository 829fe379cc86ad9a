#pragma once

#include <QMainWindow>
#include <functional>
#include <map>

#include "app/main_form.h"

class QMdiArea;
class QMdiSubWindow;
class QToolBar;

namespace tav {

class GraphView;
class PaneDocks;

/// The main window on the screen: menu, tool bar and status bar of frmMain, and a child window for each plan that has
/// been in front.
class MainWindow : public QMainWindow, public MainView {
  Q_OBJECT
 public:
  MainWindow();
  ~MainWindow() override;

  /// Makes the graph of a document; set before the first document opens.
  std::function<GraphView*(std::int16_t document)> makeGraph;

  // MainView
  void Attach(frmMain& form) override;
  void Detach() override;
  void Place(const Placement& placement) override;
  [[nodiscard]] Placement PlaceNow() const override;
  [[nodiscard]] bool IsMinimised() const override { return isMinimized(); }
  void ShowWindow() override { show(); }
  void MenuChanged() override;
  void ShowPane(PaneForm& pane, bool shown) override;
  void FocusPane(PaneForm& pane) override;
  [[nodiscard]] const PaneForm* FocusedPane() const override;
  [[nodiscard]] std::string PanesNow() const override;
  std::optional<std::vector<PaneForm*>> RestorePanes(const std::string& panes) override;
  void PlacePanes() override;
  void StateChanged(std::int16_t document) override;
  void Arrange(Arrangement arrangement) override;
  bool ResetZoom(std::int16_t document) override;
  bool ExportGraph(std::int16_t document, const std::string& file, bool svg) override;
  bool SavePicture(const std::string& file, const FilePicture& picture, bool svg) override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Child {
    QMdiSubWindow* window = nullptr;
    GraphView* graph = nullptr;
  };

  void BuildMenu();
  void BuildToolBar();
  void AddSearchHint();
  /// The child window of an open document; made when it is first asked for.
  Child& Of(std::int16_t document);
  void Remove(std::int16_t document);
  /// What a child window shows beside its plan.
  void Follow(std::int16_t document, const Child& child);
  void BringToFront(std::int16_t document);
  /// Brings the next or, with -1, the previous of all open plans to the front.
  void Turn(int step);
  void Tile(bool rows);
  /// The name of the program, and that of the plan in front with its unsaved mark.
  void ShowTitle();
  /// Gives the keyboard to the graph of the plan in front.
  void FocusPlan();
  void SubWindowActivated(QMdiSubWindow* window);

  QMdiArea* area_;
  QToolBar* toolBar_ = nullptr;
  PaneDocks* docks_ = nullptr;
  frmMain* form_ = nullptr;
  std::map<std::int16_t, Child> children_;
  bool menuStale_ = false;
  bool showingTitle_ = false;
  bool moving_ = false;  ///< windows come and go by the form's will, which is no choice of the user's
};

}  // namespace tav
