// Programs that are killed while they save: the file is the old one or the new one, whole.
#include <windows.h>
// After windows.h, whose macros they must survive.
#include <qxTools/platform/Files.h>

#include <cstdlib>
#include <filesystem>
#include <random>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::test;

constexpr wchar_t kFileVariable[] = L"QXTOOLS_KILLED_FILE";
constexpr wchar_t kSavedEvent[] = L"qxTools.KilledSaves";

const std::string& Contents(bool isOdd) {
  static const std::string contents[] = {std::string(300'000, 'a'), std::string(500'001, 'b')};
  return contents[isOdd];
}

bool IsWhole(const std::string& bytes) { return bytes == Contents(false) || bytes == Contents(true); }

void SaveUntilKilled(const std::filesystem::path& file) {
  const HANDLE saved = ::OpenEventW(EVENT_MODIFY_STATE, FALSE, kSavedEvent);
  for (bool isOdd = false;; isOdd = !isOdd) {
    SaveWholeFile(file.string(), Contents(isOdd));
    ::SetEvent(saved);
  }
}

/// A child comes no further than this.
[[maybe_unused]] const bool isParent = [] {
  const wchar_t* const file = _wgetenv(kFileVariable);
  if (file != nullptr) SaveUntilKilled(file);
  return file == nullptr;
}();

/// This program once more, as a child that saves until it is killed. It sets the event after its first save.
PROCESS_INFORMATION StartSaving() {
  wchar_t program[MAX_PATH];
  ::GetModuleFileNameW(nullptr, program, MAX_PATH);
  std::wstring command = L"\"" + std::wstring(program) + L"\"";
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;  // none: it says nothing
  PROCESS_INFORMATION process{};
  EXPECT_TRUE(::CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                               &startup, &process));
  return process;
}

void Kill(const PROCESS_INFORMATION& process) {
  ::TerminateProcess(process.hProcess, 1);
  ::WaitForSingleObject(process.hProcess, INFINITE);
  ::CloseHandle(process.hThread);
  ::CloseHandle(process.hProcess);
}

/// What a kill between two calls of the system leaves: an empty or a complete file with another name. Removes
/// it.
int RemoveLeftOver(const TemporaryFolder& folder) {
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
    if (entry.path().filename() == L"saved") continue;
    const std::string bytes = BytesOf(entry.path().string());
    EXPECT_TRUE(bytes.empty() || IsWhole(bytes)) << entry.path();
    std::filesystem::remove(entry.path());
    ++count;
  }
  return count;
}

int KillsWanted() {
  const char* const wanted = std::getenv("QXTOOLS_KILLS");
  return wanted != nullptr ? std::atoi(wanted) : 100;
}

TEST(KilledSaves, LeaveTheOldFileOrTheNewOne) {
  const TemporaryFolder folder;
  const std::string name = folder.File("saved");
  ::SetEnvironmentVariableW(kFileVariable, std::filesystem::path(name).c_str());
  const HANDLE saved = ::CreateEventW(nullptr, FALSE, FALSE, kSavedEvent);
  std::mt19937 random(1);
  int leftOver = 0;
  for (int kill = 0; kill < KillsWanted(); ++kill) {
    const PROCESS_INFORMATION process = StartSaving();
    EXPECT_EQ(::WaitForSingleObject(saved, 30'000), WAIT_OBJECT_0);
    ::Sleep(random() % 20);
    Kill(process);
    ASSERT_TRUE(IsWhole(ReadWholeFile(name))) << "kill " << kill;
    leftOver += RemoveLeftOver(folder);
  }
  RecordProperty("left_over", leftOver);
  ::CloseHandle(saved);
}

}  // namespace
