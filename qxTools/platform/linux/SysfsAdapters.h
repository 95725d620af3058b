#pragma once

#include <qxTools/platform/SystemAdapters.h>

#include <string>

namespace qxTools {

/// Appends the adapters that `folder`, which is /sys/class/net or looks like it, describes: of each, its
/// files "type", "address", "ifindex" and "addr_assign_type", and "device" where there is hardware.
/// @return false when the folder cannot be read.
bool ReadAdaptersIn(const std::string& folder, std::vector<SystemAdapter>& adapters);

}  // namespace qxTools
