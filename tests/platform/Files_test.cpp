#include <fcntl.h>
#include <qxTools/platform/FileStream.h>
#include <qxTools/platform/Files.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
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
    {
      WholeFileWriter uncommitted(name);
      uncommitted.Write("without a commit");
      EXPECT_EQ(FilesIn(folder.Path()), links) << "what is not complete has no name";
    }
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

TEST(Files, OpeningNeverWaitsAndNoSizeIsBelieved) {
  const TemporaryFolder folder;
  const std::string pipe = folder.File("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(MessageOf([&] { ReadWholeFile(pipe); }), "Stream read error");
  EXPECT_THROW(SaveWholeFile(pipe, "nobody reads"), EFCreateError);
  const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
  EXPECT_NO_THROW(SaveWholeFile(pipe, ""));
  close(reader);
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  close(ends[1]);
  EXPECT_EQ(ReadWholeFile("/dev/fd/" + std::to_string(ends[0])), "");  // written and ended
  close(ends[0]);
  const int sparse = memfd_create("sparse", 0);
  ASSERT_EQ(ftruncate(sparse, std::numeric_limits<off_t>::max()), 0);
  EXPECT_THROW(ReadWholeFile("/proc/self/fd/" + std::to_string(sparse)), EFOpenError);
  close(sparse);
}

TEST(Files, ASaveKeepsExtendedAttributesAndNoOthers) {
  const TemporaryFolder folder;
  const std::string name = folder.Make("file", "old");
  if (setxattr(name.c_str(), "user.author", "me", 2, 0) != 0) return;  // a disk without attributes
  // An access list: user 1 may read as well.
  const std::string list(
      "\2\0\0\0\1\0\6\0\377\377\377\377\2\0\4\0\1\0\0\0\4\0\4\0\377\377\377\377"
      "\20\0\4\0\377\377\377\377\40\0\0\0\377\377\377\377",
      44);
  setxattr(name.c_str(), "system.posix_acl_access", list.data(), list.size(), 0);
  // What new files of the folder get is not the old file's.
  const std::string other = folder.Make("other", "old");
  setxattr(folder.Path().c_str(), "system.posix_acl_default", list.data(), list.size(), 0);
  SaveWholeFile(name, "new");
  SaveWholeFile(other, "new");
  char value[100];
  EXPECT_EQ(getxattr(name.c_str(), "user.author", value, sizeof value), 2);
  EXPECT_EQ(getxattr(name.c_str(), "system.posix_acl_access", value, sizeof value), 44);
  EXPECT_EQ(getxattr(other.c_str(), "system.posix_acl_access", value, sizeof value), -1);
  EXPECT_EQ(std::filesystem::hard_link_count(name), 1U);
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

}  // namespace
