#include <gtest/gtest.h>
#include <qxTools/platform/FileStream.h>
#include <qxTools/runtime/Exceptions.h>

#include "support/MessageOf.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace qxTools;
using test::BytesOf;
using test::MessageOf;

TEST(FileStream, FailuresNameTheFileAndTheReason) {
  const test::TemporaryFolder folder;
  const std::string missing = folder.File("no");
  const std::string nested = folder.File("no/a");
  EXPECT_EQ(MessageOf([&] { TFileStream(missing, fmOpenRead); }),
            "Cannot open file \"" + missing + "\". No such file or directory");
  EXPECT_EQ(MessageOf([&] { TFileStream(nested, fmCreate); }),
            "Cannot create file \"" + nested + "\". No such file or directory");
  EXPECT_THROW(TFileStream(folder.Path(), fmOpenRead), EFOpenError);
  EXPECT_THROW(TFileStream(folder.Path(), fmCreate), EFCreateError);
}

TEST(FileStream, AWriterKeepsAllOthersOutAndReadersShare) {
  const test::TemporaryFolder folder;
  const std::string name = folder.Make("a", "old");
  {
    const TFileStream reader(name, fmOpenRead);
    EXPECT_NO_THROW(TFileStream(name, fmOpenRead));
    EXPECT_THROW(TFileStream(name, fmOpenReadWrite), EFOpenError);
    EXPECT_THROW(TFileStream(name, fmCreate), EFCreateError);
    EXPECT_EQ(BytesOf(name), "old");
  }
  TFileStream writer(name, fmOpenWrite);
  EXPECT_THROW(TFileStream(name, fmOpenRead), EFOpenError);
  char byte;
  EXPECT_EQ(MessageOf([&] { writer.ReadBuffer(&byte, 1); }), "Stream read error");
  writer.WriteBuffer("O", 1);
  EXPECT_EQ(BytesOf(name), "Old");
}

TEST(FileStream, CreatingEmptiesTheOldFile) {
  const test::TemporaryFolder folder;
  const std::string name = folder.Make("a", "old");
  TFileStream(name, fmCreate).WriteBuffer("x", 1);
  EXPECT_EQ(BytesOf(name), "x");
  TFileStream reader(name, fmOpenRead);
  EXPECT_EQ(MessageOf([&] { reader.WriteBuffer("y", 1); }), "Stream write error");
  EXPECT_EQ(MessageOf([&] { TFileStream("/dev/full", fmCreate).WriteBuffer("y", 1); }), "Stream write error");
}

}  // namespace
