/// @file
/// The process-wide random number generator.
///
/// The library draws from it and never seeds it. It starts from one fixed state, so a host that plugs in
/// nothing draws the same numbers on every run. For one thread at a time.
#pragma once

#include <qxTools/Export.h>

#include <cstddef>
#include <cstdint>

namespace qxTools {

/// A source of uniform 32-bit numbers. Drawing several at once gives the same numbers as one by one.
class QXTOOLS_API RandomSource {
 public:
  virtual ~RandomSource();
  /// Writes the next `count` numbers.
  virtual void Draw(std::uint32_t* numbers, std::size_t count) = 0;
};

/// Plugs in a source, which the caller keeps; null brings the built-in one back, where it left off.
/// @return the source plugged in before, or null.
QXTOOLS_API RandomSource* SetRandomSource(RandomSource* source);

/// Draws `count` numbers from the shared generator.
QXTOOLS_API void DrawRandom(std::uint32_t* numbers, std::size_t count);

/// A drawn number as one from 0 to range - 1; 0 when `range` is 0.
constexpr std::uint32_t RandomBelow(std::uint32_t number, std::uint32_t range) {
  return static_cast<std::uint32_t>((std::uint64_t{number} * range) >> 32);
}

/// One draw, as a number from 0 to range - 1.
inline std::uint32_t Random(std::uint32_t range) {
  std::uint32_t number = 0;
  DrawRandom(&number, 1);
  return RandomBelow(number, range);
}

}  // namespace qxTools
