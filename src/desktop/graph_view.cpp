#include "desktop/graph_view.h"

#include <QSaveFile>
#include <QSvgGenerator>
#include <QtWidgets>

#include "app/program.h"
#include "desktop/form_binder.h"
#include "desktop/surface_widget.h"
#include "graph/graph_colours.h"

namespace tav {
namespace {

constexpr int kTimeTitle = 1501;
constexpr int kCeilingTitle = 1503;
constexpr double kLargestZoom = 12;

int Pixels(double units) { return static_cast<int>(units / kUnitsPerPixel); }

QRect PixelRect(const GraphRect& rect) {
  return {Pixels(rect.left), Pixels(rect.top), Pixels(rect.width), Pixels(rect.height)};
}

QColor ColourOf(Colour colour) { return {colour & 255, colour >> 8 & 255, colour >> 16 & 255}; }

QLabel* Caption(QWidget* parent, Colour colour) {
  auto* label = new QLabel(parent);
  QPalette palette = label->palette();
  palette.setColor(QPalette::WindowText, ColourOf(colour));
  label->setPalette(palette);
  return label;
}

}  // namespace

GraphView::GraphView(DocumentForms& forms, std::int16_t document, Actions actions)
    : forms_(forms),
      document_(document),
      actions_(std::move(actions)),
      graph_(forms, document, *this),
      container_(new SurfaceWidget(this)),
      axisContainer_(new QWidget(container_)),
      grid_(new SurfaceWidget(axisContainer_)),
      bars_(new SurfaceWidget(this)),
      scrollBar_(new QScrollBar(Qt::Horizontal, this)),
      time_(Caption(container_, kBlack)),
      depth_(Caption(container_, kBlack)),
      ceiling_(Caption(container_, kBlack)),
      ceilingNumber_(Caption(container_, kBlack)),
      readOut_(new QLabel(grid_)),
      notice_(new QLabel(this)) {
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(ToQt(forms.Services().texts.GetResString(1500)));
  setMinimumSize(200, 160);
  QPalette palette = this->palette();
  palette.setColor(QPalette::Window, ColourOf(graph::kBackground));
  setPalette(palette);
  setAutoFillBackground(true);
  grid_->setMouseTracking(true);
  grid_->installEventFilter(this);
  depth_->setAlignment(Qt::AlignHCenter);
  QFont bold = ceilingNumber_->font();
  bold.setBold(true);
  ceilingNumber_->setFont(bold);
  ceilingNumber_->setObjectName(QStringLiteral("lbCeilingNumber"));
  readOut_->setObjectName(QStringLiteral("Text1"));
  readOut_->setStyleSheet(QStringLiteral("background: #ffffe1; color: black; border: 1px solid #606060; padding: 2px"));
  readOut_->setAttribute(Qt::WA_TransparentForMouseEvents);
  readOut_->hide();
  notice_->setObjectName(QStringLiteral("notice"));
  notice_->setStyleSheet(QStringLiteral("background: #b00020; color: white; font-weight: bold; padding: 6px"));
  notice_->setWordWrap(true);
  notice_->hide();
  connect(scrollBar_, &QScrollBar::valueChanged, this, &GraphView::ScrollTo);
  TemplateChanged();
}

void GraphView::TemplateChanged() {
  const TextSource& texts = forms_.Services().texts;
  time_->setText(ToQt(texts.GetResString(kTimeTitle)));
  ceiling_->setText(ToQt(texts.GetResString(kCeilingTitle)));
  QStringList letters;
  for (const std::string& letter : graph_.DepthLetters()) letters << ToQt(letter);
  depth_->setText(letters.join(QLatin1Char('\n')));
  LayOut();
}

void GraphView::LayOut() {
  const GraphLayout layout = LayOutGraph(width() * kUnitsPerPixel, height() * kUnitsPerPixel,
                                         scrollBar_->sizeHint().height() * kUnitsPerPixel, zoom_);
  container_->setGeometry(PixelRect(layout.mainContainer));
  axisContainer_->setGeometry(PixelRect(layout.axisContainer));
  bars_->setGeometry(PixelRect(layout.compartments));
  scrollBar_->setGeometry(PixelRect(layout.scrollBar));
  grid_->resize(Pixels(layout.grid.width), Pixels(layout.grid.height));
  scrollBar_->setRange(0, Pixels(layout.scrollMaximum));
  scrollBar_->setPageStep(Pixels(layout.largeChange));
  scrollBar_->setSingleStep(Pixels(layout.smallChange));
  ScrollTo(scrollBar_->value());

  const int line = fontMetrics().height();
  time_->adjustSize();
  time_->move(container_->width() / 2, Pixels(100) - line / 4);
  ceiling_->adjustSize();
  ceiling_->move(Pixels(150), Pixels(100) - line / 4);
  ceilingNumber_->adjustSize();
  ceilingNumber_->move(ceiling_->x() + ceiling_->width() + fontMetrics().horizontalAdvance(QLatin1Char(' ')),
                       ceiling_->y());
  depth_->adjustSize();
  depth_->move(Pixels(60), std::max(2 * line, (container_->height() - depth_->height()) / 2));
  notice_->setGeometry(0, 0, width(), notice_->heightForWidth(width()));
  notice_->raise();
}

void GraphView::Redraw() {
  graph_.RedrawProfile(container_->Surface(), grid_->Surface(), bars_->Surface());
  container_->Flush();
  grid_->Flush();
  bars_->Flush();
}

void GraphView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  LayOut();
  Redraw();
}

void GraphView::ScrollTo(int value) { grid_->move(-value, 0); }

void GraphView::ShowNotice(const QString& text) {
  notice_->setText(text);
  notice_->setVisible(!text.isEmpty());
  LayOut();
}

void GraphView::ShowReadOut(double x, double y, const std::string& text) {
  readOut_->setText(ToQt(text));
  readOut_->adjustSize();
  readOut_->move(Pixels(x), Pixels(y));
  readOut_->show();
}

void GraphView::HideReadOut() { readOut_->hide(); }

void GraphView::ShowCeiling(const std::string& text, Colour colour) {
  ceilingNumber_->setText(ToQt(text));
  QPalette palette = ceilingNumber_->palette();
  palette.setColor(QPalette::WindowText, ColourOf(colour));
  ceilingNumber_->setPalette(palette);
  ceilingNumber_->adjustSize();
}

void GraphView::ShowCross(bool cross) { grid_->setCursor(cross ? Qt::CrossCursor : Qt::ArrowCursor); }

bool GraphView::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
      GridMouse(event);
      return true;
    case QEvent::Wheel: {
      auto* wheel = static_cast<QWheelEvent*>(event);
      if ((wheel->modifiers() & Qt::ControlModifier) == 0) {
        scrollBar_->event(event);
        return true;
      }
      Zoom(wheel->angleDelta().y() > 0 ? 1.25 : 0.8, wheel->position().x());
      return true;
    }
    case QEvent::ToolTip: {
      auto* help = static_cast<QHelpEvent*>(event);
      const std::string tip = graph_.TipAt(help->pos().x() * kUnitsPerPixel, help->pos().y() * kUnitsPerPixel);
      QToolTip::showText(help->globalPos(), ToQt(tip), grid_);
      return true;
    }
    default:
      return QWidget::eventFilter(watched, event);
  }
}

void GraphView::GridMouse(QEvent* event) {
  auto* mouse = static_cast<QMouseEvent*>(event);
  const Single x = mouse->position().x() * kUnitsPerPixel;
  const Single y = mouse->position().y() * kUnitsPerPixel;
  if (event->type() == QEvent::MouseMove) {
    graph_.MouseMove(x, y, (width() + scrollBar_->value()) * kUnitsPerPixel, grid_->Surface());
    grid_->Flush();
  } else if (event->type() == QEvent::MouseButtonRelease) {
    if (mouse->button() == Qt::LeftButton) graph_.MouseUp(grid_->Surface());
    grid_->Flush();
  } else if (mouse->button() == Qt::LeftButton || mouse->button() == Qt::RightButton) {
    setFocus(Qt::MouseFocusReason);
    graph_.MouseDown(mouse->button() == Qt::RightButton, x, y, grid_->Surface());
  }
}

void GraphView::Zoom(double factor, double atPixel) {
  const double zoom = std::clamp(zoom_ * factor, 1.0, kLargestZoom);
  if (zoom == zoom_) return;
  // What lies under the pointer stays there.
  const double seen = atPixel - scrollBar_->value();
  const double moved = atPixel * zoom / zoom_;
  zoom_ = zoom;
  LayOut();
  scrollBar_->setValue(static_cast<int>(moved - seen));
  Redraw();
}

void GraphView::ResetZoom() {
  zoom_ = 1;
  LayOut();
  scrollBar_->setValue(0);
  Redraw();
}

void GraphView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left:
      scrollBar_->triggerAction(QAbstractSlider::SliderSingleStepSub);
      break;
    case Qt::Key_Right:
      scrollBar_->triggerAction(QAbstractSlider::SliderSingleStepAdd);
      break;
    case Qt::Key_Home:
      scrollBar_->setValue(0);
      break;
    case Qt::Key_End:
      scrollBar_->setValue(scrollBar_->maximum());
      break;
    case Qt::Key_Menu:
      actions_.popup();
      break;
    default:
      QWidget::keyPressEvent(event);
  }
}

bool GraphView::ExportPng(const QString& file) {
  constexpr double kScale = 2;
  QImage image(size() * kScale, QImage::Format_RGB32);
  image.setDevicePixelRatio(kScale);
  {
    QPainter painter(&image);
    PainterSurface surface(painter, width() * kUnitsPerPixel, height() * kUnitsPerPixel);
    graph_.DrawPicture(surface);
  }
  QSaveFile out(file);
  return out.open(QIODevice::WriteOnly) && image.save(&out, "PNG") && out.commit();
}

bool GraphView::ExportSvg(const QString& file) {
  QSaveFile out(file);
  if (!out.open(QIODevice::WriteOnly)) return false;
  QSvgGenerator generator;
  generator.setOutputDevice(&out);
  generator.setSize(size());
  generator.setViewBox(rect());
  {
    QPainter painter(&generator);
    PainterSurface surface(painter, width() * kUnitsPerPixel, height() * kUnitsPerPixel);
    graph_.DrawPicture(surface);
  }
  return out.commit();
}

GraphView* MakeGraphView(Program& program, std::int16_t document) {
  return new GraphView(program.Forms(), document,
                       {[&program](Single depth, Single time) { program.MainForm().EnterWaypoint(depth, time); },
                        [&program](std::int16_t row) { program.MainForm().ViewRow(row); },
                        [&program] { program.MainForm().PopupGraphMenu(); }});
}

}  // namespace tav
