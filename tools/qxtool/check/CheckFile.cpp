#include "CheckFile.h"

#include <qxTools/base/Ascii.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include <algorithm>

#include "Characters.h"
#include "Excerpt.h"
#include "FileKinds.h"
#include "StatementScan.h"
#include "Suppressions.h"

namespace qxtool::check {

namespace {

bool IsListed(std::string_view id, const std::vector<std::string>& beginnings) {
  return std::ranges::any_of(beginnings, [&](const std::string& beginning) {
    return qxTools::SameText(id.substr(0, beginning.size()), beginning);
  });
}

bool IsSelected(const Rule& rule, const FileOptions& options) {
  if (IsListed(rule.id, options.ignore)) return false;
  if (!options.select.empty()) return IsListed(rule.id, options.select);
  return rule.byDefault || options.pedantic;
}

/// Rules for text are asked of every file.
bool LooksAt(const Rule& rule, FileKind kind, Route route) {
  if (rule.kind == FileKind::kText) return kind != FileKind::kCall;
  return rule.kind == kind && (rule.routes == 0 || (rule.routes & BitOf(route)) != 0);
}

/// Adds the places, lines and excerpts to what was found, in the order of the text.
void ShowFindings(std::vector<Finding>& kept, const CheckedText& text, FileReport& report) {
  std::ranges::stable_sort(kept, {}, &Finding::begin);
  LineCounter lines(text.Text());
  CheckedText::FilePlaces places(text);
  for (Finding& finding : kept) {
    ShownFinding shown{};
    shown.rule = finding.rule;
    shown.level = finding.level;
    shown.message = std::move(finding.message);
    shown.suppression = finding.suppression;
    shown.reason = std::move(finding.reason);
    lines.Place(finding.begin, finding.end, shown);
    shown.byteOffset = places.Of(finding.begin);
    shown.byteLength = CheckedText::FilePlaces(places).Of(finding.end) - shown.byteOffset;
    report.findings.push_back(std::move(shown));
  }
}

void AskRules(const CheckedText& text, FileKind kind, const FileOptions& options,
              std::span<const Rule* const> asked, Context& context) {
  const RuleSet rules(asked);
  context.route = options.route;
  context.pedantic = options.pedantic;
  rules.Ask({EventKind::kWholeFile, 0, text.Text().size(), {}, {}, {}}, context);
  if (kind == FileKind::kStatement && text.IsReadable()) ScanStatement(rules, context);
}

}  // namespace

std::vector<const Rule*> AskedRules(FileKind kind, const FileOptions& options) {
  std::vector<const Rule*> asked;
  for (const Rule& rule : AllRules())
    if (IsSelected(rule, options) && LooksAt(rule, kind, options.route)) asked.push_back(&rule);
  return asked;
}

FileReport CheckBytes(std::string path, std::string bytes, const FileOptions& options,
                      BaselineCounts baseline) {
  FileReport report;
  report.path = std::move(path);
  const CheckedText text(std::move(bytes), options.utf8);
  report.kind = KindOfFile(report.path, text.Text());
  const bool isStatement = report.kind == FileKind::kStatement;
  const auto asked = AskedRules(report.kind, options);
  Suppressions suppressions(isStatement ? text.Text() : std::string_view());
  Findings findings(text.Text(), options.findings, std::move(baseline),
                    [&](const Rule& rule, std::size_t place) { return suppressions.Find(rule, place); });
  Context context(text.Text(), text.Coding(), findings);
  AskRules(text, report.kind, options, asked, context);
  ReportSuppressions(suppressions, asked, context);
  report.counts = findings.Counts();
  std::copy_n(findings.Levels(), 3, report.levels);
  report.lines = findings.Lines();
  ShowFindings(findings.Kept(), text, report);
  return report;
}

namespace {

/// Checks values: `ask` asks the rules for calls of each of them, of `text` are the places.
template <class Ask>
FileReport CheckValues(std::string path, const CheckedText& text, const FileOptions& options, Ask ask) {
  FileReport report;
  report.path = std::move(path);
  report.kind = FileKind::kCall;
  Findings findings(text.Text(), options.findings, {}, nullptr);
  Context context(text.Text(), text.Coding(), findings);
  ask(RuleSet(AskedRules(FileKind::kCall, options)), context);
  report.counts = findings.Counts();
  std::copy_n(findings.Levels(), 3, report.levels);
  ShowFindings(findings.Kept(), text, report);
  return report;
}

void AskOfCall(const RuleSet& rules, const qxTools::qxSqlStoreProc::TQXSqlStoreProc& set, Context& context) {
  rules.Ask({EventKind::kDeclarations, 0, context.text.size(), {}, {}, {}}, context);
  for (qxTools::Integer i = 0; i < set.GetParamCount() + set.GetFuncCount(); ++i) {
    context.itemIsMacro = i >= set.GetParamCount();
    context.item = context.itemIsMacro ? set.GetFuncItems(i - set.GetParamCount()) : set.GetItems(i);
    rules.Ask({EventKind::kItem, 0, 0, {}, {}, {}}, context);
  }
}

void AskOfCommand(const RuleSet& rules, const qxTools::QXSqlTools::TQXSQLItems& items, Context& context) {
  context.commandItems = &items;
  for (context.commandItem = 0; context.commandItem < items.GetCount(); ++context.commandItem)
    rules.Ask({EventKind::kCommandValue, 0, 0, {}, {}, {}}, context);
}

}  // namespace

FileReport CheckCommands(std::string path, std::span<const qxTools::QXSqlTools::TQXSQLItems* const> commands,
                         const FileOptions& options) {
  return CheckValues(std::move(path), CheckedText(std::string(), false), options,
                     [&](const RuleSet& rules, Context& context) {
                       for (const auto* const items : commands) AskOfCommand(rules, *items, context);
                     });
}

FileReport CheckCall(std::string path, const qxTools::qxSqlStoreProc::TQXSqlStoreProc& set,
                     std::string_view declarations, const FileOptions& options) {
  return CheckValues(std::move(path), CheckedText(std::string(declarations), false), options,
                     [&](const RuleSet& rules, Context& context) { AskOfCall(rules, set, context); });
}

}  // namespace qxtool::check
