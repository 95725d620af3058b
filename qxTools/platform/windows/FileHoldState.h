#pragma once

#include <qxTools/platform/FileHold.h>
#include <qxTools/platform/windows/SystemFile.h>

namespace qxTools {

/// The file that is held.
struct FileHold::State {
  std::string name;   // as given, for messages
  std::wstring path;  // behind links
  SystemFile file;    // open for reading and writing; nobody else may open it meanwhile
  bool isNew = false;
};

/// The open file's own path, behind links; `path` where the system does not know it.
std::wstring FinalPath(const SystemFile& file, const std::wstring& path);

}  // namespace qxTools
