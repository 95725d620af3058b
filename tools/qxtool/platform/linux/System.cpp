#include "platform/System.h"

#include <fcntl.h>
#include <iconv.h>
#include <langinfo.h>
#include <locale.h>
#include <unistd.h>
#include <wchar.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string>

#include "TextIo.h"
#include "Utf8Locale.h"

namespace qxtool {

// --- Arguments and file names ------------------------------------------------------------------------

std::vector<std::string> Arguments(int argc, char** argv) { return {argv + std::min(argc, 1), argv + argc}; }

bool ArgumentsAreText() { return false; }

std::FILE* OpenToRead(const std::string& fileName) { return std::fopen(fileName.c_str(), "rb"); }

std::string CheckPage() { return QXTOOL_CHECK_PAGE; }

// --- Standard streams --------------------------------------------------------------------------------

void PrepareStandardStreams() {
  std::signal(SIGPIPE, SIG_IGN);
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(descriptor, F_GETFD) >= 0) continue;
    // The lowest free descriptor is this one; the wrong direction makes its use fail.
    if (open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY) != descriptor) std::abort();
  }
}

bool PipeWasClosed() { return errno == EPIPE; }

void EndByClosedPipe() {
  std::signal(SIGPIPE, SIG_DFL);
  std::raise(SIGPIPE);
}

bool IsTerminal(std::FILE* stream) { return isatty(fileno(stream)) != 0; }

bool ShowsColours(std::FILE*) {
  const char* const terminal = std::getenv("TERM");
  return terminal != nullptr && *terminal != '\0' && std::string_view(terminal) != "dumb";
}

bool Write(std::FILE* stream, std::string_view text, bool) {
  return std::fwrite(text.data(), 1, text.size(), stream) == text.size();
}

// --- Characters --------------------------------------------------------------------------------------

namespace {

bool NamesUtf8(std::string codeset) {
  std::erase(codeset, '-');
  for (char& c : codeset) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return codeset == "UTF8";
}

/// For a locale that is not installed: the part of its name that says the codeset.
std::string NamedCodeset() {
  for (const char* const variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    const char* const value = std::getenv(variable);
    if (value == nullptr || *value == '\0') continue;
    const std::string name(value);
    return name.substr(std::min(name.find('.'), name.size() - 1) + 1);
  }
  return "";
}

}  // namespace

bool TerminalIsUtf8() {
  const locale_t locale = newlocale(LC_CTYPE_MASK, "", nullptr);
  if (locale == nullptr) return NamesUtf8(NamedCodeset());
  const std::string codeset = nl_langinfo_l(CODESET, locale);
  freelocale(locale);
  return NamesUtf8(codeset);
}

int ColumnsOf(char32_t character) {
  const Utf8Locale locale;
  return wcwidth(static_cast<wchar_t>(character));
}

struct SystemCharset::State {
  explicit State(const char* name) : converter(iconv_open("UTF-16LE", name)) {
    if (converter == iconv_t(-1)) throw Failure(std::string("this system has no table of ") + name);
  }
  State(const State&) = delete;
  State& operator=(const State&) = delete;
  ~State() { iconv_close(converter); }

  iconv_t converter;
};

SystemCharset::SystemCharset(const char* name) : state_(std::make_unique<State>(name)) {}

SystemCharset::~SystemCharset() = default;

char16_t SystemCharset::Unit(unsigned char lead, unsigned char trail) const {
  char code[] = {static_cast<char>(lead), static_cast<char>(trail)};
  unsigned char unit[4] = {};
  char* in = code;
  char* out = reinterpret_cast<char*>(unit);
  std::size_t inLeft = sizeof code;
  std::size_t outLeft = sizeof unit;
  iconv(state_->converter, nullptr, nullptr, nullptr, nullptr);
  const bool converted =
      iconv(state_->converter, &in, &inLeft, &out, &outLeft) != static_cast<std::size_t>(-1);
  return converted && outLeft == 2 ? static_cast<char16_t>(unit[0] | unit[1] << 8) : u'\0';
}

}  // namespace qxtool
