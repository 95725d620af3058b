#include <exception>
#include <string>

#include "Commands.h"
#include "TextIo.h"
#include "platform/System.h"

namespace {

void AddCommands(qxtool::Command program) {
  qxtool::Encoding& encoding = qxtool::GetEncoding();
  program.Switch(
      "--utf8",
      [&encoding] {
        encoding = {true, true, true};
      },
      "Files, arguments and output are UTF-8, not code page 950");
  program.Switch(
      "--utf8-terminal",
      [&encoding] {
        encoding = {false, true, true};
      },
      "Arguments and output are UTF-8, files are code page 950");
  program.Switch(
      "--cp950-terminal",
      [&encoding] {
        encoding = {false, qxtool::ArgumentsAreText(), false};
      },
      "Arguments, output and files are code page 950, whatever the locale says");
  qxtool::AddCallCommand(program);
  qxtool::AddFillCommand(program);
  qxtool::AddCheckCommand(program);
  qxtool::AddConvertCommand(program);
  qxtool::AddDateCommand(program);
  qxtool::AddFileTypeCommand(program);
  qxtool::AddFrameCommand(program);
  qxtool::AddIniCommand(program);
  qxtool::AddKeyCommand(program);
  qxtool::AddStoreCommand(program);
  qxtool::AddTableCommand(program);
}

qxtool::ExitStatus Fail(const std::string& message) {
  qxtool::PrintError(message);
  return qxtool::kFailed;
}

int Run(const std::vector<std::string>& words) {
  qxtool::UseEncodingOfLocale();
  const qxtool::ExitStatus status = qxtool::RunCommandLine(
      words, "Work with statements and files of qxTools applications", "qxtool " QXTOOL_VERSION, AddCommands);
  qxtool::FlushOutput();
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  qxtool::PrepareStandardStreams();
  try {
    return Run(qxtool::Arguments(argc, argv));
  } catch (const qxtool::ClosedPipe&) {
    qxtool::EndByClosedPipe();
    return qxtool::kFailed;
  } catch (const qxtool::Failure& e) {
    return Fail(e.what());
  } catch (const std::exception& e) {
    return Fail(qxtool::Visible(e.what()));
  }
}
