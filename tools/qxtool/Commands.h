// The commands of qxtool. Each adds its subcommand, with its options, and runs when it is chosen.
#pragma once

#include "CommandLine.h"

namespace qxtool {

void AddCallCommand(Command program);
void AddFillCommand(Command program);
void AddCheckCommand(Command program);
void AddConvertCommand(Command program);
void AddDateCommand(Command program);
void AddFileTypeCommand(Command program);
void AddFrameCommand(Command program);
void AddIniCommand(Command program);
void AddKeyCommand(Command program);
void AddStoreCommand(Command program);
void AddTableCommand(Command program);

}  // namespace qxtool
