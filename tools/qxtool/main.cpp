#include <csignal>
#include <cstdio>
#include <exception>

#include "Commands.h"
#include "TextIo.h"

namespace {

void AddCommands(qxtool::Command program) {
  qxtool::Encoding& encoding = qxtool::GetEncoding();
  program.Switch(
      "--utf8",
      [&encoding] {
        encoding = {true, true};
      },
      "Files, arguments and output are UTF-8, not code page 950");
  program.Switch(
      "--utf8-terminal", [&encoding] { encoding.utf8Terminal = true; },
      "Arguments and output are UTF-8, files are code page 950");
  qxtool::AddCallCommand(program);
  qxtool::AddFillCommand(program);
  qxtool::AddConvertCommand(program);
  qxtool::AddDateCommand(program);
  qxtool::AddFileTypeCommand(program);
  qxtool::AddFrameCommand(program);
  qxtool::AddIniCommand(program);
  qxtool::AddKeyCommand(program);
  qxtool::AddStoreCommand(program);
  qxtool::AddTableCommand(program);
}

qxtool::ExitStatus Fail(const char* message) {
  std::fprintf(stderr, "qxtool: %s\n", message);
  return qxtool::kFailed;
}

int Run(int argc, char** argv) {
  const qxtool::ExitStatus status =
      qxtool::RunCommandLine(argc, argv, "Work with statements and files of qxTools applications",
                             "qxtool " QXTOOL_VERSION, AddCommands);
  qxtool::FlushOutput();
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  std::signal(SIGPIPE, SIG_IGN);  // a closed pipe is told as a failed write
  try {
    return Run(argc, argv);
  } catch (const std::exception& e) {
    return Fail(e.what());
  }
}
