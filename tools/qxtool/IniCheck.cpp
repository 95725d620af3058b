#include "IniCheck.h"

#include <qxTools/base/Ascii.h>
#include <qxTools/base/Lines.h>
#include <qxTools/stores/IniLines.h>

#include <set>

namespace qxtool {

namespace {

using namespace qxTools;
using namespace qxTools::qxIniTools;

class Checker {
 public:
  explicit Checker(const OnLine& report) : report_(report) {}

  void Line(std::string_view line) {
    ++number_;
    const IniLine parts = ReadIniLine(line);
    if (line.find('\0') != std::string_view::npos) Report("what follows a NUL is lost");
    switch (parts.kind) {
      case IniLineKind::Blank:
        return;
      case IniLineKind::Section:
        return Section(std::string(parts.name));
      case IniLineKind::RecordBegin:
        if (sections_.empty()) Report("a record before any section: loading ends here");
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
  void Report(const char* what) { report_(number_, what); }

  void Section(const std::string& name) {
    if (inRecord_) Report("a section inside an open record: values up to its end remain in that record");
    if (!sections_.insert(UpperCase(name)).second)
      Report("a section of the same name: its records move to the first");
  }

  void Value(const IniLine& parts) {
    if (parts.text.size() > kSectionMark.size() && UpperCase(parts.text).ends_with(UpperCase(kSectionMark)))
      Report("a section's line with a second colon, or a blank after the colon: read as a value");
    if (!inRecord_) return Report("a value outside a record is lost");
    if (parts.name.empty() || parts.text.empty()) Report("a value without a name or a text is lost");
  }

  int number_ = 0;
  bool inRecord_ = false;
  std::set<std::string> sections_;
  const OnLine& report_;
};

/// Whether a saved line is read again as these parts.
bool ComesBack(const std::string& line, const IniLine& parts) {
  return line.find_first_of(std::string_view("\r\n\0", 3)) == std::string::npos && ReadIniLine(line) == parts;
}

}  // namespace

void ForEachLoss(std::string_view text, const OnLine& report) {
  Checker checker(report);
  ForEachLine(text, [&](std::string_view line) { checker.Line(line); });
}

std::string SectionFault(const std::string& name) {
  if (ComesBack(name + ":" + std::string(kSectionMark), {IniLineKind::Section, name, {}})) return "";
  return "a section cannot hold a colon or a line break, or have blanks around it";
}

std::string ValueFault(const std::string& name, const std::string& text) {
  if (name.empty() || !ComesBack(name + ":text", {IniLineKind::Value, name, "text"}))
    return "a name cannot be empty, hold a colon or a line break, begin with // or have blanks around it";
  if (text.empty() || !ComesBack("name:" + text, {IniLineKind::Value, "name", text}))
    return "a text cannot be empty, hold a line break, have blanks around it or be " +
           std::string(kSectionMark);
  return "";
}

}  // namespace qxtool
