#include "desktop/page_area.h"

#include <QtWidgets>

#include "controls/controls.h"
#include "desktop/qt_surface.h"

namespace tav {
namespace {

constexpr int kMargin = 8;  ///< pixels around the page

}  // namespace

PageArea::PageArea(QWidget* parent) : QAbstractScrollArea(parent) {
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setBackgroundRole(QPalette::Dark);
  viewport()->setAutoFillBackground(true);
}

void PageArea::Bind(PageView& view) {
  view_ = &view;
  view.Changed = [this] { Refresh(); };
  view.FocusWanted = [this] { setFocus(); };
  connect(this, &QObject::destroyed, this, [&view] {
    view.Changed = nullptr;
    view.FocusWanted = nullptr;
  });
  const std::pair<QKeySequence, PageView::Wish> keys[] = {
      {QKeySequence(Qt::Key_PageUp), PageView::Wish::Previous}, {QKeySequence(Qt::Key_PageDown), PageView::Wish::Next},
      {QKeySequence(Qt::Key_Home), PageView::Wish::First},      {QKeySequence(Qt::Key_End), PageView::Wish::Last},
      {QKeySequence(Qt::Key_Plus), PageView::Wish::ZoomIn},     {QKeySequence(Qt::Key_Equal), PageView::Wish::ZoomIn},
      {QKeySequence(Qt::Key_Minus), PageView::Wish::ZoomOut}};
  // Wherever in the window the focus is.
  for (const auto& [key, wish] : keys) {
    auto* shortcut = new QShortcut(key, this);
    shortcut->setContext(Qt::WindowShortcut);
    connect(shortcut, &QShortcut::activated, this, [this, wish = wish] { view_->Wished(wish); });
  }
}

QSizeF PageArea::PageSize() const {
  const double pixels = view_->Zoom / kUnitsPerPixel;
  return {view_->Size.width * pixels, view_->Size.height * pixels};
}

void PageArea::Refresh() {
  if (view_->Page != drawnPage_ || view_->Zoom != drawnZoom_) {
    image_ = {};
    LayOut();
    horizontalScrollBar()->setValue(0);
    verticalScrollBar()->setValue(0);
  }
  viewport()->update();
}

void PageArea::LayOut() {
  if (view_ == nullptr) return;
  const QSize whole = PageSize().toSize() + QSize(2 * kMargin, 2 * kMargin);
  const QSize room = viewport()->size();
  const auto set = [](QScrollBar* bar, int size, int seen) {
    constexpr int kSmall = 10;
    constexpr int kLarge = 3;
    bar->setRange(0, std::max(0, size - seen));
    bar->setSingleStep(std::max(1, bar->maximum() / kSmall));
    bar->setPageStep(std::max(1, bar->maximum() / kLarge));
  };
  set(horizontalScrollBar(), whole.width(), room.width());
  set(verticalScrollBar(), whole.height(), room.height());
}

void PageArea::DrawPage() {
  const double scale = devicePixelRatioF();
  image_ = QImage((PageSize() * scale).toSize().expandedTo(QSize(1, 1)), QImage::Format_RGB32);
  image_.setDevicePixelRatio(scale);
  image_.fill(Qt::white);
  QPainter painter(&image_);
  PainterSurface surface(painter, view_->Size.width, view_->Size.height, kUnitsPerPixel / view_->Zoom);
  view_->Draw(surface, view_->Zoom);
  drawnPage_ = view_->Page;
  drawnZoom_ = view_->Zoom;
}

void PageArea::paintEvent(QPaintEvent* /*event*/) {
  if (view_ == nullptr || !view_->Draw) return;
  if (image_.isNull() || image_.devicePixelRatio() != devicePixelRatioF()) DrawPage();
  const QSizeF size = PageSize();
  const auto place = [](double length, int room, const QScrollBar* bar) {
    return length + 2 * kMargin <= room ? (room - length) / 2 : kMargin - bar->value();
  };
  const QPointF at(std::floor(place(size.width(), viewport()->width(), horizontalScrollBar())),
                   std::floor(place(size.height(), viewport()->height(), verticalScrollBar())));
  QPainter painter(viewport());
  painter.fillRect(QRectF(at + QPointF(3, 3), size), QColor(0, 0, 0, 80));
  painter.drawImage(at, image_);
}

void PageArea::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  LayOut();
}

void PageArea::wheelEvent(QWheelEvent* event) {
  if ((event->modifiers() & Qt::ControlModifier) == 0) {
    QAbstractScrollArea::wheelEvent(event);
    return;
  }
  view_->Wished(event->angleDelta().y() > 0 ? PageView::Wish::ZoomIn : PageView::Wish::ZoomOut);
  event->accept();
}

void PageArea::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left:
      horizontalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepSub);
      break;
    case Qt::Key_Right:
      horizontalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
      break;
    case Qt::Key_Up:
      verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepSub);
      break;
    case Qt::Key_Down:
      verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
      break;
    default:
      QAbstractScrollArea::keyPressEvent(event);
  }
}

}  // namespace tav
