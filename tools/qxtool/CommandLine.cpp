#include "CommandLine.h"

#include <limits>

#include "CommandHelp.h"
#include "TextIo.h"

namespace qxtool {

Option& Option::Required() {
  option_->required();
  return *this;
}

Option& Option::Placeholder(const std::string& text) {
  option_->type_name(text);
  return *this;
}

Option& Option::OneOf(const std::vector<std::string>& values) {
  option_->check(CLI::IsMember(values));
  RememberChoices(option_, values);
  return *this;
}

Option& Option::Suggests(const std::vector<std::string>& values) {
  RememberChoices(option_, values);
  return *this;
}

Option& Option::Between(int low, int high) {
  option_->check(CLI::Range(low, high));
  return *this;
}

Option& Option::Positive() {
  option_->check(CLI::Range(1, std::numeric_limits<int>::max(), "POSITIVE"));
  return *this;
}

Option& Option::NotEmpty() {
  const auto check = [](const std::string& text) { return text.empty() ? "is empty" : ""; };
  option_->check(CLI::Validator(check, ""));
  return *this;
}

Option& Option::Needs(const Option& other) {
  option_->needs(other.option_);
  return *this;
}

Option& Option::Excludes(const Option& other) {
  option_->excludes(other.option_);
  return *this;
}

Option& Option::ShowDefault() {
  option_->capture_default_str();
  return *this;
}

Command& Command::Example(const std::string& line) {
  app_->footer("Example:\n  qxtool " + line);
  return *this;
}

std::string Command::Name() const { return app_->get_name(); }

Command Command::Add(const std::string& name, const std::string& help) {
  app_->require_subcommand(1);
  app_->fallthrough();
  return Command(*app_->add_subcommand(name, help), *status_);
}

void Command::OnRun(const std::function<ExitStatus()>& run) {
  app_->callback([run, status = status_] { *status = run(); });
}

Option Command::Text(const std::string& names, std::string& value, const std::string& help) {
  CLI::Option* const option = app_->add_option(names, value, help);
  if (!names.starts_with('-')) option->type_name("");  // the name of an argument says what it is
  return Option(option);
}

Option Command::Number(const std::string& names, int& value, const std::string& help) {
  return Option(app_->add_option(names, value, help));
}

Option Command::Texts(const std::string& name, std::vector<std::string>& values, const std::string& help) {
  return Option(app_->add_option(name, values, help)->type_name(""));
}

Option Command::Repeated(const std::string& names, std::vector<std::string>& values,
                         const std::string& help) {
  return Option(app_->add_option(names, values, help)
                    ->expected(1)
                    ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll));
}

Option Command::Parsed(const std::string& name, const std::function<void(const std::string&)>& read,
                       const std::string& help) {
  const auto readOrMisuse = [name, read](const std::string& text) {
    try {
      read(text);
    } catch (const Failure& e) {
      throw CLI::ValidationError(name, e.what());
    }
  };
  return Option(app_->add_option_function<std::string>(name, readOrMisuse, help));
}

Option Command::Flag(const std::string& names, bool& value, const std::string& help) {
  return Option(app_->add_flag(names, value, help));
}

void Command::Switch(const std::string& names, const std::function<void()>& act, const std::string& help) {
  app_->add_flag_callback(names, act, help)->trigger_on_parse();
}

namespace {

void AddHelpCommand(CLI::App& program) {
  const auto words = std::make_shared<std::vector<std::string>>();
  CLI::App* const help = program.add_subcommand("help", "Show the options of a command");
  help->add_option("COMMAND", *words, "As in: help ini set")->type_name("");
  help->footer("Example:\n  qxtool help ini set");
  help->callback([&program, words] { PrintBytes(HelpOf(program, *words)); });
}

ExitStatus PrintCandidates(const CLI::App& program, const std::vector<std::string>& words) {
  for (const std::string& name : Candidates(program, {words.begin() + 1, words.end()}))
    PrintBytes(name + "\n");
  return kDone;
}

}  // namespace

ExitStatus RunCommandLine(const std::vector<std::string>& words, const std::string& description,
                          const std::string& version, const std::function<void(Command)>& addCommands) {
  CLI::App app(description, "qxtool");
  app.allow_windows_style_options(false);  // a word with a slash is a file on every system
  UseHelpFormat(app);
  ExitStatus status = kDone;
  addCommands(Command(app, status));
  AddHelpCommand(app);
  app.set_version_flag("--version", version, "Show the version");
  if (!words.empty() && words[0] == "--complete") return PrintCandidates(app, words);
  try {
    app.parse(std::vector<std::string>(words.rbegin(), words.rend()));
  } catch (const CLI::CallForHelp&) {
    PrintBytes(app.help());
  } catch (const CLI::CallForVersion&) {
    PrintBytes(version + "\n");
  } catch (const CLI::ParseError& e) {
    throw Failure(DescribeMisuse(app, e));
  }
  return status;
}

}  // namespace qxtool
