#include <fcntl.h>
#include <qxTools/platform/Files.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::test;

std::size_t FilesIn(const std::string& folder) {
  return static_cast<std::size_t>(
      std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator()));
}

/// Runs `body` in a process of its own. @return its wait status.
template <class Body>
int InChild(Body&& body) {
  const pid_t child = fork();
  if (child == 0) {
    try {
      body();
    } catch (...) {
      _exit(1);
    }
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return status;
}

TEST(Files, ASaveReplacesTheFileAndKeepsItsModeAndItsLinks) {
  const TemporaryFolder folder;
  const std::string name = folder.Make("real", "old");
  chmod(name.c_str(), 0640);
  std::filesystem::create_symlink("real", folder.File("link"));
  SaveWholeFile(folder.File("link"), "new");
  EXPECT_EQ(BytesOf(name), "new");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.File("link")));
  struct stat info {};
  ASSERT_EQ(stat(name.c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 07777U, 0640U);
  std::filesystem::create_symlink("not yet", folder.File("dangling"));
  SaveWholeFile(folder.File("dangling"), "made");
  EXPECT_EQ(BytesOf(folder.File("not yet")), "made");
  EXPECT_EQ(FilesIn(folder.Path()), 4U);  // no temporary file is left
}

TEST(Files, ATargetThatARenameWouldChangeIsWrittenInPlace) {
  const TemporaryFolder folder;
  const std::string name = folder.Make("one", "a long old text");
  std::filesystem::create_hard_link(name, folder.File("two"));
  SaveWholeFile(name, "new");
  EXPECT_EQ(BytesOf(folder.File("two")), "new");
  SaveWholeFile("/dev/null", "nothing");
  EXPECT_FALSE(std::filesystem::is_regular_file("/dev/null"));
}

TEST(Files, AWriterGoesBackAndOverwritesAlsoInPlace) {
  const TemporaryFolder folder;
  const std::string name = folder.Make("one", "old");
  for (const int links : {1, 2}) {
    if (links == 2) std::filesystem::create_hard_link(name, folder.File("two"));
    WholeFileWriter writer(name);
    writer.Write("head body");
    writer.SetPosition(0);
    writer.Write("H");
    writer.SetPosition(10);
    writer.Write("!");
    writer.Commit();
    EXPECT_EQ(MessageOf([&] { writer.Commit(); }), "Stream write error") << "nothing is left to be saved";
    EXPECT_EQ(BytesOf(name), std::string("Head body\0!", 11)) << links;
  }
  { WholeFileWriter(folder.Make("three", "old")).Write("without a commit"); }
  EXPECT_EQ(BytesOf(folder.File("three")), "old");
  EXPECT_EQ(FilesIn(folder.Path()), 3U);
}

TEST(Files, LockedAndMissingFilesAreNamedWithTheReason) {
  const TemporaryFolder folder;
  const std::string name = folder.Make("file", "old");
  const int holder = open(name.c_str(), O_RDONLY);
  ASSERT_EQ(flock(holder, LOCK_EX), 0);
  EXPECT_EQ(MessageOf([&] { SaveWholeFile(name, "new"); }),
            "Cannot create file \"" + name + "\". Resource temporarily unavailable");
  EXPECT_THROW(ReadWholeFile(name), EFOpenError);
  close(holder);
  EXPECT_THROW(SaveWholeFile(name + std::string("\0b", 2), "new"), EFCreateError);
  EXPECT_EQ(BytesOf(name), "old");
  for (const std::string& bad : {folder.File("no/such/folder"), folder.Path()})
    EXPECT_THROW(SaveWholeFile(bad, ""), EFCreateError);
  for (const std::string& bad : {folder.Path(), std::string("a\0b", 3)})
    EXPECT_THROW(ReadWholeFile(bad), EFOpenError);
}

TEST(Files, AFullDiskLeavesTheOldFileWhole) {
  const TemporaryFolder folder;
  const std::string name = folder.Make("file", "old");
  const int status = InChild([&] {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{5000, 5000};
    setrlimit(RLIMIT_FSIZE, &limit);
    SaveWholeFile(name, std::string(100000, 'n'));
  });
  EXPECT_EQ(WEXITSTATUS(status), 1);
  EXPECT_EQ(BytesOf(name), "old");
  EXPECT_EQ(FilesIn(folder.Path()), 1U);
}

TEST(Files, AKilledSaveLeavesTheFileWholeOldOrWholeNew) {
  const TemporaryFolder folder;
  const std::string oldBytes(300000, 'o');
  const std::string newBytes(400000, 'n');
  const std::string name = folder.Make("file", oldBytes);
  for (int wait = 0; wait < 60; ++wait) {
    const pid_t child = fork();
    if (child == 0) {
      for (;;) {
        SaveWholeFile(name, newBytes);
        SaveWholeFile(name, oldBytes);
      }
    }
    usleep(static_cast<useconds_t>(200 + wait * 97));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    const std::string bytes = BytesOf(name);
    ASSERT_TRUE(bytes == oldBytes || bytes == newBytes)
        << "after " << wait << ": " << bytes.size() << " bytes";
  }
}

}  // namespace
