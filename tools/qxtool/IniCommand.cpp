// qxtool ini: look into a settings file and change it.
#include <qxTools/stores/qxIniTools.h>

#include <functional>
#include <memory>
#include <utility>

#include "Commands.h"
#include "IniCheck.h"
#include "TextIo.h"
#include "TextTable.h"
#include "WindowsIni.h"
#include "check/SettingsLosses.h"

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
  std::string windowsFile;
  bool force = false;
  bool json = false;
};

std::string Text(const char* text) { return text != nullptr ? text : ""; }

void LoadText(TQXIniFile& file, const std::string& fileName, const std::string& text) {
  try {
    file.SetText(text);
  } catch (const EIniLoadError& e) {
    throw Failure(Visible(fileName) + ": line " + std::to_string(e.GetLine()) + ": " + e.what());
  }
}

void Load(TQXIniFile& file, const Options& options) { LoadText(file, options.file, ReadInput(options.file)); }

/// Loads a file that is going to be saved. @throws Failure if that would lose something, unless it is forced.
void LoadToChange(TQXIniFile& file, const HeldText& held, const Options& options) {
  const auto refuse = [&](const check::SettingsLoss& loss) {
    throw Failure(Visible(options.file) + ": line " + std::to_string(loss.line) + ": " + loss.what +
                  "; nothing was changed (--force saves all the same)");
  };
  const std::string text = held.Read();
  if (!options.force) check::ForEachLoss(text, refuse);
  LoadText(file, options.file, text);
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

void Require(const std::string& fault) {
  if (!fault.empty()) throw Failure(fault);
}

// --- Actions -----------------------------------------------------------------------------------------

/// A row for each value; a section without records and a record without values have a row of their own.
void ForEachRow(const TQXIniFile& file, const std::function<void(const TextRow&)>& visit) {
  std::string section;
  int record = 0;
  TextRow alone;  // the row of a section or a record, until it is known to have others
  const auto showAlone = [&] {
    if (!alone.empty()) visit(std::exchange(alone, {}));
  };
  file.EnumTreeNode([&](pQXTreeNode node) {
    const auto* const pair = static_cast<pQXIniPair>(node->Data);
    if (node->Level == 3) {
      alone.clear();
      return visit({section, std::to_string(record), Text(pair->Name), Text(pair->Value)});
    }
    if (node->Level == 1 || record > 0) showAlone();
    if (node->Level == 1) section = Text(pair->Value);
    record = node->Level == 1 ? 0 : record + 1;
    alone = {section, record > 0 ? std::to_string(record) : "", "", ""};
  });
  showAlone();
}

/// The rows for people: section and record are shown in the first row of a record.
TextRows WithoutRepeats(const TextRows& rows) {
  return [rows](const auto& visit) {
    TextRow place;
    rows([&](TextRow row) {
      const TextRow rowPlace = {row[0], row[1]};
      if (rowPlace == place) row[0] = row[1] = "";
      place = rowPlace;
      visit(row);
    });
  };
}

void List(const Options& options) {
  TQXIniFile file;
  Load(file, options);
  const TextRows rows = [&](const auto& visit) { ForEachRow(file, visit); };
  PrintList({{"Section", "Record", "Name", "Text"}, options.json ? rows : WithoutRepeats(rows), {1}},
            options.json);
}

ExitStatus Get(const Options& options) {
  TQXIniFile file;
  Load(file, options);
  return Ask([&] {
    OpenRecord(file, options);
    RequireValue(file, options);
    Print(file.GetValue(FromArgument(options.name)) + "\n");
  });
}

void Set(const Options& options) {
  HeldText held(options.file, IfMissing::kFail);
  TQXIniFile file;
  LoadToChange(file, held, options);
  OpenRecord(file, options);
  Require(ValueFault(FromArgument(options.name), FromArgument(options.text)));
  file.SetValue(FromArgument(options.name), FromArgument(options.text));
  held.Save(file.GetText());
}

/// Appends a record, in a new section and a new file where these are not there yet.
void Add(const Options& options) {
  HeldText held(options.file, IfMissing::kMake);
  TQXIniFile file;
  if (!held.IsNew()) LoadToChange(file, held, options);
  Require(SectionFault(FromArgument(options.section)));
  file.SetRootKey(FromArgument(options.section));
  file.AppendKey();
  for (const std::string& argument : options.values) {
    const std::string pair = FromArgument(argument);
    const std::size_t equals = pair.find('=');
    if (equals == std::string::npos) throw Failure(Visible(argument) + ": not NAME=TEXT");
    Require(ValueFault(pair.substr(0, equals), pair.substr(equals + 1)));
    file.SetValue(pair.substr(0, equals), pair.substr(equals + 1));
  }
  held.Save(file.GetText());
}

void Delete(const Options& options) {
  HeldText held(options.file, IfMissing::kFail);
  TQXIniFile file;
  LoadToChange(file, held, options);
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
  held.Save(file.GetText());
}

ExitStatus Check(const Options& options) {
  const std::string text = ReadInput(options.file);
  bool found = false;
  check::ForEachLoss(text, [&](const check::SettingsLoss&) { found = true; });
  const auto rows = [&](const auto& visit) {
    check::ForEachLoss(text, [&](const check::SettingsLoss& loss) {
      visit({std::to_string(loss.line), loss.what});
    });
  };
  if (found || options.json) PrintList({{"Line", "What a save changes"}, rows, {0}}, options.json);
  return found ? kFound : kDone;
}

// --- Windows INI files ---------------------------------------------------------------------------------

/// Reports to standard error, as FILE:PLACE: WHAT has no place here, and remembers whether there was any.
class NoPlaceReport {
 public:
  explicit NoPlaceReport(const std::string& fileName) : fileName_(fileName) {}
  void Add(const std::string& place, const std::string& what) {
    PrintReport(Visible(fileName_) + ":" + VisibleText(place) + ": no place for this: " + what);
    status_ = kFound;
  }
  ExitStatus Status() const { return status_; }

 private:
  const std::string& fileName_;
  ExitStatus status_ = kDone;
};

ExitStatus Import(const Options& options) {
  const std::string text = ReadInput(options.windowsFile);
  if (text.starts_with("\xFF\xFE"))
    throw Failure(Visible(options.windowsFile) + ": this is UTF-16; save it in another encoding first");
  NoPlaceReport report(options.windowsFile);
  const std::string settings = SettingsFromWindowsIni(
      text, [&](int line, const std::string& what) { report.Add(std::to_string(line), what); });
  SaveText(options.file, settings);
  return report.Status();
}

ExitStatus Export(const Options& options) {
  const std::string text = ReadInput(options.file);
  NoPlaceReport report(options.file);
  const auto add = [&](const std::string& place, const std::string& what) { report.Add(" " + place, what); };
  const std::string ini = WithSubject(options.file, [&] { return WindowsIniFromSettings(text, add); });
  if (options.windowsFile.empty())
    Print(ini);
  else
    SaveText(options.windowsFile, ini);
  return report.Status();
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
  const auto force = [&](Command made) {
    made.Flag("--force", options->force, "Save although lines of the file are lost");
  };
  Command list = ini.Add("list", "Show sections, records and values", options, List);
  list.Example("ini app.ini list");
  list.Json(options->json);
  place(ini.Add("get", "Print one text", options, Get).Example("ini app.ini get Main 1 Mode"));
  Command set = ini.Add("set", "Set one text in a record", options, Set);
  force(set);
  set.Example("ini app.ini set Main 1 Mode slow");
  place(set);
  set.Text("TEXT", options->text).Required();
  Command add = ini.Add("add", "Append a record to a section, which is made when it is new", options, Add);
  force(add);
  add.Example("ini app.ini add Main Mode=fast Path=/srv/data");
  add.Text("SECTION", options->section).Required();
  add.Texts("NAME=TEXT", options->values, "Its values");
  Command remove = ini.Add("delete", "Delete a section, a record or a value", options, Delete);
  force(remove);
  remove.Example("ini app.ini delete Main 2");
  remove.Text("SECTION", options->section).Required();
  remove.Number("RECORD", options->record, "Counted from 1").Positive();
  remove.Text("NAME", options->name);
  Command check = ini.Add("check", "List what a save would lose or move; exit status 1 if there is something",
                          options, Check);
  check.Example("ini app.ini check");
  check.Json(options->json);
  ini.Add("import", "Make the file anew from a Windows INI file; exit status 1 if a line has no place",
          options, Import)
      .Example("ini app.ini import windows.ini")
      .Text("INI", options->windowsFile, "Windows INI file; - is standard input")
      .Required();
  ini.Add("export", "Write a Windows INI file; exit status 1 if something has no place", options, Export)
      .Example("ini app.ini export windows.ini")
      .Text("INI", options->windowsFile, "File to be written; without it, standard output");
}

}  // namespace qxtool
