#include <qxTools/memory/QXMemBank.h>

#include <bit>

namespace qxTools::QXMemBank {

// A pointer's lowest byte is its first one.
static_assert(std::endian::native == std::endian::little);

TCharBank::~TCharBank() = default;
TIntegerBank::~TIntegerBank() = default;
TDoubleBank::~TDoubleBank() = default;
TPointerBank::~TPointerBank() = default;

}  // namespace qxTools::QXMemBank
