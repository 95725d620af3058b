#include "Report.h"

#include <qxTools/base/CodePage950.h>

#include <algorithm>

#include "Characters.h"

namespace qxtool::check {

std::unique_ptr<Reporter> MakeReporter(const std::string& format, const ReportOptions& options,
                                       Reporter::Write write) {
  if (format == "json") return MakeJsonReporter(options, std::move(write));
  if (format == "sarif") return MakeSarifReporter(options, std::move(write));
  if (format == "github") return MakeGithubReporter(options, std::move(write));
  return MakeTextReporter(options, std::move(write));
}

std::string UriOf(std::string_view path) {
  constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
  constexpr char kDigits[] = "0123456789ABCDEF";
  while (path.starts_with("./")) path.remove_prefix(2);
  std::string uri;
  for (const char c : path) {
    if (kPlain.find(c) != std::string_view::npos)
      uri += c;
    else
      uri += {'%', kDigits[Byte(c) >> 4], kDigits[Byte(c) & 15]};
  }
  return uri;
}

std::string HexOf(std::uint64_t hash) {
  std::string digits(16, '0');
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, hash >>= 4)
    *digit = "0123456789abcdef"[hash & 15];
  return digits;
}

std::string Utf8Of(std::string_view text) { return qxTools::BytesToUtf8(text); }

std::string Explain(const Rule& rule) {
  const auto indented = [](std::string_view text) {
    std::string lines = "    ";
    for (const char c : text.substr(0, text.size() - (text.ends_with('\n') ? 1 : 0)))
      lines += c == '\n' ? std::string("\n    ") : Byte(c) < ' ' ? std::string("?") : std::string(1, c);
    return lines + "\n";
  };
  std::string text;
  text.append(rule.id).append(", ").append(LevelName(rule.level)).append(": ").append(rule.summary);
  text.append("\n\nLooks at:  ").append(PlacesOf(rule)).append(rule.byDefault ? "\n" : " (off by default)\n");
  text.append("Why:       ").append(rule.why).append("\nInstead:   ").append(rule.remedy);
  text.append("\n\nFound in:\n\n").append(indented(rule.bad));
  text.append("\nNot in:\n\n").append(indented(rule.good));
  return text;
}

namespace {

/// Properties and messages of a workflow command.
std::string Escaped(std::string_view text, bool property) {
  std::string escaped;
  for (const char c : text) {
    if (c == '%' || c == '\r' || c == '\n' || (property && (c == ':' || c == ',')))
      escaped += {'%', "0123456789ABCDEF"[Byte(c) >> 4], "0123456789ABCDEF"[Byte(c) & 15]};
    else
      escaped += c;
  }
  return escaped;
}

class GithubReporter : public Reporter {
 public:
  explicit GithubReporter(Write write) : write_(std::move(write)) {}

  void File(const FileReport& report) override {
    for (const ShownFinding& finding : report.findings) {
      if (finding.suppression != Suppression::kNone) continue;
      constexpr std::string_view kCommands[] = {"notice", "warning", "error"};
      std::string line = "::";
      line.append(kCommands[static_cast<std::size_t>(finding.level)]).append(" file=");
      line.append(Escaped(report.path, true)).append(",line=").append(std::to_string(finding.line));
      line.append(",col=").append(std::to_string(finding.column)).append(",title=").append(finding.rule->id);
      write_(line.append("::").append(Escaped(Utf8Of(finding.message), false)).append("\n"));
    }
  }

 private:
  Write write_;
};

}  // namespace

std::unique_ptr<Reporter> MakeGithubReporter(const ReportOptions&, Reporter::Write write) {
  return std::make_unique<GithubReporter>(std::move(write));
}

}  // namespace qxtool::check
