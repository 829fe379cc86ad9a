#include "desktop/cell_map_view.h"

#include <QtWidgets>
#include <algorithm>

#include "desktop/qt_surface.h"
#include "desktop/qt_text.h"

namespace tav {
namespace {

constexpr int kGap = 4;  // pixels between heads and cells

int WidestOf(const std::vector<std::string>& texts, const QFontMetrics& letters) {
  int widest = 0;
  for (const std::string& text : texts) widest = std::max(widest, letters.horizontalAdvance(ToQt(text)));
  return widest;
}

}  // namespace

CellMapView::CellMapView(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  more_.setInterval(0);
  connect(&more_, &QTimer::timeout, this, [this] {
    if (map_ != nullptr) map_->GoOn();
  });
}

void CellMapView::Follow() {
  setAccessibleDescription(ToQt(map_->ToolTipText));
  if (map_->WantsMore && !more_.isActive()) more_.start();
  if (!map_->WantsMore) more_.stop();
  update();
}

QSize CellMapView::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * 40, fontMetrics().height() * 10};
}
QSize CellMapView::sizeHint() const { return {fontMetrics().averageCharWidth() * 90, fontMetrics().height() * 26}; }

QRect CellMapView::Field() const {
  const QFontMetrics letters = fontMetrics();
  return rect().adjusted(WidestOf(map_->Map.Get().rowHeads, letters) + 2 * kGap, 2 * letters.height() + 2 * kGap, -kGap,
                         -letters.height() - kGap);
}

QRect CellMapView::PlaceOf(int cell) const {
  const CellMap::Content& map = map_->Map.Get();
  const QRect field = Field();
  const int column = cell % map.columns;
  const int row = cell / map.columns;
  const auto x = [&](int at) { return field.left() + at * field.width() / map.columns; };
  const auto y = [&](int at) { return field.top() + at * field.height() / map.rows; };
  return {QPoint(x(column), y(row)), QPoint(x(column + 1) - 1, y(row + 1) - 1)};
}

int CellMapView::CellAt(QPoint place) const {
  const CellMap::Content& map = map_->Map.Get();
  const QRect field = Field();
  if (map.columns == 0 || map.rows == 0 || !field.contains(place)) return -1;
  for (int row = 0; row < map.rows; ++row) {
    const int first = row * map.columns;
    if (place.y() > PlaceOf(first).bottom()) continue;
    for (int cell = first; cell < first + map.columns; ++cell) {
      if (place.x() <= PlaceOf(cell).right()) return cell;
    }
  }
  return -1;
}

void CellMapView::PaintHeads(QPainter& painter) const {
  const CellMap::Content& map = map_->Map.Get();
  const QFontMetrics letters = fontMetrics();
  const QRect field = Field();
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(QRect(field.left(), 0, field.width(), letters.height()), Qt::AlignCenter, ToQt(map.overColumns));
  const int width = WidestOf(map.columnHeads, letters) + 2 * kGap;
  int free = field.left() - width;
  for (int column = 0; column < map.columns; ++column) {
    const QRect place = PlaceOf(column);
    const bool isMarked = map.marked >= 0 && column == map.marked % map.columns;
    // The planned dive always has its head; the others where there is room on both sides of it.
    const int marked = map.marked >= 0 ? PlaceOf(map.marked % map.columns).center().x() : -width;
    const int centre = place.center().x();
    if (!isMarked && (centre < free || std::abs(centre - marked) < width)) continue;
    free = centre + width;
    // The last one has no room on its right.
    const QString head = ToQt(map.columnHeads[static_cast<std::size_t>(column)]);
    const int wide = letters.horizontalAdvance(head);
    painter.drawText(QPoint(std::min(centre - wide / 2, this->width() - wide), field.top() - letters.descent() - kGap),
                     head);
  }
  int right = 0;
  for (const CellMap::Foot& foot : map.feet) {
    const int left = PlaceOf(foot.column).left();
    if (left < right) continue;
    const QString text = ToQt(foot.text);
    right = left + letters.horizontalAdvance(text) + 2 * kGap;
    painter.drawText(QPoint(left, field.bottom() + letters.ascent() + kGap), text);
  }
  int below = -letters.height();
  for (int row = 0; row < map.rows; ++row) {
    const int middle = PlaceOf(row * map.columns).center().y();
    const bool isMarked = map.marked >= 0 && row == map.marked / map.columns;
    const int marked = map.marked >= 0 ? PlaceOf(map.marked).center().y() : below;
    if (!isMarked && (middle < below || std::abs(middle - marked) < letters.height())) continue;
    below = middle + letters.height();
    painter.drawText(QRect(0, middle - letters.height() / 2, field.left() - kGap, letters.height()),
                     Qt::AlignRight | Qt::AlignVCenter, ToQt(map.rowHeads[static_cast<std::size_t>(row)]));
  }
}

void CellMapView::PaintCell(QPainter& painter, int cell) const {
  const CellMap::Cell& shown = map_->Map.Get().cells[static_cast<std::size_t>(cell)];
  const QRect place = PlaceOf(cell);
  painter.fillRect(place.adjusted(0, 0, -1, -1), ColourOf(shown.colour));
  const QFontMetrics letters = fontMetrics();
  if (place.width() > letters.averageCharWidth() + 2 && place.height() > letters.ascent()) {
    painter.setPen(ColourOf(shown.ink));
    painter.drawText(place, Qt::AlignCenter, QString(QLatin1Char(shown.letter)));
  }
}

void CellMapView::paintEvent(QPaintEvent* /*event*/) {
  if (map_ == nullptr) return;
  const CellMap::Content& map = map_->Map.Get();
  if (map.columns == 0 || map.rows == 0) return;
  QPainter painter(this);
  PaintHeads(painter);
  const int there = static_cast<int>(map.cells.size());
  for (int cell = 0; cell < there; ++cell) PaintCell(painter, cell);
  painter.setPen(QPen(QColor(0x30, 0x30, 0x30), 2));
  for (int cell = 0; cell < there; ++cell) {
    const QRect place = PlaceOf(cell);
    if (map.cells[static_cast<std::size_t>(cell)].edgeAtLeft)
      painter.drawLine(place.topLeft(), QPoint(place.left(), place.bottom() + 1));
    if (map.cells[static_cast<std::size_t>(cell)].edgeAbove)
      painter.drawLine(place.topLeft(), QPoint(place.right() + 1, place.top()));
  }
  const auto frame = [&](int cell, const QColor& colour, int width) {
    if (cell < 0 || cell >= map.columns * map.rows) return;
    painter.setPen(QPen(colour, width));
    painter.drawRect(PlaceOf(cell));
  };
  frame(map.marked, Qt::black, 3);
  frame(map_->Pointed, QColor(0x1F, 0x5A, 0xA6), 1);
  frame(map_->Selected, QColor(0x1F, 0x5A, 0xA6), hasFocus() ? 3 : 2);
}

void CellMapView::mouseMoveEvent(QMouseEvent* event) { map_->Point(CellAt(event->position().toPoint())); }

void CellMapView::leaveEvent(QEvent* event) {
  map_->Point(-1);
  QWidget::leaveEvent(event);
}

void CellMapView::mousePressEvent(QMouseEvent* event) { map_->Select(CellAt(event->position().toPoint())); }

void CellMapView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (CellAt(event->position().toPoint()) >= 0) map_->PressReturn();
}

void CellMapView::keyPressEvent(QKeyEvent* event) {
  const CellMap::Content& map = map_->Map.Get();
  switch (event->key()) {
    case Qt::Key_Left:
      return map_->Step(-1, 0);
    case Qt::Key_Right:
      return map_->Step(1, 0);
    case Qt::Key_Up:
      return map_->Step(0, -1);
    case Qt::Key_Down:
      return map_->Step(0, 1);
    case Qt::Key_Home:
      return map_->Step(-map.columns, 0);
    case Qt::Key_End:
      return map_->Step(map.columns, 0);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return map_->PressReturn();
    default:
      return QWidget::keyPressEvent(event);
  }
}

void CellMapView::focusInEvent(QFocusEvent* event) {
  if (map_->Selected < 0) map_->Step(0, 0);
  update();
  QWidget::focusInEvent(event);
}

}  // namespace tav
