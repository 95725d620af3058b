#include "StatementFile.h"

#include <qxTools/base/Ascii.h>

#include <algorithm>
#include <charconv>

#include "TextIo.h"
#include "check/SqlLexer.h"
#include "database/Utf16.h"

namespace qxtool {

namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::string_view kBlanks = " \t\r\n";

std::string FromUtf16(std::string_view bytes, bool bigEndian, const std::string& fileName) {
  if (bytes.size() % 2 != 0) throw Failure(Visible(fileName) + ": half a character of UTF-16 at its end");
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  std::u16string text;
  for (std::size_t i = 0; i < bytes.size(); i += 2)
    text += static_cast<char16_t>(bigEndian ? byte(i) << 8 | byte(i + 1) : byte(i + 1) << 8 | byte(i));
  return FromUtf8(database::ToUtf8(text), fileName);
}

/// How often the batch before this line is sent, 0 if it is not a GO line.
int GoCount(std::string_view line) {
  line = line.substr(0, line.find("--"));
  line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
  line = line.substr(0, line.find_last_not_of(kBlanks) + 1);
  if (!qxTools::SameText(line.substr(0, 2), "GO")) return 0;
  line.remove_prefix(2);
  if (line.empty()) return 1;
  const std::size_t digits = std::min(line.find_first_not_of(kBlanks), line.size());
  int count = 0;
  const auto [stop, error] = std::from_chars(line.data() + digits, line.data() + line.size(), count);
  return digits > 0 && error == std::errc() && stop == line.data() + line.size() ? count : 0;
}

}  // namespace

std::string ReadStatement(const std::string& fileName) {
  const std::string bytes = ReadBytes(fileName);
  const std::string_view text = bytes;
  if (text.starts_with("\xFF\xFE")) return FromUtf16(text.substr(2), false, fileName);
  if (text.starts_with("\xFE\xFF")) return FromUtf16(text.substr(2), true, fileName);
  return text.starts_with(kByteOrderMark) || GetEncoding().utf8Files ? FromUtf8(text, fileName) : bytes;
}

std::vector<Batch> SplitBatches(std::string_view script) {
  std::vector<Batch> batches;
  std::size_t start = 0;
  int firstLine = 1;
  const auto finish = [&](std::size_t end, int count) {
    const std::string_view text = script.substr(start, end - start);
    if (text.find_first_not_of(kBlanks) != kNone) batches.push_back({std::string(text), firstLine, count});
    firstLine += static_cast<int>(std::ranges::count(text, '\n')) + 1;
  };
  check::SqlLexer lexer(script);
  for (check::Token token; lexer.Next(token);) {
    if (!token.firstOnLine || token.kind != check::TokenKind::kWord) continue;
    const std::size_t lineStart = script.rfind('\n', token.begin) + 1;  // npos + 1 is 0
    const std::size_t lineEnd = std::min(script.find('\n', token.begin), script.size());
    const int count = GoCount(script.substr(lineStart, lineEnd - lineStart));
    if (count == 0) continue;
    finish(lineStart, count);
    start = std::min(lineEnd + 1, script.size());
  }
  finish(script.size(), 1);
  return batches;
}

}  // namespace qxtool
