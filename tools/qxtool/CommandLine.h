// The command line: commands, their arguments and options. Only CommandLine.cpp and CommandHelp.cpp see the
// parser, because reading it takes longer than compiling a command.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "TextIo.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace qxtool {

/// The exit status of the program.
enum ExitStatus {
  kDone = 0,
  kFound = 1,     // a check has found something
  kNotThere = 1,  // what was asked for is not there
  kFailed = 2,    // misuse or failure
};

/// Runs the body of a command that asks for something.
/// @return kNotThere, with a message, if it is not there.
template <class Body>
ExitStatus Ask(Body&& body) {
  try {
    body();
    return kDone;
  } catch (const NotThere& e) {
    PrintError(e.what());
    return kNotThere;
  }
}

/// An argument or an option, to say more about it.
class Option {
 public:
  explicit Option(CLI::Option* option) : option_(option) {}

  Option& Required();
  /// What the help shows in the value's place.
  Option& Placeholder(const std::string& text);
  Option& OneOf(const std::vector<std::string>& values);
  /// Values for the completion; others are taken too.
  Option& Suggests(const std::vector<std::string>& values);
  Option& Between(int low, int high);
  Option& Positive();
  Option& NotEmpty();
  /// Misuse without the other, or with it.
  Option& Needs(const Option& other);
  Option& Excludes(const Option& other);
  /// The help shows the default value.
  Option& ShowDefault();

 private:
  CLI::Option* option_;
};

/// A command, or the program itself. Names that begin with "-" are options, others arguments in their order;
/// what is given to a name lives as long as the command.
class Command {
 public:
  Command(CLI::App& app, ExitStatus& status) : app_(&app), status_(&status) {}

  /// A command below this one. This one then needs one of them.
  Command Add(const std::string& name, const std::string& help);
  /// A command below this one, with the function that runs when it was chosen. The function returns an
  /// ExitStatus, or nothing for kDone.
  template <class Options, class Result>
  Command Add(const std::string& name, const std::string& help, const std::shared_ptr<Options>& options,
              Result (*run)(const Options&)) {
    Command added = Add(name, help);
    added.OnRun([options, run] {
      if constexpr (!std::is_void_v<Result>) return run(*options);
      run(*options);
      return kDone;
    });
    return added;
  }
  /// The end of the help: a command line, from behind the program's name on.
  Command& Example(const std::string& line);
  std::string Name() const;
  /// `run` is called when the command was chosen and its command line is read.
  void OnRun(const std::function<ExitStatus()>& run);

  Option Text(const std::string& names, std::string& value, const std::string& help = "");
  Option Number(const std::string& names, int& value, const std::string& help);
  /// All words that follow.
  Option Texts(const std::string& name, std::vector<std::string>& values, const std::string& help);
  /// An option with one value, which can be repeated.
  Option Repeated(const std::string& names, std::vector<std::string>& values, const std::string& help);
  /// A value that `read` takes apart; its Failure is a misuse of the option.
  Option Parsed(const std::string& name, const std::function<void(const std::string&)>& read,
                const std::string& help);
  Option Flag(const std::string& names, bool& value, const std::string& help);
  /// --json, which shows a list as JSON.
  Option Json(bool& value) { return Flag("--json", value, "Show the list as JSON, in UTF-8"); }
  /// A flag that acts where it is read, before the words that follow it.
  void Switch(const std::string& names, const std::function<void()>& act, const std::string& help);

 private:
  CLI::App* app_;
  ExitStatus* status_;
};

/// Reads the words behind the program's name, and runs the command that they name.
/// @throws Failure for misuse.
ExitStatus RunCommandLine(const std::vector<std::string>& words, const std::string& description,
                          const std::string& version, const std::function<void(Command)>& addCommands);

}  // namespace qxtool
