// A locale for calls that ask one.
#pragma once

#include <locale.h>

#include <stdexcept>

namespace qxtool {

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

}  // namespace qxtool
