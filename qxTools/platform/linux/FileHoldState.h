#pragma once

#include <qxTools/platform/FileHold.h>
#include <qxTools/platform/linux/SystemFile.h>

namespace qxTools {

/// The file that is held.
struct FileHold::State {
  std::string name;  // as given, for messages
  std::string path;  // behind symbolic links
  SystemFile file;   // open for reading and writing, locked
  bool isNew = false;
};

}  // namespace qxTools
