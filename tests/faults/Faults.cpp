#include "faults/Faults.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <qxTools/base/Exceptions.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
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
bool hasUnnamedFiles = true;

bool IsMeant(Fault fault) { return fault == kind || (fault == Fault::kSystem && kind == Fault::kKill); }

bool Fails(Fault fault) {
  if (callsLeft == 0 || !IsMeant(fault) || --callsLeft > 0) return false;
  if (kind == Fault::kKill) std::raise(SIGKILL);
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

/// Calls the library's own function, or fails as the system does.
template <class Result, class... Arguments>
Result Call(const char* name, Arguments... arguments) {
  return Fails(Fault::kSystem) ? Result(-1) : Real<Result>(name, arguments...);
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

bool RunKilled(long n, const std::function<void()>& call) {
  const pid_t child = fork();
  if (child == 0) {
    RunFailing(Fault::kKill, n, call);
    std::_Exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

void SetHasUnnamedFiles(bool value) { hasUnnamedFiles = value; }

}  // namespace qxTools::test

using namespace qxTools::test;

// --- Memory --------------------------------------------------------------------------------------------

void* operator new(std::size_t size) {
  void* const block = Fails(Fault::kMemory) ? nullptr : std::malloc(size == 0 ? 1 : size);
  return block != nullptr ? block : throw std::bad_alloc();
}
void* operator new[](std::size_t size) { return operator new(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }
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
  const bool isUnnamed = (flags & O_TMPFILE) == O_TMPFILE;
  const mode_t mode = (flags & O_CREAT) != 0 || isUnnamed ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  if ((flags & O_CREAT) != 0 || isUnnamed ? FailsForRoom() : Fails(Fault::kSystem)) return -1;
  if (isUnnamed && !hasUnnamedFiles) {
    errno = EOPNOTSUPP;
    return -1;
  }
  return reinterpret_cast<int (*)(const char*, int, ...)>(dlsym(RTLD_NEXT, "open64"))(name, flags, mode);
}

int stat64(const char* name, struct stat64* info) noexcept { return Call<int>("stat64", name, info); }

DIR* opendir(const char* name) { return Fails(Fault::kSystem) ? nullptr : Real<DIR*>("opendir", name); }

ssize_t read(int fd, void* buffer, std::size_t count) { return Call<ssize_t>("read", fd, buffer, count); }

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

int ftruncate64(int fd, off64_t size) noexcept { return Call<int>("ftruncate64", fd, size); }

/// What is reserved is there, however full the disk is then.
int fallocate64(int fd, int mode, off64_t start, off64_t size) {
  if (FailsForRoom()) return -1;
  if (kind == Fault::kFullDisk) callsLeft = 0;
  return Real<int>("fallocate64", fd, mode, start, size);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
  return FailsForRoom() ? -1 : Real<int>("linkat", fromFolder, from, toFolder, to, flags);
}

int rename(const char* from, const char* to) noexcept { return Call<int>("rename", from, to); }

int unlink(const char* name) noexcept { return Call<int>("unlink", name); }

int fchmod(int fd, mode_t mode) noexcept { return Call<int>("fchmod", fd, mode); }

ssize_t flistxattr(int fd, char* names, std::size_t size) noexcept {
  return Call<ssize_t>("flistxattr", fd, names, size);
}

ssize_t getrandom(void* bytes, std::size_t count, unsigned flags) {
  return Call<ssize_t>("getrandom", bytes, count, flags);
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
