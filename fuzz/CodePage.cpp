// Code page 950, UTF-16 and UTF-8.
#include <qxTools/base/CodePage950.h>

#include <map>

#include "Target.h"

using namespace qxTools;

namespace {

bool IsTrail(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (byte >= 0x40 && byte <= 0x7E) || (byte >= 0xA1 && byte <= 0xFE);
}

/// The ten characters that the page holds twice, as their main codes.
std::string WithMainCodes(std::string text) {
  static const std::map<std::string, std::string> kMain = {
      {"\xA2\xCC", "\xA4\x51"}, {"\xA2\xCE", "\xA4\xCA"}, {"\xF9\xE9", "\xA2\xA5"}, {"\xF9\xEA", "\xA2\xA6"},
      {"\xF9\xEB", "\xA2\xA7"}, {"\xF9\xF9", "\xA2\xA4"}, {"\xF9\xFA", "\xA2\x7E"}, {"\xF9\xFB", "\xA2\xA1"},
      {"\xF9\xFC", "\xA2\xA2"}, {"\xF9\xFD", "\xA2\xA3"}};
  for (std::size_t i = 0; i + 1 < text.size();) {
    const bool pair = static_cast<unsigned char>(text[i]) >= 0x81 && text[i] != '\xFF' &&
                      IsTrail(text[i + 1]) && BytesToWide(std::string_view(text).substr(i, 2)).size() == 1;
    if (const auto main = kMain.find(text.substr(i, 2)); pair && main != kMain.end())
      text.replace(i, 2, main->second);
    i += pair ? 2 : 1;
  }
  return text;
}

bool HasSurrogate(std::u16string_view wide) {
  return std::any_of(wide.begin(), wide.end(),
                     [](char16_t unit) { return unit >= 0xD800 && unit <= 0xDFFF; });
}

}  // namespace

FUZZ_TARGET(CodePage) {
  const std::string bytes = input.Rest(4000);
  const std::u16string wide = BytesToWide(bytes);
  FUZZ_CHECK(wide.size() <= bytes.size());
  FUZZ_CHECK(WideToBytes(wide) == WithMainCodes(bytes));
  const std::string utf8 = BytesToUtf8(bytes);
  if (!HasSurrogate(wide)) FUZZ_CHECK(Utf8ToBytes(utf8) == WithMainCodes(bytes));

  // The same bytes as units and as UTF-8: whatever they are, what comes out is in the page.
  std::u16string units;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
    units += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) << 8 |
                                   static_cast<unsigned char>(bytes[i + 1]));
  for (const std::string& narrow : {WideToBytes(units), Utf8ToBytes(bytes)}) {
    FUZZ_CHECK(narrow.size() <= 2 * bytes.size());
    FUZZ_CHECK(WideToBytes(BytesToWide(narrow)) == WithMainCodes(narrow));
  }
}
