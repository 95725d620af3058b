#include <qxTools/platform/FileHold.h>
#include <qxTools/platform/Files.h>

namespace qxTools {

void SaveWholeFile(const std::string& fileName, std::string_view bytes) {
  WholeFileWriter writer(fileName);
  writer.Write(bytes);
  writer.Commit();
}

void FileHold::Save(std::string_view bytes) {
  WholeFileWriter writer(*this);
  writer.Write(bytes);
  writer.Commit();
}

}  // namespace qxTools
