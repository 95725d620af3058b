#include <qxTools/base/Ascii.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/base/Marks.h>
#include <qxTools/runtime/StrAlloc.h>
#include <qxTools/strings/QXStrTools.h>

#include <algorithm>
#include <charconv>
#include <cstring>

namespace qxTools::QXStrTools {

namespace {

constexpr std::size_t kStep = sizeof(Search::Bytes);

// A bit for each of the bytes at `p` that is no blank.
std::uint64_t NoBlanks(const char* p) {
  Search::Bytes bytes;
  std::memcpy(&bytes, p, kStep);
  return Search::Bits(bytes != Search::Bytes{} + static_cast<unsigned char>(' '));
}

std::size_t LeadingBlanks(std::string_view s) {
  std::size_t count = 0;
  for (; s.size() - count >= kStep; count += kStep) {
    if (const std::uint64_t others = NoBlanks(&s[count])) return count + Search::LowestMark(others);
  }
  return std::min(s.find_first_not_of(' ', count), s.size());
}

std::size_t TrailingBlanks(std::string_view s) {
  std::size_t end = s.size();
  for (; end >= kStep; end -= kStep) {
    if (const std::uint64_t others = NoBlanks(&s[end - kStep]))
      return s.size() - end + kStep - 1 - Search::HighestMark(others);
  }
  return s.size() - (s.substr(0, end).find_last_not_of(' ') + 1);
}

std::string_view TrimmedView(std::string_view s, bool left, bool right) {
  const std::size_t leading = left ? LeadingBlanks(s) : 0;
  const std::size_t trailing = right && leading < s.size() ? TrailingBlanks(s) : 0;
  return s.substr(leading, s.size() - leading - trailing);
}

std::string_view TillNul(const char* p) { return p != nullptr ? std::string_view(p) : std::string_view(); }

// The number of decimal digits, without a branch for each.
std::size_t CountDigits(Integer value) {
  std::size_t count = 1;
  for (std::int64_t power = 10; power <= 1000000000; power *= 10) count += value >= power;
  return count;
}

// The value of a hexadecimal digit, or -1.
constexpr int HexDigit(char c) {
  if (IsDigit(c)) return c - '0';
  const char upper = UpperChar(c);
  return upper >= 'A' && upper <= 'F' ? upper - 'A' + 10 : -1;
}

}  // namespace

std::string Trim(std::string_view s, Integer code) {
  if (code == -1) return std::string(s);
  return std::string(TrimmedView(s, code != 2, code != 1));
}

bool Empty(std::string_view s) { return s.find_first_not_of(' ') == std::string_view::npos; }

std::string GetRightStr(std::string_view s) {
  const std::size_t equals = s.find('=');
  return equals != std::string_view::npos ? Trim(s.substr(equals + 1), 0) : std::string();
}

std::string substr(std::string_view s, Integer start, Integer count) {
  const std::int64_t size = static_cast<std::int64_t>(s.size());
  const std::int64_t length = std::clamp<std::int64_t>(count, 0, size);
  std::string piece(static_cast<std::size_t>(length), '\0');
  const std::int64_t begin = std::int64_t{start} - 1;
  const std::int64_t from = std::max<std::int64_t>(begin, 0);
  const std::int64_t to = std::min(begin + length, size);
  if (from < to)
    s.copy(&piece[static_cast<std::size_t>(from - begin)], static_cast<std::size_t>(to - from),
           static_cast<std::size_t>(from));
  return piece;
}

std::string CommaAdd(std::string_view list, std::string_view item, std::string_view sep) {
  std::string sum(list);
  if (!list.empty()) sum += sep;
  sum += item;
  return sum;
}

std::string Space(Integer n) { return std::string(static_cast<std::size_t>(std::max(n, 0)), ' '); }

std::string Replicate(std::string_view s, Integer n) {
  std::string copies;
  if (n <= 0) return copies;
  copies.reserve(s.size() * static_cast<std::size_t>(n));
  for (Integer i = 0; i < n; ++i) copies += s;
  return copies;
}

std::string IIF(bool c, std::string_view a, std::string_view b) { return std::string(c ? a : b); }
Integer IIF(bool c, Integer a, Integer b) { return c ? a : b; }
double IIF(bool c, double a, double b) { return c ? a : b; }

bool InList(std::string_view s, const TArrayString& list, bool caseSensitive) {
  if (caseSensitive) return std::find(list.begin(), list.end(), s) != list.end();
  const std::string upper = UpperCase(s);
  return std::any_of(list.begin(), list.end(),
                     [&](const std::string& item) { return UpperCase(item) == upper; });
}

std::string StrEx(Integer value, Integer width) {
  const std::size_t count = value < 0 ? 0 : CountDigits(value);
  std::string text(std::max(static_cast<std::size_t>(std::max(width, 0)), count), '0');
  if (count > 0) std::to_chars(text.data() + text.size() - count, text.data() + text.size(), value);
  return text;
}

Integer IntEx(std::string_view s) {
  std::uint32_t value = 0;
  bool negative = false;
  for (const char c : s) {
    if (IsDigit(c)) {
      value = value * 10 + static_cast<std::uint32_t>(c - '0');
    } else if (c == '-') {
      negative = negative || value == 0;
    } else if (c != '+') {
      break;
    }
  }
  return static_cast<Integer>(negative ? 0 - value : value);
}

Integer HexToInt(char c) { return std::max(HexDigit(c), 0); }

Integer HexsToInt(std::string_view s) {
  std::uint32_t value = 0;
  for (const char c : s) {
    const int digit = HexDigit(c);
    if (digit >= 0) value = value * 16 + static_cast<std::uint32_t>(digit);
  }
  return static_cast<Integer>(value);
}

Integer ModEx(Integer a, Integer b) {
  if (b == 0) throw EDivByZero();
  // In 64 bits, where the quotient of the most negative number and -1 exists.
  const Integer remainder = static_cast<Integer>(std::int64_t{a} % b);
  return remainder == 0 ? b : remainder;
}

Integer PCopyEx(char*& dest, const char* src) { return PCopyEx(dest, TillNul(src)); }

Integer PCopyEx(char*& dest, std::string_view src) {
  char* const buffer = StrAlloc(src.size() + 1);
  src.copy(buffer, src.size());
  dest = buffer;
  return static_cast<Integer>(src.size());
}

std::string SCopy(const char* p) { return std::string(TillNul(p)); }

void SCopyEx(std::string& dest, const char* src) { dest = SCopy(src); }

void SCopyEx(std::string& dest, std::string_view src) {
  std::string merged(src);
  const std::size_t common = std::min(dest.size(), src.size());
  for (std::size_t i = 0; i < common; ++i) {
    if (merged[i] == '\0') merged[i] = dest[i];
  }
  dest = std::move(merged);
}

}  // namespace qxTools::QXStrTools
