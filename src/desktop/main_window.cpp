#include "desktop/main_window.h"

#include <QtWidgets>
#include <algorithm>

#include "desktop/graph_view.h"
#include "desktop/icons.h"
#include "desktop/pane_docks.h"
#include "desktop/qt_services.h"
#include "desktop/qt_surface.h"
#include "desktop/qt_text.h"
#include "desktop/text_colour.h"

namespace tav {
namespace {

int ToPixels(int units) { return static_cast<int>(units / kUnitsPerPixel); }
int ToUnits(int pixels) { return static_cast<int>(pixels * kUnitsPerPixel); }

}  // namespace

MainWindow::MainWindow() : area_(new QMdiArea) {
  area_->setBackground(palette().color(QPalette::Dark));
  area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setCentralWidget(area_);
  setWindowIcon(IconNamed("tav"));
  setAcceptDrops(true);
  connect(area_, &QMdiArea::subWindowActivated, this, &MainWindow::SubWindowActivated);
  // The area itself turns only the windows that there are.
  for (const auto& [keys, step] : {std::pair(QKeySequence::NextChild, 1), {QKeySequence::PreviousChild, -1}}) {
    auto* turn = new QShortcut(keys, this);
    connect(turn, &QShortcut::activated, this, [this, by = step] { Turn(by); });
  }
}

MainWindow::~MainWindow() { area_->disconnect(this); }

void MainWindow::Attach(frmMain& form) {
  form_ = &form;
  form.Changed = [this] { ShowTitle(); };
  form.CloseWanted = [] {
    QApplication::closeAllWindows();
    QCoreApplication::exit();  // all questions have been asked: what is still at work in a window calls nothing off
  };
  BuildMenu();
  BuildToolBar();
  docks_ = new PaneDocks(*this, form, [this] { FocusPlan(); });
  auto* status = new QLabel;
  statusBar()->addWidget(status, 1);
  form.sbStatusBar.Changed = [this, status] { status->setText(ToQt(form_->sbStatusBar.Caption)); };
  auto* findings = new QToolButton;
  findings->setObjectName(ToQt(form.sbFindings.Name()));
  findings->setAutoRaise(true);
  findings->setFocusPolicy(Qt::TabFocus);
  statusBar()->addPermanentWidget(findings);
  form.sbFindings.Changed = [this, findings] {
    const Button& button = form_->sbFindings;
    findings->setText(ToQt(button.Caption));
    findings->setToolTip(ToQt(button.ToolTipText));
    findings->setAccessibleName(ToQt(button.ToolTipText));
    findings->setVisible(button.Visible);
    QFont font = statusBar()->font();
    font.setBold(button.Bold);
    findings->setFont(font);
    QPalette palette = statusBar()->palette();
    if (button.ForeColor >= 0) {
      palette.setColor(QPalette::ButtonText, TextColour(button.ForeColor, {palette.color(QPalette::Window)}));
    }
    findings->setPalette(palette);
  };
  connect(findings, &QToolButton::clicked, this, [this] { form_->sbFindings.Press(); });
}

void MainWindow::Detach() {
  form_ = nullptr;
  delete docks_;
  docks_ = nullptr;
}

void MainWindow::BuildMenu() {
  menuBar()->clear();
  for (QMenu* old : menuBar()->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly)) old->deleteLater();
  std::map<int, QMenu*> menus;
  const auto menu = form_->Menu();
  for (std::size_t i = 0; i < menu.size(); ++i) {
    MenuItem& item = *menu[i].item;
    const int level = menu[i].level;
    const bool opens = level == 0 || (i + 1 < menu.size() && menu[i + 1].level > level);
    QAction* action = nullptr;
    if (opens) {
      QMenu* child = level == 0 ? menuBar()->addMenu(QString()) : menus[level - 1]->addMenu(QString());
      menus[level] = child;
      action = child->menuAction();
    } else {
      action = menus[level - 1]->addAction(QString());
    }
    action->setObjectName(ToQt(item.Name()));
    // Either may end first: a recent file goes before its action, and at the end of the program the form before the
    // menu.
    item.Changed = [&item, shown = QPointer<QAction>(action)] {
      if (shown != nullptr) FillAction(item, *shown);
    };
    FillAction(item, *action);
    if (!opens) {
      connect(action, &QAction::triggered, this, [this, chosen = &item, shown = QPointer<QAction>(action)] {
        const auto isThere = [&] {
          const auto& there = form_->Controls();
          return std::find(there.begin(), there.end(), chosen) != there.end();
        };
        if (isThere()) chosen->Choose();
        // A click has taken the mark of a marked entry away, whatever the command has made of it.
        if (shown != nullptr && isThere()) FillAction(*chosen, *shown);
      });
    }
  }
  // A command of no menu, for its key alone.
  static const QString conservatism = QStringLiteral("ShowConservatism");
  if (findChild<QAction*>(conservatism) == nullptr) {
    auto* action = new QAction(this);
    action->setObjectName(conservatism);
    FillAction(form_->ShowConservatism, *action);
    connect(action, &QAction::triggered, this, [this] { form_->ShowConservatism.Choose(); });
    addAction(action);
  }
}

void MainWindow::MenuChanged() {
  // Not at once: the entry that caused it may still be at work. And once for all that changes until then.
  if (std::exchange(menuStale_, true)) return;
  QTimer::singleShot(0, this, [this] {
    menuStale_ = false;
    if (form_ != nullptr) BuildMenu();
  });
}

void MainWindow::BuildToolBar() {
  toolBar_ = addToolBar(QStringLiteral("TAV"));
  toolBar_->setObjectName(QStringLiteral("tbToolBar"));
  toolBar_->setMovable(false);
  toolBar_->setContextMenuPolicy(Qt::PreventContextMenu);
  toolBar_->setIconSize(QSize(24, 24));
  for (ToolButton* button : form_->ToolBar()) {
    if (button == nullptr) {
      toolBar_->addSeparator();
      continue;
    }
    auto* action = toolBar_->addAction(QString());
    action->setObjectName(ToQt(button->Name()));
    button->Changed = [button, action] {
      action->setIcon(IconNamed(button->Image));
      action->setToolTip(ToQt(button->ToolTipText));
      action->setText(ToQt(button->ToolTipText));  // what a screen reader says
      action->setEnabled(button->Enabled);
      action->setCheckable(button->Checked);
      action->setChecked(button->Checked);
    };
    button->Changed();
    connect(action, &QAction::triggered, this, [button] {
      button->Press();
      button->Changed();
    });
  }
  AddSearchHint();
}

void MainWindow::AddSearchHint() {
  auto* room = new QWidget;
  room->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  toolBar_->addWidget(room);
  auto* hint = new QToolButton;
  hint->setObjectName(ToQt(form_->toolSearch.Name()));
  hint->setAutoRaise(true);
  toolBar_->addWidget(hint);
  form_->toolSearch.Changed = [this, hint] { hint->setText(ToQt(form_->toolSearch.Caption)); };
  form_->toolSearch.Changed();
  connect(hint, &QToolButton::clicked, this, [this] { form_->toolSearch.Press(); });
}

void MainWindow::Place(const Placement& placement) {
  if (isMaximized() || isFullScreen()) return;
  QRect wanted(ToPixels(placement.left), ToPixels(placement.top), ToPixels(placement.width),
               ToPixels(placement.height));
  const QScreen* screen = QGuiApplication::screenAt(wanted.center());
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  // The frame of the window takes room, too.
  constexpr int kBorder = 4;
  constexpr int kTitle = 32;
  const QRect room = screen->availableGeometry().adjusted(kBorder, kTitle, -kBorder, -kBorder);
  setMinimumSize(QSize(480, 360).boundedTo(room.size()));
  wanted.setSize(wanted.size().expandedTo(minimumSize()).boundedTo(room.size()));
  wanted.moveLeft(std::clamp(wanted.left(), room.left(), room.right() + 1 - wanted.width()));
  wanted.moveTop(std::clamp(wanted.top(), room.top(), room.bottom() + 1 - wanted.height()));
  setGeometry(wanted);
}

Placement MainWindow::PlaceNow() const {
  const QRect place = isMaximized() ? normalGeometry() : geometry();
  return {ToUnits(place.left()), ToUnits(place.top()), ToUnits(place.width()), ToUnits(place.height())};
}

void MainWindow::ShowTitle() {
  if (form_ == nullptr || showingTitle_) return;
  const auto front = form_->Active();
  const PlanLook look = front ? form_->Looks().Of(*front) : PlanLook();
  QString title = ToQt(form_->Caption);
  if (front) title += QStringLiteral(" - [%1[*]]").arg(ToQt(look.caption));
  showingTitle_ = true;
  if (windowTitle() != title) setWindowTitle(title);
  setWindowModified(look.modified);
  showingTitle_ = false;
}

bool MainWindow::event(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) {
    area_->setBackground(palette().color(QPalette::Dark));
    if (form_ != nullptr && form_->sbFindings.Changed) form_->sbFindings.Changed();
  }
  // Under a window that must be answered first the plans stay as they are.
  if (event->type() == QEvent::WindowActivate && QApplication::activeModalWidget() == nullptr) {
    QTimer::singleShot(0, this, [this] {
      if (form_ != nullptr && QApplication::activeModalWidget() == nullptr) form_->CameToFront();
    });
  }
  // A child window that is maximised or restored writes a title of its own over it.
  if (event->type() == QEvent::WindowTitleChange && !showingTitle_) {
    QMetaObject::invokeMethod(this, &MainWindow::ShowTitle, Qt::QueuedConnection);
  }
  return QMainWindow::event(event);
}

void MainWindow::FocusPlan() {
  const auto front = form_ == nullptr ? std::nullopt : form_->Active();
  if (front) Of(*front).graph->setFocus();
}

void MainWindow::ShowPane(PaneForm& pane, bool shown) {
  // The keyboard goes back to the plan in front. Left to itself it may go to another plan, and bring that to the front.
  if (!shown) FocusPlan();
  docks_->Show(pane, shown);
}

void MainWindow::FocusPane(PaneForm& pane) { docks_->Focus(pane); }

const PaneForm* MainWindow::FocusedPane() const { return docks_->Focused(); }

std::string MainWindow::PanesNow() const { return docks_->State(); }

std::optional<std::vector<PaneForm*>> MainWindow::RestorePanes(const std::string& panes) {
  return docks_->Restore(panes);
}

void MainWindow::PlacePanes() { docks_->DefaultLayout(); }

void MainWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (form_ == nullptr || form_->Unload(true)) event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  // Not under a window that must be answered first, or while a report is written of the plan.
  if (QApplication::activeModalWidget() != nullptr) return event->ignore();
  for (const QUrl& url : event->mimeData()->urls()) {
    if (url.isLocalFile() && form_ != nullptr) form_->OpenFile(FromQt(url.toLocalFile()));
  }
}

}  // namespace tav
