#include "StatementFile.h"

#include <qxTools/base/Ascii.h>

#include <algorithm>
#include <charconv>

#include "TextIo.h"
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

/// Follows literals, names and comments through a script, to know which lines begin outside of them.
class Nesting {
 public:
  bool IsOpen() const { return close_ != 0 || depth_ > 0; }

  void ReadLine(std::string_view line) {
    for (std::size_t i = 0; i < line.size();) {
      if (!IsOpen() && line.substr(i).starts_with("--")) return;
      i += Read(line.substr(i));
    }
  }

 private:
  /// Takes what is at the front. @return its bytes.
  std::size_t Read(std::string_view text) {
    if (static_cast<unsigned char>(text[0]) > 0x80) return std::min<std::size_t>(2, text.size());
    if (close_ != 0) return ReadQuoted(text[0]);
    const bool begins = text.starts_with("/*");
    const bool ends = depth_ > 0 && text.starts_with("*/");
    depth_ += (begins ? 1 : 0) - (ends ? 1 : 0);
    if (begins || ends) return 2;
    if (depth_ == 0) Open(text[0]);
    return 1;
  }

  /// A doubled quote closes and opens again.
  std::size_t ReadQuoted(char c) {
    if (c == close_) close_ = 0;
    return 1;
  }

  void Open(char c) {
    if (c == '\'' || c == '"') close_ = c;
    if (c == '[') close_ = ']';
  }

  char close_ = 0;  // what ends the literal or the name
  int depth_ = 0;   // of comments
};

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
  Batch batch;
  const auto finish = [&](int count) {
    batch.count = count;
    if (batch.text.find_first_not_of(kBlanks) != kNone) batches.push_back(std::move(batch));
  };
  Nesting nesting;
  int number = 1;
  for (std::size_t start = 0, end = 0; start < script.size(); start = end, ++number) {
    end = std::min(script.find('\n', start), script.size() - 1) + 1;
    const std::string_view line = script.substr(start, end - start);
    const int count = nesting.IsOpen() ? 0 : GoCount(line);
    if (count > 0) {
      finish(count);
      batch = {.firstLine = number + 1};
    } else {
      nesting.ReadLine(line);
      batch.text += line;
    }
  }
  finish(1);
  return batches;
}

}  // namespace qxtool
