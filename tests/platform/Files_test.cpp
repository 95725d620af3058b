#include <qxTools/platform/FileStream.h>
#include <qxTools/platform/Files.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::test;

auto FilesIn(const std::string& folder) {
  return std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator());
}

TEST(Files, ASaveReplacesTheFileAndKeepsItsModeAndItsLinks) {
  const TemporaryFolder folder;
  const std::string name = folder.Make("real", "old");
  std::filesystem::permissions(name, std::filesystem::perms(0640));
  std::filesystem::create_symlink("real", folder.File("link"));
  SaveWholeFile(folder.File("link"), "new");
  EXPECT_EQ(BytesOf(name), "new");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.File("link")));
  EXPECT_EQ(std::filesystem::status(name).permissions(), std::filesystem::perms(0640));
  std::filesystem::create_symlink("not yet", folder.File("dangling"));
  SaveWholeFile(folder.File("dangling"), "made");
  EXPECT_EQ(BytesOf(folder.File("not yet")), "made");
  EXPECT_EQ(FilesIn(folder.Path()), 4);  // no temporary file is left
}

TEST(Files, AWriterGoesBackAndOverwritesAlsoInPlace) {
  const TemporaryFolder folder;
  for (const auto links : {1U, 2U}) {
    const std::string name = folder.Make("one", "a long old text");
    if (links == 2) std::filesystem::create_hard_link(name, folder.File("two"));
    WholeFileWriter writer(name);
    writer.Write("head body");
    writer.SetPosition(0);
    writer.Write("H");
    writer.SetPosition(10);
    writer.Write("!");
    writer.Commit();
    EXPECT_EQ(MessageOf([&] { writer.Commit(); }), "Stream write error") << "nothing is left to be saved";
    { WholeFileWriter(name).Write("without a commit"); }
    EXPECT_EQ(BytesOf(name), std::string("Head body\0!", 11));
    EXPECT_EQ(std::filesystem::hard_link_count(name), links);  // a rename would part the names
  }
  EXPECT_EQ(FilesIn(folder.Path()), 2);
  SaveWholeFile("/dev/null", "nothing");
  EXPECT_FALSE(std::filesystem::is_regular_file("/dev/null"));
}

TEST(Files, LockedAndMissingFilesAreNamedWithTheReason) {
  const TemporaryFolder folder;
  const std::string name = folder.Make("file", "old");
  {
    const TFileStream holder(name, fmOpenReadWrite);
    EXPECT_EQ(MessageOf([&] { SaveWholeFile(name, "new"); }),
              "Cannot create file \"" + name + "\". Resource temporarily unavailable");
    EXPECT_THROW(ReadWholeFile(name), EFOpenError);
  }
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
  const auto saveOnALittleDisk = [&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{5000, 5000};
    setrlimit(RLIMIT_FSIZE, &limit);
    std::_Exit(MessageOf([&] { SaveWholeFile(name, std::string(100000, 'n')); }) == "Stream write error" ? 0
                                                                                                         : 1);
  };
  EXPECT_EXIT(saveOnALittleDisk(), testing::ExitedWithCode(0), "");
  EXPECT_EQ(BytesOf(name), "old");
  EXPECT_EQ(FilesIn(folder.Path()), 1);
}

TEST(Files, AKilledSaveLeavesTheFileWholeOldOrWholeNew) {
  const TemporaryFolder folder;
  const std::string oldBytes(300000, 'o');
  const std::string newBytes(400000, 'n');
  const std::string name = folder.Make("file", oldBytes);
  for (unsigned wait = 200; wait < 6000; wait += 97) {
    const pid_t child = fork();
    while (child == 0) {
      SaveWholeFile(name, newBytes);
      SaveWholeFile(name, oldBytes);
    }
    ASSERT_GT(child, 0);
    usleep(wait);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    const std::string bytes = BytesOf(name);
    ASSERT_TRUE(bytes == oldBytes || bytes == newBytes)
        << "after " << wait << ": " << bytes.size() << " bytes";
  }
}

}  // namespace
