#include "cli/long_work.h"

#include <csignal>
#include <ostream>

#include "cli/command_frame.h"

namespace tav {
namespace {

volatile std::sig_atomic_t interrupted = 0;

void OnInterrupt(int /*signal*/) { interrupted = 1; }

constexpr const char* kEraseLine = "\r\x1B[K";

}  // namespace

LongWork::LongWork(CommandFrame& frame) : frame_(frame) {
  interrupted = 0;
  std::signal(SIGINT, OnInterrupt);
}

LongWork::~LongWork() {
  std::signal(SIGINT, SIG_DFL);
  if (shown_) frame_.Err() << kEraseLine << std::flush;
}

void LongWork::Step(int done, int of) {
  if (interrupted != 0) throw Interrupted();
  if (!frame_.ShowsProgress() || Clock::now() < next_) return;
  constexpr auto kBetween = std::chrono::milliseconds(200);
  next_ = Clock::now() + kBetween;
  shown_ = true;
  frame_.Err() << kEraseLine << done;
  if (of > 0) frame_.Err() << " / " << of;
  frame_.Err() << std::flush;
}

}  // namespace tav
