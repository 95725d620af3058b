// What the tool asks of the operating system. A second system brings a System.cpp of its own.
#pragma once

#include <cstdio>
#include <memory>

namespace qxtool {

/// Opens the null device for each standard stream that the caller closed, so that no file that is opened
/// later takes its place. Reading from and writing to such a stream fails. Makes a closed pipe a failed
/// write.
void PrepareStandardStreams();

/// True if the write that failed last went to a pipe that nobody reads.
bool PipeWasClosed();

/// Ends the program as a closed pipe ends others: quietly, by its signal.
void EndByClosedPipe();

bool IsTerminal(std::FILE* stream);

/// True if the user's locale says that text is UTF-8 (LC_ALL, LC_CTYPE, LANG).
bool LocaleIsUtf8();

/// A double-byte character set of the system.
class SystemCharset {
 public:
  /// @throws Failure when the system lacks it.
  explicit SystemCharset(const char* name);
  SystemCharset(const SystemCharset&) = delete;
  SystemCharset& operator=(const SystemCharset&) = delete;
  ~SystemCharset();

  /// The UTF-16 unit of a two-byte character, or 0 if there is none.
  char16_t Unit(unsigned char lead, unsigned char trail) const;

 private:
  void* converter_;
};

}  // namespace qxtool
