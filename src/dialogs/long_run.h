#pragma once

#include <cstdint>

#include "compute/table_dives.h"
#include "controls/controls.h"
#include "platform/screen.h"

namespace tav {

/// The program around a dialog that computes for a while.
class RunHost {
 public:
  RunHost() = default;
  RunHost(const RunHost&) = delete;
  RunHost& operator=(const RunHost&) = delete;
  virtual ~RunHost() = default;

  /// A run for a document begins: its commands are held back, and warnings can be silenced until RunEnds.
  virtual void RunBegins(std::int16_t /*document*/) {}
  virtual void RunEnds() {}
  /// A run is under way: another one would write into its pages.
  [[nodiscard]] virtual bool IsRunning() const { return false; }
  /// The program wants to end.
  [[nodiscard]] virtual bool MustEnd() const { return false; }
};

/// A run of many dives behind a dialog: shows the hourglass and the progress, and gives the events of the screen their
/// turn after every 10 ms of work, so that Cancel works at once.
class LongRun {
 public:
  LongRun(Screen& screen, RunHost& host, std::int16_t document, ProgressBar& bar)
      : screen_(screen), host_(host), bar_(bar), lastTurn_(screen.Timer()) {
    bar_.Value = 0;
    screen_.ShowHourglass(true);
    host_.RunBegins(document);
  }
  LongRun(const LongRun&) = delete;
  LongRun& operator=(const LongRun&) = delete;
  ~LongRun() {
    host_.RunEnds();
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
    return !cancelled_ && !host_.MustEnd();
  }
  void Cancel() { cancelled_ = true; }

 private:
  Screen& screen_;
  RunHost& host_;
  ProgressBar& bar_;
  double lastTurn_;
  bool cancelled_ = false;
};

}  // namespace tav
