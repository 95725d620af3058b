// The file store and the component file around it: any bytes load or raise what is stated, and what was
// loaded is written with its header in order.
#include <qxTools/data/qxStore.h>

#include "Target.h"

namespace {

using namespace qxTools;
using qxStore::TQXFileStore;

constexpr std::size_t kHeaderSize = 72;

std::uint8_t ByteAt(const std::string& bytes, std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); }

std::int64_t SizeIn(const std::string& bytes) {
  fuzz::Input size(std::string_view(bytes).substr(8));
  return size.Number<std::int64_t>();
}

void Fill(TMemoryStream& stream, const std::string& bytes) {
  stream.WriteBuffer(bytes.data(), bytes.size());
  stream.SetPosition(0);
}

std::string Saved(TQXFileStore& store) {
  TMemoryStream stream;
  store.SaveToStream(&stream);
  return std::string(stream.GetBytes());
}

void CheckStream(const std::string& bytes) {
  TMemoryStream stream;
  Fill(stream, bytes);
  TQXFileStore store;
  store.SetComment("old");
  store.GetStream()->WriteBuffer("old", 3);
  const std::string old = Saved(store);
  std::string error;
  const bool loaded = fuzz::Completes([&] { store.LoadFromStream(&stream); }, &error);
  if (bytes.size() < kHeaderSize) return FUZZ_CHECK(!loaded && Saved(store) == old);
  if (!bytes.starts_with("\3QXF"))
    return FUZZ_CHECK(loaded && Saved(store) == old && stream.GetPosition() == 72);

  const std::int64_t size = SizeIn(bytes);
  const std::string comment = bytes.substr(17, std::min<std::size_t>(ByteAt(bytes, 16), 50));
  const bool whole = size >= 0 && size <= static_cast<std::int64_t>(bytes.size() - kHeaderSize);
  FUZZ_CHECK(loaded == whole && store.GetComment() == comment);
  FUZZ_CHECK(loaded || (error == "Stream read error" && store.GetEmpty()));
  if (!loaded) return;
  std::string expected = bytes.substr(0, kHeaderSize + static_cast<std::size_t>(size));
  std::fill(expected.begin() + 4, expected.begin() + 8, '\0');
  expected[16] = static_cast<char>(comment.size());
  std::fill(expected.begin() + 17 + static_cast<std::ptrdiff_t>(comment.size()), expected.begin() + 72, '\0');
  FUZZ_CHECK(Saved(store) == expected);
}

void CheckComponentFile(const std::string& bytes) {
  TMemoryStream stream;
  Fill(stream, bytes);
  TQXFileStore store;
  std::string error;
  const bool read = fuzz::Completes([&] { TReader(&stream).ReadProperties(&store); }, &error);
  FUZZ_CHECK(read || error == "Stream read error" || error.starts_with("Property "));
  TMemoryStream written;
  TWriter(&written).WriteProperties(&store);
  written.SetPosition(0);
  TQXFileStore again;
  TReader(&written).ReadProperties(&again);
  FUZZ_CHECK(store.Equals(&again) && written.GetPosition() == written.GetSize());
}

}  // namespace

FUZZ_TARGET(FileStore) {
  const bool component = input.Bit();
  const std::string bytes = input.Rest();
  if (component)
    CheckComponentFile(bytes);
  else
    CheckStream(bytes);
}
