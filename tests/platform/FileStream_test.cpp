#include <qxTools/platform/FileStream.h>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::test;

TEST(FileStream, FailuresNameTheFileAndTheReason) {
  const TemporaryFolder folder;
  const std::string name = folder.File("no/a");
#if defined(_WIN32)
  const std::string reason = "Path not found";  // the system's own, in the language of the tests' user
#else
  const std::string reason = "No such file or directory";
#endif
  const std::string rest = " file \"" + name + "\". " + reason;
  EXPECT_EQ(MessageOf([&] { TFileStream(name, fmOpenRead); }), "Cannot open" + rest);
  EXPECT_EQ(MessageOf([&] { TFileStream(name, fmCreate); }), "Cannot create" + rest);
  EXPECT_THROW(TFileStream(folder.Path(), fmOpenRead), EFOpenError);
  EXPECT_EQ(MessageOf([] { TFileStream("/dev/full", fmCreate).WriteBuffer("y", 1); }), "Stream write error");
}

TEST(FileStream, AWriterKeepsAllOthersOutAndReadersShare) {
  const TemporaryFolder folder;
  const std::string name = folder.Make("a", "old");
  {
    TFileStream reader(name, fmOpenRead);
    EXPECT_NO_THROW(TFileStream(name, fmOpenRead));
    EXPECT_THROW(TFileStream(name, fmOpenReadWrite), EFOpenError);
    EXPECT_THROW(TFileStream(name, fmCreate), EFCreateError);
    EXPECT_EQ(MessageOf([&] { reader.WriteBuffer("y", 1); }), "Stream write error");
  }
  {
    TFileStream writer(name, fmOpenWrite);
    EXPECT_THROW(TFileStream(name, fmOpenRead), EFOpenError);
    char byte;
    EXPECT_EQ(MessageOf([&] { writer.Read(&byte, 1); }), "Stream read error");
    writer.WriteBuffer("O", 1);
  }
  EXPECT_EQ(BytesOf(name), "Old");
  TFileStream(name, fmCreate).WriteBuffer("x", 1);
  EXPECT_EQ(BytesOf(name), "x");
}

}  // namespace
