#pragma once

#include <QApplication>
#include <functional>

namespace tav {

/// The application, with an end for errors that nothing else has caught: an error in one command is told, and the
/// program goes on, with all plans as they stand.
class GuardedApplication : public QApplication {
 public:
  using QApplication::QApplication;

  /// Called within the handler of an error that a command has let through. What it throws itself ends the program.
  std::function<void()> onError;

  bool notify(QObject* receiver, QEvent* event) override;
};

}  // namespace tav
