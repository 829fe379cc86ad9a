#pragma once

#include <QWidget>
#include <functional>

#include "desktop/qt_surface.h"

namespace tav {

/// Shows a surface, or a part of one that is wider than the widget. The widget paints an image of what is seen, so that
/// it does not flicker and a wide surface costs no memory; only what has been drawn anew is painted again.
class SurfaceWidget : public QWidget {
  Q_OBJECT
 public:
  explicit SurfaceWidget(QWidget* parent);

  /// Called when there is nothing to show: at first, in another size or at another scale.
  std::function<void()> RedrawWanted;

  /// Shows the part from `scroll` on of a surface of that size in pixels. All of it must be drawn anew.
  void ShowPart(QSize whole, int scroll);
  /// The surface; what is drawn outside of the part that is seen is cut off.
  PainterSurface& Surface();
  /// Brings what was drawn since the last call to the screen.
  void Flush();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  ImageSurface surface_;
  QSize whole_;  ///< none: that of the widget
  int scroll_ = 0;
};

}  // namespace tav
