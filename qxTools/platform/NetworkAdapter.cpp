#include <qxTools/platform/NetworkAdapter.h>
#include <qxTools/platform/SystemAdapters.h>

#include <utility>

namespace qxTools {

namespace {

AdapterSource* pluggedInAdapters = nullptr;

AdapterStatus ReadSystem(AdapterAddress& address) {
  std::vector<SystemAdapter> adapters;
  if (!ReadSystemAdapters(adapters)) return AdapterStatus::kUnreadable;
  const SystemAdapter* const best = BestAdapter(adapters);
  if (best == nullptr) return AdapterStatus::kNone;
  address = best->address;
  return AdapterStatus::kFound;
}

}  // namespace

AdapterSource::~AdapterSource() = default;

AdapterSource* SetAdapterSource(AdapterSource* source) { return std::exchange(pluggedInAdapters, source); }

AdapterStatus ReadAdapterAddress(AdapterAddress& address) {
  return pluggedInAdapters != nullptr ? pluggedInAdapters->Read(address) : ReadSystem(address);
}

}  // namespace qxTools
