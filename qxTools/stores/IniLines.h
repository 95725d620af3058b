/// @file
/// What a line of a settings file means without the lines around it. For the settings file and its checker.
#pragma once

#include <qxTools/base/Ascii.h>

namespace qxTools::qxIniTools {

constexpr std::string_view kRecordBegin = "[%";
constexpr std::string_view kRecordEnd = "%]";
constexpr std::string_view kSectionMark = "[%RootKey%]";

enum class IniLineKind { Blank, Section, RecordBegin, RecordEnd, Value, Other };

struct IniLine {
  IniLineKind kind;
  std::string_view name;  ///< Of a section or a value.
  std::string_view text;  ///< Of a value.

  bool operator==(const IniLine&) const = default;
};

/// Returns `s` without the bytes up to 32 at both ends.
inline std::string_view TrimBlanks(std::string_view s) {
  const auto isBlank = [](char c) { return static_cast<unsigned char>(c) <= 32; };
  while (!s.empty() && isBlank(s.front())) s.remove_prefix(1);
  while (!s.empty() && isBlank(s.back())) s.remove_suffix(1);
  return s;
}

inline IniLine ReadIniLine(std::string_view line) {
  const std::string_view trimmed = TrimBlanks(line);
  if (trimmed.empty()) return {IniLineKind::Blank, {}, {}};
  if (trimmed == kRecordBegin) return {IniLineKind::RecordBegin, {}, {}};
  if (trimmed == kRecordEnd) return {IniLineKind::RecordEnd, {}, {}};
  const std::size_t colon = trimmed.find(':');
  if (colon == std::string_view::npos) return {IniLineKind::Other, {}, {}};
  const std::string_view name = trimmed.substr(0, colon);
  const std::string_view text = trimmed.substr(colon + 1);
  if (SameText(text, kSectionMark)) return {IniLineKind::Section, TrimBlanks(name), {}};
  if (trimmed.starts_with("//")) return {IniLineKind::Other, {}, {}};
  return {IniLineKind::Value, name, text};
}

}  // namespace qxTools::qxIniTools
