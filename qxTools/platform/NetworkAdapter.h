/// @file
/// The address of the machine's network adapter, from a replaceable source.
#pragma once

#include <qxTools/Export.h>

#include <array>
#include <cstdint>

namespace qxTools {

/// Six bytes, as they are sent.
using AdapterAddress = std::array<std::uint8_t, 6>;

/// How reading an address ended.
enum class AdapterStatus {
  kFound,       ///< The address was read.
  kNone,        ///< The machine has no adapter with an address.
  kUnreadable,  ///< The system could not be asked.
};

/// A source of adapter addresses. Tests plug in their own.
class QXTOOLS_API AdapterSource {
 public:
  virtual ~AdapterSource();
  /// Fills `address` when it gives kFound.
  virtual AdapterStatus Read(AdapterAddress& address) = 0;
};

/// Plugs in a source, which the caller keeps; null brings the system's adapters back.
/// @return the source plugged in before, or null.
QXTOOLS_API AdapterSource* SetAdapterSource(AdapterSource* source);

/// Reads the link-layer address of an adapter, of those that are no loopback and have a six-byte address
/// which is not all zeros. A permanent address of an adapter with hardware behind it goes first, then a
/// permanent one, then the rest; among equals the lowest interface index decides.
QXTOOLS_API AdapterStatus ReadAdapterAddress(AdapterAddress& address);

}  // namespace qxTools
