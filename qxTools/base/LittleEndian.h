// Integers as files have them, lowest byte first.
#pragma once

#include <array>
#include <cstdint>

namespace qxTools {

/// Returns the 8 bytes of a number.
inline std::array<char, 8> ToLittleEndian(std::int64_t value) {
  std::array<char, 8> bytes;
  auto rest = static_cast<std::uint64_t>(value);
  for (char& byte : bytes) {
    byte = static_cast<char>(rest & 0xFF);
    rest >>= 8;
  }
  return bytes;
}

/// Returns the number of 8 bytes.
inline std::int64_t FromLittleEndian(const std::array<char, 8>& bytes) {
  std::uint64_t value = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes[i]);
  return static_cast<std::int64_t>(value);
}

/// Writes the 4 bytes of a number at `bytes`.
inline void PutLittleEndian32(char* bytes, std::int32_t value) {
  auto rest = static_cast<std::uint32_t>(value);
  for (int i = 0; i < 4; ++i) {
    bytes[i] = static_cast<char>(rest & 0xFF);
    rest >>= 8;
  }
}

/// Returns the number of the 4 bytes at `bytes`.
inline std::int32_t GetLittleEndian32(const char* bytes) {
  std::uint32_t value = 0;
  for (int i = 4; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes[i]);
  return static_cast<std::int32_t>(value);
}

}  // namespace qxTools
