#include "platform/Interrupts.h"

#include <pthread.h>
#include <signal.h>

#include <cerrno>
#include <ctime>

namespace qxtool {

namespace {

constexpr long kTick = 100'000'000;  // nanoseconds
constexpr int kWake = SIGUSR1;

}  // namespace

struct Interrupts::State {
  sigset_t interrupt{};
  sigset_t previous{};
};

Interrupts::Interrupts() : state_(std::make_unique<State>()) {
  sigemptyset(&state_->interrupt);
  struct sigaction action {};
  sigaction(SIGINT, nullptr, &action);
  // A program started in the background is to ignore Ctrl-C.
  if (action.sa_handler != SIG_IGN) sigaddset(&state_->interrupt, SIGINT);
  sigset_t blocked = state_->interrupt;
  sigaddset(&blocked, kWake);
  pthread_sigmask(SIG_BLOCK, &blocked, &state_->previous);
}

Interrupts::~Interrupts() { pthread_sigmask(SIG_SETMASK, &state_->previous, nullptr); }

Interrupts::Event Interrupts::Wait() {
  sigset_t awaited = state_->interrupt;
  sigaddset(&awaited, kWake);
  const timespec tick{0, kTick};
  const int signal = sigtimedwait(&awaited, nullptr, &tick);
  if (signal == SIGINT) return Event::kCtrlC;
  return signal < 0 && errno == EAGAIN ? Event::kTick : Event::kWoken;
}

void Interrupts::Wake(std::thread& waiter) { pthread_kill(waiter.native_handle(), kWake); }

void Interrupts::Forget() {
  const timespec now{};
  while (sigtimedwait(&state_->interrupt, nullptr, &now) == SIGINT) {
  }
}

void Interrupts::LetEnd() {
  signal(SIGINT, SIG_DFL);
  pthread_sigmask(SIG_UNBLOCK, &state_->interrupt, nullptr);
}

}  // namespace qxtool
