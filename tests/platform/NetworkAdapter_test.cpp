#include <qxTools/platform/linux/SysfsAdapters.h>

#include <cstdio>

#include "support/TemporaryFolder.h"
#include "support/Testing.h"

namespace {

using namespace qxTools;
namespace fs = std::filesystem;

struct Adapter {
  const char *name, *address, *index, *assignType;
  bool hasDevice;
  const char* type = "1";
};

/// The chosen address as text; "" when there is none.
std::string Chosen(const std::vector<Adapter>& described) {
  const test::TemporaryFolder folder;
  for (const Adapter& adapter : described) {
    const std::string name = adapter.name;
    fs::create_directories(folder.File(name + (adapter.hasDevice ? "/device" : "")));
    folder.Make(name + "/address", adapter.address + std::string("\n"));
    folder.Make(name + "/ifindex", adapter.index + std::string("\n"));
    folder.Make(name + "/addr_assign_type", adapter.assignType + std::string("\n"));
    folder.Make(name + "/type", adapter.type + std::string("\n"));
  }
  std::vector<SystemAdapter> adapters;
  EXPECT_TRUE(ReadAdaptersIn(folder.Path(), adapters));
  const SystemAdapter* const best = BestAdapter(adapters);
  if (best == nullptr) return "";
  char text[18];
  const AdapterAddress& a = best->address;
  std::snprintf(text, sizeof text, "%02x:%02x:%02x:%02x:%02x:%02x", a[0], a[1], a[2], a[3], a[4], a[5]);
  return text;
}

TEST(NetworkAdapter, APermanentAddressOfHardwareMakesTheKey) {
  constexpr Adapter lo{"lo", "00:00:00:00:00:00", "1", "0", false, "772"};
  constexpr Adapter dummy{"dummy0", "c6:1f:00:00:00:01", "2", "1", false};
  constexpr Adapter bridge{"br0", "02:42:00:00:00:02", "3", "0", false};
  constexpr Adapter second{"eth1", "52:54:00:00:00:03", "11", "0", true};
  constexpr Adapter first{"eth0", "52:54:00:00:00:04", "9", "0", true};
  constexpr Adapter changed{"eth2", "52:54:00:00:00:05", "4", "3", true};
  EXPECT_EQ(Chosen({lo, dummy, bridge, second, first, changed}), first.address);
  EXPECT_EQ(Chosen({lo, dummy, bridge, changed}), bridge.address);
  EXPECT_EQ(Chosen({changed, dummy}), dummy.address);  // both may change: the lowest index
  EXPECT_EQ(Chosen({lo}) + Chosen({}), "");
  // A loopback with an address, addresses of another length, zeros, an interface without an index.
  EXPECT_EQ(Chosen({{"lo", "52:54:00:00:00:06", "1", "0", true, "772"},
                    {"ib0", "80:00:00:48:fe:80:00:00", "2", "0", true},
                    {"sit0", "0.0.0.0", "3", "0", false},
                    {"eth0", "00:00:00:00:00:00", "4", "0", true},
                    {"eth1", "52:54:00:00:00:07", "", "0", true}}),
            "");
}

TEST(NetworkAdapter, AFolderThatCannotBeReadIsReported) {
  std::vector<SystemAdapter> adapters;
  EXPECT_FALSE(ReadAdaptersIn("/nowhere/net", adapters));
  EXPECT_TRUE(ReadSystemAdapters(adapters));
}

}  // namespace
