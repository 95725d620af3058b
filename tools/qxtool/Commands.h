// The commands of qxtool. Each adds its subcommand, with its options, and runs when it is chosen.
#pragma once

#include <CLI/CLI.hpp>

namespace qxtool {

void AddCallCommand(CLI::App& app);
void AddCommandCommand(CLI::App& app);
void AddConvertCommand(CLI::App& app);
void AddDateCommand(CLI::App& app);
void AddFileTypeCommand(CLI::App& app);
void AddFrameCommand(CLI::App& app);
void AddIniCommand(CLI::App& app);
void AddKeyCommand(CLI::App& app);
void AddStoreCommand(CLI::App& app);
void AddTableCommand(CLI::App& app);

}  // namespace qxtool
