// Looks after a running statement: Ctrl-C cancels it, and a terminal sees that it is at work.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>

#include "database/Odbc.h"
#include "platform/Interrupts.h"

namespace qxtool {

/// While it lives, a thread waits for Ctrl-C and cancels the call that the statement is in. When the driver
/// does not answer even then, a second Ctrl-C ends the program.
class StatementWatch {
 public:
  /// `progress` shows a row count on standard error when a call takes long.
  StatementWatch(database::Statement& statement, bool progress);
  ~StatementWatch();
  StatementWatch(const StatementWatch&) = delete;
  StatementWatch& operator=(const StatementWatch&) = delete;

  /// Runs a call of the driver that may take long, and gives its answer.
  /// @throws Failure, "cancelled", when it was cancelled, or Ctrl-C came before it.
  template <class Call>
  auto During(Call&& call) {
    Enter();
    try {
      auto result = call();
      Leave();
      return result;
    } catch (...) {
      Leave();
      throw;
    }
  }

  void CountRow() { ++rows_; }
  /// Takes the progress off the terminal, before something else is written.
  void Clear();

 private:
  void Enter();
  void Leave();
  void Wait();
  void Cancel();
  void ShowProgress();

  database::Statement& statement_;
  const bool progress_;
  std::atomic<std::uint64_t> rows_ = 0;

  std::mutex mutex_;  // guards what follows, and holds calls back while the statement is being cancelled
  std::condition_variable changed_;
  bool inCall_ = false;
  bool asked_ = false;      // Ctrl-C has come
  bool cancelled_ = false;  // and the driver was told
  bool done_ = false;
  bool shown_ = false;
  unsigned ticks_ = 0;

  Interrupts interrupts_;
  std::thread waiter_;
};

}  // namespace qxtool
