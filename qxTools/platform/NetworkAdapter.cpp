#include <qxTools/platform/NetworkAdapter.h>
#include <qxTools/platform/SystemAdapters.h>

#include <utility>

namespace qxTools {

namespace {

AdapterSource* pluggedIn = nullptr;

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

AdapterSource* SetAdapterSource(AdapterSource* source) { return std::exchange(pluggedIn, source); }

AdapterStatus ReadAdapterAddress(AdapterAddress& address) {
  return pluggedIn != nullptr ? pluggedIn->Read(address) : ReadSystem(address);
}

}  // namespace qxTools
