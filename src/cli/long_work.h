#pragma once

#include <chrono>
#include <iosfwd>

namespace tav {

/// The user has ended a run with Ctrl+C.
struct Interrupted {};

/// Work that may take long. While one is alive, a terminal shows after a second how far it is, and Ctrl+C ends it at
/// its next step by an exception, so that whatever was begun is taken away; elsewhere Ctrl+C ends the process at once.
class LongWork {
 public:
  /// `terminal` is where it shows; null for nowhere.
  explicit LongWork(std::ostream* terminal);
  LongWork(const LongWork&) = delete;
  LongWork& operator=(const LongWork&) = delete;
  ~LongWork();

  /// Throws Interrupted.
  void Step(int done, int of);
  /// The same where nobody knows how much there is to do.
  void Step(int done) { Step(done, 0); }

 private:
  using Clock = std::chrono::steady_clock;

  std::ostream* terminal_;
  Clock::time_point next_ = Clock::now() + std::chrono::seconds(1);
  bool shown_ = false;
  void (*former_)(int) = nullptr;  ///< what Ctrl+C did before
};

}  // namespace tav
