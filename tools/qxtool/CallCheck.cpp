#include "CallCheck.h"

#include "TextIo.h"
#include "check/Report.h"

namespace qxtool {

namespace {

ExitStatus Print(const check::FileReport& report) {
  check::ReportOptions options;
  options.colour = Emphasised("x", Emphasis::kBold, stdout) != "x";
  options.utf8 = GetEncoding().utf8Output;
  const auto reporter = check::MakeReporter("text", options, PrintBytes);
  reporter->File(report);
  if (!report.findings.empty()) reporter->End();
  const auto warning = static_cast<std::size_t>(check::Level::kWarning);
  return report.levels[warning] + report.levels[warning + 1] > 0 ? kFound : kDone;
}

}  // namespace

ExitStatus CheckCallValues(const std::string& file, const qxTools::qxSqlStoreProc::TQXSqlStoreProc& set,
                           const std::string& declarations) {
  return Print(check::CheckCall(file, set, declarations, {}));
}

ExitStatus CheckCommandValues(const std::string& file,
                              std::span<const qxTools::QXSqlTools::TQXSQLItems* const> commands) {
  return Print(check::CheckCommands(file, commands, {}));
}

}  // namespace qxtool
