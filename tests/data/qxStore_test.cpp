#include <qxTools/data/qxStore.h>
#include <qxTools/runtime/Exceptions.h>

#include <tuple>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::qxStore;
using namespace qxTools::test;

class ShortFlagStore : public TQXFileStore {
  TFileFlag GetFlag() const override { return "Q"; }
};

/// Writes its header last, and fails then if it is told to.
class HeaderLastStore : public TQXFileStore {
 public:
  void SaveToStream(TStream* stream) override {
    stream->WriteBuffer("? body", 6);
    stream->SetPosition(0);
    stream->WriteBuffer("H", 1);
    stream->Seek(1, soEnd);
    stream->WriteBuffer("!", 1);
    if (fails) stream->SetSize(2);
  }
  bool fails = false;
};

void Fill(TQXFileStore& store, const std::string& data, const std::string& comment) {
  store.GetStream()->WriteBuffer(data.data(), data.size());
  store.SetComment(comment);
}

std::string Saved(TQXFileStore& store) {
  TMemoryStream stream;
  store.SaveToStream(&stream);
  return std::string(stream.GetBytes());
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
  Fill(store, std::string(0x10203, 'd'), std::string(60, 'c'));
  EXPECT_EQ(Saved(store), File("QXF", "\3\2\1", 50, std::string(50, 'c'), std::string(0x10203, 'd')));
  EXPECT_EQ(store.GetStream()->GetPosition(), 0);
  ShortFlagStore other;
  EXPECT_EQ(Saved(other), File("Q", "", 0, "", ""));
  EXPECT_EQ(MessageOf([&] { store.SaveToStream(store.GetStream()); }), "Stream write error");
}

TEST(qxStore, LoadingBelievesNoSizeAndIsNoChange) {
  const char* const done = "(nothing thrown)";
  const char* const failed = "Stream read error";
  const std::string c50(50, 'c');
  const std::tuple<std::string, const char*, std::string, const char*> cases[] = {
      {File("QXF", "\3", 1, "xyz", "abcdef"), done, "x", "abc"},
      {File("QXF", "", 0, "rest", "abc"), done, "", ""},
      {File("QXF", "\1", 255, c50 + "12345", "a"), done, c50, "a"},
      {File("QX", "\3", 1, "x", "abc"), done, "old", "old data"},  // another flag changes nothing
      {File("QXF", "\4", 1, "x", "abc"), failed, "x", ""},
      {File("QXF", "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 1, "x", "abc"), failed, "x", ""},
      {File("QXF", "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F", 1, "x", "abc"), failed, "x", ""},
      {File("QXF", "", 1, "x", "").substr(0, 71), failed, "old", "old data"}};
  for (const auto& [file, message, comment, data] : cases) {
    TMemoryStream stream;
    stream.WriteBuffer(file.data(), file.size());
    stream.SetPosition(0);
    TQXFileStore store;
    Fill(store, "old data", "old");
    EXPECT_EQ(MessageOf([&] { store.LoadFromStream(&stream); }), message);
    EXPECT_EQ(store.GetComment(), comment);
    EXPECT_EQ(store.GetStream()->GetBytes(), data);
    EXPECT_FALSE(store.GetModified());
  }
}

TEST(qxStore, EqualsComparesClassAndWhatIsWritten) {
  TQXFileStore empty, full, otherComment;
  ShortFlagStore emptyOther, fullOther;
  Fill(full, "abc", "x");
  Fill(otherComment, "abc", "y");
  Fill(fullOther, "abc", "x");
  EXPECT_TRUE(empty.Equals(&emptyOther));  // on purpose: the class counts only where something is written
  for (TQXFileStore* other : std::initializer_list<TQXFileStore*>{nullptr, &empty, &otherComment, &fullOther})
    EXPECT_FALSE(full.Equals(other));
  EXPECT_EQ(MessageOf([&] { full.Assign(&empty); }), "Cannot assign a TQXFileStore to a TQXFileStore");
}

TEST(qxStore, EventsNameTheStoreAndPassProgressOn) {
  TQXFileStore store, other;
  std::string events;
  store.Changed(nullptr);  // without an event
  store.Progress(&other, psEnding, 255, true, {}, "no event yet");
  store.SetOnChange([&](TObject* sender) { events += sender == &store ? "change|" : "stranger|"; });
  store.SetOnProgress([&](TObject* sender, TProgressStage stage, std::uint8_t percent, bool redraw,
                          const TRect& r, const std::string& message) {
    EXPECT_TRUE(sender == &other && stage == psRunning && percent == 200 && redraw && r.Bottom == 4);
    events += message;
  });
  store.Changed(&other);
  store.SetModified(true);
  EXPECT_TRUE(store.GetModified());
  store.SetModified(false);
  store.SetComment("x");
  EXPECT_FALSE(store.GetModified());
  store.Progress(&other, psRunning, 200, true, {1, 2, 3, 4}, "half");
  store.SetOnChange([&](TObject*) {
    store.SetOnChange({});
    events += "|once";
  });
  store.Changed(nullptr);
  store.Changed(nullptr);
  EXPECT_EQ(events, "change|change|half|once");
}

TEST(qxStore, AComponentFileHoldsWhatDiffersFromTheAncestor) {
  TQXFileStore empty, full, twin;
  Fill(full, "abc", "x");
  Fill(twin, "abc", "x");
  TPersistent stranger;
  const std::tuple<TQXFileStore*, TPersistent*, bool> cases[] = {
      {&empty, nullptr, false}, {&full, nullptr, true},    {&full, &twin, false},
      {&empty, &full, true},    {&empty, &stranger, true}, {&empty, &empty, false}};
  for (const auto& [store, ancestor, written] : cases) {
    TMemoryStream file;
    TWriter(&file).WriteProperties(store, ancestor);
    EXPECT_EQ(file.GetBytes().starts_with("\4Data"), written);
    file.SetPosition(0);
    TQXFileStore loaded;
    TReader(&file).ReadProperties(&loaded);
    EXPECT_EQ(Saved(loaded), Saved(written ? *store : empty));
  }
}

TEST(qxStore, FilesAreSavedWholeOrNotAtAll) {
  const TemporaryFolder folder;
  const std::string name = folder.File("store");
  TQXFileStore store, loaded;
  Fill(store, "abc", "x");
  void* found = nullptr;
  ASSERT_EQ(store.QueryInterface(IStreamPersist::IID, &found), S_OK);
  store._Release();  // not counted
  store.SaveToFile(name);
  loaded.LoadFromFile(name);
  EXPECT_TRUE(loaded.Equals(&store));
  HeaderLastStore other;
  other.SaveToFile(name);
  other.fails = true;
  EXPECT_EQ(MessageOf([&] { other.SaveToFile(name); }), "Stream write error");
  EXPECT_EQ(BytesOf(name), std::string("H body\0!", 8));
  EXPECT_THROW(store.LoadFromFile(folder.File("no")), EFOpenError);
  EXPECT_THROW(store.SaveToFile(folder.File("no/a")), EFCreateError);
}

}  // namespace
