#include <qxTools/base/Types.h>

namespace qxTools {

TObject::~TObject() = default;

}  // namespace qxTools
