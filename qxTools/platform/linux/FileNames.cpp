#include <qxTools/platform/FileNames.h>

#include <utility>

namespace qxTools {

namespace {

TFileNameEncoding encodingInForce = feCodePage950;

}  // namespace

TFileNameEncoding SetFileNameEncoding(TFileNameEncoding encoding) {
  return std::exchange(encodingInForce, encoding);
}

std::string FileNameWithExtension(std::string_view fileName, std::string_view extension) {
  const std::size_t mark = fileName.find_last_of("./");
  const bool isExtended = mark != std::string_view::npos && fileName[mark] == '.';
  return std::string(fileName.substr(0, isExtended ? mark : fileName.size())).append(extension);
}

}  // namespace qxTools
