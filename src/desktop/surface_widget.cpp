#include "desktop/surface_widget.h"

#include <QPaintEvent>

namespace tav {

SurfaceWidget::SurfaceWidget(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);  // no flicker: the image covers all
}

void SurfaceWidget::ShowPart(QSize whole, int scroll) {
  whole_ = whole;
  scroll_ = scroll;
}

PainterSurface& SurfaceWidget::Surface() {
  surface_.Show(size(), devicePixelRatioF(), whole_.isValid() ? whole_ : size(), scroll_);
  return surface_.Surface();
}

void SurfaceWidget::Flush() { update(Surface().TakeTouched().translated(-scroll_, 0) & rect()); }

void SurfaceWidget::paintEvent(QPaintEvent* event) {
  if (!surface_.Fits(size(), devicePixelRatioF()) && RedrawWanted) RedrawWanted();
  Surface();
  QPainter painter(this);
  const QRect area = event->rect();
  const double scale = surface_.Image().devicePixelRatio();
  painter.drawImage(QRectF(area), surface_.Image(),
                    QRectF(area.x() * scale, area.y() * scale, area.width() * scale, area.height() * scale));
}

}  // namespace tav
