#include <fcntl.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/platform/Files.h>
#include <qxTools/platform/linux/FileAttributes.h>
#include <qxTools/platform/linux/FileHoldState.h>
#include <qxTools/platform/linux/Staging.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace qxTools {

namespace {

constexpr std::size_t kCopiedPiece = std::size_t{1} << 16;

[[noreturn]] void RaiseCannotWrite() { throw EWriteError("Stream write error"); }

/// Whether errno says that this file cannot be renamed over here, or its folder takes no file, though it can
/// be written. On a full disk it must not: there the old file would be lost.
bool IsRefused() {
  constexpr std::array kRefusals = {EACCES, EPERM, EROFS, EBUSY, EXDEV};
  return std::ranges::find(kRefusals, errno) != kRefusals.end();
}

/// Reserves space for the first `size` bytes of a file, without changing any.
bool Reserve(int fd, std::int64_t oldSize, std::int64_t size) {
  if (size == 0) return true;
  int error = ::fallocate(fd, FALLOC_FL_KEEP_SIZE, 0, size) == 0 ? 0 : errno;
  // Where the file system cannot, zeros are written into gaps and behind the end.
  if (error == EOPNOTSUPP) error = ::posix_fallocate(fd, 0, size);
  if (error == 0) return true;
  [[maybe_unused]] const int result = ::ftruncate(fd, oldSize);  // gives back what was reserved of it
  return false;
}

void CopyAll(SystemFile& from, SystemFile& to) {
  std::array<char, kCopiedPiece> piece;
  from.SetPosition(0);
  to.SetPosition(0);
  while (const std::size_t got = from.Read(piece.data(), piece.size())) to.Write(piece.data(), got);
}

}  // namespace

struct WholeFileWriter::Target {
  FileHold::State own;  // the old file, which is not open if there is none
  FileHold::State* old = &own;
  Staging staging;

  void OpenOld(const std::string& fileName);
  void OpenStaging();
  bool CanBeReplaced(struct stat& info) const;
  bool PutNew();
  bool Replace();
  void WriteInPlace();
  void Commit();
};

void WholeFileWriter::Target::OpenOld(const std::string& fileName) {
  own.name = fileName;
  own.path = FollowLinks(fileName);
  own.file = OpenLocked(own.path, O_WRONLY);
  if (!own.file.IsOpen() && errno != ENOENT) RaiseCannotCreate(fileName);
}

bool WholeFileWriter::Target::CanBeReplaced(struct stat& info) const {
  return old->file.IsRegular(info) && info.st_nlink == 1;
}

void WholeFileWriter::Target::OpenStaging() {
  struct stat info {};
  const bool exists = old->file.IsOpen();
  const bool isBeside = !exists || CanBeReplaced(info);
  if (isBeside && staging.OpenBeside(old->path, exists ? 0600 : 0666)) return;
  if (isBeside && !(exists && IsRefused())) RaiseCannotCreate(old->name);
  if (!staging.OpenInMemory()) RaiseCannotCreate(old->name);
}

/// @return false if a file of that name was made meanwhile, which is open then.
bool WholeFileWriter::Target::PutNew() {
  if (staging.MoveToNew(old->path)) return true;
  if (errno != EEXIST) RaiseCannotCreate(old->name);
  OpenOld(old->name);
  return false;
}

/// @return false if the old file has to be written in place.
bool WholeFileWriter::Target::Replace() {
  struct stat info {};
  if (staging.IsInMemory() || !CanBeReplaced(info)) return false;
  if (!TakeOverAttributes(staging.File().Get(), old->file.Get(), info)) return false;
  staging.File().Flush();
  if (staging.MoveOver(old->path)) return true;
  if (!IsRefused()) RaiseCannotCreate(old->name);
  return false;
}

void WholeFileWriter::Target::WriteInPlace() {
  struct stat info {};
  const bool isRegular = old->file.IsRegular(info);
  const std::int64_t size = staging.File().GetSize();
  if (isRegular && !Reserve(old->file.Get(), info.st_size, size)) RaiseCannotWrite();
  CopyAll(staging.File(), old->file);
  old->file.Flush();
  if (!isRegular || info.st_size <= size) return;
  old->file.SetSize(size);
  old->file.Flush();
}

void WholeFileWriter::Target::Commit() {
  bool isMoved = false;
  if (!old->file.IsOpen()) staging.File().Flush();
  while (!isMoved && !old->file.IsOpen()) isMoved = PutNew();
  if (!isMoved && !Replace()) return WriteInPlace();
  old->file = std::move(staging.File());
  SystemFile folder = OpenFile(FolderOf(old->path), O_RDONLY | O_DIRECTORY);
  // The file is in its place; only a crash of the machine could still take the new name back.
  if (folder.IsOpen()) ::fsync(folder.Get());
}

WholeFileWriter::WholeFileWriter(const std::string& fileName) : target_(std::make_unique<Target>()) {
  target_->OpenOld(fileName);
  target_->OpenStaging();
}

WholeFileWriter::WholeFileWriter(FileHold& hold) : target_(std::make_unique<Target>()) {
  target_->old = hold.state_.get();
  target_->OpenStaging();
}

WholeFileWriter::~WholeFileWriter() = default;

std::size_t WholeFileWriter::Read(void* buffer, std::size_t count) {
  if (target_ == nullptr) throw EReadError("Stream read error");
  return target_->staging.File().Read(buffer, count);
}

std::size_t WholeFileWriter::Write(const void* buffer, std::size_t count) {
  if (target_ == nullptr) RaiseCannotWrite();
  return target_->staging.File().Write(buffer, count);
}

std::int64_t WholeFileWriter::Seek(std::int64_t offset, TSeekOrigin origin) {
  return target_ == nullptr ? 0 : target_->staging.File().Seek(offset, origin);
}

std::int64_t WholeFileWriter::GetSize() const {
  return target_ == nullptr ? 0 : target_->staging.File().GetSize();
}

void WholeFileWriter::SetSize(std::int64_t size) {
  if (target_ == nullptr) RaiseCannotWrite();
  target_->staging.File().SetSize(size);
}

void WholeFileWriter::Commit() {
  if (target_ == nullptr) RaiseCannotWrite();
  const std::unique_ptr<Target> target = std::move(target_);
  target->Commit();
  target->old->isNew = false;
}

}  // namespace qxTools
