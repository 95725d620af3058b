/// @file
/// The process-wide random number generator.
///
/// The library draws from it and never seeds it. It starts from one fixed state, so a host that plugs in
/// nothing draws the same numbers on every run. A host that needs numbers which differ from run to run, for
/// keys that two runs make at the same moment, plugs in a SystemRandomSource. For one thread at a time.
#pragma once

#include <qxTools/Export.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace qxTools {

/// A source of uniform 32-bit numbers.
class QXTOOLS_API RandomSource {
 public:
  virtual ~RandomSource();
  /// Writes the next `count` numbers. Drawing several at once gives the same numbers as one by one.
  virtual void Draw(std::uint32_t* numbers, std::size_t count) = 0;
};

/// The system's own random numbers, which nobody can foresee:
///
///     SystemRandomSource random;
///     RandomSource* const before = SetRandomSource(&random);
///     std::string key = UniKey();
///     SetRandomSource(before);
class QXTOOLS_API SystemRandomSource : public RandomSource {
 public:
  /// @throws std::runtime_error if the system has no random numbers.
  SystemRandomSource();
  ~SystemRandomSource() override;
  /// Writes the next `count` numbers.
  /// @throws std::runtime_error if the system fails.
  void Draw(std::uint32_t* numbers, std::size_t count) override;

 private:
  struct Device;

  std::unique_ptr<Device> device_;
};

/// Plugs in a source, which the caller owns and keeps alive. Null brings the built-in one back, where it left
/// off.
/// @return the source plugged in before, or null for the built-in one.
QXTOOLS_API RandomSource* SetRandomSource(RandomSource* source);

/// Draws `count` numbers from the source that is plugged in, or from the built-in one.
QXTOOLS_API void DrawRandom(std::uint32_t* numbers, std::size_t count);

/// Returns a drawn number scaled to 0 to range - 1; 0 if `range` is 0.
constexpr std::uint32_t RandomBelow(std::uint32_t number, std::uint32_t range) {
  return static_cast<std::uint32_t>((std::uint64_t{number} * range) >> 32);
}

/// Draws one number and returns it scaled to 0 to range - 1; 0 if `range` is 0.
inline std::uint32_t Random(std::uint32_t range) {
  std::uint32_t number = 0;
  DrawRandom(&number, 1);
  return RandomBelow(number, range);
}

}  // namespace qxTools
