#include "desktop/surface_widget.h"

#include <QPaintEvent>

namespace tav {

SurfaceWidget::SurfaceWidget(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);  // no flicker: the image covers all
}

PainterSurface& SurfaceWidget::Surface() {
  surface_.Resize(size(), devicePixelRatioF());
  return surface_.Surface();
}

void SurfaceWidget::Flush() { update(Surface().TakeTouched()); }

void SurfaceWidget::paintEvent(QPaintEvent* event) {
  Surface();
  QPainter painter(this);
  const QRect area = event->rect();
  const double scale = surface_.Image().devicePixelRatio();
  painter.drawImage(QRectF(area), surface_.Image(),
                    QRectF(area.x() * scale, area.y() * scale, area.width() * scale, area.height() * scale));
}

}  // namespace tav
