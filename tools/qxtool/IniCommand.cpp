// qxtool ini: look into a settings file and change it.
#include <qxTools/base/Ascii.h>
#include <qxTools/base/Lines.h>
#include <qxTools/platform/Files.h>
#include <qxTools/stores/IniLines.h>
#include <qxTools/stores/qxIniTools.h>

#include <functional>
#include <memory>
#include <set>

#include "Commands.h"
#include "TextIo.h"
#include "TextTable.h"

namespace qxtool {

namespace {

using namespace qxTools;
using namespace qxTools::qxIniTools;

struct Options {
  std::string file;
  std::string section;
  int record = 0;
  std::string name;
  std::string text;
  std::vector<std::string> values;
};

std::string Text(const char* text) { return text != nullptr ? text : ""; }

void Load(TQXIniFile& file, const std::string& fileName) {
  const std::string text = ReadInput(fileName);
  try {
    file.SetText(text);
  } catch (const EIniLoadError& e) {
    throw Failure(Visible(fileName) + ": line " + std::to_string(e.GetLine()) + ": " + e.what());
  }
}

/// Opens a record of an existing section. @return its number among records and values.
Integer OpenRecord(TQXIniFile& file, const Options& options) {
  const std::string section = FromArgument(options.section);
  pQXTreeNode node = nullptr;
  if (!file.FindRootKey(section, node))
    throw NotThere(Visible(options.file) + ": no section " + Visible(options.section));
  file.SetRootKey(section);
  int record = 0;
  for (Integer number = 1; file.FindKeyIndex(number, node); ++number) {
    if (node->Level != 2 || ++record < options.record) continue;
    file.OpenKey(number);
    return number;
  }
  throw NotThere(Visible(options.file) + ": no record " + std::to_string(options.record) + " in section " +
                 Visible(options.section));
}

void RequireValue(const TQXIniFile& file, const Options& options) {
  pQXTreeNode node = nullptr;
  if (!file.FindField(FromArgument(options.name), node))
    throw NotThere(Visible(options.file) + ": no value " + Visible(options.name));
}

/// Whether a saved line is read again as these parts.
bool ComesBack(const std::string& line, const IniLine& parts) {
  return line.find_first_of(std::string_view("\r\n\0", 3)) == std::string::npos && ReadIniLine(line) == parts;
}

void CheckSection(const std::string& name) {
  if (!ComesBack(name + ":" + std::string(kSectionMark), {IniLineKind::Section, name, {}}))
    throw Failure("a section cannot hold a colon or a line break, or have blanks around it");
}

void CheckValue(const std::string& name, const std::string& value) {
  if (name.empty() || !ComesBack(name + ":text", {IniLineKind::Value, name, "text"}))
    throw Failure(
        "a name cannot be empty, hold a colon or a line break, begin with // or have blanks around it");
  if (value.empty() || !ComesBack("name:" + value, {IniLineKind::Value, "name", value}))
    throw Failure("a text cannot be empty, hold a line break, have blanks around it or be " +
                  std::string(kSectionMark));
}

void Save(const TQXIniFile& file, const Options& options) { SaveText(options.file, file.GetText()); }

// --- Actions -----------------------------------------------------------------------------------------

/// Each value is a row. Section and record stand in that of the record's first value; a section without
/// records and a record without values have a row of their own.
void ForEachRow(const TQXIniFile& file, const std::function<void(const TextRow&)>& visit) {
  TextRow place;  // section and record, until a row shows them
  const auto show = [&](const std::string& name, const std::string& text) {
    place.resize(2);
    visit({place[0], place[1], name, text});
    place.clear();
  };
  const auto showPlace = [&] {
    if (!place.empty()) show("", "");
  };
  std::string section;
  int record = 0;
  file.EnumTreeNode([&](pQXTreeNode node) {
    const auto* const pair = static_cast<pQXIniPair>(node->Data);
    if (node->Level == 3) return show(Text(pair->Name), Text(pair->Value));
    if (node->Level == 2) {
      if (record > 0) showPlace();
      place = {section, std::to_string(++record)};
    } else {
      showPlace();
      section = Text(pair->Value);
      record = 0;
      place = {section, ""};
    }
  });
  showPlace();
}

void List(const Options& options) {
  TQXIniFile file;
  Load(file, options.file);
  PrintRows({"Section", "Record", "Name", "Text"}, [&](const auto& visit) { ForEachRow(file, visit); });
}

ExitStatus Get(const Options& options) {
  TQXIniFile file;
  Load(file, options.file);
  return Ask([&] {
    OpenRecord(file, options);
    RequireValue(file, options);
    Print(file.GetValue(FromArgument(options.name)) + "\n");
  });
}

void Set(const Options& options) {
  TQXIniFile file;
  Load(file, options.file);
  OpenRecord(file, options);
  CheckValue(FromArgument(options.name), FromArgument(options.text));
  file.SetValue(FromArgument(options.name), FromArgument(options.text));
  Save(file, options);
}

/// Appends a record, in a new section and a new file where these are not there yet.
void Add(const Options& options) {
  TQXIniFile file;
  if (FileExists(options.file)) Load(file, options.file);
  CheckSection(FromArgument(options.section));
  file.SetRootKey(FromArgument(options.section));
  file.AppendKey();
  for (const std::string& argument : options.values) {
    const std::string pair = FromArgument(argument);
    const std::size_t equals = pair.find('=');
    if (equals == std::string::npos) throw Failure(Visible(argument) + ": not NAME=TEXT");
    CheckValue(pair.substr(0, equals), pair.substr(equals + 1));
    file.SetValue(pair.substr(0, equals), pair.substr(equals + 1));
  }
  Save(file, options);
}

void Delete(const Options& options) {
  TQXIniFile file;
  Load(file, options.file);
  if (options.record == 0) {
    WithSubject(options.file, [&] { file.DeleteRootKey(FromArgument(options.section)); });
  } else {
    const Integer number = OpenRecord(file, options);
    if (options.name.empty()) {
      file.DeleteKey(number);
    } else {
      RequireValue(file, options);
      file.DeleteValue(FromArgument(options.name));
    }
  }
  Save(file, options);
}

// --- What a save would lose ---------------------------------------------------------------------------

class Checker {
 public:
  explicit Checker(const std::function<void(const TextRow&)>& tell) : tell_(tell) {}

  void Line(std::string_view line) {
    ++number_;
    const IniLine parts = ReadIniLine(line);
    if (line.find('\0') != std::string_view::npos) Tell("what stands behind a NUL is lost");
    switch (parts.kind) {
      case IniLineKind::Blank:
        return;
      case IniLineKind::Section:
        return Section(std::string(parts.name));
      case IniLineKind::RecordBegin:
        if (sections_.empty()) Tell("a record before any section: loading ends here");
        inRecord_ = true;
        return;
      case IniLineKind::RecordEnd:
        inRecord_ = false;
        return;
      case IniLineKind::Value:
        return Value(parts);
      case IniLineKind::Other:
        return Tell("a comment, or a line without a colon, is lost");
    }
  }

 private:
  void Tell(const char* what) { tell_({std::to_string(number_), what}); }

  void Section(const std::string& name) {
    if (inRecord_) Tell("a section inside an open record: values up to its end stay with that record");
    if (!sections_.insert(UpperCase(name)).second)
      Tell("a section of the same name: its records move to the first");
  }

  void Value(const IniLine& parts) {
    if (parts.text.size() > kSectionMark.size() && UpperCase(parts.text).ends_with(UpperCase(kSectionMark)))
      Tell("a section's line with a second colon, or a blank behind it: read as a value");
    if (!inRecord_) return Tell("a value outside a record is lost");
    if (parts.name.empty() || parts.text.empty()) Tell("a value without a name or a text is lost");
  }

  int number_ = 0;
  bool inRecord_ = false;
  std::set<std::string> sections_;
  const std::function<void(const TextRow&)>& tell_;
};

ExitStatus Check(const Options& options) {
  const std::string text = ReadInput(options.file);
  const auto rows = [&](const std::function<void(const TextRow&)>& visit) {
    Checker checker(visit);
    ForEachLine(std::string_view(text), [&](std::string_view line) { checker.Line(line); });
  };
  bool found = false;
  rows([&](const TextRow&) { found = true; });
  if (!found) return kDone;
  PrintRows({"Line", "What a save changes"}, rows);
  return kFound;
}

}  // namespace

void AddIniCommand(Command program) {
  const auto options = std::make_shared<Options>();
  Command ini = program.Add("ini", "Look into a settings file and change it");
  ini.Text("FILE", options->file, "Settings file").Required();
  ini.Example("ini app.ini list");
  const auto place = [&](Command made) {
    made.Text("SECTION", options->section).Required();
    made.Number("RECORD", options->record, "Counted from 1").Required().Positive();
    made.Text("NAME", options->name).Required();
  };
  ini.Add("list", "Show sections, records and values", options, List).Example("ini app.ini list");
  place(ini.Add("get", "Print one text", options, Get).Example("ini app.ini get Main 1 Mode"));
  Command set = ini.Add("set", "Set one text in a record", options, Set);
  set.Example("ini app.ini set Main 1 Mode slow");
  place(set);
  set.Text("TEXT", options->text).Required();
  Command add = ini.Add("add", "Append a record to a section, which is made when it is new", options, Add);
  add.Example("ini app.ini add Main Mode=fast Path=/srv/data");
  add.Text("SECTION", options->section).Required();
  add.Texts("NAME=TEXT", options->values, "Its values");
  Command remove = ini.Add("delete", "Delete a section, a record or a value", options, Delete);
  remove.Example("ini app.ini delete Main 2");
  remove.Text("SECTION", options->section).Required();
  remove.Number("RECORD", options->record, "Counted from 1").Positive();
  remove.Text("NAME", options->name);
  ini.Add("check", "List what a save would lose or move; exit status 1 if there is something", options, Check)
      .Example("ini app.ini check");
}

}  // namespace qxtool
