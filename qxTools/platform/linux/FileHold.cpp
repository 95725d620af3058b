#include <fcntl.h>
#include <qxTools/platform/Files.h>
#include <qxTools/platform/linux/FileHoldState.h>
#include <qxTools/platform/linux/LockedFile.h>
#include <unistd.h>

#include <cerrno>

namespace qxTools {

namespace {

/// An empty file that this program made and locked; not open if somebody else was faster.
SystemFile MakeLocked(const std::string& path, const std::string& name) {
  SystemFile file = OpenFile(path, O_RDWR | O_CREAT | O_EXCL, 0666);
  if (!file.IsOpen() && errno != EEXIST) RaiseCannotCreate(name);
  if (file.IsOpen() && file.Lock(true) && IsNamed(file, path)) return file;
  return SystemFile();
}

}  // namespace

FileHold::FileHold(const std::string& fileName, IfMissing ifMissing, std::int64_t waitMilliseconds)
    : state_(std::make_unique<State>()) {
  const Deadline until = DeadlineIn(waitMilliseconds);
  State& state = *state_;
  state.name = fileName;
  state.path = FollowLinks(fileName);
  while (!state.file.IsOpen()) {
    state.file = OpenLocked(state.path, O_RDWR, until);
    if (state.file.IsOpen()) break;
    if (ifMissing == IfMissing::kMake && errno == EISDIR) RaiseCannotCreate(fileName);
    if (ifMissing == IfMissing::kFail || errno != ENOENT) RaiseCannotOpen(fileName);
    state.file = MakeLocked(state.path, fileName);
    state.isNew = state.file.IsOpen();
  }
  struct stat info {};
  if (state.file.IsRegular(info)) return;
  errno = EINVAL;
  RaiseCannotOpen(fileName);
}

FileHold::~FileHold() {
  if (state_->isNew && IsNamed(state_->file, state_->path)) ::unlink(state_->path.c_str());
}

bool FileHold::IsNew() const { return state_->isNew; }

std::string FileHold::Read() const {
  state_->file.SetPosition(0);
  return ReadToEnd(state_->file, state_->name);
}

}  // namespace qxTools
