// Ctrl-C, for a thread that waits for it.
#pragma once

#include <memory>
#include <thread>

namespace qxtool {

/// While it lives, Ctrl-C does not end the program: it ends a Wait. Threads that are to wait are started
/// after it is made.
class Interrupts {
 public:
  enum class Event { kCtrlC, kWoken, kTick };

  Interrupts();
  ~Interrupts();
  Interrupts(const Interrupts&) = delete;
  Interrupts& operator=(const Interrupts&) = delete;

  /// Waits for Ctrl-C or Wake; kTick after a tenth of a second without them.
  Event Wait();
  /// Ends the Wait of the thread `waiter`.
  void Wake(std::thread& waiter);
  /// Forgets a Ctrl-C that nobody has waited for.
  void Forget();
  /// From now on Ctrl-C ends the program.
  void LetEnd();

 private:
  struct State;

  std::unique_ptr<State> state_;
};

}  // namespace qxtool
