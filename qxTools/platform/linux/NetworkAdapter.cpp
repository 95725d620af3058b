#include <ifaddrs.h>
#include <net/if.h>
#include <netpacket/packet.h>
#include <qxTools/platform/NetworkAdapter.h>

#include <algorithm>
#include <limits>
#include <memory>

namespace qxTools {

namespace {

AdapterSource* pluggedIn = nullptr;

// The link-layer address of an entry that counts, otherwise null.
const sockaddr_ll* LinkAddress(const ifaddrs& entry) {
  if (entry.ifa_addr == nullptr || entry.ifa_addr->sa_family != AF_PACKET) return nullptr;
  const auto* link = reinterpret_cast<const sockaddr_ll*>(entry.ifa_addr);
  const bool loopback = (entry.ifa_flags & IFF_LOOPBACK) != 0;
  if (loopback || link->sll_halen != std::tuple_size_v<AdapterAddress>) return nullptr;
  const auto isZero = [](unsigned char byte) { return byte == 0; };
  return std::all_of(link->sll_addr, link->sll_addr + link->sll_halen, isZero) ? nullptr : link;
}

AdapterStatus ReadSystem(AdapterAddress& address) {
  ifaddrs* list = nullptr;
  if (getifaddrs(&list) != 0) return AdapterStatus::kUnreadable;
  const std::unique_ptr<ifaddrs, decltype(&freeifaddrs)> owner(list, freeifaddrs);
  int lowest = std::numeric_limits<int>::max();
  for (const ifaddrs* entry = list; entry != nullptr; entry = entry->ifa_next) {
    const sockaddr_ll* const link = LinkAddress(*entry);
    if (link == nullptr || link->sll_ifindex >= lowest) continue;
    lowest = link->sll_ifindex;
    std::copy_n(link->sll_addr, address.size(), address.begin());
  }
  return lowest == std::numeric_limits<int>::max() ? AdapterStatus::kNone : AdapterStatus::kFound;
}

}  // namespace

AdapterSource::~AdapterSource() = default;

AdapterSource* SetAdapterSource(AdapterSource* source) {
  AdapterSource* const before = pluggedIn;
  pluggedIn = source;
  return before;
}

AdapterStatus ReadAdapterAddress(AdapterAddress& address) {
  return pluggedIn != nullptr ? pluggedIn->Read(address) : ReadSystem(address);
}

}  // namespace qxTools
