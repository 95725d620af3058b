#include "database/Utf16.h"

namespace qxtool::database {

char32_t TakeCharacter(std::string_view& utf8) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(utf8[i]); };
  const unsigned lead = byte(0);
  const std::size_t size = lead < 0x80 ? 1 : lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (size == 0 || lead > 0xF4 || utf8.size() < size) return kNoCharacter;
  char32_t character = size == 1 ? lead : lead & (0x7Fu >> size);
  for (std::size_t i = 1; i < size; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return kNoCharacter;
    character = character << 6 | (byte(i) & 0x3Fu);
  }
  utf8.remove_prefix(size);
  const bool isLong = (size == 3 && character < 0x800) || (size == 4 && character < 0x10000);
  const bool isSurrogate = character >= 0xD800 && character < 0xE000;
  return isLong || isSurrogate || character > 0x10FFFF ? kNoCharacter : character;
}

namespace {

char32_t TakeCharacter(std::u16string_view& utf16) {
  const char32_t first = utf16[0];
  utf16.remove_prefix(1);
  const bool isPair = (first & 0xFC00) == 0xD800 && !utf16.empty() && (utf16[0] & 0xFC00) == 0xDC00;
  if (!isPair) return first;
  const char32_t second = utf16[0];
  utf16.remove_prefix(1);
  return 0x10000 + ((first & 0x3FF) << 10 | (second & 0x3FF));
}

void Append(std::string& utf8, char32_t character) {
  const auto put = [&](char32_t byte) { utf8 += static_cast<char>(byte); };
  const auto putRest = [&](unsigned shift) { put(0x80 | (character >> shift & 0x3F)); };
  if (character < 0x80) return put(character);
  if (character < 0x800) return put(0xC0 | character >> 6), putRest(0);
  if (character < 0x10000) return put(0xE0 | character >> 12), putRest(6), putRest(0);
  put(0xF0 | character >> 18), putRest(12), putRest(6), putRest(0);
}

}  // namespace

std::optional<std::u16string> ToUtf16(std::string_view utf8) {
  std::u16string utf16;
  utf16.reserve(utf8.size());
  while (!utf8.empty()) {
    const char32_t character = TakeCharacter(utf8);
    if (character == kNoCharacter) return std::nullopt;
    if (character >= 0x10000) utf16 += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
    utf16 += static_cast<char16_t>(character < 0x10000 ? character : 0xDC00 + (character & 0x3FF));
  }
  return utf16;
}

std::string ToUtf8(std::u16string_view utf16) {
  std::string utf8;
  utf8.reserve(utf16.size());
  while (!utf16.empty()) Append(utf8, TakeCharacter(utf16));
  return utf8;
}

}  // namespace qxtool::database
