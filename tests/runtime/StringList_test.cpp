#include <qxTools/runtime/StringList.h>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::test;

TEST(StringList, EveryChangeFiresOnceAndABracketFiresAtItsEnd) {
  TStringList list;
  std::vector<Integer> counts;
  list.SetOnChange([&](TObject* sender) { counts.push_back(sender == &list ? list.GetCount() : -1); });
  list.Clear();  // nothing to clear is no change
  list.Add("a");
  list.Insert(0, "b");
  list.SetStrings(1, "c");
  list.SetText("x\ny\nz");
  list.Delete(2);
  list.BeginUpdate();
  list.BeginUpdate();
  list.Add("in");
  list.EndUpdate();
  list.Add("in");
  list.EndUpdate();
  StringsUpdate(list).End();  // an empty bracket fires as well
  EXPECT_EQ(counts, (std::vector<Integer>{1, 2, 2, 3, 2, 4, 4}));
  // An event may replace itself: what it holds stays as long as it runs.
  list.SetOnChange([&, held = std::vector<Integer>{7, 8}](TObject*) {
    list.SetOnChange(nullptr);
    counts = held;
  });
  list.Add("last");
  EXPECT_EQ(counts, (std::vector<Integer>{7, 8}));
}

TEST(StringList, ABracketEndsWhateverIsThrown) {
  TStringList list;
  int fired = 0;
  list.SetOnChange([&](TObject*) { throw Exception("handler " + std::to_string(++fired)); });
  const auto change = [&](const char* error) {
    StringsUpdate update(list);
    list.Add("a");
    if (*error != '\0') throw Exception(error);
    update.End();
  };
  EXPECT_EQ(MessageOf([&] { change(""); }), "handler 1");
  EXPECT_EQ(MessageOf([&] { change("in the block"); }), "in the block");
  EXPECT_EQ(MessageOf([&] { list.Add("b"); }), "handler 3");
  EXPECT_EQ(list.GetText(), "a\r\na\r\nb\r\n");
}

TEST(StringList, IndexesAreChecked) {
  TStringList list{"a", "b"};
  for (const Integer bad : {-1, 2}) {
    const std::string message = "List index out of bounds (" + std::to_string(bad) + ")";
    EXPECT_EQ(MessageOf([&] { list.GetStrings(bad); }), message);
    EXPECT_EQ(MessageOf([&] { list.SetStrings(bad, ""); }), message);
    EXPECT_EQ(MessageOf([&] { list.Delete(bad); }), message);
  }
  EXPECT_THROW(list.Insert(3, ""), EListError);
  list.Insert(2, "c");
  EXPECT_EQ(list.GetText(), "a\r\nb\r\nc\r\n");
}

TEST(StringList, FilesAreBytesAndEveryBreakParts) {
  const TemporaryFolder folder;
  const std::string name =
      folder.Make("list.txt", std::string("\xEF\xBB\xBF\xA4\xA4\n\0\r\n\rb\r\r\n\n", 15));
  TStringList list;
  list.LoadFromFile(name);
  EXPECT_EQ(list.GetStrings(0), "\xEF\xBB\xBF\xA4\xA4");
  EXPECT_EQ(list.GetCount(), 6);
  EXPECT_THROW(list.LoadFromFile(folder.File("none")), EFOpenError);
  list.SaveToFile(name);
  EXPECT_EQ(BytesOf(name), std::string("\xEF\xBB\xBF\xA4\xA4\r\n\0\r\n\r\nb\r\n\r\n\r\n", 19));
}

// Lines of many lengths, some of them the list's own, until texts are full, gathered and full again; in two
// lists, which are copies of each other now and then.
TEST(StringList, AgreesWithAVectorWhateverIsDone) {
  std::mt19937 random(3);
  TStringList lists[2];
  std::vector<std::string> both[2];
  for (int step = 0; step < 8000; ++step) {
    const auto which = random() % 2;
    TStringList& list = lists[which];
    std::vector<std::string>& lines = both[which];
    const auto place = static_cast<Integer>(random() % (lines.size() + 1));
    const std::size_t length = random() % 500 == 0 ? 1 << 20 : random() % 30 * (random() % 30);
    std::string line(length, static_cast<char>('a' + random() % 26));
    const auto own = lines.empty() ? 0 : random() % lines.size();
    const auto at = lines.begin() + place;
    switch (place == list.GetCount() ? 7 : random() % 7) {
      case 0:
        list.Insert(place, list.GetView(static_cast<Integer>(own)));
        lines.insert(at, std::string(lines[own]));
        break;
      case 1:
        list.SetStrings(place, line);
        *at = line;
        break;
      case 2:
        list.SetStrings(place, list.GetView(static_cast<Integer>(own)));
        *at = lines[own];
        break;
      case 3:
      case 4:
        list.Delete(place);
        lines.erase(at);
        break;
      case 5:
        list = lists[1 - which];
        lines = both[1 - which];
        break;
      case 6:
        if (random() % 30 == 0) list.SetText(list.GetText());
        break;
      default:
        lines.push_back(line);
        random() % 2 == 0 ? list.Add(line) : list.Add(std::move(line));
    }
    ASSERT_EQ(list.GetCount(), static_cast<Integer>(lines.size()));
    for (std::size_t i = 0; i < lines.size(); i += step % 64 == 0 ? 1 : 1 + lines.size() / 2)
      ASSERT_TRUE(list.GetStrings(static_cast<Integer>(i)) == lines[i]) << "line " << i << ", step " << step;
  }
}

}  // namespace
