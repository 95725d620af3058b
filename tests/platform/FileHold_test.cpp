#include <qxTools/platform/FileHold.h>
#include <qxTools/platform/Files.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::test;

constexpr std::int64_t kLong = 60000;

TEST(FileHold, ProcessesThatAddToOneFileLoseNothing) {
  const TemporaryFolder folder;
  const std::string name = folder.File("not yet there");
  constexpr int kProcesses = 4;
  constexpr std::size_t kAdds = 50;
  for (int i = 0; i < kProcesses; ++i)
    if (fork() == 0) {
      for (std::size_t added = 0; added < kAdds; ++added) {
        FileHold hold(name, IfMissing::kMake, kLong);
        hold.Save(hold.Read() + "x");
      }
      std::_Exit(0);
    }
  for (int i = 0; i < kProcesses; ++i) {
    int status = 1;
    wait(&status);
    EXPECT_EQ(status, 0);
  }
  EXPECT_EQ(BytesOf(name), std::string(kProcesses * kAdds, 'x'));
}

TEST(FileHold, NobodyElseHasTheFileMeanwhile) {
  const TemporaryFolder folder;
  std::filesystem::create_symlink(folder.Make("real", "old"), folder.File("link"));
  const std::string name = folder.File("link");
  {
    FileHold hold(name, IfMissing::kFail, 0);
    for (const char* const bytes : {"one", "two"}) {
      EXPECT_EQ(MessageOf([&] { FileHold(name, IfMissing::kFail, 20); }),
                "Cannot open file \"" + name + "\". Resource temporarily unavailable");
      EXPECT_THROW(ReadWholeFile(folder.File("real")), EFOpenError);
      EXPECT_THROW(SaveWholeFile(name, "new"), EFCreateError);
      hold.Save(bytes);
      EXPECT_EQ(hold.Read(), bytes);
    }
    WholeFileWriter(hold).Write("without a commit");
    EXPECT_EQ(hold.Read(), "two");
  }
  EXPECT_EQ(ReadWholeFile(folder.File("real")), "two");
}

TEST(FileHold, AMissingFileIsMadeAndRemovedIfNothingWasSaved) {
  const TemporaryFolder folder;
  const std::string name = folder.File("a");
  EXPECT_THROW(FileHold(name, IfMissing::kFail, 0), EFOpenError);
  EXPECT_THROW(FileHold(folder.File("no/a"), IfMissing::kMake, 0), EFCreateError);
  {
    const FileHold hold(name, IfMissing::kMake, 0);
    EXPECT_TRUE(hold.IsNew() && hold.Read().empty());
  }
  EXPECT_FALSE(FileExists(name));
  FileHold(name, IfMissing::kMake, 0).Save("");
  EXPECT_TRUE(FileExists(name));
  EXPECT_FALSE(FileHold(name, IfMissing::kMake, 0).IsNew());
  EXPECT_FALSE(CreateFileIfMissing(name));
  EXPECT_THROW(FileHold("/dev/null", IfMissing::kMake, 0), EFOpenError);
}

TEST(FileHold, AFileThatAppearsDuringASaveIsNotLost) {
  const TemporaryFolder folder;
  const std::string name = folder.File("a");
  WholeFileWriter writer(name);
  writer.Write("late");
  FileHold hold(name, IfMissing::kMake, 0);
  EXPECT_THROW(writer.Commit(), EFCreateError);
  hold.Save("first");
  EXPECT_EQ(hold.Read(), "first");
}

}  // namespace
