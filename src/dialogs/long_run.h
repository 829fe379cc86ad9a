#pragma once

#include <cstdint>

#include "compute/table_dives.h"
#include "controls/controls.h"
#include "dialogs/long_runs.h"
#include "platform/screen.h"

namespace tav {

/// A run of many dives behind a dialog: shows the hourglass and the progress, and gives the events of the screen their
/// turn after every 10 ms of work, so that Cancel works at once.
class LongRun {
 public:
  LongRun(Screen& screen, LongRuns& runs, std::int16_t document, ProgressBar& bar)
      : screen_(screen), runs_(runs), bar_(bar), lastTurn_(screen.Timer()) {
    bar_.Value = 0;
    screen_.ShowHourglass(true);
    runs_.RunBegins(document);
  }
  ~LongRun() {
    runs_.RunEnds();
    screen_.ShowHourglass(false);
    bar_.Value = 0;
  }

  /// For the loops of the run; false when the user has cancelled it.
  [[nodiscard]] bool GoOn(int done, int of) {
    constexpr double kWork = 0.010;  // seconds
    if (screen_.Timer() - lastTurn_ >= kWork) {
      bar_.Maximum = of;
      bar_.Value = done;
      screen_.DoEvents();
      lastTurn_ = screen_.Timer();
    }
    return !cancelled_ && !runs_.MustEnd();
  }
  void Cancel() { cancelled_ = true; }

 private:
  Screen& screen_;
  LongRuns& runs_;
  ProgressBar& bar_;
  double lastTurn_;
  bool cancelled_ = false;
};

}  // namespace tav
