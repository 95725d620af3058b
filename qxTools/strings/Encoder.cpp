#include <qxTools/base/Exceptions.h>
#include <qxTools/platform/Random.h>
#include <qxTools/strings/QXStrTools.h>

#include <algorithm>
#include <array>

// The code: 20 groups of three digits with the text, 20 with the key, one with the length, five multipliers.

namespace qxTools::QXStrTools {

namespace {

constexpr char kKey[] = "Qumar";
constexpr std::size_t kTextSize = 20;
constexpr std::size_t kMultipliers = 5;
constexpr std::size_t kKeyPart = 3 * kTextSize;
constexpr std::size_t kLengthPart = 2 * kKeyPart;
constexpr std::size_t kMultiplierPart = kLengthPart + 3;
constexpr std::size_t kCodeSize = kMultiplierPart + kMultipliers;

Integer Group(std::string_view code, std::size_t part, std::size_t i) {
  return IntEx(code.substr(part + 3 * i, 3));
}

}  // namespace

std::string EDS(std::string_view s) {
  std::array<std::uint32_t, kTextSize + kMultipliers> drawn;
  DrawRandom(drawn.data(), drawn.size());
  const auto noise = [&](std::size_t i) { return static_cast<Integer>(RandomBelow(drawn[i], 95)) + 32; };
  const auto multiplier = [&](std::size_t i) {
    return static_cast<Integer>(RandomBelow(drawn[kTextSize + i % kMultipliers], 5)) + 1;
  };

  std::string text(s.substr(0, kTextSize));
  const Integer length = static_cast<Integer>(text.size());
  text.resize(kTextSize, ' ');
  std::string textPart;
  std::string keyPart;
  for (std::size_t i = 0; i < kTextSize; ++i) {
    const Integer product = multiplier(i) * noise(i);
    textPart += StrEx(product + static_cast<unsigned char>(text[i]), 3);
    keyPart += StrEx(product + kKey[i % kMultipliers], 3);
  }
  std::string code = textPart + keyPart + StrEx(length + noise(0), 3);
  for (std::size_t i = 0; i < kMultipliers; ++i) code += StrEx(multiplier(i), 1);
  return code;
}

std::string DDS(std::string_view code) {
  if (code.size() != kCodeSize) throw Exception("EnCode Length <> 128");
  std::string text;
  Integer length = 0;
  for (std::size_t i = 0; i < kTextSize; ++i) {
    const Integer multiplier = IntEx(code.substr(kMultiplierPart + i % kMultipliers, 1));
    if (multiplier == 0) throw EDivByZero();
    const auto noise =
        static_cast<std::uint8_t>((Group(code, kKeyPart, i) - kKey[i % kMultipliers]) / multiplier);
    if (i == 0) length = Group(code, kLengthPart, 0) - noise;
    text += static_cast<char>(Group(code, 0, i) - multiplier * noise);
  }
  text.resize(static_cast<std::size_t>(std::clamp<Integer>(length, 0, kTextSize)));
  return text;
}

}  // namespace qxTools::QXStrTools
