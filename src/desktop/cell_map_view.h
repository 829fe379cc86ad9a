#pragma once

#include <QTimer>
#include <QWidget>

#include "controls/cell_map.h"

namespace tav {

/// Shows a map of cells with its heads. The pointer and the arrow keys look at a cell, Return or a double click takes
/// it.
class CellMapView : public QWidget {
  Q_OBJECT
 public:
  explicit CellMapView(QWidget* parent);
  CellMapView(const CellMapView&) = delete;
  CellMapView& operator=(const CellMapView&) = delete;

  void Bind(CellMap& map) { map_ = &map; }
  /// The record has changed.
  void Follow();
  [[nodiscard]] QSize minimumSizeHint() const override;
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  /// The place of a cell in pixels; the heads stand around the whole.
  [[nodiscard]] QRect PlaceOf(int cell) const;
  /// The cell at a place; -1 beside the map.
  [[nodiscard]] int CellAt(QPoint place) const;
  [[nodiscard]] QRect Field() const;
  void PaintHeads(QPainter& painter) const;
  void PaintCell(QPainter& painter, int cell) const;

  CellMap* map_ = nullptr;
  QTimer more_;
};

}  // namespace tav
