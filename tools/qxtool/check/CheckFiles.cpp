#include "CheckFiles.h"

#include <qxTools/base/Exceptions.h>
#include <qxTools/platform/Files.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <system_error>
#include <thread>

#include "FileKinds.h"
#include "PathOf.h"
#include "platform/Folders.h"

namespace qxtool::check {

namespace fs = std::filesystem;

namespace {

/// Adds the files below a folder, but for what is hidden.
void AddBelow(const std::string& folder, std::vector<FileToCheck>& files) {
  for (const FolderEntry& entry : EntriesOf(folder)) {
    if (entry.name.starts_with('.')) continue;
    const std::string path = (PathOf(folder) / PathOf(entry.name)).generic_string();
    if (entry.isFolder)
      AddBelow(path, files);
    else if (entry.isFile)
      files.push_back({path, false});
  }
}

void AddFolder(const std::string& folder, std::vector<FileToCheck>& files) {
  const std::size_t first = files.size();
  AddBelow(folder, files);
  std::sort(files.begin() + static_cast<std::ptrdiff_t>(first), files.end(),
            [](const FileToCheck& a, const FileToCheck& b) { return a.path < b.path; });
}

/// Holds how many bytes of files are in memory. A file that is larger than the budget waits for all others.
class Budget {
 public:
  void Take(std::uint64_t size) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return used_ == 0 || used_ + size <= kBytes; });
    used_ += size;
  }
  void Give(std::uint64_t size) {
    const std::lock_guard lock(mutex_);
    used_ -= size;
    changed_.notify_all();
  }

 private:
  static constexpr std::uint64_t kBytes = std::uint64_t{32} << 20;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::uint64_t used_ = 0;
};

class BudgetShare {
 public:
  BudgetShare(Budget& budget, std::uint64_t size) : budget_(budget), size_(size) { budget_.Take(size_); }
  BudgetShare(const BudgetShare&) = delete;
  BudgetShare& operator=(const BudgetShare&) = delete;
  ~BudgetShare() { budget_.Give(size_); }

 private:
  Budget& budget_;
  std::uint64_t size_;
};

std::uint64_t SizeOf(const std::string& path) {
  std::error_code ignored;
  const std::uint64_t size = fs::file_size(PathToOpen(path), ignored);
  return ignored ? 0 : size;
}

bool IsWorthReading(const FileToCheck& file) {
  if (file.named || HasKnownExtension(file.path)) return true;
  std::ifstream stream(PathToOpen(file.path), std::ios::binary);
  char head[4096];
  stream.read(head, sizeof head);
  return HasKnownMarks({head, static_cast<std::size_t>(stream.gcount())});
}

class Workers {
 public:
  explicit Workers(const Work& work) : work_(work) {}

  void Run() {
    {
      std::vector<std::jthread> threads;
      const std::size_t count = std::min<std::size_t>(std::max(work_.threads, 1u), work_.files.size());
      for (std::size_t i = 0; i < count; ++i) threads.emplace_back([this] { Loop(); });
    }
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  void Loop() {
    for (std::size_t i = next_++; i < work_.files.size(); i = next_++)
      if (!Deliver(i, Check(work_.files[i]))) return;
  }

  FileReport Check(const FileToCheck& file) {
    FileReport report;
    report.path = file.path;
    try {
      const BudgetShare share(budget_, SizeOf(file.path));
      report.checked = IsWorthReading(file);
      if (report.checked)
        report = CheckBytes(file.path, qxTools::ReadWholeFile(file.path), work_.optionsOf(file.path),
                            work_.baselineOf(file.path));
    } catch (const std::exception& e) {
      report.error = e.what();
    }
    return report;
  }

  /// Waits for its turn. Returns false if the work has failed.
  bool Deliver(std::size_t i, const FileReport& report) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return turn_ == i || failure_; });
    if (failure_) return false;
    try {
      work_.take(report);
    } catch (...) {
      failure_ = std::current_exception();
    }
    ++turn_;
    changed_.notify_all();
    return !failure_;
  }

  const Work& work_;
  Budget budget_;
  std::atomic<std::size_t> next_ = 0;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::size_t turn_ = 0;
  std::exception_ptr failure_;
};

}  // namespace

std::vector<FileToCheck> FindFiles(const std::vector<std::string>& paths) {
  std::vector<FileToCheck> files;
  for (const std::string& path : paths) {
    if (!qxTools::FileExists(path)) throw qxTools::Exception(path + ": no such file or folder");
    try {
      qxTools::FolderExists(path) ? AddFolder(path, files) : files.push_back({path, true});
    } catch (const std::system_error& e) {
      throw qxTools::Exception(path + ": " + e.code().default_error_condition().message());
    }
  }
  return files;
}

void CheckFiles(const Work& work) { Workers(work).Run(); }

}  // namespace qxtool::check
