// qxtool filetype: registers, shows and removes file types, and says what registering would do.
#include <qxTools/base/Ascii.h>
#include <qxTools/platform/Registry.h>
#include <qxTools/shell/QXRegFileType.h>

#include <filesystem>
#include <memory>

#include "Commands.h"
#include "PathOf.h"
#include "TextIo.h"
#include "TextTable.h"
#include "platform/System.h"

namespace qxtool {

namespace {

using namespace qxTools;
using namespace qxTools::QXRegFileType;

struct Options {
  std::string extension;
  std::string type;
  std::string program;
  std::string description;
  Integer icon = 0;
  bool json = false;
};

/// A path below the current folder would mean another file in another folder.
std::string AbsoluteName(const std::string& program) {
  std::filesystem::path path = PathOf(program);
  if (!path.has_parent_path()) return program;
  path = std::filesystem::absolute(path).lexically_normal().make_preferred();
  const std::u8string name = path.u8string();
  return std::string(name.begin(), name.end());
}

/// A program as the library takes it.
std::string ProgramOf(const std::string& argument) {
  const std::string program = AbsoluteName(argument);
  return ArgumentsAreText() ? FromArgument(program) : program;
}

/// Calls `take` with the arguments of a registration, as the library wants them.
template <class Take>
auto WithArguments(const Options& options, Take&& take) {
  if (!options.extension.starts_with('.'))
    throw Failure(Visible(options.extension) + ": an extension begins with a dot, as in .ord");
  // They share a key then, and the description would take the place of the type's name.
  if (SameText(options.extension, options.type))
    throw Failure(Visible(options.type) + ": a type needs another name than its extension");
  return take(FromArgument(options.extension), FromArgument(options.type), ProgramOf(options.program),
              FromArgument(options.description), options.icon);
}

void Register(const Options& options) {
  WithSubject(options.extension, [&] { WithArguments(options, RegFileType); });
  for (const TFileTypeValue& value : WithArguments(options, GetFileTypeValues))
    if (ReadClassesValue(value.Key) != value.Value)
      throw Failure(Visible(options.extension) + ": key " + Visible(value.Key) + " cannot be written");
  if (!IsAssociationPublished(GetFileType(FromArgument(options.type))))
    throw Failure(Visible(options.extension) + ": the desktop's files cannot be read or written");
}

TextRow RowOf(const std::string& extension) {
  const std::string name = ReadClassesValue("\\" + extension).value_or("");
  const FileAssociation type = GetFileType(name);
  return {extension, name, type.description, type.program, AssociationId(name)};
}

void Show(const Options& options) {
  const std::string wanted = FromArgument(options.extension);
  std::vector<TextRow> rows;
  if (wanted.empty())
    for (const std::string& extension : GetFileTypeExtensions()) rows.push_back(RowOf(extension));
  else if (ReadClassesValue("\\" + wanted))
    rows.push_back(RowOf(wanted));
  else
    throw Failure(Visible(options.extension) + ": not registered");
  PrintList({{"Extension", "Type", "Description", "Program", "MIME type"}, RowsOf(rows)}, options.json);
}

void Remove(const Options& options) {
  if (!ReadClassesValue("\\" + FromArgument(options.extension)))
    throw Failure(Visible(options.extension) + ": not registered");
  if (!UnregFileType(FromArgument(options.extension)))
    throw Failure(Visible(options.extension) + ": cannot be removed");
}

void PrintFile(const PlannedChange& file) {
  const bool isText = file.content->find('\0') == std::string::npos && file.content->ends_with('\n');
  PrintBytes("\n" + file.place + "\n");
  PrintBytes(isText ? *file.content : "(" + std::to_string(file.content->size()) + " bytes)\n");
}

void ShowPlan(const Options& options) {
  std::vector<TextRow> rows;
  for (const TFileTypeValue& value : WithArguments(options, GetFileTypeValues))
    rows.push_back({value.Key, value.Value});
  PrintList({{"Key", "Value"}, RowsOf(rows)}, false);
  for (const PlannedChange& file : PlannedChangesOf(WithArguments(options, PlanFileType)))
    if (file.content) PrintFile(file);
}

void AddRegistration(Command action, Options& options) {
  action.Example("filetype " + action.Name() + " .ord Orders.File /usr/bin/orders 'Order files'");
  action.Text("EXT", options.extension, "The extension, with its dot").Required();
  action.Text("TYPE", options.type, "The name of the file type").Required();
  action.Text("PROGRAM", options.program, "The program that opens the files").Required();
  action.Text("DESCRIPTION", options.description, "What the files are called");
  action.Number("--icon", options.icon, "The number of the icon").ShowDefault();
}

}  // namespace

void AddFileTypeCommand(Command program) {
  const auto options = std::make_shared<Options>();
  Command command = program.Add("filetype", "Register file types with the desktop");
  command.Example("filetype show .ord");
  AddRegistration(command.Add("register", "Open files of an extension with a program", options, Register),
                  *options);
  AddRegistration(command.Add("dry-run", "Show what registering would write", options, ShowPlan), *options);
  Command show = command.Add("show", "Show what is registered", options, Show);
  show.Example("filetype show .ord");
  show.Json(options->json);
  show.Text("EXT", options->extension, "One extension only");
  command.Add("remove", "Undo a registration", options, Remove)
      .Example("filetype remove .ord")
      .Text("EXT", options->extension, "The extension, with its dot")
      .Required();
}

}  // namespace qxtool
