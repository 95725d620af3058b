// Unique keys and their hexadecimal form.
#include <qxTools/encoding/QXUniKey.h>
#include <qxTools/strings/QXStrTools.h>

#include "Target.h"

using namespace qxTools;

namespace {

bool IsHex(char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f'); }

/// The number made of the digits in a text, all else passed over.
std::uint32_t Hex(std::string_view text) {
  std::string digits;
  for (const char c : text)
    if (IsHex(c)) digits += c;
  std::uint32_t value = 0;
  for (const char c : digits)
    value = value * 16 + static_cast<std::uint32_t>(std::stoi(std::string(1, c), nullptr, 16));
  return value;
}

}  // namespace

FUZZ_TARGET(UniqueKey) {
  const std::string text = input.Rest(1000);
  const std::string digits = QXUniKey::UniKey16To32(text);
  FUZZ_CHECK(digits.size() == 2 * text.size() && std::all_of(digits.begin(), digits.end(), IsHex));
  FUZZ_CHECK(QXUniKey::UniKey32To16(digits) == text);

  const std::string bytes = QXUniKey::UniKey32To16(text);
  FUZZ_CHECK(bytes.size() == text.size() / 2);
  for (std::size_t i = 0; i < bytes.size(); ++i)
    FUZZ_CHECK(static_cast<unsigned char>(bytes[i]) == Hex(text.substr(2 * i, 2)));
  FUZZ_CHECK(static_cast<std::uint32_t>(QXStrTools::HexsToInt(text)) == Hex(text));

  const std::string key = QXUniKey::UniKey(text);
  FUZZ_CHECK(key.size() == (text.size() < 12 ? 0U : 16U));
  for (const char c : key)
    FUZZ_CHECK((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'x'));
}
