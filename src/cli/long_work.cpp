#include "cli/long_work.h"

#include <csignal>
#include <ostream>

namespace tav {
namespace {

volatile std::sig_atomic_t interrupted = 0;

void OnInterrupt(int /*signal*/) { interrupted = 1; }

constexpr const char* kEraseLine = "\r\x1B[K";

}  // namespace

LongWork::LongWork(std::ostream* terminal) : terminal_(terminal) {
  interrupted = 0;
  std::signal(SIGINT, OnInterrupt);
}

LongWork::~LongWork() {
  std::signal(SIGINT, SIG_DFL);
  if (shown_) *terminal_ << kEraseLine << std::flush;
}

void LongWork::Step(int done, int of) {
  if (interrupted != 0) throw Interrupted();
  if (terminal_ == nullptr || Clock::now() < next_) return;
  constexpr auto kBetween = std::chrono::milliseconds(200);
  next_ = Clock::now() + kBetween;
  shown_ = true;
  *terminal_ << kEraseLine << done;
  if (of > 0) *terminal_ << " / " << of;
  *terminal_ << std::flush;
}

}  // namespace tav
