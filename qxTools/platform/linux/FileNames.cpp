#include <qxTools/platform/FileNames.h>

#include <utility>

namespace qxTools {

namespace {

TFileNameEncoding encodingInForce = feCodePage950;

}  // namespace

TFileNameEncoding SetFileNameEncoding(TFileNameEncoding encoding) {
  return std::exchange(encodingInForce, encoding);
}

}  // namespace qxTools
