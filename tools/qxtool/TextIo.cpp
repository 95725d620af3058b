#include "TextIo.h"

#include <qxTools/base/CodePage950.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/platform/Files.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <system_error>

#include "database/Charset.h"

namespace qxtool {

namespace {

std::string Reason() { return std::generic_category().message(errno); }

std::string ReadStandardInput() {
  std::string bytes;
  char piece[65536];
  while (const std::size_t got = std::fread(piece, 1, sizeof piece, stdin)) bytes.append(piece, got);
  if (std::ferror(stdin) != 0) throw Failure("standard input: " + Reason());
  return bytes;
}

/// UTF-8 as code page 950; a character that the page lacks is an error, named by its line.
std::string Narrow(std::string_view utf8, const std::string& subject) {
  if (utf8.starts_with(kByteOrderMark)) utf8.remove_prefix(kByteOrderMark.size());
  std::string bytes = qxTools::Utf8ToBytes(utf8);
  const std::string back = qxTools::BytesToUtf8(bytes);
  if (back == utf8) return bytes;
  const auto differs = std::mismatch(utf8.begin(), utf8.end(), back.begin(), back.end()).first;
  const auto line = 1 + std::count(utf8.begin(), differs, '\n');
  throw Failure(Visible(subject) + ": line " + std::to_string(line) +
                ": no UTF-8, or a character that code page 950 lacks");
}

}  // namespace

Encoding& GetEncoding() {
  static Encoding encoding;
  return encoding;
}

std::string ReadInput(const std::string& fileName) {
  std::string bytes;
  try {
    bytes = fileName == "-" ? ReadStandardInput() : qxTools::ReadWholeFile(fileName);
  } catch (const qxTools::Exception& e) {
    throw Failure(Visible(e.what()));
  }
  return GetEncoding().utf8Files ? Narrow(bytes, fileName) : bytes;
}

std::string FromArgument(const std::string& argument) {
  return GetEncoding().utf8Terminal ? Narrow(argument, argument) : argument;
}

void Print(std::string_view text) {
  if (!GetEncoding().utf8Terminal) return PrintBytes(text);
  const auto utf8 = database::Convert(text, database::Charset::kCodePage950, database::Charset::kUtf8);
  if (!utf8) throw Failure("the text holds bytes that are no characters, so it has no form in UTF-8");
  PrintBytes(*utf8);
}

void Display(std::string_view text) {
  PrintBytes(GetEncoding().utf8Terminal ? qxTools::BytesToUtf8(text) : std::string(text));
}

void PrintBytes(std::string_view bytes) {
  if (std::fwrite(bytes.data(), 1, bytes.size(), stdout) != bytes.size())
    throw Failure("standard output: " + Reason());
}

void FlushOutput() {
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) throw Failure("standard output: " + Reason());
}

void SaveText(const std::string& fileName, const std::string& text) {
  const bool utf8 = GetEncoding().utf8Files;
  const std::string bytes = utf8 ? qxTools::BytesToUtf8(text) : text;
  if (utf8 && qxTools::Utf8ToBytes(bytes) != text)
    throw Failure(Visible(fileName) + ": the text holds bytes that are no characters; nothing was saved");
  WithSubject(fileName, [&] { qxTools::SaveWholeFile(fileName, bytes); });
}

std::string Visible(std::string_view text) {
  std::string shown;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 32 && byte != 127) {
      shown += c;
      continue;
    }
    char escaped[8];
    std::snprintf(escaped, sizeof escaped, "\\x%02X", byte);
    shown += escaped;
  }
  return shown;
}

std::string VisibleText(std::string_view text) {
  return Visible(GetEncoding().utf8Terminal ? qxTools::BytesToUtf8(text) : std::string(text));
}

}  // namespace qxtool
