#include "desktop/guarded_application.h"

namespace tav {

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
  if (!onError) return QApplication::notify(receiver, event);
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    onError();
    return false;
  }
}

}  // namespace tav
