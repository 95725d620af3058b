#include "FileKinds.h"

#include <qxTools/base/Ascii.h>
#include <qxTools/base/Lines.h>
#include <qxTools/stores/FieldMarks.h>
#include <qxTools/stores/IniLines.h>

#include <algorithm>

#include "SqlLexer.h"

namespace qxtool::check {

namespace {

using qxTools::SameText;
using qxTools::qxIniTools::IniLineKind;

std::string_view ExtensionOf(std::string_view fileName) {
  const std::size_t dot = fileName.find_last_of("./\\");
  return dot != std::string_view::npos && fileName[dot] == '.' ? fileName.substr(dot + 1)
                                                               : std::string_view();
}

bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
  return std::ranges::any_of(words, [&](std::string_view other) { return SameText(word, other); });
}

bool IsTable(std::string_view text) {
  return text.starts_with(qxTools::QXStringTable::kFieldBegin) &&
         text.substr(0, text.find_first_of("\r\n")).ends_with(qxTools::QXStringTable::kFieldEnd);
}

/// True if the first line that is not blank is one that a settings file begins with.
bool BeginsAsSettings(std::string_view text) {
  bool begins = false;
  bool first = true;
  qxTools::ForEachLine(text, [&](std::string_view line) {
    const qxTools::qxIniTools::IniLine parts = qxTools::qxIniTools::ReadIniLine(line);
    if (!first || parts.kind == IniLineKind::Blank) return;
    begins = parts.kind == IniLineKind::Section || parts.kind == IniLineKind::RecordBegin;
    first = false;
  });
  return begins;
}

bool HasSectionMark(std::string_view text) {
  const auto same = [](char a, char b) { return qxTools::UpperChar(a) == qxTools::UpperChar(b); };
  const std::string_view mark = qxTools::qxIniTools::kSectionMark;
  return std::search(text.begin(), text.end(), mark.begin(), mark.end(), same) != text.end();
}

/// The part of a text that is looked at.
std::string_view HeadOf(std::string_view text) { return text.substr(0, 4096); }

bool BeginsAsStatement(std::string_view text) {
  SqlLexer lexer(text);
  for (Token token; lexer.Next(token);) {
    if (!token.IsCode()) continue;
    return IsOneOf(text.substr(token.begin, token.end - token.begin),
                   {"select", "insert", "update", "delete", "with", "exec", "execute", "declare", "create",
                    "alter", "drop", "merge", "truncate", "sp_executesql"});
  }
  return false;
}

}  // namespace

bool HasKnownMarks(std::string_view text) { return IsTable(HeadOf(text)) || BeginsAsSettings(HeadOf(text)); }

bool HasKnownExtension(std::string_view fileName) {
  return IsOneOf(ExtensionOf(fileName), {"sql", "ini", "tbl", "txt", "csv"});
}

FileKind KindOfFile(std::string_view fileName, std::string_view text) {
  const std::string_view extension = ExtensionOf(fileName);
  if (IsOneOf(extension, {"sql"})) return FileKind::kStatement;
  if (IsTable(HeadOf(text))) return FileKind::kTable;
  if (BeginsAsSettings(HeadOf(text))) return FileKind::kSettings;
  if (IsOneOf(extension, {"ini"}) && HasSectionMark(HeadOf(text))) return FileKind::kSettings;
  if (IsOneOf(extension, {"tbl"})) return FileKind::kTable;
  if (IsOneOf(extension, {"ini", "txt", "csv"})) return FileKind::kText;
  return BeginsAsStatement(HeadOf(text)) ? FileKind::kStatement : FileKind::kText;
}

}  // namespace qxtool::check
