#include <qxTools/runtime/StringList.h>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::test;

TEST(StringList, TextSplitsAtEveryKindOfBreak) {
  // Each line in brackets.
  const auto lines = [](const std::string& text) {
    TStringList list;
    list.SetText(text);
    std::string bracketed;
    for (Integer i = 0; i < list.GetCount(); ++i) bracketed += "[" + list.GetStrings(i) + "]";
    return bracketed;
  };
  const std::pair<std::string, std::string> rows[] = {{"", ""},
                                                      {"a", "[a]"},
                                                      {"a\r\n", "[a]"},
                                                      {"\r\n", "[]"},
                                                      {"a\nb\rc\r\nd", "[a][b][c][d]"},
                                                      {"a\n\rb", "[a][][b]"},
                                                      {"a\r\r\nb\n\n", "[a][][b][]"},
                                                      {std::string("\0\n\0", 3), std::string("[\0][\0]", 6)}};
  ExpectEach(lines, rows);
}

TEST(StringList, EveryChangeFiresOnceAndABracketFiresAtItsEnd) {
  TStringList list;
  std::vector<Integer> counts;
  list.SetOnChange([&](TObject* sender) {
    EXPECT_EQ(sender, &list);
    counts.push_back(list.GetCount());
  });
  list.Clear();  // nothing to clear is no change
  list.Add("a");
  list.Insert(0, "b");
  list.SetStrings(1, "c");
  list.SetText("x\ny\nz");
  list.Delete(2);
  EXPECT_EQ(counts, (std::vector<Integer>{1, 2, 2, 3, 2}));
  counts.clear();
  list.BeginUpdate();
  list.BeginUpdate();
  list.Add("in");
  list.EndUpdate();
  EXPECT_TRUE(counts.empty());
  list.EndUpdate();
  EXPECT_EQ(counts, std::vector<Integer>{3});
  list.BeginUpdate();
  list.EndUpdate();  // an empty bracket fires as well
  EXPECT_EQ(counts.size(), 2U);
  // An event may replace itself: what it holds stays as long as it runs.
  list.SetOnChange([&list, &counts, held = std::vector<Integer>{7, 8}](TObject*) {
    list.SetOnChange(nullptr);
    counts = held;
  });
  list.Add("last");
  EXPECT_EQ(counts, (std::vector<Integer>{7, 8}));
}

TEST(StringList, IndexesAreChecked) {
  TStringList list{"a", "b"};
  for (const Integer bad : {-1, 2}) {
    const std::string message = "List index out of bounds (" + std::to_string(bad) + ")";
    EXPECT_EQ(MessageOf([&] { list.GetStrings(bad); }), message);
    EXPECT_EQ(MessageOf([&] { list.SetStrings(bad, ""); }), message);
    EXPECT_EQ(MessageOf([&] { list.Delete(bad); }), message);
  }
  EXPECT_EQ(MessageOf([&] { list.Insert(3, ""); }), "List index out of bounds (3)");
  list.Insert(2, "c");
  EXPECT_EQ(list.GetText(), "a\r\nb\r\nc\r\n");
}

TEST(StringList, FilesAreBytes) {
  const TemporaryFolder folder;
  const std::string name = folder.Make("list.txt", std::string("\xEF\xBB\xBF\xA4\xA4\n\0\n", 8));
  TStringList list;
  list.LoadFromFile(name);
  EXPECT_EQ(list.GetStrings(0), "\xEF\xBB\xBF\xA4\xA4");
  list.SaveToFile(name);
  EXPECT_EQ(BytesOf(name), std::string("\xEF\xBB\xBF\xA4\xA4\r\n\0\r\n", 10));
  EXPECT_THROW(list.LoadFromFile(folder.File("none")), EFOpenError);
  EXPECT_EQ(list.GetCount(), 2);
}

}  // namespace
