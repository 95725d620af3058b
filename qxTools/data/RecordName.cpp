#include <qxTools/data/NameChanges.h>
#include <qxTools/data/RecordName.h>

namespace qxTools {

std::atomic<std::uint64_t> nameChanges{0};

void NoteNameChange() { nameChanges.fetch_add(1, std::memory_order_relaxed); }

}  // namespace qxTools
