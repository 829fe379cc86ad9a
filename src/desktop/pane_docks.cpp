#include "desktop/pane_docks.h"

#include <QtWidgets>
#include <algorithm>
#include <utility>

#include "app/main_form.h"
#include "desktop/form_binder.h"
#include "desktop/qt_text.h"

namespace tav {
namespace {

// Of what is kept of the docks; another number once they can't be understood any more.
constexpr int kStateVersion = 1;

// Of the first start, in pixels for letters of the usual size: legs and schedule, and below them the findings.
constexpr int kWidth = 480;
constexpr int kPlanHeight = 600;
constexpr int kOtherHeight = 150;
constexpr double kUsualLetters = 16;  // the height of a line of them

/// A pane that scrolls what a small window or large letters leave no room for. It takes the room that there is, and
/// asks for no more than it can't do without.
class PaneArea : public QScrollArea {
 public:
  explicit PaneArea(QWidget& pane) {
    setObjectName(QStringLiteral("qt_pane_area"));
    setFocusPolicy(Qt::NoFocus);  // its controls are stopped at, it is not
    setFrameShape(QFrame::NoFrame);
    setWidget(&pane);
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QScrollArea::resizeEvent(event);
    Fit();
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::LayoutRequest) Fit();
    return QScrollArea::eventFilter(watched, event);
  }

 private:
  void Fit() { widget()->resize(viewport()->size().expandedTo(widget()->minimumSizeHint())); }
};

}  // namespace

PaneDocks::PaneDocks(QMainWindow& window, frmMain& form, std::function<void()> leave)
    : QObject(&window), window_(window), leave_(std::move(leave)) {
  window.installEventFilter(this);
  window.setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
  for (const MainPanes::Pane& pane : form.Panes().All()) {
    auto* dock = new QDockWidget(&window);
    dock->setObjectName(ToQt(pane.form.Name()));
    dock->hide();
    dock->installEventFilter(this);
    docks_[&pane.form] = dock;
    if (pane.atFirst) {
      window.addDockWidget(Qt::RightDockWidgetArea, dock);
      order_ << dock;
      widths_ << 0;
      heights_ << 0;
    } else {
      window.addDockWidget(Qt::BottomDockWidgetArea, dock);
      below_ << dock;
    }
    // Also told while the window itself comes and goes, which is no choice of the user's.
    connect(dock->toggleViewAction(), &QAction::toggled, this, [&form, dock, shown = &pane.form](bool on) {
      if (form.IsLoaded() && on != dock->isHidden()) form.Panes().Shown(*shown, on);
    });
  }
}

PaneDocks::~PaneDocks() {
  for (const auto& [pane, dock] : docks_) {
    dock->toggleViewAction()->disconnect(this);
    delete dock;
  }
}

bool PaneDocks::eventFilter(QObject* watched, QEvent* event) {
  if (watched != &window_ && event->type() == QEvent::Close) {
    NoteSizes();
    leave_();
  }
  // What they are given ahead of the first show is not what the window makes of it.
  if (watched == &window_ && event->type() == QEvent::Show && std::exchange(first_, false)) {
    QTimer::singleShot(0, this, &PaneDocks::GiveSizes);
  }
  return QObject::eventFilter(watched, event);
}

void PaneDocks::Show(PaneForm& pane, bool shown) {
  QDockWidget& dock = DockOf(pane);
  if (shown && dock.widget() == nullptr) {
    dock.setWidget(new PaneArea(*MakePane(pane, &dock)));
    dock.setWindowTitle(ToQt(pane.Caption));
    pane.Changed = [&dock, &pane] { dock.setWindowTitle(ToQt(pane.Caption)); };
    connect(&dock, &QObject::destroyed, [&pane] { pane.Changed = nullptr; });
  }
  if (!shown) NoteSizes();
  const bool was = dock.isVisible();
  dock.setVisible(shown);
  if (!shown) return;
  dock.raise();
  if (was) return;
  GiveSizes();
  // One that is below the graphs for the first time leaves them more than half of the height.
  if (below_.contains(&dock) && !std::exchange(placedBelow_, true)) {
    window_.resizeDocks({&dock}, {window_.height() * 2 / 5}, Qt::Vertical);
  }
}

bool PaneDocks::AreWhole() const {
  return std::ranges::all_of(order_, [](const QDockWidget* dock) { return dock->isVisible() && !dock->isFloating(); });
}

void PaneDocks::NoteSizes() {
  if (!AreWhole()) return;
  for (qsizetype i = 0; i < order_.size(); ++i) {
    widths_[i] = order_[i]->width();
    heights_[i] = order_[i]->height();
  }
}

void PaneDocks::GiveSizes() {
  if (widths_.contains(0)) return;  // they have had none yet
  // One that comes back finds what the others have taken meanwhile; left to itself it gets what it can't do without.
  window_.resizeDocks(order_, widths_, Qt::Horizontal);
  if (AreWhole()) window_.resizeDocks(order_, heights_, Qt::Vertical);
}

void PaneDocks::DefaultLayout() {
  first_ = !window_.isVisible();
  const double factor = std::max(1.0, window_.fontMetrics().height() / kUsualLetters);
  for (qsizetype i = 0; i < order_.size(); ++i) {
    order_[i]->setFloating(false);
    window_.addDockWidget(Qt::RightDockWidgetArea, order_[i]);
    if (i > 0) window_.splitDockWidget(order_[i - 1], order_[i], Qt::Vertical);
    order_[i]->show();
    widths_[i] = std::min(static_cast<int>(kWidth * factor), window_.width() / 2);
    heights_[i] = static_cast<int>((i == 0 ? kPlanHeight : kOtherHeight) * factor);
  }
  for (QDockWidget* dock : below_) {
    dock->setFloating(false);
    window_.addDockWidget(Qt::BottomDockWidgetArea, dock);
  }
  placedBelow_ = false;
  GiveSizes();
}

void PaneDocks::Focus(PaneForm& pane) {
  DockOf(pane).raise();
  if (DockOf(pane).isFloating()) DockOf(pane).activateWindow();
  pane.TakeFocus();
}

const PaneForm* PaneDocks::Focused() const {
  const QWidget* focus = QApplication::focusWidget();
  for (const auto& [pane, dock] : docks_) {
    if (dock->isAncestorOf(focus)) return pane;
  }
  return nullptr;
}

std::string PaneDocks::State() {
  NoteSizes();
  QStringList parts{QString::fromLatin1(window_.saveState(kStateVersion).toBase64())};
  for (const QList<int>& sizes : {widths_, heights_}) {
    for (const int size : sizes) parts << QString::number(size);
  }
  return FromQt(parts.join(QLatin1Char(' ')));
}

std::optional<std::vector<PaneForm*>> PaneDocks::Restore(const std::string& state) {
  const QStringList parts = ToQt(state).split(QLatin1Char(' '));
  if (parts.size() != 1 + 2 * order_.size()) return std::nullopt;
  if (!window_.restoreState(QByteArray::fromBase64(parts[0].toLatin1()), kStateVersion)) return std::nullopt;
  for (qsizetype i = 0; i < order_.size(); ++i) {
    widths_[i] = parts[1 + i].toInt();
    heights_[i] = parts[1 + order_.size() + i].toInt();
  }
  placedBelow_ = std::ranges::any_of(below_, [](const QDockWidget* dock) { return !dock->isHidden(); });
  std::vector<PaneForm*> shown;
  shown.reserve(docks_.size());
  for (const auto& [pane, dock] : docks_) {
    if (!dock->isHidden()) shown.push_back(pane);
  }
  return shown;
}

}  // namespace tav
