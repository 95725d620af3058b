#include "TextIo.h"

#include <qxTools/base/CodePage950.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/platform/Files.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "PathOf.h"
#include "Utf8Width.h"
#include "database/Charset.h"
#include "platform/System.h"

namespace qxtool {

namespace {

std::string Reason() { return std::generic_category().message(errno); }

/// Runs `open` with the milliseconds that it may wait for another program. What the library throws names the
/// file itself.
template <class Open>
auto WithPatience(Open&& open) {
  constexpr auto kPatience = std::chrono::seconds(10);
  const auto end = std::chrono::steady_clock::now() + kPatience;
  try {
    return open(std::chrono::milliseconds(kPatience).count());
  } catch (const qxTools::Exception& e) {
    const bool waited = std::chrono::steady_clock::now() >= end;
    throw Failure(Visible(e.what()) + (waited ? ". Another program has held it for 10 seconds" : ""));
  }
}

std::string ReadStandardInput() {
  std::string bytes;
  char piece[65536];
  while (const std::size_t got = std::fread(piece, 1, sizeof piece, stdin)) bytes.append(piece, got);
  if (std::ferror(stdin) != 0) throw Failure("standard input: " + Reason());
  return bytes;
}

}  // namespace

Encoding& GetEncoding() {
  static Encoding encoding;
  return encoding;
}

std::string FromUtf8(std::string_view utf8, const std::string& subject) {
  if (utf8.starts_with(kByteOrderMark)) utf8.remove_prefix(kByteOrderMark.size());
  std::string bytes = qxTools::Utf8ToBytes(utf8);
  const std::string back = qxTools::BytesToUtf8(bytes);
  if (back == utf8) return bytes;
  const auto differs = std::mismatch(utf8.begin(), utf8.end(), back.begin(), back.end()).first;
  const auto line = 1 + std::count(utf8.begin(), differs, '\n');
  throw Failure(Visible(subject) + ": line " + std::to_string(line) +
                ": not UTF-8, or a character that code page 950 lacks");
}

std::string ReadBytes(const std::string& fileName) {
  if (fileName == "-") return ReadStandardInput();
  return WithPatience([&](std::int64_t wait) { return qxTools::ReadWholeFile(fileName, wait); });
}

std::string ReadInput(const std::string& fileName) {
  const std::string bytes = ReadBytes(fileName);
  return GetEncoding().utf8Files ? FromUtf8(bytes, fileName) : bytes;
}

std::string FromArgument(const std::string& argument) {
  return GetEncoding().utf8Terminal ? FromUtf8(argument, argument) : argument;
}

void UseEncodingOfLocale() {
  GetEncoding().utf8Terminal = TerminalIsUtf8();
  GetEncoding().utf8Output = GetEncoding().utf8Terminal && IsTerminal(stdout);
}

void Print(std::string_view text) {
  if (!GetEncoding().utf8Output) return PrintBytes(text);
  const auto utf8 = database::Convert(text, database::Charset::kCodePage950, database::Charset::kUtf8);
  if (!utf8) throw Failure("the text holds bytes that are not characters, so it has no form in UTF-8");
  PrintBytes(*utf8);
}

void Display(std::string_view text) {
  PrintBytes(GetEncoding().utf8Output ? qxTools::BytesToUtf8(text) : std::string(text));
}

namespace {

[[noreturn]] void FailOutput() {
  if (PipeWasClosed()) throw ClosedPipe();
  throw Failure("standard output: " + Reason());
}

}  // namespace

void PrintBytes(std::string_view bytes) {
  if (!Write(stdout, bytes, GetEncoding().utf8Output)) FailOutput();
}

void FlushOutput() {
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) FailOutput();
}

void PrintError(const std::string& message) {
  Write(stderr, Emphasised("qxtool:", Emphasis::kError, stderr) + " " + message + "\n",
        GetEncoding().utf8Terminal);
}

void PrintReport(const std::string& line) {
  if (!Write(stderr, line + "\n", GetEncoding().utf8Terminal)) throw Failure("standard error: " + Reason());
}

namespace {

/// Text as the bytes of a file.
std::string FileBytes(const std::string& fileName, const std::string& text) {
  if (!GetEncoding().utf8Files) return text;
  std::string bytes = qxTools::BytesToUtf8(text);
  if (qxTools::Utf8ToBytes(bytes) != text)
    throw Failure(Visible(fileName) + ": the text holds bytes that are not characters; nothing was saved");
  return bytes;
}

}  // namespace

void SaveText(const std::string& fileName, const std::string& text) {
  std::error_code ignored;
  const std::filesystem::path path = PathOf(fileName);
  const bool isOther =
      std::filesystem::exists(path, ignored) && !std::filesystem::is_regular_file(path, ignored);
  if (!isOther) return HeldText(fileName, qxTools::IfMissing::kMake).Save(text);
  WithSubject(fileName, [&] { qxTools::SaveWholeFile(fileName, FileBytes(fileName, text)); });
}

HeldText::HeldText(const std::string& fileName, qxTools::IfMissing ifMissing)
    : fileName_(fileName), hold_(WithPatience([&](std::int64_t wait) {
        return std::make_unique<qxTools::FileHold>(fileName, ifMissing, wait);
      })) {}

std::string HeldText::Read() const {
  const std::string bytes = WithSubject(fileName_, [&] { return hold_->Read(); });
  return GetEncoding().utf8Files ? FromUtf8(bytes, fileName_) : bytes;
}

void HeldText::Save(const std::string& text) {
  WithSubject(fileName_, [&] { hold_->Save(FileBytes(fileName_, text)); });
}

namespace {

bool IsSet(const char* variable) {
  const char* const value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

bool ShowsColour(std::FILE* stream) {
  return IsTerminal(stream) && !IsSet("NO_COLOR") && ShowsColours(stream);
}

}  // namespace

std::string Emphasised(const std::string& text, Emphasis emphasis, std::FILE* stream) {
  if (emphasis == Emphasis::kNone || !ShowsColour(stream)) return text;
  return (emphasis == Emphasis::kError ? "\x1B[1;31m" : "\x1B[1m") + text + "\x1B[0m";
}

// --- For messages and tables -------------------------------------------------------------------------

namespace {

unsigned Byte(char c) { return static_cast<unsigned char>(c); }

bool IsC1(char c) { return Byte(c) >= 0x80 && Byte(c) <= 0x9F; }

bool BeginsPair(std::string_view text) {
  if (text.size() < 2 || Byte(text[0]) < 0x81 || Byte(text[0]) == 0xFF) return false;
  const unsigned trail = Byte(text[1]);
  return (trail >= 0x40 && trail <= 0x7E) || (trail >= 0xA1 && trail <= 0xFE);
}

/// Whether a byte that stands alone begins a control character, of ASCII or of C1. C1 has two bytes in UTF-8,
/// which a terminal may expect although it was not said.
bool IsControl(std::string_view text) {
  if (Byte(text[0]) < 0x80) return Byte(text[0]) < 32 || Byte(text[0]) == 127;
  if (GetEncoding().utf8Output) return false;  // it becomes U+FFFD
  return IsC1(text[0]) || (text[0] == '\xC2' && text.size() > 1 && IsC1(text[1]));
}

std::string Escaped(char c) {
  char escaped[8];
  std::snprintf(escaped, sizeof escaped, "\\x%02X", Byte(c));
  return escaped;
}

}  // namespace

std::string VisibleCell(std::string_view text) {
  std::string shown;
  while (!text.empty()) {
    const std::size_t length = BeginsPair(text) ? 2 : 1;
    if (length == 1 && IsControl(text))
      shown += Escaped(text[0]);
    else
      shown += text.substr(0, length);
    text.remove_prefix(length);
  }
  return shown;
}

std::string Visible(std::string_view text) {
  const std::string utf8 = VisibleUtf8(text);
  return GetEncoding().utf8Terminal || utf8 == text ? utf8 : VisibleCell(text);
}

std::string VisibleText(std::string_view text) {
  return Visible(GetEncoding().utf8Terminal ? qxTools::BytesToUtf8(text) : std::string(text));
}

}  // namespace qxtool
