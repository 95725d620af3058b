/// @file
/// Failing calls: the n-th request for memory, or the n-th call of the system, fails once; or the disk is
/// full from the n-th call on that takes room on it.
///
/// The program's own definitions of operator new, calloc, open and their like (Faults.cpp) stand before those
/// of the libraries, for qxTools as for everything else in the process.
#pragma once

#include <functional>

namespace qxTools::test {

enum class Fault { kMemory, kSystem, kFullDisk };
enum class Error { kNone, kMemory, kStream, kOther };

struct Outcome {
  bool reached;  ///< there was an n-th call, and it failed
  bool flush;    ///< that call was the flush of a file's bytes
  Error error;   ///< what `call` ended with
};

/// Runs `call` while its n-th (from 1) request of that kind fails: out of memory, with EIO, or, from the n-th
/// on, with ENOSPC.
Outcome RunFailing(Fault fault, long n, const std::function<void()>& call);

}  // namespace qxTools::test
