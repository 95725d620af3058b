// In the order that the system's headers need.
// clang-format off
#include <winsock2.h>
#include <ws2ipdef.h>
#include <iphlpapi.h>
// clang-format on
#include <qxTools/platform/SystemAdapters.h>

#include <algorithm>

namespace qxTools {

bool ReadSystemAdapters(std::vector<SystemAdapter>& adapters) {
  MIB_IF_TABLE2* table = nullptr;
  if (::GetIfTable2(&table) != NO_ERROR) return false;
  for (ULONG i = 0; i < table->NumEntries; ++i) {
    const MIB_IF_ROW2& row = table->Table[i];
    SystemAdapter adapter;
    if (row.Type == IF_TYPE_SOFTWARE_LOOPBACK || row.PhysicalAddressLength != adapter.address.size())
      continue;
    std::copy_n(row.PhysicalAddress, adapter.address.size(), adapter.address.begin());
    adapter.index = row.InterfaceIndex;
    adapter.isPermanent =
        std::equal(adapter.address.begin(), adapter.address.end(), row.PermanentPhysicalAddress);
    adapter.isHardware = row.InterfaceAndOperStatusFlags.HardwareInterface != 0;
    adapters.push_back(adapter);
  }
  ::FreeMibTable(table);
  return true;
}

}  // namespace qxTools
