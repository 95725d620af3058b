// Findings as text, JSON, SARIF 2.1.0 and annotations of GitHub.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "CheckFile.h"

namespace qxtool::check {

struct ReportOptions {
  bool colour = false;
  bool utf8 = false;      // the text goes to a terminal in UTF-8; otherwise in code page 950
  std::size_t most = 10;  // findings of one rule in a file that were kept
  std::string version;    // of the program
  std::string page;       // the address of the page that describes the rules
};

/// Writes the reports of files, one after the other, so that none has to be kept.
class Reporter {
 public:
  /// Takes a part of the output: JSON and annotations are UTF-8, paths in a text are as they were given.
  using Write = std::function<void(std::string_view)>;

  virtual ~Reporter() = default;
  virtual void Begin() {}
  virtual void File(const FileReport& report) = 0;
  virtual void End() {}
};

/// `format` is "text", "json", "sarif" or "github".
std::unique_ptr<Reporter> MakeReporter(const std::string& format, const ReportOptions& options,
                                       Reporter::Write write);

// One for each format, in a file of its own.
std::unique_ptr<Reporter> MakeTextReporter(const ReportOptions& options, Reporter::Write write);
std::unique_ptr<Reporter> MakeJsonReporter(const ReportOptions& options, Reporter::Write write);
std::unique_ptr<Reporter> MakeSarifReporter(const ReportOptions& options, Reporter::Write write);
std::unique_ptr<Reporter> MakeGithubReporter(const ReportOptions& options, Reporter::Write write);

/// A path as a relative or absolute reference: "/" between folders, other bytes than letters, digits and
/// "-._~/" as %XX.
std::string UriOf(std::string_view path);

/// The hash of a line as 16 digits.
std::string HexOf(std::uint64_t hash);

/// The explanation of a rule for a terminal, in code page 950.
std::string Explain(const Rule& rule);

/// A text of the library for JSON and pages.
std::string Utf8Of(std::string_view text);

}  // namespace qxtool::check
