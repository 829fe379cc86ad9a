#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "advice/leaving.h"
#include "graph/graph_layout.h"
#include "graph/graph_legs.h"
#include "graph/overlay_line.h"
#include "picture/plan_picture.h"

namespace tav {

/// What the graph asks of its window. Positions are in drawing units of the plot.
class GraphWindow {
 public:
  virtual ~GraphWindow() = default;

  /// The read-out of a drag, or of the moment under the pointer, with its top left corner there.
  virtual void ShowReadOut(double x, double y, const std::string& text) = 0;
  virtual void HideReadOut() = 0;
  virtual void ShowCross(bool cross) = 0;
  virtual void ShowPopup() = 0;
  /// The user is about to change the plan.
  virtual void MarkModified() = 0;
  /// A drag has ended: a waypoint at that depth, 0 or more, that many minutes after the last row. The minutes are below
  /// 0 when the drag went to the left of it.
  virtual void NewWaypoint(Single depth, Single segmentTime) = 0;
  /// A row was clicked.
  virtual void ViewRow(std::int16_t row) = 0;
  /// A row was clicked twice: its leg is to be edited.
  virtual void EditRow(std::int16_t row) = 0;
};

/// The graph of one window: the picture of its plan, and what the mouse does on it.
class ProfileGraph {
 public:
  /// `plan` gives the plan as it is now.
  ProfileGraph(std::function<DrawnPlan()> plan, GraphWindow& window) : plan_(std::move(plan)), window_(window) {}

  /// What else there is to tell of a row of the plan; may be empty.
  std::function<std::string(std::int16_t row)> rowRemark;
  /// What leaving the plan at a run time takes; may be empty. It is asked when the pointer comes to another moment.
  std::function<Surfacing(Single time)> leaving;
  /// What may be done to the legs; without it they are only looked at. It outlives the graph.
  GraphLegs* legs = nullptr;

  /// Draws all of the plan on these surfaces and keeps their scale for the mouse.
  void RedrawProfile(DrawingSurface& container, DrawingSurface& grid, DrawingSurface& bars, const PlotView& view = {});
  /// That of the last redraw.
  [[nodiscard]] const GraphScale& Scale() const { return scale_; }
  /// A line that is drawn dashed over the plan from the next redraw on; empty for none. False when it is there already.
  bool SetOverlay(const std::vector<PlotPoint>& line);

  /// Plans that are drawn thin behind this one from the next redraw on.
  void SetKept(std::vector<KeptLine> kept) { kept_ = std::move(kept); }

  /// The left button takes hold of a waypoint, or shows the row under it; elsewhere it selects what is near on a plan
  /// with its ascent, and on one without starts a drag from the last row to that point, or to the nearest one of the
  /// plot. The right button opens the menu, and ends a drag that is under way.
  void MouseDown(bool right, Single x, Single y, DrawingSurface& grid);
  /// A second click of the left button edits the leg that ends there, or shows the row; elsewhere it adds a leg to a
  /// plan with its ascent.
  void DoubleClick(Single x, Single y, DrawingSurface& grid);
  /// `visibleWidth` is that of the window: the pointer is a cross within it. Without a drag the moment of the plan
  /// under it is read out, at a line through the plot, and with `wayOut` the way to the surface is drawn from there.
  void MouseMove(Single x, Single y, double visibleWidth, DrawingSurface& grid, bool wayOut = false);
  /// The pointer is no longer over the plot.
  void MouseLeave(DrawingSurface& grid) { HideMoment(grid); }
  /// Ends a drag: a waypoint stays where it is, or a new one is asked for at the last position inside the plot.
  void MouseUp(DrawingSurface& grid);
  /// Ends a drag without a change.
  void CancelDrag(DrawingSurface& grid);
  [[nodiscard]] bool Dragging() const { return dragging_ || moving_; }

  // By keys. False when no waypoint is selected, or there is none to select.
  /// Moves the selected waypoint by steps of a metre or five feet, down for +1, and by minutes.
  bool Nudge(int steps, int minutes);
  bool RemoveSelected();
  /// Selects the next waypoint for +1, the one before for -1.
  bool SelectNext(int by);

  /// Marks the segments that end in these rows, from the next drawing on; 0 to 0 takes the mark away. Rows that the
  /// plan does not have are left out.
  void SelectRows(std::int16_t first, std::int16_t last) { selected_ = {first, last}; }
  /// The marked row, if it is one that ends a leg.
  [[nodiscard]] std::optional<std::int16_t> SelectedWaypoint() const;
  /// Where the marked segments begin and end, in drawing units of the plot; nothing without any.
  [[nodiscard]] std::optional<std::pair<double, double>> SelectedSpan() const;

  /// The row that a click there means: within half a minute and half a depth unit.
  [[nodiscard]] std::optional<std::int16_t> RowAt(Single x, Single y) const;
  /// What to tell of the row nearest to a point, if one is near.
  [[nodiscard]] std::string TipAt(Single x, Single y) const;

 private:
  void UpdateReadOut(const DrawnPlan& plan);
  void ShowMoment(ScreenPoint at, DrawingSurface& grid, bool wayOut);
  void HideMoment(DrawingSurface& grid);
  /// Draws the line of the moment and the way out from it, or erases them.
  void DrawMoment(DrawingSurface& grid) const;
  void DragTo(ScreenPoint at, DrawingSurface& grid);
  void MoveTo(ScreenPoint at);
  void ReadMove();
  /// Tells why something was refused, at the selected waypoint or at a point.
  void Tell(const std::string& refusal, std::optional<ScreenPoint> at = {});
  /// The waypoint near to a point of the screen.
  [[nodiscard]] std::optional<std::int16_t> WaypointAt(ScreenPoint at) const;
  /// The row of the segment near to a point, 0 when none is.
  [[nodiscard]] std::int16_t SegmentAt(ScreenPoint at) const;
  [[nodiscard]] double DepthStep() const { return plan_().settings.Metric ? 1 : 5; }
  void DrawPreview(const DiveTemplate& settings, DrawingSurface& grid) const;
  void MarkSelected(const DrawnPlan& plan, DrawingSurface& grid) const;
  /// What to do on a plan that is still empty.
  void ShowHint(const TextSource& texts, double visibleWidth, DrawingSurface& grid) const;
  /// What a point of a drag means; above the surface it means the surface.
  [[nodiscard]] WorldPoint BelowSurface(ScreenPoint at) const;

  std::function<DrawnPlan()> plan_;
  GraphWindow& window_;
  GraphScale scale_;
  std::vector<PlotPoint> overlay_;
  std::vector<KeptLine> kept_;
  ScreenPoint lastPoint_;  ///< of the last row
  ScreenPoint dragPoint_;  ///< the last position of a drag inside the plot
  bool dragging_ = false;
  /// The button went down on a waypoint.
  struct Grip {
    ScreenPoint at;
    Waypoint row;
    std::int16_t number = 0;  ///< of the row
    Single depth, minutes;    ///< how far the waypoint has been moved
    std::string refusal;      ///< why it can't be there
  };
  std::optional<Grip> grip_;
  bool moving_ = false;
  PlotPoint corner_;  ///< of the plot; it stays while a waypoint is moved
  bool light_ = false;
  /// The moment that is read out.
  struct ReadMoment {
    Single time;
    double x;  ///< of its line
    std::string text;
    std::vector<PlotPoint> wayOut;
    bool onWayOut = false;  ///< it is drawn
  };
  std::optional<ReadMoment> read_;
  std::pair<std::int16_t, std::int16_t> selected_{0, 0};
};

}  // namespace tav
