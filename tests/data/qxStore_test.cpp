#include <gtest/gtest.h>
#include <qxTools/data/qxStore.h>
#include <qxTools/runtime/Exceptions.h>

#include "support/MessageOf.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace qxTools;
using namespace qxTools::qxStore;
using test::BytesOf;
using test::MessageOf;

/// A store whose files begin with something else.
class ShortFlagStore : public TQXFileStore {
 public:
  TFileFlag GetFlag() const override { return "Q"; }
};

/// A store that writes its header last.
class HeaderLastStore : public TQXFileStore {
 public:
  void SaveToStream(TStream* stream) override {
    stream->WriteBuffer("? body", 6);
    stream->SetPosition(0);
    stream->WriteBuffer("H", 1);
    stream->Seek(1, soEnd);
    stream->WriteBuffer("!", 1);
  }
};

/// A store that fails while it is being saved.
class FailingStore : public TQXFileStore {
 public:
  void SaveToStream(TStream* stream) override {
    stream->WriteBuffer("half", 4);
    stream->SetSize(2);
  }
};

void Fill(TQXFileStore& store, const std::string& data, const std::string& comment) {
  store.GetStream()->Clear();
  store.GetStream()->WriteBuffer(data.data(), data.size());
  store.SetComment(comment);
}

std::string Saved(TQXFileStore& store) {
  TMemoryStream stream;
  store.SaveToStream(&stream);
  return std::string(stream.GetBytes());
}

void Load(TQXFileStore& store, const std::string& bytes) {
  TMemoryStream stream;
  stream.WriteBuffer(bytes.data(), bytes.size());
  stream.SetPosition(0);
  store.LoadFromStream(&stream);
}

/// A whole file of the fixed layout, its lengths as given.
std::string File(const std::string& flag, const std::string& size, std::size_t commentLength,
                 const std::string& comment, const std::string& data) {
  std::string file = static_cast<char>(flag.size()) + flag;
  file.resize(8);
  file += size;
  file.resize(16);
  file += static_cast<char>(commentLength) + comment;
  file.resize(72);
  return file + data;
}

TEST(qxStore, AFileIsAHeaderOf72BytesAndTheData) {
  TQXFileStore store;
  Fill(store, "abc", "x");
  EXPECT_EQ(Saved(store), File("QXF", "\3", 1, "x", "abc"));
  EXPECT_EQ(store.GetStream()->GetPosition(), 0);
  Fill(store, std::string(0x10203, 'd'), std::string(60, 'c'));
  EXPECT_EQ(Saved(store), File("QXF", "\3\2\1", 50, std::string(50, 'c'), std::string(0x10203, 'd')));
  ShortFlagStore other;
  EXPECT_EQ(Saved(other), File("Q", "", 0, "", ""));
}

TEST(qxStore, LoadingTakesCommentAndDataAndIsNoChange) {
  struct {
    std::string file;
    std::string comment;
    const char* data;
  } const cases[] = {
      {File("QXF", "\3", 1, "xyz", "abcdef"), "x", "abc"},
      {File("QXF", "", 0, "rest", "abc"), "", ""},
      {File("QXF", "\1", 255, std::string(50, 'c') + "12345", "a"), std::string(50, 'c'), "a"},
      {File("ABC", "\3", 1, "x", "abc"), "old", "old data"},  // another flag changes nothing
      {File("QX", "\3", 1, "x", "abc"), "old", "old data"},
  };
  for (const auto& c : cases) {
    TQXFileStore store;
    Fill(store, "old data", "old");
    store.SetOnChange([](TObject*) { FAIL() << "loading is no change"; });
    Load(store, c.file);
    EXPECT_EQ(store.GetComment(), c.comment);
    EXPECT_EQ(store.GetStream()->GetBytes(), c.data);
    EXPECT_FALSE(store.GetModified());
  }
  ShortFlagStore other;
  Load(other, File("QXF", "\3", 0, "", "abc"));
  EXPECT_TRUE(other.GetEmpty());
  Load(other, File("Q", "\3", 0, "", "abc"));
  EXPECT_FALSE(other.GetEmpty());
}

TEST(qxStore, AFalseSizeRaisesAndLeavesTheStoreEmpty) {
  const std::string sizes[] = {"\4", "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F",
                               std::string("\0\0\0\0\0\1", 6)};
  for (const std::string& size : sizes) {
    TQXFileStore store;
    Fill(store, "old data", "old");
    EXPECT_EQ(MessageOf([&] { Load(store, File("QXF", size, 3, "new", "abc")); }), "Stream read error");
    EXPECT_TRUE(store.GetEmpty());
    EXPECT_EQ(store.GetComment(), "new");
  }
  TQXFileStore store;
  Fill(store, "old data", "old");
  EXPECT_EQ(MessageOf([&] { Load(store, std::string(71, 'x')); }), "Stream read error");
  EXPECT_EQ(store.GetComment(), "old");
}

TEST(qxStore, EqualsComparesClassAndWhatIsWritten) {
  TQXFileStore a;
  TQXFileStore b;
  ShortFlagStore other;
  EXPECT_FALSE(a.Equals(nullptr));
  EXPECT_TRUE(a.Equals(&b));
  EXPECT_TRUE(a.Equals(&other));  // both are empty
  Fill(a, "abc", "x");
  EXPECT_FALSE(a.Equals(&b));
  EXPECT_FALSE(b.Equals(&a));
  Fill(b, "abc", "x");
  Fill(other, "abc", "x");
  EXPECT_TRUE(a.Equals(&b));
  EXPECT_FALSE(a.Equals(&other));
  Fill(b, "abc", "y");
  EXPECT_FALSE(a.Equals(&b));
}

TEST(qxStore, EventsNameTheStoreAndPassProgressOn) {
  TQXFileStore store;
  store.Changed(nullptr);  // without an event
  TQXFileStore other;
  std::vector<TObject*> senders;
  store.SetOnChange([&](TObject* sender) { senders.push_back(sender); });
  store.Changed(&other);
  store.SetModified(true);
  EXPECT_TRUE(store.GetModified());
  store.SetModified(false);
  store.SetComment("x");
  EXPECT_FALSE(store.GetModified());
  EXPECT_EQ(senders, (std::vector<TObject*>{&store, &store}));

  const TRect whole{1, 2, 3, 4};
  store.Progress(&other, psEnding, 255, true, whole, "no event yet");
  int calls = 0;
  store.SetOnProgress([&](TObject* sender, TProgressStage stage, std::uint8_t percent, bool redraw,
                          const TRect& r, const std::string& message) {
    ++calls;
    EXPECT_EQ(sender, &other);
    EXPECT_EQ(stage, psRunning);
    EXPECT_EQ(percent, 255);
    EXPECT_TRUE(redraw);
    EXPECT_EQ(r, whole);
    EXPECT_EQ(message, "half");
  });
  store.Progress(&other, psRunning, 255, true, whole, "half");
  EXPECT_EQ(calls, 1);
}

TEST(qxStore, AComponentFileHoldsWhatDiffersFromTheAncestor) {
  TQXFileStore empty;
  TQXFileStore full;
  TQXFileStore twin;
  Fill(full, "abc", "x");
  Fill(twin, "abc", "x");
  TPersistent stranger;
  struct {
    TQXFileStore* store;
    TPersistent* ancestor;
    bool written;
  } const cases[] = {{&empty, nullptr, false}, {&full, nullptr, true}, {&full, &twin, false},
                     {&full, &empty, true},    {&empty, &full, true},  {&empty, &stranger, true},
                     {&full, &stranger, true}, {&empty, &empty, false}};
  for (const auto& c : cases) {
    TMemoryStream file;
    TWriter(&file).WriteProperties(c.store, c.ancestor);
    const std::string data = Saved(*c.store);
    const std::string size = std::string{static_cast<char>(data.size())} + std::string(7, '\0');
    EXPECT_EQ(file.GetBytes(), (c.written ? "\4Data" + size + data : "") + std::string(1, '\0'));
    file.SetPosition(0);
    TQXFileStore loaded;
    TReader(&file).ReadProperties(&loaded);
    EXPECT_TRUE(!c.written || Saved(loaded) == data);
  }
}

TEST(qxStore, FilesAreSavedWholeOrNotAtAll) {
  const test::TemporaryFolder folder;
  const std::string name = folder.File("store");
  TQXFileStore store;
  Fill(store, "abc", "x");
  store.SaveToFile(name);
  EXPECT_EQ(BytesOf(name), Saved(store));
  TQXFileStore loaded;
  loaded.LoadFromFile(name);
  EXPECT_TRUE(loaded.Equals(&store));
  HeaderLastStore().SaveToFile(name);
  EXPECT_EQ(BytesOf(name), std::string("H body\0!", 8));
  EXPECT_EQ(MessageOf([&] { FailingStore().SaveToFile(name); }), "Stream write error");
  EXPECT_EQ(BytesOf(name), std::string("H body\0!", 8));
  EXPECT_THROW(store.LoadFromFile(folder.File("no")), EFOpenError);
  EXPECT_THROW(store.SaveToFile(folder.File("no/a")), EFCreateError);
}

TEST(qxStore, AnswersToStreamPersistAndCannotBeAssigned) {
  TQXFileStore store;
  void* found = nullptr;
  ASSERT_EQ(store.QueryInterface(IStreamPersist::IID, &found), S_OK);
  EXPECT_EQ(found, static_cast<IStreamPersist*>(&store));
  EXPECT_EQ(store._Release(), -1);
  EXPECT_EQ(store.QueryInterface(GUID{}, &found), E_NOINTERFACE);
  EXPECT_EQ(MessageOf([&] { store.Assign(&store); }), "Cannot assign a TQXFileStore to a TQXFileStore");
}

}  // namespace
