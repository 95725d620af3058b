/// @file
/// The definitions of some functions as they are worded, without any thought of speed. The targets compare
/// the library with them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qxTools::fuzz::plain {

inline constexpr std::size_t kNone = std::string_view::npos;

inline char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }

inline std::string Upper(std::string s) {
  for (char& c : s) c = Upper(c);
  return s;
}

/// Without the spaces at both ends.
inline std::string Trim(std::string s) {
  while (!s.empty() && s.front() == ' ') s.erase(0, 1);
  while (!s.empty() && s.back() == ' ') s.pop_back();
  return s;
}

/// The position of the n-th occurrence, from 1; 0 or -1 without one.
inline std::int32_t At(std::string_view sub, std::string_view s, std::int32_t n) {
  std::int32_t missing = 0;
  std::int32_t count = 0;
  if (n == 0 || sub.empty()) return 0;
  for (std::size_t i = 0; i < s.size(); ++i) {
    if (s[i] != sub[0]) continue;
    if (i + sub.size() > s.size()) {
      missing = -1;
      continue;
    }
    if (s.substr(i, sub.size()) == sub && ++count == n) return static_cast<std::int32_t>(i) + 1;
  }
  return missing;
}

inline std::int32_t Occurs(std::string_view sub, std::string_view s) {
  std::int32_t count = 0;
  if (sub.empty()) return 0;
  for (std::size_t i = 0; i + sub.size() <= s.size(); ++i) count += s.substr(i, sub.size()) == sub ? 1 : 0;
  return count;
}

/// `count` bytes from position `start` on, at most as many as `s` has; NUL outside it.
inline std::string Substr(std::string_view s, std::int64_t start, std::int64_t count) {
  std::string piece;
  for (std::int64_t i = 1; i <= count && i <= static_cast<std::int64_t>(s.size()); ++i) {
    const std::int64_t place = start + i - 2;
    const bool inside = place >= 0 && place < static_cast<std::int64_t>(s.size());
    piece += inside ? s[static_cast<std::size_t>(place)] : '\0';
  }
  return piece;
}

/// Pass by pass, each from the start of the text, as many as there are occurrences at first. Nothing when
/// that would move more than `budget` bytes.
inline std::optional<std::string> ReplaceAll(std::string text, std::string_view old, std::string_view with,
                                             bool ignoreCase, std::size_t budget) {
  std::string compared = ignoreCase ? Upper(text) : text;
  const std::string sought = ignoreCase ? Upper(std::string(old)) : std::string(old);
  std::size_t moved = 0;
  for (std::int32_t passes = Occurs(sought, compared); passes > 0; --passes) {
    const std::size_t found = compared.find(sought);
    if (found == kNone) continue;
    text.replace(found, sought.size(), with);
    compared.replace(found, sought.size(), with);
    moved += text.size();
    if (moved > budget) return std::nullopt;
  }
  return text;
}

/// Digits up to the first byte that is none and no sign; wraps at 32 bits.
inline std::int32_t IntEx(std::string_view s) {
  std::uint32_t value = 0;
  bool negative = false;
  for (const char c : s) {
    if (c >= '0' && c <= '9')
      value = value * 10 + static_cast<std::uint32_t>(c - '0');
    else if (c == '-')
      negative = negative || value == 0;
    else if (c != '+')
      break;
  }
  return static_cast<std::int32_t>(negative ? 0 - value : value);
}

/// Split at CR LF, LF or CR; a break at the very end adds no line.
inline std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < text.size();) {
    std::string line;
    while (i < text.size() && text[i] != '\r' && text[i] != '\n') line += text[i++];
    if (i < text.size()) i += text.substr(i, 2) == "\r\n" ? 2 : 1;
    lines.push_back(line);
  }
  return lines;
}

inline std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

/// What a string list makes of a text.
inline std::string WithCrLf(std::string_view text) { return Joined(Lines(text)); }

/// A text literal: NULL when empty.
inline std::string Quoted(std::string_view s) {
  if (s.empty()) return "NULL";
  std::string literal = "'";
  for (const char c : s) literal += c == '\'' ? "''" : std::string(1, c);
  return literal + "'";
}

}  // namespace qxTools::fuzz::plain
