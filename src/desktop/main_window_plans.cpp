// The child windows of the plans.

#include <QtWidgets>
#include <algorithm>

#include "desktop/graph_view.h"
#include "desktop/icons.h"
#include "desktop/main_window.h"
#include "desktop/picture_file.h"
#include "desktop/qt_text.h"

namespace tav {
namespace {

// Of more plans than these none could be read beside the others: those that have a window are arranged.
constexpr std::size_t kMostArranged = 40;

std::int16_t DocumentOf(const QMdiSubWindow& window) {
  return static_cast<std::int16_t>(window.property("document").toInt());
}

}  // namespace

MainWindow::Child& MainWindow::Of(std::int16_t document) {
  if (const auto found = children_.find(document); found != children_.end()) return found->second;
  const QScopedValueRollback<bool> moving(moving_, true);
  Child child;
  child.graph = makeGraph(document);
  child.window = new QMdiSubWindow;
  child.window->setWidget(child.graph);
  child.window->setAttribute(Qt::WA_DeleteOnClose, false);
  // Ctrl+W is the command of the menu; two of them would cancel each other.
  for (QAction* action : child.window->systemMenu()->actions()) action->setShortcut({});
  child.window->installEventFilter(this);
  child.window->setProperty("document", document);
  Follow(document, child);
  // A new plan is seen as the one before it is: all over the area, or as a window in it.
  const QMdiSubWindow* current = area_->currentSubWindow();
  const bool maximised = children_.empty() || (current != nullptr && current->isMaximized());
  area_->addSubWindow(child.window);
  child.window->resize(area_->size() * 4 / 5);
  if (maximised) {
    child.window->showMaximized();
  } else {
    child.window->show();
  }
  return children_[document] = child;
}

void MainWindow::Follow(std::int16_t document, const Child& child) {
  const PlanLook look = form_->Looks().Of(document);
  child.window->setWindowTitle(ToQt(look.caption) + QStringLiteral("[*]"));
  child.window->setWindowModified(look.modified);
  child.window->setWindowIcon(IconNamed(look.repetitive ? "repetitive" : "document"));
  child.graph->Follow(look);
}

void MainWindow::StateChanged(std::int16_t document) {
  if (form_ == nullptr) return;
  if (!form_->IsOpen(document)) Remove(document);
  for (const auto& [number, child] : children_) {
    if (number == document) {
      Follow(number, child);
    } else {
      // The unsaved mark is that of a series.
      child.window->setWindowModified(form_->Looks().Of(number).modified);
    }
  }
  if (const auto front = form_->Active()) BringToFront(*front);
  ShowTitle();
}

void MainWindow::Remove(std::int16_t document) {
  const auto found = children_.find(document);
  if (found == children_.end()) return;
  const QScopedValueRollback<bool> moving(moving_, true);
  QMdiSubWindow* window = found->second.window;
  children_.erase(found);
  window->removeEventFilter(this);
  const bool maximised = window->isMaximized();
  area_->removeSubWindow(window);
  window->deleteLater();  // its own close control may be what brought us here
  QMdiSubWindow* next = area_->currentSubWindow();
  if (maximised && next != nullptr) next->showMaximized();
}

void MainWindow::BringToFront(std::int16_t document) {
  const Child& child = Of(document);
  if (area_->currentSubWindow() == child.window) return;
  const QScopedValueRollback<bool> moving(moving_, true);
  area_->setActiveSubWindow(child.window);
}

void MainWindow::SubWindowActivated(QMdiSubWindow* window) {
  // Another program's window in front takes nothing from the document that commands act on.
  if (window == nullptr || moving_ || form_ == nullptr) return;
  const std::int16_t document = DocumentOf(*window);
  if (children_.contains(document) && form_->Active() != document) form_->Activate(document);
}

void MainWindow::Turn(int step) {
  if (form_ == nullptr) return;
  const auto open = form_->OpenDocuments();
  const auto at = std::find(open.begin(), open.end(), form_->Active().value_or(0));
  if (at == open.end()) return;
  const auto count = static_cast<std::ptrdiff_t>(open.size());
  form_->Activate(open[static_cast<std::size_t>((at - open.begin() + step + count) % count)]);
}

void MainWindow::Arrange(Arrangement arrangement) {
  const auto open = form_->OpenDocuments();
  if (arrangement != Arrangement::Icons && open.size() <= kMostArranged) {
    for (const std::int16_t document : open) Of(document);
  }
  for (QMdiSubWindow* window : area_->subWindowList()) {
    if (window->isMaximized() || (arrangement != Arrangement::Icons && window->isMinimized())) window->showNormal();
  }
  switch (arrangement) {
    case Arrangement::Cascade:
      area_->cascadeSubWindows();
      break;
    case Arrangement::TileHorizontal:
    case Arrangement::TileVertical:
      Tile(arrangement == Arrangement::TileHorizontal);
      break;
    case Arrangement::Icons: {
      int x = 0;
      for (QMdiSubWindow* window : area_->subWindowList()) {
        if (!window->isMinimized()) continue;
        window->move(x, area_->viewport()->height() - window->height());
        x += window->width();
      }
      break;
    }
  }
  if (const auto front = form_->Active()) BringToFront(*front);
}

void MainWindow::Tile(bool rows) {
  // Horizontal tiles are as wide as the window and lie one above the other.
  const auto windows = area_->subWindowList();
  const QSize room = area_->viewport()->size();
  const int count = static_cast<int>(windows.size());
  for (int i = 0; i < count; ++i) {
    const int size = (rows ? room.height() : room.width()) / count;
    windows[i]->setGeometry(rows ? QRect(0, i * size, room.width(), size) : QRect(i * size, 0, size, room.height()));
  }
}

bool MainWindow::ResetZoom(std::int16_t document) { return Of(document).graph->ResetZoom(); }

bool MainWindow::ExportGraph(std::int16_t document, const std::string& file, bool svg) {
  return SavePicture(file, Of(document).graph->Picture(), svg);
}

bool MainWindow::SavePicture(const std::string& file, const FilePicture& picture, bool svg) {
  return tav::SavePicture(ToQt(file), picture, svg);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  const auto* window = qobject_cast<QMdiSubWindow*>(watched);
  if (window == nullptr || event->type() != QEvent::Close || form_ == nullptr || !form_->IsLoaded()) {
    return QMainWindow::eventFilter(watched, event);
  }
  event->ignore();
  form_->CloseDocument(DocumentOf(*window));
  return true;
}

}  // namespace tav
