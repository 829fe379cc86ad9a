#include "desktop/graph_view.h"

#include <QtWidgets>

#include "app/program.h"
#include "desktop/qt_text.h"
#include "desktop/surface_widget.h"
#include "model/text_id.h"
#include "picture/graph_colours.h"

namespace tav {
namespace {

constexpr double kLargestZoom = 12;
constexpr double kZoomStep = 1.25;

int Pixels(double units) { return static_cast<int>(units / kUnitsPerPixel); }

QRect PixelRect(const GraphRect& rect) {
  return {Pixels(rect.left), Pixels(rect.top), Pixels(rect.width), Pixels(rect.height)};
}

/// A label over the graph, hidden at first, which the pointer goes through.
QLabel* Notice(QWidget* parent, const char* name, const char* style) {
  auto* label = new QLabel(parent);
  label->setObjectName(QLatin1String(name));
  label->setStyleSheet(QLatin1String(style));
  label->setAttribute(Qt::WA_TransparentForMouseEvents);
  label->hide();
  return label;
}

}  // namespace

GraphView::GraphView(DocumentForms& forms, std::int16_t document, Actions actions, LocaleSeparators separators)
    : forms_(forms),
      document_(document),
      actions_(std::move(actions)),
      plan_(forms, document, std::move(separators)),
      graph_([this] { return plan_(); }, *this),
      container_(new SurfaceWidget(this)),
      grid_(new SurfaceWidget(container_)),
      bars_(new SurfaceWidget(this)),
      tissues_(new SurfaceWidget(this)),
      scrollBar_(new QScrollBar(Qt::Horizontal, this)),
      readOut_(Notice(grid_, "Text1", "background: #ffffe1; color: black; border: 1px solid #606060; padding: 2px")),
      asBefore_(Notice(this, "asBefore",
                       "background: rgba(208, 208, 208, 200); color: black; font-weight: bold; padding: 6px")),
      notice_(Notice(this, "notice", "background: #b00020; color: white; font-weight: bold; padding: 6px")),
      secondClick_(new QTimer(this)) {
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(ToQt(forms.Services().texts.GetResString(Text::GraphPlan)));
  setMinimumSize(200, 160);
  setAutoFillBackground(true);
  grid_->setMouseTracking(true);
  grid_->installEventFilter(this);
  asBefore_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  notice_->setWordWrap(true);
  graph_.rowRemark = actions_.rowRemark;
  graph_.leaving = [this](Single time) { return plan_.LeavingAt(time); };
  graph_.legs = actions_.legs.get();
  tissues_->setObjectName(QStringLiteral("pbTissues"));
  secondClick_->setSingleShot(true);
  connect(secondClick_, &QTimer::timeout, this, [this] {
    if (const auto row = std::exchange(clicked_, std::nullopt)) actions_.viewRow(*row);
  });
  scrollBar_->setFocusPolicy(Qt::NoFocus);  // the keys of the view move it
  connect(scrollBar_, &QScrollBar::valueChanged, this, &GraphView::Redraw);
  for (SurfaceWidget* surface : {container_, grid_, bars_, tissues_}) surface->RedrawWanted = [this] { Redraw(); };
  LayOut();
}

void GraphView::LayOut() {
  const GraphLayout layout = LayOutGraph(width() * kUnitsPerPixel, height() * kUnitsPerPixel,
                                         scrollBar_->sizeHint().height() * kUnitsPerPixel, shown_);
  container_->setGeometry(PixelRect(layout.mainContainer));
  bars_->setGeometry(PixelRect(layout.compartments));
  bars_->setVisible(bars_->height() > 0);
  tissues_->setGeometry(PixelRect(layout.tissues));
  tissues_->setVisible(shown_.extras.tissues);
  scrollBar_->setGeometry(PixelRect(layout.scrollBar));
  // What the container and the scroll bar leave of the plot.
  const QRect view = PixelRect(layout.axisContainer);
  grid_->setGeometry(view.x(), view.y(), container_->width() - view.x(), scrollBar_->y() - view.y());
  plot_ = {Pixels(layout.grid.width), grid_->height()};
  scrollBar_->setRange(0, Pixels(layout.scrollMaximum));
  scrollBar_->setPageStep(Pixels(layout.largeChange));
  scrollBar_->setSingleStep(Pixels(layout.smallChange));

  asBefore_->setGeometry(rect());
  asBefore_->raise();
  const int noticeHeight = notice_->heightForWidth(width());
  notice_->setGeometry(0, scrollBar_->y() - noticeHeight, width(), noticeHeight);
  notice_->raise();
}

void GraphView::Redraw() {
  grid_->ShowPart(plot_, scrollBar_->value());
  graph_.RedrawProfile(container_->Surface(), grid_->Surface(), bars_->Surface(), shown_);
  container_->Flush();
  grid_->Flush();
  bars_->Flush();
  if (shown_.extras.tissues) {
    PlanPicture(plan_(), shown_.extras)
        .DrawTissues(tissues_->Surface(), graph_.Scale(), scrollBar_->value() * kUnitsPerPixel);
    tissues_->Flush();
  }
  setAccessibleDescription(ToQt(PlanPicture(plan_()).Description()));
}

void GraphView::EditRow(std::int16_t row) {
  secondClick_->stop();
  clicked_.reset();
  if (actions_.editRow) actions_.editRow(row);
}

void GraphView::ViewRow(std::int16_t row) {
  if (!actions_.endsLeg || !actions_.endsLeg(row)) return actions_.viewRow(row);
  clicked_ = row;
  secondClick_->start(QApplication::doubleClickInterval());
}

void GraphView::Follow(const PlanLook& look) {
  if (look.fitPlan != shown_.fitPlan) {
    shown_.timeZoom = 1;
    scrollBar_->setValue(0);
  }
  shown_.fitPlan = look.fitPlan;
  shown_.extras = look.extras;
  QPalette colours = palette();
  colours.setColor(QPalette::Window, ColourOf(graph::SchemeOf(shown_.extras.light).around));
  setPalette(colours);
  graph_.SetOverlay(look.overlay);
  graph_.SetKept(look.kept);
  graph_.SelectRows(look.selected.first, look.selected.second);
  notice_->setText(ToQt(look.notice));
  notice_->setVisible(!look.notice.empty());
  asBefore_->setText(ToQt(look.asBefore));
  asBefore_->setVisible(!look.asBefore.empty());
  const QSignalBlocker oneRedraw(scrollBar_);
  LayOut();
  if (const auto span = graph_.SelectedSpan()) {
    constexpr int kMargin = 30;
    const int from = Pixels(span->first) - kMargin;
    const int to = Pixels(span->second) + kMargin;
    // The end first, so that the beginning is seen of what is wider than the view.
    if (to > scrollBar_->value() + grid_->width()) scrollBar_->setValue(to - grid_->width());
    if (from < scrollBar_->value()) scrollBar_->setValue(from);
  }
  Redraw();
}

void GraphView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  LayOut();
  scrollBar_->setValue(0);
  Redraw();
}

void GraphView::ShowReadOut(double x, double y, const std::string& text) {
  readOut_->setText(ToQt(text));
  readOut_->adjustSize();
  // Never out of sight, near the right edge and above the scroll bar.
  readOut_->move(std::min(Pixels(x) - scrollBar_->value(), grid_->width() - readOut_->width()),
                 std::min(Pixels(y), grid_->height() - readOut_->height()));
  readOut_->show();
}

void GraphView::HideReadOut() { readOut_->hide(); }

void GraphView::ShowCross(bool cross) { grid_->setCursor(cross ? Qt::CrossCursor : Qt::ArrowCursor); }

void GraphView::NewWaypoint(Single depth, Single segmentTime) {
  grid_->Flush();  // the preview goes before a dialog comes
  actions_.newWaypoint(depth, segmentTime);
}

ScreenPoint GraphView::OnPlot(QPointF position) const {
  return {(position.x() + scrollBar_->value()) * kUnitsPerPixel, position.y() * kUnitsPerPixel};
}

bool GraphView::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
      GridMouse(event);
      return true;
    case QEvent::Leave:
      graph_.MouseLeave(grid_->Surface());
      grid_->Flush();
      return false;
    case QEvent::MouseButtonDblClick: {
      const auto* mouse = static_cast<QMouseEvent*>(event);
      if (mouse->button() != Qt::LeftButton) return true;
      const ScreenPoint at = OnPlot(mouse->position());
      const auto row = std::exchange(clicked_, std::nullopt);
      row ? EditRow(*row) : graph_.DoubleClick(at.x, at.y, grid_->Surface());
      grid_->Flush();
      return true;
    }
    case QEvent::Wheel: {
      auto* wheel = static_cast<QWheelEvent*>(event);
      const QPoint turned = wheel->angleDelta();
      if ((wheel->modifiers() & Qt::ShiftModifier) != 0 || std::abs(turned.x()) > std::abs(turned.y())) {
        scrollBar_->event(event);
      } else {
        constexpr double kNotch = 120;
        Zoom(std::pow(kZoomStep, turned.y() / kNotch), wheel->position().x());
      }
      return true;
    }
    case QEvent::ToolTip: {
      auto* help = static_cast<QHelpEvent*>(event);
      const ScreenPoint at = OnPlot(help->pos());
      // As rich text long lines are wrapped.
      const QString tip =
          ToQt(graph_.TipAt(at.x, at.y)).toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>"));
      if (!tip.isEmpty()) HideReadOut();  // one box at a time
      QToolTip::showText(help->globalPos(), tip.isEmpty() ? tip : QStringLiteral("<p>%1</p>").arg(tip), grid_);
      return true;
    }
    default:
      return QWidget::eventFilter(watched, event);
  }
}

void GraphView::GridMouse(QEvent* event) {
  auto* mouse = static_cast<QMouseEvent*>(event);
  const ScreenPoint at = OnPlot(mouse->position());
  if (event->type() == QEvent::MouseMove) {
    QToolTip::hideText();  // it is that of the place before
    PointTo(mouse->position(), (mouse->modifiers() & Qt::ShiftModifier) != 0);
  } else if (event->type() == QEvent::MouseButtonRelease) {
    if (mouse->button() == Qt::LeftButton) graph_.MouseUp(grid_->Surface());
  } else if (mouse->button() == Qt::LeftButton || mouse->button() == Qt::RightButton) {
    setFocus(Qt::MouseFocusReason);
    graph_.MouseDown(mouse->button() == Qt::RightButton, at.x, at.y, grid_->Surface());
    if (graph_.Dragging()) grid_->Flush();
  }
}

void GraphView::PointTo(QPointF position, bool wayOut) {
  const ScreenPoint at = OnPlot(position);
  graph_.MouseMove(at.x, at.y, (width() + scrollBar_->value()) * kUnitsPerPixel, grid_->Surface(), wayOut);
  grid_->Flush();
}

void GraphView::Zoom(double factor, double atPixel) {
  const double zoom = std::clamp(shown_.timeZoom * factor, 1.0, kLargestZoom);
  if (zoom == shown_.timeZoom) return;
  const double scroll = scrollBar_->value();
  const double kept = ScrollKeeping(atPixel + scroll, scroll, zoom / shown_.timeZoom);
  shown_.timeZoom = zoom;
  const QSignalBlocker oneRedraw(scrollBar_);
  LayOut();
  scrollBar_->setValue(static_cast<int>(std::lround(kept)));
  Redraw();
}

bool GraphView::ResetZoom() {
  if (shown_.timeZoom == 1 && scrollBar_->value() == 0) return false;
  shown_.timeZoom = 1;
  const QSignalBlocker oneRedraw(scrollBar_);
  LayOut();
  scrollBar_->setValue(0);
  Redraw();
  return true;
}

bool GraphView::WaypointKey(const QKeyEvent& event) {
  if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return false;
  const auto direction = [&](int back, int on) { return event.key() == back ? -1 : event.key() == on ? 1 : 0; };
  if (const int by = direction(Qt::Key_Left, Qt::Key_Right)) return graph_.Nudge(0, by);
  if (const int by = direction(Qt::Key_Up, Qt::Key_Down)) return graph_.Nudge(by, 0);
  if (const int by = direction(Qt::Key_PageUp, Qt::Key_PageDown)) return graph_.SelectNext(by);
  return event.key() == Qt::Key_Delete && graph_.RemoveSelected();
}

void GraphView::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Shift || !grid_->underMouse()) return QWidget::keyReleaseEvent(event);
  PointTo(grid_->mapFromGlobal(QCursor::pos()), false);
}

void GraphView::keyPressEvent(QKeyEvent* event) {
  const double middle = grid_->width() / 2.0;
  if (WaypointKey(*event)) return;
  switch (event->key()) {
    case Qt::Key_Shift:
      if (grid_->underMouse()) PointTo(grid_->mapFromGlobal(QCursor::pos()), true);
      break;
    case Qt::Key_Left:
      scrollBar_->triggerAction(QAbstractSlider::SliderSingleStepSub);
      break;
    case Qt::Key_Right:
      scrollBar_->triggerAction(QAbstractSlider::SliderSingleStepAdd);
      break;
    case Qt::Key_PageUp:
      scrollBar_->triggerAction(QAbstractSlider::SliderPageStepSub);
      break;
    case Qt::Key_PageDown:
      scrollBar_->triggerAction(QAbstractSlider::SliderPageStepAdd);
      break;
    case Qt::Key_Home:
      scrollBar_->setValue(0);
      break;
    case Qt::Key_End:
      scrollBar_->setValue(scrollBar_->maximum());
      break;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      Zoom(kZoomStep, middle);
      break;
    case Qt::Key_Minus:
      Zoom(1 / kZoomStep, middle);
      break;
    case Qt::Key_0:
      ResetZoom();
      break;
    case Qt::Key_F10:
      if (event->modifiers() != Qt::ShiftModifier) return QWidget::keyPressEvent(event);
      ShowPopup();
      break;
    case Qt::Key_Escape:
      if (graph_.Dragging() || !actions_.legs) {
        graph_.CancelDrag(grid_->Surface());
      } else {
        graph_.MouseLeave(grid_->Surface());
        HideReadOut();
        actions_.legs->Select(0);
      }
      grid_->Flush();
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (const auto row = graph_.SelectedWaypoint()) EditRow(*row);
      break;
    default:
      QWidget::keyPressEvent(event);
  }
}

void GraphView::contextMenuEvent(QContextMenuEvent* event) {
  // The right button has opened the menu when it went down.
  if (event->reason() == QContextMenuEvent::Keyboard) ShowPopup();
}

FilePicture GraphView::Picture() {
  const QSize readable(1000, shown_.extras.tissues ? 1000 : 700);
  const QSize size = this->size().expandedTo(readable);
  GraphExtras extras = shown_.extras;
  extras.paper = true;
  return {size.width(), size.height(), FromQt(accessibleName()), FromQt(accessibleDescription()),
          [this, extras](DrawingSurface& surface) { PlanPicture(plan_(), extras).Draw(surface); }};
}

GraphView* MakeGraphView(Program& program, std::int16_t document) {
  frmMain& main = program.MainForm();
  return new GraphView(program.Forms(), document,
                       {[&main](Single depth, Single time) { main.Dialogs().EnterWaypoint(depth, time); },
                        [&main](std::int16_t row) { main.Dialogs().ViewRow(row); }, [&main] { main.PopupGraphMenu(); },
                        [&main, document](std::int16_t row) { return main.Reports().WhyStop(document, row); },
                        [&main](std::int16_t row) { return main.Panes().LegEndingAt(row).has_value(); },
                        [&main](std::int16_t row) { main.Panes().EditLegOf(row); }, main.GraphEditsOf(document)},
                       program.Separators());
}

}  // namespace tav
