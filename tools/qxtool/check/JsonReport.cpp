// Findings as JSON, and as SARIF 2.1.0. The frame is written around the results, which are written one by
// one.
#include <algorithm>
#include <nlohmann/json.hpp>

#include "Report.h"

namespace qxtool::check {

namespace {

using Json = nlohmann::ordered_json;

std::string Dump(const Json& json) { return json.dump(-1, ' ', false, Json::error_handler_t::replace); }

/// A document whose last part is a list that grows.
class ListWriter {
 public:
  ListWriter(const Json& frame, Reporter::Write write) : frame_(Dump(frame)), write_(std::move(write)) {}

  /// The frame up to the list, whose "[]" is the last one in it.
  void Begin() {
    const std::size_t list = frame_.rfind("[]") + 1;
    write_(frame_.substr(0, list));
    frame_.erase(0, list);
  }
  void Add(const Json& entry) {
    write_((first_ ? "\n" : ",\n") + Dump(entry));
    first_ = false;
  }
  void End() { write_("\n" + frame_ + "\n"); }

 private:
  std::string frame_;
  Reporter::Write write_;
  bool first_ = true;
};

class JsonReporter : public Reporter {
 public:
  JsonReporter(const ReportOptions& options, Write write)
      : list_({{"version", options.version}, {"findings", Json::array()}}, std::move(write)) {}

  void Begin() override { list_.Begin(); }
  void End() override { list_.End(); }
  void File(const FileReport& report) override {
    for (const ShownFinding& finding : report.findings) {
      if (finding.suppression != Suppression::kNone) continue;
      list_.Add({{"path", report.path},
                 {"line", finding.line},
                 {"column", finding.column},
                 {"endColumn", finding.endColumn},
                 {"byteOffset", finding.byteOffset},
                 {"byteLength", finding.byteLength},
                 {"rule", finding.rule->id},
                 {"level", LevelName(finding.level)},
                 {"message", Utf8Of(finding.message)},
                 {"help", finding.rule->remedy}});
    }
    for (const auto& [rule, count] : report.counts)
      if (const std::size_t shown = Shown(report, rule); shown < count)
        list_.Add({{"path", report.path}, {"rule", rule->id}, {"notShown", count - shown}});
  }

 private:
  static std::size_t Shown(const FileReport& report, const Rule* rule) {
    return static_cast<std::size_t>(std::ranges::count_if(report.findings, [&](const ShownFinding& finding) {
      return finding.rule == rule && finding.suppression == Suppression::kNone;
    }));
  }

  ListWriter list_;
};

// --- SARIF -------------------------------------------------------------------------------------------

std::string_view SarifLevel(Level level) {
  return level == Level::kInformation ? std::string_view("note") : LevelName(level);
}

Json SarifRule(const Rule& rule, const std::string& page) {
  std::string anchor(rule.id);
  for (char& c : anchor) c = static_cast<char>(c | 0x20);
  return {{"id", rule.id},
          {"shortDescription", {{"text", rule.summary}}},
          {"fullDescription", {{"text", rule.why}}},
          {"help", {{"text", rule.remedy}}},
          {"helpUri", page + "#" + anchor},
          {"defaultConfiguration", {{"enabled", rule.byDefault}, {"level", SarifLevel(rule.level)}}}};
}

Json SarifFrame(const ReportOptions& options) {
  Json rules = Json::array();
  for (const Rule& rule : AllRules()) rules.push_back(SarifRule(rule, options.page));
  const Json driver = {{"name", "qxtool check"}, {"semanticVersion", options.version}, {"rules", rules}};
  const Json run = {
      {"tool", {{"driver", driver}}}, {"columnKind", "unicodeCodePoints"}, {"results", Json::array()}};
  return {{"$schema",
           "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json"},
          {"version", "2.1.0"},
          {"runs", Json::array({run})}};
}

Json SarifSuppression(const ShownFinding& finding) {
  if (finding.suppression == Suppression::kBaseline) return {{"kind", "external"}};
  return {{"kind", "inSource"}, {"justification", Utf8Of(finding.reason)}};
}

class SarifReporter : public Reporter {
 public:
  SarifReporter(const ReportOptions& options, Write write) : list_(SarifFrame(options), std::move(write)) {}

  void Begin() override { list_.Begin(); }
  void End() override { list_.End(); }
  void File(const FileReport& report) override {
    std::map<std::string, std::size_t> seen;
    for (const ShownFinding& finding : report.findings) list_.Add(Result(report, finding, seen));
  }

 private:
  static Json Result(const FileReport& report, const ShownFinding& finding,
                     std::map<std::string, std::size_t>& seen) {
    const Json region = {{"startLine", finding.line},
                         {"startColumn", finding.column},
                         {"endColumn", finding.endColumn},
                         {"byteOffset", finding.byteOffset},
                         {"byteLength", finding.byteLength}};
    const Json place = {{"artifactLocation", {{"uri", UriOf(report.path)}}}, {"region", region}};
    const std::string hash = HexOf(finding.lineHash);
    const std::size_t number = ++seen[std::string(finding.rule->id) + hash];
    Json result = {{"ruleId", finding.rule->id},
                   {"level", SarifLevel(finding.level)},
                   {"message", {{"text", Utf8Of(finding.message)}}},
                   {"locations", Json::array({Json{{"physicalLocation", place}}})},
                   {"partialFingerprints", {{"lineHash/v1", hash + ":" + std::to_string(number)}}}};
    if (finding.suppression != Suppression::kNone)
      result["suppressions"] = Json::array({SarifSuppression(finding)});
    return result;
  }

  ListWriter list_;
};

}  // namespace

std::unique_ptr<Reporter> MakeJsonReporter(const ReportOptions& options, Reporter::Write write) {
  return std::make_unique<JsonReporter>(options, std::move(write));
}

std::unique_ptr<Reporter> MakeSarifReporter(const ReportOptions& options, Reporter::Write write) {
  return std::make_unique<SarifReporter>(options, std::move(write));
}

}  // namespace qxtool::check
