#include "Utf8Width.h"

#include <locale.h>

#include <clocale>
#include <cstdio>
#include <cwchar>
#include <stdexcept>

namespace qxtool {

namespace {

/// The C library's UTF-8 in this thread; before and after, no locale is asked.
class Utf8Locale {
 public:
  Utf8Locale() : previous_(uselocale(Get())) {}
  ~Utf8Locale() { uselocale(previous_); }
  Utf8Locale(const Utf8Locale&) = delete;
  Utf8Locale& operator=(const Utf8Locale&) = delete;

 private:
  static locale_t Get() {
    static const locale_t utf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    if (utf8 == nullptr) throw std::runtime_error("this system has no locale C.UTF-8");
    return utf8;
  }

  locale_t previous_;
};

/// Calls `visit(character, columns)` for each character; columns are less than 0 for a control character and
/// for a byte that is not UTF-8.
template <class Visit>
void ForEachCharacter(std::string_view utf8, Visit&& visit) {
  const Utf8Locale locale;
  while (!utf8.empty()) {
    wchar_t character = 0;
    std::mbstate_t state{};
    std::size_t length = std::mbrtowc(&character, utf8.data(), utf8.size(), &state);
    const bool valid = length != 0 && length <= utf8.size();
    if (!valid) length = 1;
    visit(utf8.substr(0, length), valid ? wcwidth(character) : -1);
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
