// What the command line says about itself: help, misuse, completion. All of it comes from the definitions of
// the commands.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace qxtool {

/// Sets how `app` and the commands that are added to it later show their help.
void UseHelpFormat(CLI::App& app);

/// Remembers the values that `option` takes, for the completion.
void RememberChoices(const CLI::Option* option, const std::vector<std::string>& values);

/// The help of the command that `words` name from the program on, as in "ini", "set".
/// @throws Failure for a word that is not a command.
std::string HelpOf(const CLI::App& program, const std::vector<std::string>& words);

/// What was wrong with a command line, in the words that the user wrote, and how the command is used.
std::string DescribeMisuse(const CLI::App& program, const CLI::ParseError& error);

/// What can follow at the end of a command line: the last word is the beginning of what is typed, and each
/// candidate begins with it. Empty where a file name or a free text is expected.
std::vector<std::string> Candidates(const CLI::App& program, std::vector<std::string> words);

}  // namespace qxtool
