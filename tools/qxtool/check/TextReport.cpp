// Findings for people.
#include <algorithm>

#include "Characters.h"
#include "Report.h"

namespace qxtool::check {

namespace {

constexpr std::string_view kReset = "\x1B[0m";

std::string Visible(std::string_view path) {
  std::string shown(path);
  std::ranges::replace_if(
      shown, [](char c) { return Byte(c) < ' ' || c == 0x7F; }, '?');
  return shown;
}

class TextReporter : public Reporter {
 public:
  TextReporter(const ReportOptions& options, Write write) : options_(options), write_(std::move(write)) {}

  void File(const FileReport& report) override {
    ++files_;
    for (std::size_t i = 0; i < 3; ++i) levels_[i] += report.levels[i];
    for (const ShownFinding& finding : report.findings) Show(report, finding);
    for (const auto& [rule, count] : report.counts) {
      rules_[rule->id] += count;
      if (count > options_.most) ShowMore(report, *rule, count - options_.most);
    }
  }

  void End() override {
    if (rules_.empty())
      return write_(std::to_string(files_) + (files_ == 1 ? " file" : " files") + ": nothing found\n");
    for (const auto& [id, count] : rules_) {
      const std::string number = std::to_string(count);
      write_(std::string(number.size() < 7 ? 7 - number.size() : 0, ' ') + number + "  " + std::string(id) +
             "  " + std::string(FindRule(id)->summary) + "\n");
    }
    write_(std::to_string(files_) + (files_ == 1 ? " file: " : " files: ") + Count(Level::kError) + ", " +
           Count(Level::kWarning) + ", " + Count(Level::kInformation) +
           "; qxtool check --explain ID says more\n");
  }

 private:
  std::string Coloured(std::string_view text, std::string_view colour) const {
    if (!options_.colour) return std::string(text);
    return std::string(colour).append(text).append(kReset);
  }

  std::string Encoded(const std::string& text) const { return options_.utf8 ? Utf8Of(text) : text; }

  std::string LevelText(const ShownFinding& finding) const {
    constexpr std::string_view kColours[] = {"\x1B[1;36m", "\x1B[1;33m", "\x1B[1;31m"};
    return Coloured(std::string(LevelName(finding.level)) + "[" + std::string(finding.rule->id) + "]",
                    kColours[static_cast<std::size_t>(finding.level)]);
  }

  void Show(const FileReport& report, const ShownFinding& finding) {
    if (finding.suppression != Suppression::kNone) return;
    const bool placed = report.kind != FileKind::kCall;
    const std::string numbers = ":" + std::to_string(finding.line) + ":" + std::to_string(finding.column);
    write_(Coloured(Visible(report.path) + (placed ? numbers : ""), "\x1B[1m") + ": " + LevelText(finding) +
           ": " + Encoded(finding.message) + "\n" + (placed ? MarkedLine(finding) : "") +
           "  help: " + std::string(finding.rule->remedy) + "\n\n");
  }

  std::string MarkedLine(const ShownFinding& finding) const {
    const std::string carets(finding.caretWidth, '^');
    return "  " + Encoded(finding.excerpt) + "\n  " + std::string(finding.caret, ' ') +
           Coloured(carets, "\x1B[1;32m") + "\n";
  }

  void ShowMore(const FileReport& report, const Rule& rule, std::size_t more) {
    write_(Visible(report.path) + ": and " + std::to_string(more) + " more of " + std::string(rule.id) +
           "\n\n");
  }

  std::string Count(Level level) const {
    const std::size_t count = levels_[static_cast<std::size_t>(level)];
    const std::string name(level == Level::kInformation ? "note" : LevelName(level));
    return std::to_string(count) + " " + name + (count == 1 ? "" : "s");
  }

  ReportOptions options_;
  Write write_;
  std::size_t files_ = 0;
  std::size_t levels_[3] = {};
  std::map<std::string_view, std::size_t> rules_;
};

}  // namespace

std::unique_ptr<Reporter> MakeTextReporter(const ReportOptions& options, Reporter::Write write) {
  return std::make_unique<TextReporter>(options, std::move(write));
}

}  // namespace qxtool::check
