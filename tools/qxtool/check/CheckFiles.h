// Checks many files, several at a time, and gives their reports in order.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "Baseline.h"
#include "CheckFile.h"

namespace qxtool::check {

/// A file to check.
struct FileToCheck {
  std::string path;
  bool named = false;  // on the command line: checked whatever it is
};

/// The files of the paths: a folder gives all in it and below, without what begins with a dot, ordered by
/// name. Throws qxTools::Exception for a path that is not there, and for a folder that cannot be read.
std::vector<FileToCheck> FindFiles(const std::vector<std::string>& paths);

struct Work {
  std::vector<FileToCheck> files;
  std::function<FileOptions(const std::string& path)> optionsOf;
  std::function<BaselineCounts(const std::string& path)> baselineOf;
  std::function<void(const FileReport&)> take;  // called in the order of the files, one at a time
  unsigned threads = 1;
};

/// Checks all of them. No more than 32 MB of files are in memory at a time, or one larger file.
/// An exception of a call of `take` ends the work and is thrown again.
void CheckFiles(const Work& work);

}  // namespace qxtool::check
