#include <qxTools/data/NameChanges.h>
#include <qxTools/data/RecordName.h>

#include <atomic>

namespace qxTools {

namespace {

std::atomic<std::uint64_t> changes{0};

}  // namespace

void NoteNameChange() { changes.fetch_add(1, std::memory_order_relaxed); }

std::uint64_t NameChanges() { return changes.load(std::memory_order_relaxed); }

}  // namespace qxTools
