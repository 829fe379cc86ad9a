#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/dive_moment.h"
#include "graph/overlay_line.h"
#include "model/number_text.h"
#include "picture/profile_plot.h"
#include "plans/document_forms.h"

namespace tav {

/// What the graph asks of its window. Positions are in drawing units of the plot.
class GraphWindow {
 public:
  virtual ~GraphWindow() = default;

  /// The read-out of a drag, with its top left corner there.
  virtual void ShowReadOut(double x, double y, const std::string& text) = 0;
  virtual void HideReadOut() = 0;
  virtual void ShowCeiling(const std::string& text, Colour colour) = 0;
  virtual void ShowCross(bool cross) = 0;
  virtual void ShowPopup() = 0;
  /// A drag has ended: a waypoint at that depth, 0 or more, that many minutes after the last row. The minutes are below
  /// 0 when the drag went to the left of it.
  virtual void NewWaypoint(Single depth, Single segmentTime) = 0;
  /// A row was clicked.
  virtual void ViewRow(std::int16_t row) = 0;
};

/// The graph of one document: what it draws and what the mouse does on it.
class ProfileGraph {
 public:
  ProfileGraph(DocumentForms& forms, std::int16_t document, GraphWindow& window, LocaleSeparators separators = {})
      : forms_(forms), document_(document), window_(window), separators_(std::move(separators)) {}

  /// What else there is to tell of a row of the plan; may be empty.
  std::function<std::string(std::int16_t row)> rowRemark;

  /// Draws all of the plan on these surfaces and keeps their scale for the mouse.
  void RedrawProfile(DrawingSurface& container, DrawingSurface& grid, DrawingSurface& bars, const PlotView& view = {});

  /// Draws the map of the tissues below a plot that is scrolled by that much, in the scale of the last redraw.
  void DrawTissues(DrawingSurface& tissues, double scroll) const;
  /// A line that is drawn dashed over the plan from the next redraw on; empty for none. False when it is there already.
  bool SetOverlay(const std::vector<PlotPoint>& line);

  /// Draws all of the plan on one surface, with the titles, for a picture: the plan fills the plot, and
  /// nothing is scrolled or cut off. Changes nothing else.
  void DrawPicture(DrawingSurface& picture, const GraphExtras& extras) const;

  /// The left button shows the row under it, or starts a drag from the last row to that point, or to the nearest one of
  /// the plot. The right button opens the menu, and ends a drag that is under way.
  void MouseDown(bool right, Single x, Single y, DrawingSurface& grid);
  /// `visibleWidth` is that of the window: the pointer is a cross within it.
  void MouseMove(Single x, Single y, double visibleWidth, DrawingSurface& grid);
  /// Ends a drag with a new waypoint at its last position inside the plot.
  void MouseUp(DrawingSurface& grid);
  /// Ends a drag without a waypoint.
  void CancelDrag(DrawingSurface& grid);
  [[nodiscard]] bool Dragging() const { return dragging_; }

  /// Marks the segments that end in these rows, from the next drawing on; 0 to 0 takes the mark away. Rows that the
  /// plan does not have are left out.
  void SelectRows(std::int16_t first, std::int16_t last) { selected_ = {first, last}; }
  /// Where the marked segments begin and end, in drawing units of the plot; nothing without any.
  [[nodiscard]] std::optional<std::pair<double, double>> SelectedSpan() const;

  /// The row that a click there means: within half a minute and half a depth unit.
  [[nodiscard]] std::optional<std::int16_t> RowAt(Single x, Single y) const;
  /// What to tell of the row nearest to a point, if one is near.
  [[nodiscard]] std::string TipAt(Single x, Single y) const;
  /// The plan in words, a line a row: for those who cannot see the picture, and for what reads an exported one.
  [[nodiscard]] std::string Description() const;
  /// The title of the depth axis, to be written downwards: its letters, then the unit.
  [[nodiscard]] std::vector<std::string> DepthLetters() const;

 private:
  struct CeilingText {
    std::string text;
    Colour colour = kBlack;
  };
  [[nodiscard]] CeilingText LastCeiling() const;
  /// What is told of a row, with that text between the figures.
  [[nodiscard]] std::string FiguresOf(const Waypoint& row, std::string_view between) const;
  void UpdateReadOut(ScreenPoint at);
  void DragTo(ScreenPoint at, DrawingSurface& grid);
  void MarkSelected(DrawingSurface& grid) const;
  /// What to do on a plan that is still empty.
  void ShowHint(double visibleWidth, DrawingSurface& grid) const;
  /// What a point of a drag means; above the surface it means the surface.
  [[nodiscard]] WorldPoint BelowSurface(ScreenPoint at) const;
  /// How the dive goes between its rows; worked out once for each evaluation of the plan.
  [[nodiscard]] const std::vector<DiveMoment>& Moments() const;
  void DrawTissues(DrawingSurface& tissues, const GraphScale& scale, double scroll) const;
  [[nodiscard]] frmWaypointEditor& Editor() const { return forms_(document_); }
  [[nodiscard]] DiveTemplate& Template() const { return forms_.Services().documents(document_).Template; }
  [[nodiscard]] std::string T(int id) const { return forms_.Services().texts.GetResString(id); }
  [[nodiscard]] std::string Fixed(Single value, int decimals) const {
    return WriteLocaleNumber(FormatFixed(value, decimals), separators_);
  }
  [[nodiscard]] std::string LengthUnit() const { return Template().Metric ? " m" : " ft"; }

  DocumentForms& forms_;
  std::int16_t document_;
  GraphWindow& window_;
  LocaleSeparators separators_;  ///< of all numbers in words
  GraphScale scale_;
  std::vector<PlotPoint> overlay_;
  ScreenPoint lastPoint_;  ///< of the last row
  ScreenPoint dragPoint_;  ///< the last position of a drag inside the plot
  bool dragging_ = false;
  mutable std::vector<DiveMoment> moments_;
  mutable int momentsOf_ = -1;  ///< the evaluation that they belong to
  std::pair<std::int16_t, std::int16_t> selected_{0, 0};
};

}  // namespace tav
