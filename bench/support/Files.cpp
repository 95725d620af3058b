#include "Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <stdexcept>

namespace {

bool WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(fd, bytes.data(), bytes.size());
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

bool FlushAndClose(int fd) {
  const bool flushed = fsync(fd) == 0;
  return close(fd) == 0 && flushed;
}

}  // namespace

Folder::Folder() {
  std::string name = "qxtools-bench-XXXXXX";
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("cannot make a folder here");
  path_ = name;
}

Folder::~Folder() { std::filesystem::remove_all(path_); }

TemporaryFile::TemporaryFile(std::string_view text) {
  if (!SaveSafely(name_, {text})) throw std::runtime_error("cannot write here");
}

bool SaveSafely(const std::string& fileName, std::initializer_list<std::string_view> pieces) {
  const std::string temporary = fileName + ".temporary";
  const int fd = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
  bool done = fd >= 0;
  for (const std::string_view piece : pieces) done = done && WriteAll(fd, piece);
  done = FlushAndClose(fd) && done && std::rename(temporary.c_str(), fileName.c_str()) == 0;
  const std::string folder = std::filesystem::path(fileName).parent_path();
  return FlushAndClose(open(folder.c_str(), O_RDONLY | O_DIRECTORY)) && done;
}

std::string ReadAll(const std::string& fileName) {
  std::string text(std::filesystem::file_size(fileName), '\0');
  const int fd = open(fileName.c_str(), O_RDONLY);
  const ssize_t got = read(fd, text.data(), text.size());
  close(fd);
  if (got != static_cast<ssize_t>(text.size())) throw std::runtime_error("cannot read " + fileName);
  return text;
}
