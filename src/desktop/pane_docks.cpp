#include "desktop/pane_docks.h"

#include <QtWidgets>

#include "app/main_form.h"
#include "desktop/form_binder.h"
#include "desktop/qt_text.h"

namespace tav {
namespace {

// Of what is kept of the docks; another number once they can't be understood any more.
constexpr int kStateVersion = 1;

}  // namespace

PaneDocks::PaneDocks(QMainWindow& window, frmMain& form, std::function<void()> leave)
    : QObject(&window), window_(window), leave_(std::move(leave)) {
  for (const MainPanes::Pane& pane : form.Panes().All()) {
    auto* dock = new QDockWidget(&window);
    dock->setObjectName(ToQt(pane.form.Name()));
    dock->hide();
    dock->installEventFilter(this);
    window.addDockWidget(Qt::RightDockWidgetArea, dock);
    docks_[&pane.form] = dock;
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
  if (event->type() == QEvent::Close) leave_();
  return QObject::eventFilter(watched, event);
}

void PaneDocks::Show(PaneForm& pane, bool shown) {
  QDockWidget& dock = DockOf(pane);
  if (shown && dock.widget() == nullptr) {
    dock.setWidget(MakePane(pane, &dock));
    dock.setWindowTitle(ToQt(pane.Caption));
    pane.Changed = [&dock, &pane] { dock.setWindowTitle(ToQt(pane.Caption)); };
    connect(&dock, &QObject::destroyed, [&pane] { pane.Changed = nullptr; });
  }
  dock.setVisible(shown);
  if (shown) dock.raise();
}

void PaneDocks::Focus(PaneForm& pane) {
  DockOf(pane).raise();
  if (DockOf(pane).isFloating()) DockOf(pane).activateWindow();
  pane.TakeFocus();
}

std::string PaneDocks::State() const { return window_.saveState(kStateVersion).toBase64().toStdString(); }

std::optional<std::vector<PaneForm*>> PaneDocks::Restore(const std::string& state) {
  if (!window_.restoreState(QByteArray::fromBase64(QByteArray::fromStdString(state)), kStateVersion)) {
    return std::nullopt;
  }
  std::vector<PaneForm*> shown;
  shown.reserve(docks_.size());
  for (const auto& [pane, dock] : docks_) {
    if (!dock->isHidden()) shown.push_back(pane);
  }
  return shown;
}

}  // namespace tav
