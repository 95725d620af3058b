#include <fcntl.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/platform/Files.h>
#include <qxTools/platform/linux/SystemFile.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdlib>

namespace qxTools {

namespace {

constexpr std::size_t kPiece = std::size_t{1} << 20;
constexpr int kMaxTries = 1000;

[[noreturn]] void RaiseCannotCreate(const std::string& fileName) {
  throw EFCreateError(FileErrorText("create", fileName));
}

void Flush(int fd) {
  // A pipe or a device has no disk to be flushed to.
  if (::fsync(fd) != 0 && errno != EINVAL && errno != ENOTSUP) throw EWriteError("Stream write error");
}

/// The file behind symbolic links; the name itself when nothing is there yet.
std::string FollowLinks(const std::string& fileName) {
  if (fileName.find('\0') != std::string::npos) return fileName;  // names no file; realpath would cut it
  const std::unique_ptr<char, decltype(&std::free)> path(::realpath(fileName.c_str(), nullptr), &std::free);
  if (path == nullptr && errno != ENOENT) RaiseCannotCreate(fileName);
  return path != nullptr ? path.get() : fileName;
}

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

/// Makes a file that nobody else has, in the folder of `path`; its name goes to `name`.
SystemFile MakeTemporary(const std::string& path, std::string& name) {
  static std::atomic<unsigned> counter{0};
  const std::string stem = FolderOf(path) + "/.qxtools-" + std::to_string(::getpid()) + "-";
  for (int tries = 0; tries < kMaxTries; ++tries) {
    std::string made = stem + std::to_string(counter++) + ".tmp";
    SystemFile file = OpenFile(made, O_WRONLY | O_CREAT | O_EXCL, 0666);
    if (file.IsOpen()) name = std::move(made);
    if (file.IsOpen() || errno != EEXIST) return file;
  }
  return SystemFile();
}

bool IsLink(const std::string& path) {
  struct stat info {};
  return ::lstat(path.c_str(), &info) == 0 && S_ISLNK(info.st_mode);
}

/// Gives the new file the owner and the mode of the old one.
bool TakeOver(int fd, const struct stat& old) {
  struct stat made {};
  if (::fstat(fd, &made) != 0) return false;
  const bool sameOwner = made.st_uid == old.st_uid && made.st_gid == old.st_gid;
  if (!sameOwner && ::fchown(fd, old.st_uid, old.st_gid) != 0) return false;
  return ::fchmod(fd, old.st_mode & 07777) == 0;
}

}  // namespace

bool FileExists(const std::string& fileName) {
  struct stat info {};
  return ::stat(fileName.c_str(), &info) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

std::string ReadWholeFile(const std::string& fileName) {
  const SystemFile file = OpenFile(fileName, O_RDONLY);
  if (!file.IsOpen()) throw EFOpenError(FileErrorText("open", fileName));
  if (!LockFile(file.Get(), false)) throw EFOpenError(FileErrorText("open", fileName));
  struct stat info {};
  const bool sized = ::fstat(file.Get(), &info) == 0 && S_ISREG(info.st_mode);
  std::string bytes;
  // One byte more than the file has, so that its end is met without another piece.
  std::size_t room = sized ? static_cast<std::size_t>(info.st_size) + 1 : kPiece;
  for (std::size_t size = 0;;) {
    if (size == room) room *= 2;
    bytes.resize(room);
    const ssize_t got = ::read(file.Get(), bytes.data() + size, room - size);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0 && errno == EISDIR) throw EFOpenError(FileErrorText("open", fileName));
    if (got < 0) throw EReadError("Stream read error");
    size += static_cast<std::size_t>(got);
    if (got == 0) {
      bytes.resize(size);
      return bytes;
    }
  }
}

struct WholeFileWriter::Target {
  std::string fileName;   // as given, for messages
  std::string path;       // behind symbolic links
  std::string temporary;  // empty when the bytes are gathered for writing in place
  SystemFile old;         // the old file, locked; not open when there was none
  SystemFile file;        // the temporary file
  std::string gathered;
  std::uint64_t place = 0;  // of the next byte in `gathered`

  ~Target() {
    if (!temporary.empty()) ::unlink(temporary.c_str());
  }
  void Open();
  void OpenTemporary();
  bool CanBeRenamedOver(struct stat& info) const;
  void Rename();
  void WriteInPlace();
  void Gather(std::string_view bytes);
};

void WholeFileWriter::Target::Open() {
  path = FollowLinks(fileName);
  old = OpenFile(path, O_WRONLY);
  if (!old.IsOpen() && errno != ENOENT) RaiseCannotCreate(fileName);
  if (old.IsOpen() && !LockFile(old.Get(), true)) RaiseCannotCreate(fileName);
  OpenTemporary();
}

bool WholeFileWriter::Target::CanBeRenamedOver(struct stat& info) const {
  return ::fstat(old.Get(), &info) == 0 && S_ISREG(info.st_mode) && info.st_nlink == 1;
}

void WholeFileWriter::Target::OpenTemporary() {
  struct stat info {};
  if (old.IsOpen() && !CanBeRenamedOver(info)) return;
  if (!old.IsOpen() && IsLink(path)) return;  // a link to a file that is still to be made
  file = MakeTemporary(path, temporary);
  if (!file.IsOpen()) {
    // In place only where the folder takes no new file: on a full disk the old one would be lost.
    const bool isRefused = errno == EACCES || errno == EPERM;
    if (!old.IsOpen() || !isRefused) RaiseCannotCreate(fileName);
    return;
  }
  if (!old.IsOpen() || TakeOver(file.Get(), info)) return;
  ::unlink(temporary.c_str());
  temporary.clear();
  file = SystemFile();
}

void WholeFileWriter::Target::Rename() {
  Flush(file.Get());
  if (::rename(temporary.c_str(), path.c_str()) != 0) RaiseCannotCreate(fileName);
  temporary.clear();
  const SystemFile folder = OpenFile(FolderOf(path), O_RDONLY | O_DIRECTORY);
  // The file is in its place; only a crash of the machine could still take the new name back.
  if (folder.IsOpen()) ::fsync(folder.Get());
}

void WholeFileWriter::Target::WriteInPlace() {
  if (!old.IsOpen()) old = OpenFile(path, O_WRONLY | O_CREAT, 0666);
  if (!old.IsOpen()) RaiseCannotCreate(fileName);
  struct stat info {};
  const bool regular = ::fstat(old.Get(), &info) == 0 && S_ISREG(info.st_mode);
  if (regular && ::ftruncate(old.Get(), 0) != 0) throw EWriteError("Stream write error");
  WriteAll(old.Get(), gathered);
  Flush(old.Get());
}

void WholeFileWriter::Target::Gather(std::string_view bytes) {
  if (place > gathered.max_size() - bytes.size()) throw EWriteError("Stream write error");
  const auto start = static_cast<std::size_t>(place);
  place += bytes.size();
  if (place > gathered.size()) gathered.resize(static_cast<std::size_t>(place));
  gathered.replace(start, bytes.size(), bytes);
}

WholeFileWriter::WholeFileWriter(const std::string& fileName) : target_(std::make_unique<Target>()) {
  target_->fileName = fileName;
  target_->Open();
}

WholeFileWriter::~WholeFileWriter() = default;

// The target, until Commit has taken it.
WholeFileWriter::Target& WholeFileWriter::Open() {
  if (target_ == nullptr) throw EWriteError("Stream write error");
  return *target_;
}

void WholeFileWriter::Write(std::string_view bytes) {
  Target& target = Open();
  if (target.temporary.empty())
    target.Gather(bytes);
  else
    WriteAll(target.file.Get(), bytes);
}

void WholeFileWriter::SetPosition(std::int64_t position) {
  Target& target = Open();
  target.place = static_cast<std::uint64_t>(position);
  if (target.temporary.empty()) return;
  if (::lseek(target.file.Get(), position, SEEK_SET) < 0) throw EWriteError("Stream write error");
}

void WholeFileWriter::Commit() {
  Open();
  const std::unique_ptr<Target> target = std::move(target_);
  if (target->temporary.empty())
    target->WriteInPlace();
  else
    target->Rename();
}

void SaveWholeFile(const std::string& fileName, std::string_view bytes) {
  WholeFileWriter writer(fileName);
  writer.Write(bytes);
  writer.Commit();
}

}  // namespace qxTools
