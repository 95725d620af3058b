#include <qxTools/runtime/Types.h>

namespace qxTools {

TObject::~TObject() = default;

}  // namespace qxTools
