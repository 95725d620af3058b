/// @file
/// The address of the machine's network adapter, from a replaceable source.
#pragma once

#include <qxTools/Export.h>

#include <array>
#include <cstdint>

namespace qxTools {

/// The six bytes of an address, in the order in which they are sent.
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
  /// Reads an address. Fills `address` only if it returns kFound.
  virtual AdapterStatus Read(AdapterAddress& address) = 0;
};

/// Plugs in a source, which the caller owns and keeps alive. Null brings the system's adapters back.
/// @return the source plugged in before, or null for the system's adapters.
QXTOOLS_API AdapterSource* SetAdapterSource(AdapterSource* source);

/// Reads the address of an adapter from the plugged-in source, or from the system. The system's adapters that
/// count have a six-byte address which is not all zeros, and are no loopback. A permanent address of an
/// adapter with hardware behind it is chosen first, then a permanent one, then any other; among equals the
/// adapter with the lowest interface index.
QXTOOLS_API AdapterStatus ReadAdapterAddress(AdapterAddress& address);

}  // namespace qxTools
