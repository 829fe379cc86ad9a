#pragma once

#include <QMainWindow>
#include <QObject>
#include <QTimer>

namespace tav {

/// For scripts that ask whether, and how soon, the program starts: watches it start as it always does, agrees to the
/// notice, tells on standard output when notice and window stood on the screen, in seconds since the process began (a
/// hundredth is what the system knows of that), and the memory that it then takes, and ends the program.
class StartCheck : public QObject {
 public:
  static constexpr const char* kOption = "--start-check";

  explicit StartCheck(const QMainWindow& window);

 private:
  void Look();

  const QMainWindow& window_;
  QTimer timer_;
  double notice_ = 0;  ///< seconds; 0 until it stands
};

}  // namespace tav
