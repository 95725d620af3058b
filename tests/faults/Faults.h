/// @file
/// Failing calls: the n-th request for memory, or the n-th call of the system, fails once; or the disk is
/// full from the n-th call on that takes room on it; or the process is killed before the n-th call.
///
/// The program's own definitions of operator new, calloc, open and their like (Faults.cpp) stand before those
/// of the libraries, for qxTools as for everything else in the process.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <memory>
#include <type_traits>

namespace qxTools::test {

enum class Fault { kMemory, kSystem, kFullDisk, kKill };
enum class Error { kNone, kMemory, kStream, kOther };

struct Outcome {
  bool reached;  ///< there was an n-th call, and it failed
  bool flush;    ///< that call was the flush of a file's bytes
  Error error;   ///< what `call` ended with
};

/// Runs `call` while its n-th (from 1) request of that kind fails: out of memory, with EIO, or, from the n-th
/// on, with ENOSPC.
Outcome RunFailing(Fault fault, long n, const std::function<void()>& call);

/// Runs `call` in a process of its own, which is killed before its n-th call of the system.
/// @return false if there was no n-th call.
bool RunKilled(long n, const std::function<void()>& call);

/// Whether the system has files without a name, as it has at first.
void SetHasUnnamedFiles(bool value);

/// Calls `reaches` for n from 1 on until it says that there was no n-th call to fail.
inline void ForEachCall(const std::function<bool(long n)>& reaches) {
  long n = 1;
  for (bool reached = true; reached; ++n) {
    SCOPED_TRACE(n);
    ASSERT_LT(n, 1000);
    reached = reaches(n);
  }
  EXPECT_GT(n, 2) << "nothing failed";
}

/// The object behind the pointer that `Make` returns.
template <class Make>
using MadeBy = typename std::invoke_result_t<const Make&>::element_type;

/// Lets each of `changes` run out of memory at each of its requests in turn, each time on an object that
/// `make` made anew: what `state` says of the object is as before then, and as it should be after a second
/// try.
template <class Make, class State>
void ExpectAllOrNothing(const Make& make, std::initializer_list<std::function<void(MadeBy<Make>&)>> changes,
                        const State& state) {
  for (const auto& change : changes) {
    SCOPED_TRACE(&change - changes.begin());
    const auto changed = make();
    change(*changed);
    const auto want = state(*changed);
    ForEachCall([&](long n) {
      const auto object = make();
      const auto before = state(*object);
      const Outcome outcome = RunFailing(Fault::kMemory, n, [&] { change(*object); });
      EXPECT_EQ(outcome.error, outcome.reached ? Error::kMemory : Error::kNone);
      EXPECT_EQ(state(*object), outcome.reached ? before : want);
      if (outcome.reached) change(*object);
      EXPECT_EQ(state(*object), want);
      return outcome.reached;
    });
  }
}

}  // namespace qxTools::test
