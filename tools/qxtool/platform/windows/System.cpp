#include "platform/System.h"

#include <fcntl.h>
#include <io.h>
#include <qxTools/base/CodePage950.h>
#include <qxTools/platform/FileNames.h>
#include <stdlib.h>
#include <windows.h>
// After windows.h, which it needs.
#include <shellapi.h>

#include <algorithm>
#include <cerrno>

#include "TextIo.h"
#include "database/Utf16.h"
#include "platform/Folders.h"

namespace qxtool {

namespace {

std::u16string_view Units(std::wstring_view text) {
  return {reinterpret_cast<const char16_t*>(text.data()), text.size()};
}

HANDLE HandleOf(std::FILE* stream) {
  return ::GetStdHandle(stream == stdin    ? STD_INPUT_HANDLE
                        : stream == stdout ? STD_OUTPUT_HANDLE
                                           : STD_ERROR_HANDLE);
}

}  // namespace

// --- Arguments and file names ------------------------------------------------------------------------

std::vector<std::string> Arguments(int, char**) {
  int count = 0;
  wchar_t** const words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(database::ToUtf8(Units(words[i])));
  ::LocalFree(words);
  return arguments;
}

bool ArgumentsAreText() { return true; }

std::FILE* OpenToRead(const std::string& fileName) { return ::_wfopen(PathToOpen(fileName).c_str(), L"rb"); }

/// In the folder "doc" beside that of the program.
std::string CheckPage() {
  wchar_t program[4096];
  const DWORD length = ::GetModuleFileNameW(nullptr, program, static_cast<DWORD>(std::size(program)));
  const std::filesystem::path path(std::wstring_view(program, length));
  return "/" + (path.parent_path().parent_path() / "doc" / "check.md").generic_string();
}

// --- Standard streams --------------------------------------------------------------------------------

/// A name that the system gives is UTF-8 from here on, and a console understands colours if it can.
void PrepareStandardStreams() {
  qxTools::SetFileNameEncoding(qxTools::feUtf8);
  for (std::FILE* const stream : {stdin, stdout, stderr}) {
    ::_setmode(::_fileno(stream), _O_BINARY);
    DWORD mode = 0;
    if (stream != stdin && ::GetConsoleMode(HandleOf(stream), &mode))
      ::SetConsoleMode(HandleOf(stream), mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
  }
}

bool PipeWasClosed() {
  const unsigned long error = _doserrno;
  return error == ERROR_BROKEN_PIPE || error == ERROR_NO_DATA || error == ERROR_PIPE_NOT_CONNECTED;
}

void EndByClosedPipe() {}

bool IsTerminal(std::FILE* stream) {
  DWORD mode = 0;
  return ::GetConsoleMode(HandleOf(stream), &mode) != 0;
}

bool ShowsColours(std::FILE* terminal) {
  DWORD mode = 0;
  return ::GetConsoleMode(HandleOf(terminal), &mode) && (mode & ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

namespace {

/// The units that a console shows; all of UTF-8, also what code page 950 lacks.
std::u16string UnitsOf(std::string_view text, bool isUtf8) {
  if (!isUtf8) return qxTools::BytesToWide(text);
  const int size = static_cast<int>(text.size());
  std::u16string units(text.size(), u'\0');
  auto* const out = reinterpret_cast<wchar_t*>(units.data());
  units.resize(static_cast<std::size_t>(::MultiByteToWideChar(CP_UTF8, 0, text.data(), size, out, size)));
  return units;
}

bool WriteToConsole(HANDLE console, std::u16string_view units) {
  constexpr std::size_t kMost = 8192;  // a console takes a piece of 64 KB at most
  while (!units.empty()) {
    DWORD written = 0;
    const auto count = static_cast<DWORD>(std::min(units.size(), kMost));
    if (!::WriteConsoleW(console, units.data(), count, &written, nullptr) || written == 0) return false;
    units.remove_prefix(written);
  }
  return true;
}

}  // namespace

bool Write(std::FILE* stream, std::string_view text, bool isUtf8) {
  if (!IsTerminal(stream)) return std::fwrite(text.data(), 1, text.size(), stream) == text.size();
  return WriteToConsole(HandleOf(stream), UnitsOf(text, isUtf8));
}

// --- Characters --------------------------------------------------------------------------------------

bool TerminalIsUtf8() { return true; }

namespace {

struct Range {
  char32_t first;
  char32_t last;
};

// East Asian wide and full-width characters, as terminals show them.
constexpr Range kWide[] = {
    {0x1100, 0x115F},   {0x2E80, 0x303E},   {0x3041, 0xA4CF},   {0xA960, 0xA97F}, {0xAC00, 0xD7A3},
    {0xF900, 0xFAFF},   {0xFE10, 0xFE19},   {0xFE30, 0xFE6F},   {0xFF01, 0xFF60}, {0xFFE0, 0xFFE6},
    {0x1F300, 0x1F64F}, {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD},
};

bool IsWide(char32_t character) {
  return std::ranges::any_of(
      kWide, [&](const Range& range) { return range.first <= character && character <= range.last; });
}

/// What the system knows of a character of 16 bits: a set of flags of one of its three groups.
WORD TypeOf(DWORD group, char32_t character) {
  const auto unit = static_cast<wchar_t>(character);
  WORD type = 0;
  ::GetStringTypeW(group, &unit, 1, &type);
  return type;
}

bool IsControl(char32_t character) {
  return character < 0x20 || (character >= 0x7F && character < 0xA0) || character == 0x2028 ||
         character == 0x2029;
}

}  // namespace

int ColumnsOf(char32_t character) {
  const bool isWide = IsWide(character);
  if (character > 0xFFFF) return isWide ? 2 : 1;
  const WORD type = TypeOf(CT_CTYPE1, character);
  const bool isFormat = (type & C1_CNTRL) != 0;
  if (IsControl(character) || (type & (C1_CNTRL | C1_DEFINED)) == 0) return -1;
  if (isWide) return 2;
  const bool isCombining = (type & C1_ALPHA) == 0 && (TypeOf(CT_CTYPE3, character) & C3_NONSPACING) != 0;
  return isCombining || (isFormat && character >= 0x1000) ? 0 : 1;
}

namespace {

constexpr UINT kCodePage936 = 936;  // GBK, with the user's own characters

struct CodeRange {
  unsigned first;
  unsigned last;
};

// Rows of GB2312 with places that are empty there and taken in GBK. The other rows are full.
constexpr CodeRange kPartsOfRows[] = {
    {0xA2B1, 0xA2E2}, {0xA2E5, 0xA2EE}, {0xA2F1, 0xA2FC}, {0xA4A1, 0xA4F3},
    {0xA5A1, 0xA5F6}, {0xA6A1, 0xA6B8}, {0xA6C1, 0xA6D8}, {0xA7A1, 0xA7C1},
    {0xA7D1, 0xA7F1}, {0xA8A1, 0xA8BA}, {0xA8C5, 0xA8E9}, {0xA9A4, 0xA9EF},
};

bool IsGb2312(unsigned code) {
  const unsigned row = code >> 8;
  if (row < 0xA1 || row > 0xF7 || (code & 0xFF) < 0xA1) return false;
  if (row < 0xA2 || row == 0xA3 || row > 0xA9) return true;
  return std::ranges::any_of(
      kPartsOfRows, [&](const CodeRange& range) { return range.first <= code && code <= range.last; });
}

/// The unit of a code in GBK, or 0.
char16_t UnitOf(unsigned char lead, unsigned char trail) {
  const char code[] = {static_cast<char>(lead), static_cast<char>(trail)};
  wchar_t units[4];
  if (::MultiByteToWideChar(kCodePage936, MB_ERR_INVALID_CHARS, code, 2, units, 4) != 1) return u'\0';
  const bool isUsersOwn = units[0] >= 0xE000 && units[0] <= 0xF8FF;
  return isUsersOwn ? u'\0' : static_cast<char16_t>(units[0]);
}

/// As the standard's table has it, which differs from the code page in two symbols.
char16_t Gb2312UnitOf(unsigned char lead, unsigned char trail) {
  const unsigned code = static_cast<unsigned>(lead) << 8 | trail;
  if (code == 0xA1A4) return u'\u30FB';
  if (code == 0xA1AA) return u'\u2015';
  return IsGb2312(code) ? UnitOf(lead, trail) : u'\0';
}

}  // namespace

struct SystemCharset::State {
  char16_t (*unitOf)(unsigned char lead, unsigned char trail);
};

SystemCharset::SystemCharset(const char* name)
    : state_(new State{std::string_view(name) == "GB2312" ? Gb2312UnitOf : UnitOf}) {
  if (!::IsValidCodePage(kCodePage936)) throw Failure(std::string("this system has no table of ") + name);
}

SystemCharset::~SystemCharset() = default;

char16_t SystemCharset::Unit(unsigned char lead, unsigned char trail) const {
  return state_->unitOf(lead, trail);
}

}  // namespace qxtool
