#include "StatementWatch.h"

#include <chrono>
#include <cstdio>

#include "TextIo.h"

namespace qxtool {

namespace {

// A call that ends by itself so soon need not be cancelled. Some drivers close the result when they cancel,
// without a look at the call that is using it: between the short calls that fetch rows that would go wrong.
constexpr auto kGrace = std::chrono::milliseconds(100);
constexpr unsigned kTicksOfPatience = 5;  // what is done sooner shows no progress

}  // namespace

StatementWatch::StatementWatch(database::Statement& statement, bool progress)
    : statement_(statement), progress_(progress), waiter_([this] { Wait(); }) {}

StatementWatch::~StatementWatch() {
  {
    const std::lock_guard lock(mutex_);
    done_ = true;
    changed_.notify_all();
    interrupts_.Wake(waiter_);
  }
  waiter_.join();
  Clear();
  // A key that was pressed, or a signal that was sent, twice at once means the same.
  if (asked_) interrupts_.Forget();
}

void StatementWatch::Enter() {
  const std::lock_guard lock(mutex_);
  if (asked_) throw Failure("cancelled");
  inCall_ = true;
}

void StatementWatch::Leave() {
  const std::lock_guard lock(mutex_);
  inCall_ = false;
  changed_.notify_all();
  if (cancelled_) throw Failure("cancelled");
}

void StatementWatch::Clear() {
  const std::lock_guard lock(mutex_);
  if (shown_) std::fputs("\r\x1B[K", stderr);
  shown_ = false;
}

// --- The waiting thread ------------------------------------------------------------------------------

void StatementWatch::Wait() {
  for (;;) {
    const Interrupts::Event event = interrupts_.Wait();
    if (event == Interrupts::Event::kCtrlC) return Cancel();
    const std::lock_guard lock(mutex_);
    if (done_) return;
    if (event == Interrupts::Event::kTick && progress_) ShowProgress();
  }
}

void StatementWatch::Cancel() {
  std::unique_lock lock(mutex_);
  asked_ = true;
  if (!changed_.wait_for(lock, kGrace, [this] { return done_ || !inCall_; })) {
    cancelled_ = true;
    interrupts_.Forget();
    interrupts_.LetEnd();
    statement_.Cancel();
  }
  changed_.wait(lock, [this] { return done_; });
}

/// Only while a call runs, so that it never comes between other output.
void StatementWatch::ShowProgress() {
  if (!inCall_ || ++ticks_ < kTicksOfPatience) return;
  std::fprintf(stderr, "\r%c %llu rows\x1B[K", "|/-\\"[ticks_ % 4], static_cast<unsigned long long>(rows_));
  shown_ = true;
}

}  // namespace qxtool
