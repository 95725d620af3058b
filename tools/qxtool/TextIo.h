// Where bytes come in and go out: files, arguments, standard output, messages.
//
// Inside, text is code page 950 bytes, as the library has it. --utf8 converts at this edge; nothing is lost
// there silently.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace qxtool {

/// A failure that ends the command: one line on standard error, exit status 2.
class Failure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What the text outside is encoded as.
struct Encoding {
  bool utf8Files = false;
  bool utf8Terminal = false;  // arguments and standard output
};
Encoding& GetEncoding();

/// What can stand in front of UTF-8 and is no text.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// The bytes of a file as code page 950; "-" is standard input.
/// @throws Failure, naming the file, when it cannot be read or holds what the page lacks.
std::string ReadInput(const std::string& fileName);

/// An argument as code page 950.
std::string FromArgument(const std::string& argument);

/// Writes text to standard output. @throws Failure when that does not take all of it, and when a byte of the
/// text has no form in UTF-8 that the terminal is to get.
void Print(std::string_view text);

/// The same for people to look at: such a byte is shown as U+FFFD.
void Display(std::string_view text);

/// The same for bytes that are not to be converted.
void PrintBytes(std::string_view bytes);

/// Flushes standard output. @throws Failure when something was not taken: a full disk, a closed pipe.
void FlushOutput();

/// Saves text as a whole file, in the encoding of files. @throws Failure; the old file stays then.
void SaveText(const std::string& fileName, const std::string& text);

/// A name for a message: control bytes made visible, as the terminal shows text.
std::string Visible(std::string_view text);

/// The same for text of the library, which is code page 950 whatever the terminal shows.
std::string VisibleText(std::string_view text);

/// Runs `body`; a failure in it is told as one of `subject` (a file or an option).
template <class Body>
auto WithSubject(const std::string& subject, Body&& body) {
  try {
    return body();
  } catch (const Failure&) {
    throw;
  } catch (const std::exception& e) {
    throw Failure(Visible(subject) + ": " + Visible(e.what()));
  }
}

}  // namespace qxtool
