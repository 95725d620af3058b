#include "database/Charset.h"

#include <qxTools/base/CodePage950.h>
#include <qxTools/base/Exceptions.h>

#include <algorithm>
#include <cstdio>

namespace qxtool::database {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD, which code page 950 lacks

unsigned Byte(char c) { return static_cast<unsigned char>(c); }

/// The bytes of the first character, or of what should be one.
std::size_t FirstLength(std::string_view text, Charset charset) {
  if (charset == Charset::kCodePage950) {
    if (Byte(text[0]) < 0x80 || text.size() == 1) return 1;
    return Convert(text.substr(0, 2), charset, Charset::kUtf8) ? 2 : 1;
  }
  std::size_t length = 1;
  while (length < text.size() && (Byte(text[length]) & 0xC0) == 0x80) ++length;
  return length;
}

std::string Escaped(std::string_view bytes) {
  std::string escaped;
  for (const char c : bytes) {
    char code[8];
    std::snprintf(code, sizeof code, "\\x%02X", Byte(c));
    escaped += code;
  }
  return escaped;
}

}  // namespace

std::optional<std::string> Convert(std::string_view text, Charset from, Charset to) {
  if (from == to) return std::string(text);
  if (to == Charset::kUtf8) {
    std::string utf8 = qxTools::BytesToUtf8(text);
    if (utf8.find(kReplacement) != std::string::npos) return std::nullopt;
    return utf8;
  }
  std::string bytes = qxTools::Utf8ToBytes(text);
  if (qxTools::BytesToUtf8(bytes) != text) return std::nullopt;
  return bytes;
}

std::string ConvertVisibly(std::string_view text, Charset from, Charset to) {
  if (auto whole = Convert(text, from, to)) return *std::move(whole);
  std::string shown;
  while (!text.empty()) {
    const std::string_view character = text.substr(0, FirstLength(text, from));
    shown += Convert(character, from, to).value_or(Escaped(character));
    text.remove_prefix(character.size());
  }
  return shown;
}

std::string ForServer(std::string_view statement, Charset charset) {
  if (auto bytes = Convert(statement, Charset::kCodePage950, charset)) return *std::move(bytes);
  const std::string utf8 = qxTools::BytesToUtf8(statement);
  const auto bad = utf8.begin() + static_cast<std::ptrdiff_t>(utf8.find(kReplacement));
  throw qxTools::Exception("line " + std::to_string(1 + std::count(utf8.begin(), bad, '\n')) +
                           " of the statement holds a byte that is no character, so it has no UTF-8 form");
}

}  // namespace qxtool::database
