#include "CommandHelp.h"

#include <algorithm>
#include <map>
#include <numeric>

#include "TextIo.h"

namespace qxtool {

namespace {

std::vector<const CLI::Option*> Positionals(const CLI::App& app) {
  return app.get_options([](const CLI::Option* option) { return option->get_positional(); });
}

/// The words from the program to the command, each command behind the arguments of the one above it.
std::string PathOf(const CLI::App& app) {
  if (app.get_parent() == nullptr) return app.get_name();
  std::string path = PathOf(*app.get_parent());
  for (const CLI::Option* option : Positionals(*app.get_parent())) path += " " + option->get_name(true);
  return path + " " + app.get_name();
}

class HelpFormatter : public CLI::Formatter {
 public:
  HelpFormatter() {
    label("SUBCOMMAND", "COMMAND");
    label("REQUIRED", "");
  }
  std::string make_usage(const CLI::App* app, std::string) const override {
    return Formatter::make_usage(app, PathOf(*app));
  }
};

std::string UsageOf(const CLI::App& app) { return HelpFormatter().make_usage(&app, ""); }

/// The commands below `app` that are shown.
std::vector<std::string> CommandNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands({})) names.push_back(command->get_name());
  return names;
}

/// The long options of `app` and, as they may follow a command too, of those above it.
std::vector<std::string> OptionNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* at = &app; at != nullptr; at = at->get_parent())
    for (const CLI::Option* option : at->get_options())
      for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  return names;
}

const CLI::App* FindCommand(const CLI::App& app, const std::string& name) {
  const auto found =
      app.get_subcommands([&](const CLI::App* command) { return command->get_name() == name; });
  return found.empty() ? nullptr : found.front();
}

const CLI::Option* FindOption(const CLI::App& app, const std::string& name) {
  for (const CLI::App* at = &app; at != nullptr; at = at->get_parent())
    if (const CLI::Option* const option = at->get_option_no_throw(name)) return option;
  return nullptr;
}

// --- Misuse ------------------------------------------------------------------------------------------

/// How many letters have to be added, removed or changed to make `a` of `b`.
std::size_t EditDistance(const std::string& a, const std::string& b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t changed = diagonal + (a[i] == b[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
    }
  }
  return row.back();
}

/// "; did you mean NAME?" for the nearest name, if one is near.
std::string Suggestion(const std::string& word, const std::vector<std::string>& names) {
  const auto distance = [&](const std::string& name) {
    return name.starts_with(word) ? 1 : EditDistance(word, name);
  };
  const auto nearest = std::ranges::min_element(names, {}, distance);
  const bool isNear = nearest != names.end() && distance(*nearest) <= 1 + word.size() / 4;
  return isNear ? "; did you mean " + *nearest + "?" : "";
}

std::string UnknownCommand(const CLI::App& app, const std::string& word) {
  return "unknown command " + Visible(word) + Suggestion(word, CommandNames(app));
}

const CLI::App& ChosenCommand(const CLI::App& app) {
  const auto chosen = app.get_subcommands();
  return chosen.empty() ? app : ChosenCommand(*chosen.front());
}

/// For a command whose argument was forgotten, so that the name of a command below it was read in its place.
std::string ForgottenArgument(const CLI::App& command) {
  for (const CLI::Option* option : Positionals(command))
    for (const std::string& word : option->results())
      if (FindCommand(command, word) != nullptr)
        return word + " was read as " + option->get_name(true) + ", which comes first";
  return "";
}

/// The first word that nothing took says more than what is missing without it.
std::string Misuse(const CLI::App& program, const CLI::App& command, const CLI::ParseError& error) {
  const bool lacksCommand = command.get_require_subcommand_min() > 0;
  if (std::string hint = ForgottenArgument(command); lacksCommand && !hint.empty()) return hint;
  const std::vector<std::string> unknown = program.remaining(true);
  if (unknown.empty()) return Visible(error.what());
  const std::string& word = unknown.front();
  if (word.size() > 1 && word[0] == '-')
    return "unknown option " + Visible(word) + Suggestion(word, OptionNames(command));
  if (lacksCommand) return UnknownCommand(command, word);
  return "The following argument was not expected: " + Visible(word);
}

// --- Completion --------------------------------------------------------------------------------------

std::map<const CLI::Option*, std::vector<std::string>>& Choices() {
  static std::map<const CLI::Option*, std::vector<std::string>> choices;
  return choices;
}

std::vector<std::string> ChoicesOf(const CLI::Option* option) {
  const auto found = Choices().find(option);
  return found != Choices().end() ? found->second : std::vector<std::string>();
}

/// Where a command line has come to.
struct Place {
  const CLI::App* command;
  std::size_t arguments = 0;              // how many the command has got
  const CLI::Option* awaiting = nullptr;  // the option whose value comes next

  void Pass(const std::string& word) {
    if (awaiting != nullptr) {
      awaiting = nullptr;
    } else if (word.starts_with('-')) {
      const CLI::Option* const option = FindOption(*command, word);
      if (option != nullptr && option->get_expected_min() > 0) awaiting = option;
    } else if (const CLI::App* const chosen = FindCommand(*command, word); chosen != nullptr && IsFull()) {
      *this = {chosen};
    } else {
      ++arguments;
    }
  }

  bool IsFull() const { return arguments >= Positionals(*command).size(); }

  std::vector<std::string> Names(const std::string& begun) const {
    if (awaiting != nullptr) return ChoicesOf(awaiting);
    if (begun.starts_with('-')) return OptionNames(*command);
    return IsFull() ? CommandNames(*command) : ChoicesOf(Positionals(*command)[arguments]);
  }
};

}  // namespace

void UseHelpFormat(CLI::App& app) { app.formatter(std::make_shared<HelpFormatter>()); }

void RememberChoices(const CLI::Option* option, const std::vector<std::string>& values) {
  Choices()[option] = values;
}

std::string HelpOf(const CLI::App& program, const std::vector<std::string>& words) {
  const CLI::App* command = &program;
  for (const std::string& word : words) {
    const CLI::App* const found = FindCommand(*command, word);
    if (found == nullptr) throw Failure(UnknownCommand(*command, word));
    command = found;
  }
  return command->get_formatter()->make_help(command, "", CLI::AppFormatMode::Normal);
}

std::string DescribeMisuse(const CLI::App& program, const CLI::ParseError& error) {
  const CLI::App& command = ChosenCommand(program);
  return Misuse(program, command, error) + "\n" + UsageOf(command) + "Run with --help for more information.";
}

std::vector<std::string> Candidates(const CLI::App& program, std::vector<std::string> words) {
  if (words.empty()) words.emplace_back();
  const std::string begun = words.back();
  words.pop_back();
  Place place{&program};
  for (const std::string& word : words) place.Pass(word);
  std::vector<std::string> names = place.Names(begun);
  std::erase_if(names, [&](const std::string& name) { return !name.starts_with(begun); });
  return names;
}

}  // namespace qxtool
