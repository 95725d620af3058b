// qxtool check: what of statements and files hurts silently.
#include <qxTools/base/CodePage950.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/platform/Files.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <thread>

#include "Commands.h"
#include "PathOf.h"
#include "TextIo.h"
#include "check/CheckFiles.h"
#include "check/Configuration.h"
#include "check/Report.h"
#include "platform/System.h"

namespace qxtool {

namespace {

namespace fs = std::filesystem;
using namespace check;

constexpr char kConfigurationName[] = "qxcheck.ini";

struct Options {
  std::vector<std::string> paths;
  std::string as = "call";
  std::string config;
  std::string select;
  std::string ignore;
  bool pedantic = false;
  std::string format = "text";
  std::string failOn = "warning";
  bool allFindings = false;
  std::string baseline;
  std::string writeBaseline;
  std::string explain;
  int jobs = 0;
};

// --- What is asked -----------------------------------------------------------------------------------

FileOptions OptionsOf(const Options& options) {
  FileOptions file;
  file.route = ReadRoute(options.as);
  file.utf8 = GetEncoding().utf8Files;
  file.pedantic = options.pedantic;
  file.select = WithSubject("--select", [&] { return ReadIds(options.select); });
  file.ignore = WithSubject("--ignore", [&] { return ReadIds(options.ignore); });
  if (options.allFindings) file.findings.most = static_cast<std::size_t>(-1);
  file.findings.keepSuppressed = options.format == "sarif";
  file.findings.countLines = !options.writeBaseline.empty();
  return file;
}

Configuration ReadConfiguration(const std::string& name) {
  const bool named = !name.empty();
  const std::string fileName = named ? name : kConfigurationName;
  if (!named && !qxTools::FileExists(fileName)) return {};
  return WithSubject(fileName, [&] {
    const fs::path folder = fs::absolute(PathOf(fileName)).lexically_normal().parent_path();
    return Configuration(qxTools::ReadWholeFile(fileName), folder.generic_string());
  });
}

Baseline ReadKnown(const std::string& name) {
  if (name.empty()) return {};
  return WithSubject(name, [&] { return ReadBaseline(qxTools::ReadWholeFile(name)); });
}

// --- What comes out ----------------------------------------------------------------------------------

/// A line on the terminal that says how far the work is; none if standard error is none.
class Progress {
 public:
  explicit Progress(std::size_t total) : total_(total), shown_(IsTerminal(stderr)) {}
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress() { Clear(); }

  void Count() {
    ++done_;
    const auto now = std::chrono::steady_clock::now();
    if (!shown_ || now - last_ < std::chrono::milliseconds(200)) return;
    last_ = now;
    std::fprintf(stderr, "\r%zu of %zu files", done_, total_);
    visible_ = true;
  }
  /// Takes the line off the terminal, before something else is written.
  void Clear() {
    if (visible_) std::fputs("\r\x1B[K", stderr);
    visible_ = false;
  }

 private:
  std::size_t total_;
  bool shown_;
  bool visible_ = false;
  std::size_t done_ = 0;
  std::chrono::steady_clock::time_point last_ = std::chrono::steady_clock::now();
};

ReportOptions ReportOptionsOf(const Options& options, const FileOptions& file) {
  ReportOptions report;
  report.colour = Emphasised("x", Emphasis::kBold, stdout) != "x";
  report.utf8 = GetEncoding().utf8Output;
  report.most = options.allFindings ? static_cast<std::size_t>(-1) : file.findings.most;
  report.version = QXTOOL_VERSION;
  report.page = "file://" + UriOf(CheckPage());
  return report;
}

Level FailLevel(const std::string& name) {
  return name == "error" ? Level::kError : name == "warning" ? Level::kWarning : Level::kInformation;
}

/// Takes the reports of the files one by one.
class Outcome {
 public:
  Outcome(const Options& options, Reporter& reporter, std::size_t files)
      : options_(options), reporter_(reporter), progress_(files) {}

  void Take(const FileReport& report) {
    progress_.Count();
    if (!report.error.empty()) return TellUnreadable(report);
    if (!report.checked) return;
    if (!report.findings.empty()) progress_.Clear();
    reporter_.File(report);
    for (auto level = static_cast<std::size_t>(FailLevel(options_.failOn)); level < 3; ++level)
      found_ = found_ || report.levels[level] > 0;
    if (!report.lines.empty()) known_[UriOf(report.path)] = report.lines;
  }

  ExitStatus Status() {
    progress_.Clear();
    if (unreadable_) return kFailed;
    return found_ ? kFound : kDone;
  }
  const Baseline& Known() const { return known_; }
  bool IsUnreadable() const { return unreadable_; }

 private:
  void TellUnreadable(const FileReport& report) {
    progress_.Clear();
    PrintError(Visible(report.error));
    unreadable_ = true;
  }

  const Options& options_;
  Reporter& reporter_;
  Progress progress_;
  bool found_ = false;
  bool unreadable_ = false;
  Baseline known_;
};

unsigned ThreadsOf(const Options& options) {
  return options.jobs > 0 ? static_cast<unsigned>(options.jobs)
                          : std::max(std::thread::hardware_concurrency(), 1u);
}

ExitStatus WriteKnown(const Options& options, const Outcome& outcome) {
  if (outcome.IsUnreadable()) return kFailed;
  WithSubject(options.writeBaseline,
              [&] { qxTools::SaveWholeFile(options.writeBaseline, WriteBaseline(outcome.Known())); });
  return kDone;
}

ExitStatus ExplainRule(const std::string& id) {
  const Rule* const rule = FindRule(id);
  if (rule == nullptr) throw Failure("--explain " + Visible(id) + ": no such rule");
  Display(Explain(*rule));
  return kDone;
}

ExitStatus Check(const Options& options) {
  const FileOptions file = OptionsOf(options);
  const Configuration configuration = ReadConfiguration(options.config);
  const Baseline known = ReadKnown(options.baseline);
  Work work;
  work.files = WithSubject("check", [&] { return FindFiles(options.paths); });
  work.optionsOf = [&](const std::string& path) { return configuration.For(path, file); };
  work.baselineOf = [&](const std::string& path) {
    const auto found = known.find(UriOf(path));
    return found != known.end() ? found->second : BaselineCounts();
  };
  work.threads = ThreadsOf(options);
  const bool quiet = !options.writeBaseline.empty();
  const auto reporter =
      MakeReporter(options.format, ReportOptionsOf(options, file), [quiet](std::string_view part) {
        if (!quiet) PrintBytes(part);
      });
  Outcome outcome(options, *reporter, work.files.size());
  work.take = [&](const FileReport& report) { outcome.Take(report); };
  reporter->Begin();
  CheckFiles(work);
  const ExitStatus status = outcome.Status();
  reporter->End();
  return quiet ? WriteKnown(options, outcome) : status;
}

ExitStatus Run(const Options& options) {
  if (!options.explain.empty()) return ExplainRule(options.explain);
  if (options.paths.empty()) throw Failure("check: PATH is missing");
  return Check(options);
}

}  // namespace

void AddCheckCommand(Command program) {
  const auto options = std::make_shared<Options>();
  Command command =
      program.Add("check", "Report what in statements and files does harm silently", options, Run);
  command.Example("check --as command statements");
  command.Texts("PATH", options->paths, "Statements, settings, tables, texts, and folders with them");
  command.Text("--as", options->as, "How statements are used: command, call (the default) or call-all")
      .OneOf({"command", "call", "call-all"});
  command
      .Text("--config", options->config, "Settings file with uses and rules by path; otherwise qxcheck.ini")
      .Placeholder("FILE");
  command.Text("--select", options->select, "Only the rules whose ids begin so, as in SQL2,ENC101")
      .Placeholder("IDS");
  command.Text("--ignore", options->ignore, "Without the rules whose ids begin so").Placeholder("IDS");
  command.Flag("--pedantic", options->pedantic, "Also the rules that are off by default");
  command.Text("--format", options->format, "text (the default), json, sarif or github")
      .OneOf({"text", "json", "sarif", "github"});
  command
      .Text("--fail-on", options->failOn,
            "Exit status 1 from this level on: error, warning (the default), information")
      .OneOf({"error", "warning", "information"});
  command.Flag("--all-findings", options->allFindings, "Show more than 10 findings of one rule in a file");
  command.Text("--baseline", options->baseline, "Leave out the findings that this file knows")
      .Placeholder("FILE");
  command.Text("--write-baseline", options->writeBaseline, "Write such a file, with all findings")
      .Placeholder("FILE");
  command.Text("--explain", options->explain, "Explain a rule").Placeholder("ID");
  command.Number("--jobs", options->jobs, "Files checked at a time; otherwise one a processor").Positive();
}

}  // namespace qxtool
