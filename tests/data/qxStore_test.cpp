#include <qxTools/data/qxStore.h>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::qxStore;
using namespace qxTools::test;

class ShortFlagStore : public TQXFileStore {
  TFileFlag GetFlag() const override { return "Q"; }
};

class SameFlagStore : public TQXFileStore {};

/// Writes its header last, of what it reads back, and fails then if it has a comment.
class HeaderLastStore : public TQXFileStore {
  void SaveToStream(TStream* stream) override {
    stream->WriteBuffer("? body and more", 15);
    stream->SetSize(6);
    stream->SetPosition(2);
    char first = 0;
    stream->ReadBuffer(&first, 1);
    stream->SetPosition(0);
    stream->WriteBuffer(&first, 1);
    stream->Seek(1, soEnd);
    stream->WriteBuffer("!", 1);
    if (!GetComment().empty()) stream->ReadBuffer(&first, 1);
  }
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

TEST(qxStore, AFileIsAHeaderOf72BytesAndTheData) {
  const std::string data(0x10203, 'd');
  TQXFileStore store;
  Fill(store, data, std::string(60, 'c'));
  const std::string header("\3QXF\0\0\0\0\3\2\1\0\0\0\0\0\62", 17);
  EXPECT_EQ(Saved(store), header + std::string(50, 'c') + std::string(5, '\0') + data);
  EXPECT_EQ(store.GetStream()->GetPosition(), 0);
  ShortFlagStore other;
  EXPECT_EQ(Saved(other), std::string("\1Q").append(70, '\0'));
  EXPECT_EQ(MessageOf([&] { store.SaveToStream(store.GetStream()); }), "Stream write error");
}

TEST(qxStore, EqualsComparesClassAndWhatIsWritten) {
  TQXFileStore empty, full, otherComment;
  SameFlagStore emptyOther, fullOther;
  Fill(full, "abc", "x");
  Fill(otherComment, "abc", "y");
  Fill(fullOther, "abc", "x");
  EXPECT_TRUE(empty.Equals(&emptyOther));  // on purpose: the class counts only where something is written
  for (TQXFileStore* other : std::initializer_list<TQXFileStore*>{nullptr, &empty, &otherComment, &fullOther})
    EXPECT_FALSE(full.Equals(other));
}

TEST(qxStore, EventsNameTheStoreAndPassProgressOn) {
  TQXFileStore store, other;
  std::string events;
  store.Changed(nullptr);  // without an event
  store.Progress(&other, psEnding, 255, true, {}, "no event yet");
  store.SetOnProgress([&](TObject* sender, TProgressStage stage, std::uint8_t percent, bool redraw,
                          const TRect& r, const std::string& message) {
    EXPECT_TRUE(sender == &other && stage == psRunning && percent == 200 && redraw && r.Bottom == 4);
    events += message;
  });
  store.Progress(&other, psRunning, 200, true, {1, 2, 3, 4}, "half");
  store.SetModified(false);
  store.SetOnChange([&](TObject* sender) {
    store.SetOnChange([&](TObject*) { events += "|another"; });
    events += sender == &store && store.GetModified() ? "|change" : "|stranger";
  });
  store.Changed(&other);
  store.SetModified(false);
  store.SetComment("x");
  EXPECT_FALSE(store.GetModified());
  store.SetModified(true);
  EXPECT_EQ(events, "half|change|another");
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
  EXPECT_EQ(loaded.GetStream()->GetPosition(), 0);
  EXPECT_TRUE(loaded.Equals(&store) && !loaded.GetModified());
  HeaderLastStore other;
  other.SaveToFile(name);
  other.SetComment("fails");
  EXPECT_EQ(MessageOf([&] { other.SaveToFile(name); }), "Stream read error");
  EXPECT_EQ(BytesOf(name), std::string("b body\0!", 8));
  EXPECT_THROW(store.LoadFromFile(folder.File("no")), EFOpenError);
  EXPECT_THROW(store.SaveToFile(folder.File("no/a")), EFCreateError);
}

}  // namespace
