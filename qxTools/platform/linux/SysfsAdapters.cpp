#include <net/if_arp.h>
#include <qxTools/platform/linux/SysfsAdapters.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>

namespace qxTools {

namespace {

namespace fs = std::filesystem;

/// The first line of a file; "" when it cannot be read.
std::string LineOf(const fs::path& file) {
  std::ifstream stream(file);
  std::string line;
  std::getline(stream, line);
  return line;
}

/// An address as the system writes it, "52:54:00:12:34:56"; none when it has another length.
std::optional<AdapterAddress> AddressOf(const std::string& text) {
  AdapterAddress a;
  int length = 0;
  const int count = std::sscanf(text.c_str(), "%2hhx:%2hhx:%2hhx:%2hhx:%2hhx:%2hhx%n", &a[0], &a[1], &a[2],
                                &a[3], &a[4], &a[5], &length);
  if (count != 6 || static_cast<std::size_t>(length) != text.size()) return std::nullopt;
  return a;
}

}  // namespace

bool ReadAdaptersIn(const std::string& folder, std::vector<SystemAdapter>& adapters) {
  std::error_code error;
  fs::directory_iterator entry(folder, error);
  if (error) return false;
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    const fs::path& adapter = entry->path();
    const std::optional<AdapterAddress> address = AddressOf(LineOf(adapter / "address"));
    if (!address || LineOf(adapter / "type") == std::to_string(ARPHRD_LOOPBACK)) continue;
    std::uint32_t index = 0;
    if (std::sscanf(LineOf(adapter / "ifindex").c_str(), "%u", &index) != 1) continue;
    std::error_code ignored;
    adapters.push_back({*address, index, LineOf(adapter / "addr_assign_type") == "0",
                        fs::exists(adapter / "device", ignored)});
  }
  return !error;
}

bool ReadSystemAdapters(std::vector<SystemAdapter>& adapters) {
  return ReadAdaptersIn("/sys/class/net", adapters);
}

}  // namespace qxTools
