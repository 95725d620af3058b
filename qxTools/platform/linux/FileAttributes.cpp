#include <qxTools/platform/linux/FileAttributes.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <map>
#include <optional>
#include <string>

namespace qxTools {

namespace {

using Attributes = std::map<std::string, std::string>;

/// Calls `get` for the size and then for as many bytes; none if it fails.
template <class Get>
std::optional<std::string> BytesOf(Get&& get) {
  const ssize_t size = get(nullptr, 0);
  if (size < 0) return std::nullopt;
  std::string bytes(static_cast<std::size_t>(size), '\0');
  if (size == 0) return bytes;
  const ssize_t got = get(bytes.data(), bytes.size());
  if (got < 0) return std::nullopt;
  bytes.resize(static_cast<std::size_t>(got));
  return bytes;
}

/// The extended attributes of a file; none if they cannot be read.
std::optional<Attributes> AttributesOf(int fd) {
  const auto names = BytesOf([&](char* to, std::size_t room) { return ::flistxattr(fd, to, room); });
  if (!names) return errno == ENOTSUP ? std::optional(Attributes()) : std::nullopt;
  Attributes attributes;
  for (std::size_t start = 0; start < names->size();) {
    const std::string name = names->c_str() + start;
    start += name.size() + 1;
    auto value = BytesOf([&](char* to, std::size_t room) { return ::fgetxattr(fd, name.c_str(), to, room); });
    if (!value) return std::nullopt;
    attributes[name] = std::move(*value);
  }
  return attributes;
}

/// Only what differs is set: some attributes are the system's own, and right on a new file.
bool CopyAttributes(int made, int old) {
  const std::optional<Attributes> wanted = AttributesOf(old);
  const std::optional<Attributes> present = AttributesOf(made);
  if (!wanted || !present) return false;
  for (const auto& [name, value] : *present)
    if (!wanted->contains(name) && ::fremovexattr(made, name.c_str()) != 0) return false;
  for (const auto& [name, value] : *wanted) {
    const auto same = present->find(name);
    if (same != present->end() && same->second == value) continue;
    if (::fsetxattr(made, name.c_str(), value.data(), value.size(), 0) != 0) return false;
  }
  return true;
}

bool CopyOwner(int made, const struct stat& info) {
  struct stat now {};
  if (::fstat(made, &now) != 0) return false;
  const bool isSame = now.st_uid == info.st_uid && now.st_gid == info.st_gid;
  return isSame || ::fchown(made, info.st_uid, info.st_gid) == 0;
}

}  // namespace

bool TakeOverAttributes(int made, int old, const struct stat& info) {
  // The mode is last: setting owner, attributes or bytes may take bits of it away.
  return CopyOwner(made, info) && CopyAttributes(made, old) && ::fchmod(made, info.st_mode & 07777) == 0;
}

}  // namespace qxTools
