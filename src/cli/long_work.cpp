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
  former_ = std::signal(SIGINT, OnInterrupt);
  // A shell that starts a command in the background has it ignore Ctrl+C.
  if (former_ == SIG_IGN) std::signal(SIGINT, SIG_IGN);
}

LongWork::~LongWork() {
  std::signal(SIGINT, former_);
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
