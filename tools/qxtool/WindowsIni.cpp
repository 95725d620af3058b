#include "WindowsIni.h"

#include <qxTools/base/Ascii.h>
#include <qxTools/base/Lines.h>
#include <qxTools/stores/IniLines.h>
#include <qxTools/stores/qxIniTools.h>

#include <set>

#include "IniCheck.h"
#include "check/SettingsLosses.h"

namespace qxtool {

namespace {

using namespace qxTools;
using namespace qxTools::qxIniTools;

bool IsQuoted(std::string_view text) {
  return text.size() >= 2 && (text.front() == '"' || text.front() == '\'') && text.front() == text.back();
}

class Importer {
 public:
  explicit Importer(const OnLine& report) : report_(report) {}

  void Line(std::string_view untrimmed) {
    ++number_;
    const std::string_view line = TrimBlanks(untrimmed);
    if (line.empty()) return;
    if (line.front() == ';' || line.front() == '#') return Report("a comment");
    if (line.front() == '[') return Section(line.substr(1));
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return Report("a line without an equals sign");
    Value(std::string(TrimBlanks(line.substr(0, equals))), TrimBlanks(line.substr(equals + 1)));
  }

  std::string Settings() const { return settings_.GetText(); }

 private:
  void Report(const std::string& what) { report_(number_, what); }

  void Section(std::string_view rest) {
    const std::string name(TrimBlanks(rest.substr(0, rest.find(']'))));
    pQXTreeNode node = nullptr;
    std::string fault = SectionFault(name);
    if (rest.find(']') == std::string_view::npos) fault = "a section without its closing bracket";
    if (fault.empty() && settings_.FindRootKey(name, node))
      fault = "a second section of this name, of which Windows reads the first";
    place_ = fault.empty() ? Place::kSection : Place::kLeftOut;
    if (!fault.empty()) return Report(fault + "; its values are left out");
    settings_.SetRootKey(name);
  }

  void Value(const std::string& name, std::string_view text) {
    if (place_ == Place::kNone) return Report("a value outside a section");
    if (place_ == Place::kLeftOut) return;
    if (IsQuoted(text)) text = text.substr(1, text.size() - 2);
    if (const std::string fault = ValueFault(name, std::string(text)); !fault.empty()) return Report(fault);
    if (place_ == Place::kSection) settings_.AppendKey();
    place_ = Place::kRecord;
    pQXTreeNode node = nullptr;
    if (settings_.FindField(name, node))
      return Report("a second value of this name, of which Windows reads the first");
    settings_.SetValue(name, text);
  }

  enum class Place { kNone, kLeftOut, kSection, kRecord };

  const OnLine& report_;
  int number_ = 0;
  Place place_ = Place::kNone;
  TQXIniFile settings_;
};

class Exporter {
 public:
  explicit Exporter(const OnPlace& report) : report_(report) {}

  void Node(pQXTreeNode node) {
    const auto* const pair = static_cast<pQXIniPair>(node->Data);
    if (node->Level == 1) return Section(Text(pair->Value));
    if (node->Level == 2) return Record();
    if (records_ == 1) Value(Text(pair->Name), Text(pair->Value));
  }

  /// The text, once all nodes were seen.
  std::string Finish() {
    EndRecord();
    return text_;
  }

 private:
  static std::string Text(const char* text) { return text != nullptr ? text : ""; }

  void Section(const std::string& name) {
    EndRecord();
    section_ = name;
    records_ = 0;
    leftOut_ = name.find(']') != std::string::npos;
    if (leftOut_) return report_(section_, "a section whose name holds a bracket; its values are left out");
    text_ += (text_.empty() ? "[" : "\r\n[") + name + "]\r\n";
  }

  void Record() {
    EndRecord();
    names_.clear();
    if (++records_ > 1) report_(Place(), "a second record: a section of a Windows INI file has one");
  }

  void EndRecord() {
    if (records_ == 1 && names_.empty()) report_(Place(), "a record without values");
  }

  void Value(const std::string& name, const std::string& text) {
    const bool isFirst = names_.insert(UpperCase(name)).second;
    if (leftOut_) return;
    const std::string place = Place() + ", " + name;
    if (name.empty() || text.empty()) return;  // reported by its line
    if (!isFirst) return report_(place, "a second value of this name, of which the first counts");
    if (name.find('=') != std::string::npos || std::string_view("[;#").find(name[0]) != std::string::npos)
      return report_(place, "a name that holds an equals sign or begins with [, ; or #");
    text_ += name + "=" + (IsQuoted(text) ? '"' + text + '"' : text) + "\r\n";
  }

  std::string Place() const { return section_ + ", record " + std::to_string(records_); }

  const OnPlace& report_;
  std::string section_;
  int records_ = 0;
  bool leftOut_ = false;
  std::set<std::string> names_;  // of the record, in capitals
  std::string text_;
};

}  // namespace

std::string SettingsFromWindowsIni(std::string_view text, const OnLine& report) {
  Importer importer(report);
  ForEachLine(text, [&](std::string_view line) { importer.Line(line); });
  return importer.Settings();
}

std::string WindowsIniFromSettings(std::string_view text, const OnPlace& report) {
  check::ForEachLoss(
      text, [&](const check::SettingsLoss& loss) { report("line " + std::to_string(loss.line), loss.what); });
  TQXIniFile settings;
  settings.SetText(text);
  Exporter exporter(report);
  settings.EnumTreeNode([&](pQXTreeNode node) { exporter.Node(node); });
  return exporter.Finish();
}

}  // namespace qxtool
