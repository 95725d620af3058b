#include "faults/Faults.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <qxTools/base/Exceptions.h>
#include <sys/stat.h>
#include <unistd.h>

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
bool flush = false;

bool Fails(Fault fault) {
  if (callsLeft == 0 || fault != kind || --callsLeft > 0) return false;
  reached = true;
  errno = fault == Fault::kMemory ? ENOMEM : fault == Fault::kSystem ? EIO : ENOSPC;
  if (fault == Fault::kFullDisk) callsLeft = 1;  // it stays full
  return true;
}

/// For a call that takes room on the disk.
bool FailsForRoom() { return Fails(Fault::kSystem) || Fails(Fault::kFullDisk); }

/// Calls the library's own function of a name, behind the one below.
template <class Result, class... Arguments>
Result Real(const char* name, Arguments... arguments) {
  return reinterpret_cast<Result (*)(Arguments...)>(dlsym(RTLD_NEXT, name))(arguments...);
}

Error ErrorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const std::bad_alloc&) {
    return Error::kMemory;
  } catch (const EStreamError&) {
    return Error::kStream;
  } catch (...) {
    return Error::kOther;
  }
  return Error::kNone;
}

}  // namespace

Outcome RunFailing(Fault fault, long n, const std::function<void()>& call) {
  kind = fault;
  reached = flush = false;
  callsLeft = n;
  const Error error = ErrorOf(call);
  callsLeft = 0;
  return {reached, flush, error};
}

}  // namespace qxTools::test

using namespace qxTools::test;

// --- Memory --------------------------------------------------------------------------------------------

void* operator new(std::size_t size) {
  void* const block = Fails(Fault::kMemory) ? nullptr : std::malloc(size == 0 ? 1 : size);
  return block != nullptr ? block : throw std::bad_alloc();
}
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }

// Seen by the libraries, though this project hides its symbols.
#pragma GCC visibility push(default)
extern "C" {

void* calloc(std::size_t count, std::size_t size) noexcept {
  return Fails(Fault::kMemory) ? nullptr : Real<void*>("calloc", count, size);
}

void* realloc(void* block, std::size_t size) noexcept {
  return Fails(Fault::kMemory) ? nullptr : Real<void*>("realloc", block, size);
}

// --- Files: the names that the library calls with 64-bit offsets ---------------------------------------

int open64(const char* name, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): it does not see the line above
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  if ((flags & O_CREAT) != 0 ? FailsForRoom() : Fails(Fault::kSystem)) return -1;
  return reinterpret_cast<int (*)(const char*, int, ...)>(dlsym(RTLD_NEXT, "open64"))(name, flags, mode);
}

ssize_t read(int fd, void* buffer, std::size_t count) {
  return Fails(Fault::kSystem) ? -1 : Real<ssize_t>("read", fd, buffer, count);
}

ssize_t write(int fd, const void* bytes, std::size_t count) {
  if (!FailsForRoom()) return Real<ssize_t>("write", fd, bytes, count);
  const int reason = errno;
  if (count > kDiskBlock) Real<ssize_t>("write", fd, bytes, count / 2);  // some of it may have got there
  errno = reason;
  return -1;
}

int fsync(int fd) {
  if (!Fails(Fault::kSystem)) return Real<int>("fsync", fd);
  struct stat info {};
  flush = fstat(fd, &info) == 0 && S_ISREG(info.st_mode);
  return -1;
}

int ftruncate64(int fd, off64_t size) noexcept {
  return Fails(Fault::kSystem) ? -1 : Real<int>("ftruncate64", fd, size);
}

int rename(const char* from, const char* to) noexcept {
  return Fails(Fault::kSystem) ? -1 : Real<int>("rename", from, to);
}

char* realpath(const char* name, char* resolved) noexcept {
  return Fails(Fault::kSystem) ? nullptr : Real<char*>("realpath", name, resolved);
}

/// The file is closed all the same, as the system has it.
int close(int fd) {
  const int result = Real<int>("close", fd);
  return Fails(Fault::kSystem) ? -1 : result;
}

}  // extern "C"
#pragma GCC visibility pop
