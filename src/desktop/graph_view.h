#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

#include "app/document_plan.h"
#include "app/main_view.h"
#include "desktop/qt_surface.h"
#include "graph/profile_graph.h"

class QLabel;
class QScrollBar;
class QTimer;

namespace tav {

class Program;
class SurfaceWidget;

/// The window of a plan: the graph with its axes, the compartment bars, and what the mouse does on them.
class GraphView : public QWidget, public GraphWindow {
  Q_OBJECT
 public:
  /// What the view hands on to the main window.
  struct Actions {
    std::function<void(Single depth, Single segmentTime)> newWaypoint;
    std::function<void(std::int16_t row)> viewRow;
    std::function<void()> popup;
    std::function<std::string(std::int16_t row)> rowRemark = {};  ///< what else there is to tell of a row
    /// Whether a row is the end of a leg, so that a second click edits it.
    std::function<bool(std::int16_t row)> endsLeg = {};
    std::function<void(std::int16_t row)> editRow = {};
    std::unique_ptr<GraphLegs> legs = {};  ///< what may be done to the legs
  };

  GraphView(DocumentForms& forms, std::int16_t document, Actions actions, LocaleSeparators separators = {});

  void Redraw();
  /// Draws the plan anew with what else is to be shown, the marked rows brought into sight.
  void Follow(const PlanLook& look);
  /// Shows all of it. False when all of it is shown.
  bool ResetZoom();
  /// The whole graph for a file; to be drawn while the view is there.
  [[nodiscard]] FilePicture Picture();

  // GraphWindow
  void ShowReadOut(double x, double y, const std::string& text) override;
  void HideReadOut() override;
  void ShowCross(bool cross) override;
  void ShowPopup() override { actions_.popup(); }
  void MarkModified() override { forms_(document_).MarkModified(); }
  void NewWaypoint(Single depth, Single segmentTime) override;
  void ViewRow(std::int16_t row) override;
  void EditRow(std::int16_t row) override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void LayOut();
  [[nodiscard]] ScreenPoint OnPlot(QPointF position) const;
  void GridMouse(QEvent* event);
  /// Stretches the time; what lies at that pixel of the view of the plot stays there.
  void Zoom(double factor, double atPixel);
  /// Keys that work on the selected waypoint. False for others, and without one.
  bool WaypointKey(const QKeyEvent& event);
  /// The pointer has moved, or Shift has gone down or up.
  void PointTo(QPointF position, bool wayOut);

  DocumentForms& forms_;
  std::int16_t document_;
  Actions actions_;
  DocumentPlan plan_;
  ProfileGraph graph_;
  PlotView shown_;
  QSize plot_;  ///< pixels, of which the grid shows a part
  SurfaceWidget* container_;
  SurfaceWidget* grid_;
  SurfaceWidget* bars_;
  SurfaceWidget* tissues_;
  QScrollBar* scrollBar_;
  QLabel* readOut_;
  QLabel* asBefore_;
  QLabel* notice_;
  std::optional<std::int16_t> clicked_;  ///< the end of a leg, to be shown unless a second click follows
  QTimer* secondClick_;
};

/// The graph of a document of the program.
GraphView* MakeGraphView(Program& program, std::int16_t document);

}  // namespace tav
