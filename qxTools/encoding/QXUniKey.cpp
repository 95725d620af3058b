#include <qxTools/base/Ascii.h>
#include <qxTools/encoding/QXUniKey.h>
#include <qxTools/platform/Clock.h>
#include <qxTools/platform/NetworkAdapter.h>
#include <qxTools/platform/Random.h>
#include <qxTools/strings/QXStrTools.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace qxTools::QXUniKey {

namespace {

constexpr std::size_t kSeedSize = 12;
constexpr std::size_t kKeySize = 16;
using KeyBytes = std::array<char, kKeySize>;

// The mapping is whole, although cells of a key stay below 60.
constexpr char KeyChar(std::uint8_t value) {
  if (value <= 9) return static_cast<char>(value + 48);
  if (value <= 35) return static_cast<char>(value + 55);
  return value <= 62 ? static_cast<char>(value + 61) : '?';
}

constexpr auto kKeyChars = [] {
  std::array<char, 256> chars{};
  for (std::size_t i = 0; i < chars.size(); ++i) chars[i] = KeyChar(static_cast<std::uint8_t>(i));
  return chars;
}();

// Steps of 1/10^10 day since 30 December 1899.
std::uint64_t Stamp() {
  long double steps = Now();
  steps *= 100000.0L;
  steps *= 100000.0L;
  return static_cast<std::uint64_t>(std::llrint(steps));
}

// The values of a seed's hexadecimal digits. Those of the last seed are kept: nearly all keys are of one.
const std::array<std::uint8_t, kSeedSize>& CellsOf(std::string_view seed) {
  static std::array<char, kSeedSize> last{};
  static std::array<std::uint8_t, kSeedSize> cells{};
  if (std::memcmp(last.data(), seed.data(), kSeedSize) != 0) {
    std::copy_n(seed.begin(), kSeedSize, last.begin());
    std::transform(last.begin(), last.end(), cells.begin(),
                   [](char c) { return static_cast<std::uint8_t>(QXStrTools::HexToInt(c)); });
  }
  return cells;
}

// `seed` has 12 characters or more.
KeyBytes MakeKey(std::string_view seed) {
  constexpr std::size_t kCopies = kKeySize - kSeedSize;
  std::array<std::uint32_t, kCopies + kKeySize> draws;
  DrawRandom(draws.data(), draws.size());

  std::array<std::uint8_t, kKeySize> cells;
  std::ranges::copy(CellsOf(seed), cells.begin());
  for (std::size_t i = 0; i < kCopies; ++i) {
    const std::uint32_t source = RandomBelow(draws[i], kSeedSize);  // cells count from 1, and 0 gives 0
    cells[kSeedSize + i] = source == 0 ? std::uint8_t{0} : cells[source - 1];
  }

  const std::uint64_t stamp = Stamp();
  KeyBytes key;
  for (std::size_t i = 0; i < kKeySize; ++i) {
    const std::uint64_t digit = stamp >> (60 - 4 * i) & 15;
    key[i] = kKeyChars[static_cast<std::uint8_t>(cells[i] + digit + RandomBelow(draws[kCopies + i], 30))];
  }
  return key;
}

const AnsiString& MachineKey() {
  if (FUKI.empty()) FUKI = UniKeyInit();
  return FUKI;
}

// The two digits of each byte.
constexpr auto kHexDigits = [] {
  std::array<std::array<char, 2>, 256> digits{};
  for (std::size_t i = 0; i < digits.size(); ++i)
    digits[i] = {"0123456789ABCDEF"[i >> 4], "0123456789ABCDEF"[i & 15]};
  return digits;
}();

}  // namespace

QXTOOLS_GLOBAL AnsiString FUKI;

void FillGlobals() { FUKI.clear(); }

void ReleaseGlobals() { FUKI = AnsiString(); }

AnsiString UniKeyInit() {
  AdapterAddress address{};
  switch (ReadAdapterAddress(address)) {
    case AdapterStatus::kNone:
      return "FFFFFFFFFFFF";
    case AdapterStatus::kUnreadable:
      return "EEEEEEEEEEEE";
    case AdapterStatus::kFound:
      break;
  }
  AnsiString key;
  for (const std::uint8_t byte : address)
    for (const char digit : kHexDigits[byte]) key += LowerChar(digit);
  return key;
}

AnsiString UKI() { return MachineKey(); }

AnsiString UniKey(std::string_view seed) {
  if (seed.size() < kSeedSize) return {};
  const KeyBytes key = MakeKey(seed);
  return {key.data(), key.size()};
}

AnsiString UniKey() { return UniKey(MachineKey()); }

bool UniKeyBytes(std::array<char, 16>& key) {
  if (MachineKey().size() < kSeedSize) return false;
  key = MakeKey(FUKI);
  return true;
}

AnsiString UniKey16To32(std::string_view text) {
  AnsiString digits(text.size() * 2, '\0');
  for (std::size_t i = 0; i < text.size(); ++i)
    std::ranges::copy(kHexDigits[static_cast<std::uint8_t>(text[i])],
                      digits.begin() + 2 * static_cast<std::ptrdiff_t>(i));
  return digits;
}

AnsiString UniKey32To16(std::string_view text) {
  AnsiString bytes;
  bytes.reserve(text.size() / 2);
  for (std::size_t i = 0; i + 1 < text.size(); i += 2)
    bytes += static_cast<char>(QXStrTools::HexsToInt(text.substr(i, 2)));
  return bytes;
}

}  // namespace qxTools::QXUniKey
