#pragma once

#include <QWidget>

#include "desktop/qt_surface.h"

namespace tav {

/// Shows a surface. Only what has been drawn anew is painted again.
class SurfaceWidget : public QWidget {
  Q_OBJECT
 public:
  explicit SurfaceWidget(QWidget* parent);

  /// The surface in the size and at the scale of the widget.
  PainterSurface& Surface();
  /// Brings what was drawn since the last call to the screen.
  void Flush();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  ImageSurface surface_;
};

}  // namespace tav
