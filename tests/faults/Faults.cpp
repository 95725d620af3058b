#include "faults/Faults.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <qxTools/runtime/Exceptions.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace qxTools::test {

namespace {

constexpr std::size_t kDiskBlock = 512;  // written whole or not at all

Fault kind = Fault::kMemory;
long callsLeft = 0;  // 0: nothing fails
bool reached = false;
std::atomic<long> blocks{0};

bool Fails(Fault fault) {
  if (callsLeft == 0 || fault != kind || --callsLeft > 0) return false;
  reached = true;
  errno = fault == Fault::kMemory ? ENOMEM : fault == Fault::kSystem ? EIO : ENOSPC;
  if (fault == Fault::kFullDisk) callsLeft = 1;  // it stays full
  return true;
}

/// For a call that takes room on the disk.
bool FailsForRoom() { return Fails(Fault::kSystem) || Fails(Fault::kFullDisk); }

/// The library's own function of a name, behind the one below.
template <class Function>
Function* Next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

void* New(std::size_t size) {
  if (Fails(Fault::kMemory)) throw std::bad_alloc();
  void* const block = std::malloc(size == 0 ? 1 : size);
  if (block == nullptr) throw std::bad_alloc();
  ++blocks;
  return block;
}

void Delete(void* block) {
  if (block != nullptr) --blocks;
  std::free(block);
}

}  // namespace

Outcome RunFailing(Fault fault, long n, const std::function<void()>& call) {
  Outcome outcome;
  kind = fault;
  reached = false;
  callsLeft = n;
  try {
    call();
    callsLeft = 0;
  } catch (const std::bad_alloc&) {
    callsLeft = 0;
    outcome.raised = outcome.badAlloc = true;
  } catch (const EStreamError&) {
    callsLeft = 0;
    outcome.raised = outcome.streamError = true;
  } catch (...) {
    callsLeft = 0;
    outcome.raised = true;
  }
  outcome.reached = reached;
  return outcome;
}

long BlocksInUse() { return blocks; }

}  // namespace qxTools::test

using qxTools::test::Fails;
using qxTools::test::FailsForRoom;
using qxTools::test::Fault;
using qxTools::test::kDiskBlock;
using qxTools::test::Next;

// --- Memory --------------------------------------------------------------------------------------------

void* operator new(std::size_t size) { return qxTools::test::New(size); }
void* operator new[](std::size_t size) { return qxTools::test::New(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  try {
    return qxTools::test::New(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
void operator delete(void* block) noexcept { qxTools::test::Delete(block); }
void operator delete[](void* block) noexcept { qxTools::test::Delete(block); }
void operator delete(void* block, std::size_t) noexcept { qxTools::test::Delete(block); }
void operator delete[](void* block, std::size_t) noexcept { qxTools::test::Delete(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { qxTools::test::Delete(block); }

// Seen by the libraries, though this project hides its symbols.
#pragma GCC visibility push(default)
extern "C" {

void* calloc(std::size_t count, std::size_t size) noexcept {
  static auto* const next = Next<void*(std::size_t, std::size_t)>("calloc");
  return Fails(Fault::kMemory) ? nullptr : next(count, size);
}

void* realloc(void* block, std::size_t size) noexcept {
  static auto* const next = Next<void*(void*, std::size_t)>("realloc");
  return Fails(Fault::kMemory) ? nullptr : next(block, size);
}

// --- Files: the names that the library calls with 64-bit offsets ---------------------------------------

int open64(const char* name, int flags, ...) {
  static auto* const next = Next<int(const char*, int, ...)>("open64");
  va_list arguments;
  va_start(arguments, flags);
  // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): it does not see the line above
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  const bool fails = (flags & O_CREAT) != 0 ? FailsForRoom() : Fails(Fault::kSystem);
  return fails ? -1 : next(name, flags, mode);
}

ssize_t read(int fd, void* buffer, std::size_t count) {
  static auto* const next = Next<ssize_t(int, void*, std::size_t)>("read");
  return Fails(Fault::kSystem) ? -1 : next(fd, buffer, count);
}

ssize_t write(int fd, const void* bytes, std::size_t count) {
  static auto* const next = Next<ssize_t(int, const void*, std::size_t)>("write");
  if (!FailsForRoom()) return next(fd, bytes, count);
  const int reason = errno;
  if (count > kDiskBlock) next(fd, bytes, count / 2);  // some of it may have got there
  errno = reason;
  return -1;
}

int fsync(int fd) {
  static auto* const next = Next<int(int)>("fsync");
  return Fails(Fault::kSystem) ? -1 : next(fd);
}

int ftruncate64(int fd, off64_t size) noexcept {
  static auto* const next = Next<int(int, off64_t)>("ftruncate64");
  return Fails(Fault::kSystem) ? -1 : next(fd, size);
}

int rename(const char* from, const char* to) noexcept {
  static auto* const next = Next<int(const char*, const char*)>("rename");
  return Fails(Fault::kSystem) ? -1 : next(from, to);
}

char* realpath(const char* name, char* resolved) noexcept {
  static auto* const next = Next<char*(const char*, char*)>("realpath");
  return Fails(Fault::kSystem) ? nullptr : next(name, resolved);
}

/// The file is closed all the same, as the system has it.
int close(int fd) {
  static auto* const next = Next<int(int)>("close");
  const int result = next(fd);
  return Fails(Fault::kSystem) ? -1 : result;
}

}  // extern "C"
#pragma GCC visibility pop
