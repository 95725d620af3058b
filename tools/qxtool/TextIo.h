// Where bytes come in and go out: files, arguments, standard output, messages.
//
// Inside, text is code page 950 bytes, as in the library. What is outside is converted here, and a character
// without a counterpart is an error or is shown as such; none is lost silently.
#pragma once

#include <qxTools/platform/FileHold.h>

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace qxtool {

/// A failure that ends the command: one line on standard error, exit status 2.
class Failure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What was looked for is not there. A command that only asks for it ends with exit status 1.
class NotThere : public Failure {
 public:
  using Failure::Failure;
};

/// Nobody reads standard output any more. The program ends quietly.
class ClosedPipe : public Failure {
 public:
  ClosedPipe() : Failure("standard output: closed pipe") {}
};

/// Which text outside is UTF-8; the other text is code page 950.
struct Encoding {
  bool utf8Files = false;
  bool utf8Terminal = false;  // arguments and messages
  bool utf8Output = false;    // standard output
};
Encoding& GetEncoding();

/// What the user's locale says. Standard output is UTF-8 only on a terminal: a file or another program gets
/// the same bytes in every locale.
void UseEncodingOfLocale();

/// The byte-order mark of UTF-8, which is not part of the text.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// The bytes of a file as code page 950; "-" is standard input.
/// @throws Failure, naming the file, if it cannot be read or holds a character that the page lacks.
std::string ReadInput(const std::string& fileName);

/// The bytes of a file as they are; "-" is standard input. Waits up to 10 seconds for a command that changes
/// the file. @throws Failure, naming the file.
std::string ReadBytes(const std::string& fileName);

/// UTF-8, with a byte-order mark or without, as code page 950.
/// @throws Failure for other bytes and for a character that the page lacks, as one of `subject`.
std::string FromUtf8(std::string_view utf8, const std::string& subject);

/// An argument as code page 950.
std::string FromArgument(const std::string& argument);

/// Writes text to standard output. @throws Failure if standard output does not take all of it, or if a byte
/// of the text has no form in UTF-8 and the output is UTF-8.
void Print(std::string_view text);

/// Writes text for people to standard output: a byte that has no form in UTF-8 is shown as U+FFFD.
void Display(std::string_view text);

/// Writes bytes to standard output as they are. @throws Failure if it does not take all of them.
void PrintBytes(std::string_view bytes);

/// Flushes standard output. @throws Failure if something was not taken: a full disk, a closed pipe.
void FlushOutput();

/// Writes "qxtool: " and the message to standard error.
void PrintError(const std::string& message);

/// Writes a line of a report to standard error. @throws Failure if standard error does not take it.
void PrintReport(const std::string& line);

/// Saves text as a whole file, in the encoding of files. Waits while another command changes the file, as
/// HeldText does. @throws Failure; the old file is unchanged then.
void SaveText(const std::string& fileName, const std::string& text);

/// A file of text that nobody else changes between Read and Save. Waits up to 10 seconds for another command
/// that changes the file.
class HeldText {
 public:
  /// @throws Failure, naming the file, if it cannot be opened or the time is over.
  HeldText(const std::string& fileName, qxTools::IfMissing ifMissing);

  bool IsNew() const { return hold_->IsNew(); }
  /// The bytes of the file as code page 950. @throws Failure, as ReadInput does.
  std::string Read() const;
  /// Saves text as the whole file. @throws Failure; the old file is unchanged then.
  void Save(const std::string& text);

 private:
  std::string fileName_;
  std::unique_ptr<qxTools::FileHold> hold_;
};

enum class Emphasis { kNone, kBold, kError };

/// Text, emphasised if `stream` is a terminal that shows it. NO_COLOR and TERM=dumb switch that off.
std::string Emphasised(const std::string& text, Emphasis emphasis, std::FILE* stream);

/// Bytes from outside (a name, a message of the system) for a message: control characters, and what is not a
/// character of the terminal's encoding, as \xNN.
std::string Visible(std::string_view text);

/// Text of the library, which is code page 950, for a message.
std::string VisibleText(std::string_view text);

/// Text in code page 950 for a table: control bytes as \xNN. Each byte of it takes one column.
std::string VisibleCell(std::string_view text);

/// Runs `body`; a failure in it is reported as one of `subject` (a file or an option).
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
