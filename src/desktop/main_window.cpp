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
  // Not at once: the entry that caused it may still be at work.
  QTimer::singleShot(0, this, [this] {
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
}

void MainWindow::Place(const Placement& placement) {
  QRect wanted(ToPixels(placement.left), ToPixels(placement.top), ToPixels(placement.width),
               ToPixels(placement.height));
  const QScreen* screen = QGuiApplication::screenAt(wanted.center());
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  const QRect room = screen->availableGeometry();
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

MainWindow::Child* MainWindow::Find(std::int16_t document) {
  const auto found = children_.find(document);
  return found == children_.end() ? nullptr : &found->second;
}

void MainWindow::OpenWindow(std::int16_t document) {
  Child child;
  child.graph = makeGraph(document);
  child.graph->FitPlan(fitPlan_);
  child.graph->ShowExtras(extras_);
  child.window = new QMdiSubWindow;
  child.window->setWidget(child.graph);
  child.window->setAttribute(Qt::WA_DeleteOnClose, false);
  // Ctrl+W is the command of the menu; two of them would cancel each other.
  for (QAction* action : child.window->systemMenu()->actions()) action->setShortcut({});
  child.window->setWindowIcon(IconNamed("document"));
  child.window->installEventFilter(this);
  child.window->setProperty("document", document);
  area_->addSubWindow(child.window);
  children_[document] = child;
  // A new plan is seen as the one before it is: all over the area, or as a window in it.
  const QMdiSubWindow* current = area_->currentSubWindow();
  const bool maximised = children_.size() == 1 || (current != nullptr && current->isMaximized());
  child.window->resize(area_->size() * 4 / 5);
  if (maximised) {
    child.window->showMaximized();
  } else {
    child.window->show();
  }
  ActivateWindow(document);
}

void MainWindow::RemoveWindow(std::int16_t document) {
  Child* child = Find(document);
  if (child == nullptr) return;
  QMdiSubWindow* window = child->window;
  children_.erase(document);
  if (active_ == document) active_.reset();
  window->removeEventFilter(this);
  const bool maximised = window->isMaximized();
  area_->removeSubWindow(window);
  window->deleteLater();  // its own close control may be what brought us here
  QMdiSubWindow* next = area_->currentSubWindow();
  if (maximised && next != nullptr) next->showMaximized();
  SubWindowActivated(area_->currentSubWindow());
  ShowTitle();
}

void MainWindow::ActivateWindow(std::int16_t document) {
  Child* child = Find(document);
  if (child == nullptr) return;
  active_ = document;
  area_->setActiveSubWindow(child->window);
  ShowTitle();
  if (form_ != nullptr) form_->DocumentActivated();
}

void MainWindow::SubWindowActivated(QMdiSubWindow* window) {
  // Another program's window in front takes nothing from the document that commands act on.
  if (window == nullptr) window = area_->currentSubWindow();
  const QVariant document = window == nullptr ? QVariant() : window->property("document");
  const auto number = document.isValid() ? std::optional(static_cast<std::int16_t>(document.toInt())) : std::nullopt;
  if (number && Find(*number) == nullptr) return;
  if (number == active_) return;
  active_ = number;
  ShowTitle();
  if (form_ != nullptr) form_->DocumentActivated();
}

void MainWindow::Arrange(Arrangement arrangement) {
  const auto windows = area_->subWindowList();
  for (QMdiSubWindow* window : windows) {
    if (window->isMaximized() || (arrangement != Arrangement::Icons && window->isMinimized())) window->showNormal();
  }
  const QSize room = area_->viewport()->size();
  const int count = static_cast<int>(windows.size());
  switch (arrangement) {
    case Arrangement::Cascade:
      area_->cascadeSubWindows();
      break;
    case Arrangement::TileHorizontal:
    case Arrangement::TileVertical:
      // Horizontal tiles are as wide as the window and lie one above the other.
      for (int i = 0; i < count; ++i) {
        const bool rows = arrangement == Arrangement::TileHorizontal;
        const int size = (rows ? room.height() : room.width()) / count;
        windows[i]->setGeometry(rows ? QRect(0, i * size, room.width(), size)
                                     : QRect(i * size, 0, size, room.height()));
      }
      break;
    case Arrangement::Icons: {
      int x = 0;
      for (QMdiSubWindow* window : windows) {
        if (!window->isMinimized()) continue;
        window->move(x, room.height() - window->height());
        x += window->width();
      }
      break;
    }
  }
}

void MainWindow::SetCaption(std::int16_t document, const std::string& caption) {
  if (Child* child = Find(document)) child->window->setWindowTitle(ToQt(caption) + QStringLiteral("[*]"));
  ShowTitle();
}

void MainWindow::SetModified(std::int16_t document, bool modified) {
  Child* child = Find(document);
  if (child == nullptr || child->window->isWindowModified() == modified) return;
  child->window->setWindowModified(modified);
  ShowTitle();
}

void MainWindow::ShowTitle() {
  if (form_ == nullptr || showingTitle_) return;
  const Child* front = active_ ? Find(*active_) : nullptr;
  const QString name = ToQt(form_->Caption);
  const QString title = front == nullptr ? name : QStringLiteral("%1 - [%2]").arg(name, front->window->windowTitle());
  showingTitle_ = true;
  if (windowTitle() != title) setWindowTitle(title);
  setWindowModified(front != nullptr && front->window->isWindowModified());
  showingTitle_ = false;
}

bool MainWindow::event(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) {
    area_->setBackground(palette().color(QPalette::Dark));
    if (form_ != nullptr && form_->sbFindings.Changed) form_->sbFindings.Changed();
  }
  // A child window that is maximised or restored writes a title of its own over it.
  if (event->type() == QEvent::WindowTitleChange && !showingTitle_) {
    QMetaObject::invokeMethod(this, &MainWindow::ShowTitle, Qt::QueuedConnection);
  }
  return QMainWindow::event(event);
}

void MainWindow::SetRepetitiveIcon(std::int16_t document) {
  if (Child* child = Find(document)) child->window->setWindowIcon(IconNamed("repetitive"));
}

void MainWindow::FocusPlan() {
  Child* front = active_ ? Find(*active_) : nullptr;
  if (front != nullptr) front->graph->setFocus();
}

void MainWindow::ShowPane(PaneForm& pane, bool shown) {
  // The keyboard goes back to the plan in front. Left to itself it may go to another plan, and bring that to the front.
  if (!shown) FocusPlan();
  docks_->Show(pane, shown);
}

void MainWindow::FocusPane(PaneForm& pane) { docks_->Focus(pane); }

std::string MainWindow::PanesNow() const { return docks_->State(); }

std::optional<std::vector<PaneForm*>> MainWindow::RestorePanes(const std::string& panes) {
  return docks_->Restore(panes);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (form_ == nullptr || form_->Unload(true)) event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  for (const QUrl& url : event->mimeData()->urls()) {
    if (url.isLocalFile() && form_ != nullptr) form_->OpenFile(FromQt(url.toLocalFile()));
  }
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  auto* window = qobject_cast<QMdiSubWindow*>(watched);
  if (window == nullptr || event->type() != QEvent::Close || form_ == nullptr || !form_->IsLoaded()) {
    return QMainWindow::eventFilter(watched, event);
  }
  event->ignore();
  form_->CloseDocument(static_cast<std::int16_t>(window->property("document").toInt()));
  return true;
}

}  // namespace tav
