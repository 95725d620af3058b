#include <csignal>
#include <cstdio>
#include <exception>

#include "Commands.h"
#include "Edge.h"

namespace {

constexpr int kDone = 0;
constexpr int kFound = 1;
constexpr int kFailed = 2;

void AddCommands(CLI::App& app) {
  qxtool::Encoding& encoding = qxtool::GetEncoding();
  app.add_flag_callback(
         "--utf8",
         [&encoding] {
           encoding = {true, true};
         },
         "Files, arguments and output are UTF-8, not code page 950")
      ->trigger_on_parse();
  app.add_flag_callback(
         "--utf8-terminal", [&encoding] { encoding.utf8Terminal = true; },
         "Arguments and output are UTF-8, files are code page 950")
      ->trigger_on_parse();
  app.set_version_flag("--version", "qxtool " QXTOOL_VERSION);
  app.require_subcommand(1);
  app.fallthrough();
  qxtool::AddCallCommand(app);
  qxtool::AddCommandCommand(app);
  qxtool::AddConvertCommand(app);
  qxtool::AddDateCommand(app);
  qxtool::AddFileTypeCommand(app);
  qxtool::AddFrameCommand(app);
  qxtool::AddIniCommand(app);
  qxtool::AddKeyCommand(app);
  qxtool::AddStoreCommand(app);
  qxtool::AddTableCommand(app);
}

int Fail(const char* message) {
  std::fprintf(stderr, "qxtool: %s\n", message);
  return kFailed;
}

int Run(int argc, char** argv) {
  CLI::App app("Work with statements and files of qxTools applications", "qxtool");
  AddCommands(app);
  try {
    app.parse(argc, argv);
    qxtool::FlushOutput();
    return qxtool::WasFound() ? kFound : kDone;
  } catch (const CLI::ParseError& e) {
    if (app.exit(e) != static_cast<int>(CLI::ExitCodes::Success)) return kFailed;
    qxtool::FlushOutput();
    return kDone;
  }
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
