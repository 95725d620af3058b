// What a system brings for NetworkAdapter.h, and the rule by which an adapter is chosen.
#pragma once

#include <qxTools/platform/NetworkAdapter.h>

#include <algorithm>
#include <tuple>
#include <vector>

namespace qxTools {

/// An adapter that is no loopback and has a six-byte address.
struct SystemAdapter {
  AdapterAddress address{};
  std::uint32_t index = 0;   ///< The system's interface index.
  bool isPermanent = false;  ///< The address is the device's own, not one made by the system or the user.
  bool isHardware = false;   ///< There is hardware behind the interface.
};

/// Appends the system's adapters. @return false when the system could not be asked.
bool ReadSystemAdapters(std::vector<SystemAdapter>& adapters);

/// The adapter whose address makes the machine's key, or null. Addresses of zeros do not count. A permanent
/// address of hardware goes first, then a permanent one, then the rest; the lowest index decides among
/// equals. A virtual adapter, whose address may be another one at each start, must not make the key where
/// there is a better one.
inline const SystemAdapter* BestAdapter(std::vector<SystemAdapter>& adapters) {
  std::erase_if(adapters, [](const SystemAdapter& adapter) { return adapter.address == AdapterAddress{}; });
  const auto rank = [](const SystemAdapter& adapter) {
    const int kind = !adapter.isPermanent ? 2 : adapter.isHardware ? 0 : 1;
    return std::tuple(kind, adapter.index);
  };
  const auto best = std::ranges::min_element(adapters, {}, rank);
  return best != adapters.end() ? &*best : nullptr;
}

}  // namespace qxTools
