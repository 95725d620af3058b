#include "Utf8Width.h"

#include <cstdio>

#include "database/Utf16.h"
#include "platform/System.h"

namespace qxtool {

namespace {

/// Calls `visit(character, columns)` for each character; columns are less than 0 for a control character and
/// for a byte that is not UTF-8.
template <class Visit>
void ForEachCharacter(std::string_view utf8, Visit&& visit) {
  while (!utf8.empty()) {
    std::string_view rest = utf8;
    const char32_t character = database::TakeCharacter(rest);
    const bool valid = character != 0 && character != database::kNoCharacter;
    const std::size_t length = valid ? utf8.size() - rest.size() : 1;
    visit(utf8.substr(0, length), valid ? ColumnsOf(character) : -1);
    utf8.remove_prefix(length);
  }
}

}  // namespace

std::string VisibleUtf8(std::string_view utf8) {
  std::string shown;
  ForEachCharacter(utf8, [&](std::string_view character, int columns) {
    if (columns >= 0) {
      shown += character;
      return;
    }
    for (const char c : character) {
      char escaped[8];
      std::snprintf(escaped, sizeof escaped, "\\x%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
      shown += escaped;
    }
  });
  return shown;
}

std::size_t Utf8Width(std::string_view utf8) {
  std::size_t width = 0;
  ForEachCharacter(utf8, [&](std::string_view, int columns) {
    if (columns > 0) width += static_cast<std::size_t>(columns);
  });
  return width;
}

}  // namespace qxtool
