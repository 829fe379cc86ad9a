#pragma once

#include <QMainWindow>
#include <functional>
#include <map>

#include "app/main_form.h"
#include "platform/document_windows.h"

class QMdiArea;
class QMdiSubWindow;
class QToolBar;

namespace tav {

class GraphView;
class PaneDocks;

/// The main window on the screen: menu, tool bar and status bar of frmMain, and a child window for each plan.
class MainWindow : public QMainWindow, public DocumentWindows, public MainView {
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
  [[nodiscard]] std::string PanesNow() const override;
  std::optional<std::vector<PaneForm*>> RestorePanes(const std::string& panes) override;
  void ResetZoom(std::int16_t document) override;
  void SelectRows(std::int16_t document, std::int16_t first, std::int16_t last) override;
  void FitPlan(bool fit) override;
  void ShowExtras(const GraphExtras& extras) override;
  void ShowOverlay(std::int16_t document, const std::vector<PlotPoint>& line) override;
  void ShowAsBefore(std::int16_t document, const std::string& words) override;
  bool ExportGraph(std::int16_t document, const std::string& file, bool svg) override;

  // DocumentWindows
  void OpenWindow(std::int16_t document) override;
  void RemoveWindow(std::int16_t document) override;
  void ActivateWindow(std::int16_t document) override;
  [[nodiscard]] std::optional<std::int16_t> ActiveDocument() const override { return active_; }
  void Arrange(Arrangement arrangement) override;
  void SetCaption(std::int16_t document, const std::string& caption) override;
  void SetModified(std::int16_t document, bool modified) override;
  void SetRepetitiveIcon(std::int16_t document) override;
  void TemplateChanged(std::int16_t document) override;
  void Redraw(std::int16_t document) override;
  void ShowNotice(std::int16_t document, const std::string& text) override;

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
  Child* Find(std::int16_t document);
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
  std::optional<std::int16_t> active_;
  bool fitPlan_ = false;
  GraphExtras extras_;
  bool showingTitle_ = false;
};

}  // namespace tav
