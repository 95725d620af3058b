// What the tool asks of the operating system. Each system has a folder beside this header.
#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qxtool {

// --- Arguments and file names ------------------------------------------------------------------------

/// The words behind the program's name: bytes, or UTF-8 where the system has text there.
std::vector<std::string> Arguments(int argc, char** argv);

/// True if arguments and file names are text, which is UTF-8 then; false if they are the user's bytes.
bool ArgumentsAreText();

/// Opens a file to read its bytes. Returns null if it cannot be opened; errno says why.
std::FILE* OpenToRead(const std::string& fileName);

/// The absolute path of the installed page of the checker's rules, with slashes, as a URI of a file takes it.
std::string CheckPage();

// --- Standard streams --------------------------------------------------------------------------------

/// Makes the standard streams what the tool expects. A stream that the caller closed stays closed: no file
/// that is opened later takes its place. Bytes go through unchanged. A closed pipe is a failed write.
void PrepareStandardStreams();

/// True if the write that failed last went to a pipe that nobody reads.
bool PipeWasClosed();

/// Ends the program as a closed pipe ends others, if the system has a way of its own.
void EndByClosedPipe();

bool IsTerminal(std::FILE* stream);

/// True if a terminal shows colours.
bool ShowsColours(std::FILE* terminal);

/// Writes text to standard output or standard error. A file or another program gets the bytes; a console that
/// shows characters gets those of UTF-8 or of code page 950. Returns false if not all was taken.
bool Write(std::FILE* stream, std::string_view text, bool isUtf8);

// --- Characters --------------------------------------------------------------------------------------

/// True if the user's text is UTF-8 on a terminal.
bool TerminalIsUtf8();

/// The columns of a terminal that a character takes: 2 for a wide one, 0 for a combining one, -1 for what
/// cannot be shown.
int ColumnsOf(char32_t character);

/// A double-byte character set of the system.
class SystemCharset {
 public:
  /// `name` is "GB2312" or "GBK". @throws Failure when the system lacks it.
  explicit SystemCharset(const char* name);
  SystemCharset(const SystemCharset&) = delete;
  SystemCharset& operator=(const SystemCharset&) = delete;
  ~SystemCharset();

  /// The UTF-16 unit of a two-byte character, or 0 if there is none.
  char16_t Unit(unsigned char lead, unsigned char trail) const;

 private:
  struct State;

  std::unique_ptr<State> state_;
};

}  // namespace qxtool
