#include "StatementWatch.h"

#include <pthread.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <ctime>

#include "TextIo.h"

namespace qxtool {

namespace {

// A call that ends by itself so soon need not be cancelled. Some drivers close the result when they cancel,
// without a look at the call that is using it: between the short calls that fetch rows that would go wrong.
constexpr auto kGrace = std::chrono::milliseconds(100);
constexpr long kTick = 100'000'000;       // nanoseconds
constexpr unsigned kTicksOfPatience = 5;  // what is done sooner shows no progress

}  // namespace

StatementWatch::StatementWatch(database::Statement& statement, bool progress)
    : statement_(statement), progress_(progress) {
  sigemptyset(&interrupt_);
  struct sigaction action {};
  sigaction(SIGINT, nullptr, &action);
  // A program started in the background is to ignore Ctrl-C.
  if (action.sa_handler != SIG_IGN) sigaddset(&interrupt_, SIGINT);
  sigset_t blocked = interrupt_;
  sigaddset(&blocked, SIGUSR1);  // ends the waiting
  pthread_sigmask(SIG_BLOCK, &blocked, &previous_);
  waiter_ = std::thread([this] { Wait(); });
}

StatementWatch::~StatementWatch() {
  {
    const std::lock_guard lock(mutex_);
    done_ = true;
    changed_.notify_all();
    pthread_kill(waiter_.native_handle(), SIGUSR1);
  }
  waiter_.join();
  Clear();
  if (asked_) SwallowInterrupts();
  pthread_sigmask(SIG_SETMASK, &previous_, nullptr);
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
  sigset_t awaited = interrupt_;
  sigaddset(&awaited, SIGUSR1);
  for (;;) {
    const timespec tick{0, kTick};
    const int signal = sigtimedwait(&awaited, nullptr, &tick);
    if (signal == SIGINT) return Cancel();
    const std::lock_guard lock(mutex_);
    if (done_) return;
    if (signal < 0 && errno == EAGAIN && progress_) ShowProgress();
  }
}

void StatementWatch::Cancel() {
  std::unique_lock lock(mutex_);
  asked_ = true;
  if (!changed_.wait_for(lock, kGrace, [this] { return done_ || !inCall_; })) {
    cancelled_ = true;
    SwallowInterrupts();
    signal(SIGINT, SIG_DFL);
    pthread_sigmask(SIG_UNBLOCK, &interrupt_, nullptr);
    statement_.Cancel();
  }
  changed_.wait(lock, [this] { return done_; });
}

/// A key that was pressed, or a signal that was sent, twice at once means the same.
void StatementWatch::SwallowInterrupts() {
  const timespec now{};
  while (sigtimedwait(&interrupt_, nullptr, &now) == SIGINT) {
  }
}

/// Only while a call runs, so that it never comes between other output.
void StatementWatch::ShowProgress() {
  if (!inCall_ || ++ticks_ < kTicksOfPatience) return;
  std::fprintf(stderr, "\r%c %llu rows\x1B[K", "|/-\\"[ticks_ % 4], static_cast<unsigned long long>(rows_));
  shown_ = true;
}

}  // namespace qxtool
