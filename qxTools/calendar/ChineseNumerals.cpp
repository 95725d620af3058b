#include <qxTools/calendar/ChineseNumerals.h>

#include <algorithm>
#include <iterator>

namespace qxTools::calendar {

namespace {

// Each numeral has a symbol of one byte; numbers are built and compared in symbols: 一百一十三 is "1h1t3".
struct Numeral {
  char symbol;
  const char* text;
};

constexpr Numeral kNumerals[] = {
    {'0', "\xB9\x73"},  // 零
    {'1', "\xA4\x40"},  // 一
    {'2', "\xA4\x47"},  // 二
    {'3', "\xA4\x54"},  // 三
    {'4', "\xA5\x7C"},  // 四
    {'5', "\xA4\xAD"},  // 五
    {'6', "\xA4\xBB"},  // 六
    {'7', "\xA4\x43"},  // 七
    {'8', "\xA4\x4B"},  // 八
    {'9', "\xA4\x45"},  // 九
    {'t', "\xA4\x51"},  // 十
    {'h', "\xA6\xCA"},  // 百
    {'0', "\xA1\xB3"},  // ○, as in 一○三; when reading only
};

constexpr std::size_t kLongest = 5;  // "9h9t9"

/// `oneTen` decides between 一百一十三 and 一百十三.
std::string Symbols(int value, bool oneTen) {
  const int hundreds = value / 100;
  const int tens = value / 10 % 10;
  const int ones = value % 10;
  std::string symbols;
  if (hundreds > 0) symbols = std::to_string(hundreds) + 'h';
  if (hundreds > 0 && tens == 0 && ones > 0) symbols += '0';
  if (tens > 1 || (tens == 1 && hundreds > 0 && oneTen)) symbols += std::to_string(tens);
  if (tens > 0) symbols += 't';
  if (ones > 0) symbols += std::to_string(ones);
  return symbols;
}

/// The value of symbols in any order; the caller checks the order.
int ValueOf(std::string_view symbols) {
  int sum = 0;
  int digits = 0;
  for (const char c : symbols) {
    if (c == 't' || c == 'h') {
      sum += c == 'h' ? digits * 100 : std::max(digits, 1) * 10;
      digits = 0;
    } else {
      digits = digits * 10 + (c - '0');
    }
  }
  return sum + digits;
}

}  // namespace

std::string ToNumerals(int value) {
  std::string text;
  for (const char symbol : Symbols(value, true))
    text += std::find_if(std::begin(kNumerals), std::end(kNumerals), [=](const Numeral& numeral) {
              return numeral.symbol == symbol;
            })->text;
  return text;
}

int TakeNumerals(std::string_view& text) {
  std::string symbols;
  for (;;) {
    const auto numeral = std::find_if(std::begin(kNumerals), std::end(kNumerals),
                                      [&](const Numeral& each) { return text.starts_with(each.text); });
    if (numeral == std::end(kNumerals) || symbols.size() > kLongest) break;
    symbols += numeral->symbol;
    text.remove_prefix(2);
  }
  const int value = symbols.size() <= kLongest ? ValueOf(symbols) : 0;
  if (value < 1 || value > 999) return 0;
  const bool wellWritten =
      symbols == Symbols(value, true) || symbols == Symbols(value, false) || symbols == std::to_string(value);
  return wellWritten ? value : 0;
}

}  // namespace qxTools::calendar
