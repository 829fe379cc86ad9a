#include "desktop/start_check.h"

#include <QApplication>
#include <QPushButton>
#include <QWindow>
#include <ctime>
#include <fstream>
#include <iostream>
#include <string>
#include <unistd.h>

#include "model/number_text.h"

namespace tav {
namespace {

/// Seconds since this process began: field 22 of its line in /proc, in clock ticks since the machine started.
double SecondsSinceStart() {
  std::ifstream stat("/proc/self/stat");
  std::string line;
  std::getline(stat, line);
  std::string_view rest = std::string_view(line).substr(line.rfind(')') + 2);
  constexpr int kFieldsBefore = 19;  // those between the name and the start
  for (int i = 0; i < kFieldsBefore; ++i) rest.remove_prefix(rest.find(' ') + 1);
  const double start = ParseLenient(rest.substr(0, rest.find(' '))) / static_cast<double>(::sysconf(_SC_CLK_TCK));
  timespec now{};
  ::clock_gettime(CLOCK_BOOTTIME, &now);
  constexpr double kNanoseconds = 1e9;
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / kNanoseconds - start;
}

/// The memory that this process takes, megabytes; what it shares with others counts by its share.
double Megabytes() {
  std::ifstream rollup("/proc/self/smaps_rollup");
  for (std::string line; std::getline(rollup, line);) {
    constexpr double kKilobytes = 1000;
    if (line.starts_with("Pss:"))
      return ParseLenient(line.substr(line.find_first_of("0123456789"))) * 1.024 / kKilobytes;
  }
  return 0;
}

bool Stands(const QWidget& window) {
  return window.isVisible() && window.windowHandle() != nullptr && window.windowHandle()->isExposed();
}

}  // namespace

StartCheck::StartCheck(const QMainWindow& window) : window_(window) {
  constexpr int kMilliseconds = 2;
  connect(&timer_, &QTimer::timeout, this, &StartCheck::Look);
  timer_.start(kMilliseconds);
}

void StartCheck::Look() {
  if (notice_ == 0) {
    const QWidget* notice = QApplication::activeModalWidget();
    if (notice == nullptr || !Stands(*notice)) return;
    notice_ = SecondsSinceStart();
    if (auto* agree = notice->findChild<QPushButton*>(QStringLiteral("cbAgree"))) agree->click();
    return;
  }
  if (!Stands(window_)) return;
  std::cout << "notice " << FormatFixed(notice_, 2) << " s, window " << FormatFixed(SecondsSinceStart(), 2)
            << " s, memory " << FormatFixed(Megabytes(), 0) << " MB" << std::endl;
  QApplication::exit(0);
}

}  // namespace tav
