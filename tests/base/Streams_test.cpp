#include <qxTools/platform/FileStream.h>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::test;

constexpr std::int64_t kFarthest = std::numeric_limits<std::int64_t>::max();

void Write(TStream& stream, const std::string& bytes) { stream.WriteBuffer(bytes.data(), bytes.size()); }

std::string Read(TStream& stream, std::size_t count) {
  std::string bytes(count, '?');
  bytes.resize(stream.Read(bytes.data(), count));
  return bytes;
}

void ReadsWritesAndSeeks(TStream& stream) {
  Write(stream, "hello");
  EXPECT_EQ(stream.Seek(-4, soEnd), 1);
  EXPECT_EQ(Read(stream, 2), "el");
  EXPECT_EQ(stream.Seek(1, soCurrent), 4);
  EXPECT_EQ(Read(stream, 9), "o");
  EXPECT_EQ(stream.Seek(std::numeric_limits<std::int64_t>::min(), soCurrent), 0);
  Write(stream, "J");
  stream.SetSize(3);
  stream.SetPosition(7);
  EXPECT_EQ(Read(stream, 1), "");
  EXPECT_EQ(stream.GetSize(), 3);
  Write(stream, "!");
  stream.SetPosition(0);
  EXPECT_EQ(Read(stream, 9), std::string("Jel\0\0\0\0!", 8));
  stream.SetSize(3);
  EXPECT_EQ(stream.GetPosition(), 3);
  stream.SetSize(5);
  EXPECT_EQ(Read(stream, 9), std::string("\0\0", 2));
  for (const std::int64_t size : {std::int64_t{-1}, kFarthest})
    EXPECT_EQ(MessageOf([&] { stream.SetSize(size); }), "Stream write error");
  stream.SetPosition(4);
  char two[2];
  EXPECT_EQ(MessageOf([&] { stream.ReadBuffer(two, 2); }), "Stream read error");
}

TEST(Streams, MemoryAndFileReadWriteAndSeekAlike) {
  TMemoryStream memory, other;
  ReadsWritesAndSeeks(memory);
  for (const std::int64_t place : {kFarthest - 9, kFarthest}) {
    memory.SetPosition(place);
    EXPECT_EQ(MessageOf([&] { Write(memory, "d"); }), "Stream write error");
    EXPECT_EQ(MessageOf([&] { memory.CopyFrom(other, 1); }), "Stream write error");
  }
  EXPECT_EQ(memory.GetSize(), 5);
  const TemporaryFolder folder;
  TFileStream file(folder.File("a"), fmCreate);
  ReadsWritesAndSeeks(file);
}

TEST(Streams, CopyFromTakesWhatIsAnnouncedOrRaises) {
  const TemporaryFolder folder;
  const std::string bytes(3 << 20, 'x');
  TMemoryStream source;
  Write(source, bytes + "tail");
  source.SetPosition(0);
  TFileStream file(folder.File("a"), fmCreate);
  file.CopyFrom(source, 3 << 20);
  EXPECT_EQ(Read(source, 9), "tail");
  file.SetPosition(0);
  TMemoryStream target;
  target.SetPosition(2);
  target.CopyFrom(file, 3 << 20);
  EXPECT_EQ(target.GetBytes(), std::string(2, '\0') + bytes);
  for (const std::int64_t count : {std::int64_t{1}, std::int64_t{-1}, kFarthest}) {
    EXPECT_EQ(MessageOf([&] { target.CopyFrom(file, count); }), "Stream read error") << count;
    EXPECT_EQ(MessageOf([&] { file.CopyFrom(source, count); }), "Stream read error") << count;
  }
  target.CopyFrom(file, 0);
  EXPECT_EQ(target.GetPosition(), target.GetSize());
}

}  // namespace
