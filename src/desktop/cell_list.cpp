#include "desktop/cell_list.h"

#include <QtWidgets>

namespace tav {

CellList::CellList(QWidget* parent, bool takesTyping, std::function<void()> closed)
    : QComboBox(parent), closed_(std::move(closed)) {
  connect(this, &QComboBox::activated, this, [this] { chosen_ = true; });
  if (!takesTyping) return;
  setEditable(true);
  setCompleter(nullptr);  // a name that is typed is not taken for a longer one
}

// The window of the list is watched: what hides it differs between versions of Qt.
bool CellList::eventFilter(QObject* object, QEvent* event) {
  // A choice is told after the list has gone.
  if (event->type() == QEvent::Hide) QTimer::singleShot(0, this, [this] { closed_(); });
  return QComboBox::eventFilter(object, event);
}

void CellList::showEvent(QShowEvent* event) {
  QComboBox::showEvent(event);
  QTimer::singleShot(0, this, [this] { ShowEntries(); });
}

void CellList::ShowEntries() {
  if (keepsClosed_) return;
  showPopup();
  view()->window()->installEventFilter(this);
  if (!typed_.isEmpty()) view()->keyboardSearch(typed_);
}

void CellList::keyPressEvent(QKeyEvent* event) {
  typed_ += event->text();
  if (!isEditable()) return;
  keepsClosed_ = true;
  QComboBox::keyPressEvent(event);
}

void CellList::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace tav
