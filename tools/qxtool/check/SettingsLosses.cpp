#include "SettingsLosses.h"

#include <qxTools/base/Ascii.h>
#include <qxTools/base/Lines.h>
#include <qxTools/stores/IniLines.h>

#include <set>
#include <string>

namespace qxtool::check {

namespace {

using namespace qxTools;
using namespace qxTools::qxIniTools;

class Losses {
 public:
  Losses(std::string_view text, const std::function<void(const SettingsLoss& loss)>& report)
      : text_(text), report_(report) {}

  void Line(std::string_view line) {
    ++number_;
    line_ = line;
    const IniLine parts = ReadIniLine(line);
    if (line.find('\0') != std::string_view::npos) Report("what follows a NUL is lost");
    switch (parts.kind) {
      case IniLineKind::Blank:
        return;
      case IniLineKind::Section:
        return Section(std::string(parts.name));
      case IniLineKind::RecordBegin:
        if (sections_.empty()) Report("a record before any section: loading ends here", LossKind::kEndOfLoad);
        inRecord_ = true;
        return;
      case IniLineKind::RecordEnd:
        inRecord_ = false;
        return;
      case IniLineKind::Value:
        return Value(parts);
      case IniLineKind::Other:
        return Report("a comment, or a line without a colon, is lost");
    }
  }

 private:
  void Report(const char* what, LossKind kind = LossKind::kLine) {
    const auto begin = static_cast<std::size_t>(line_.data() - text_.data());
    report_({kind, what, number_, begin, begin + line_.size()});
  }

  void Section(const std::string& name) {
    if (inRecord_) Report("a section inside an open record: values up to its end remain in that record");
    if (!sections_.insert(UpperCase(name)).second)
      Report("a section of the same name: its records move to the first");
  }

  void Value(const IniLine& parts) {
    if (parts.text.size() > kSectionMark.size() && UpperCase(parts.text).ends_with(UpperCase(kSectionMark)))
      Report("a section's line with a second colon, or a blank after the colon: read as a value",
             LossKind::kMarker);
    if (!inRecord_) return Report("a value outside a record is lost");
    if (parts.name.empty() || parts.text.empty()) Report("a value without a name or a text is lost");
  }

  std::string_view text_;
  std::string_view line_;
  int number_ = 0;
  bool inRecord_ = false;
  std::set<std::string> sections_;
  const std::function<void(const SettingsLoss& loss)>& report_;
};

}  // namespace

void ForEachLoss(std::string_view text, const std::function<void(const SettingsLoss& loss)>& report) {
  Losses losses(text, report);
  ForEachLine(text, [&](std::string_view line) { losses.Line(line); });
}

}  // namespace qxtool::check
