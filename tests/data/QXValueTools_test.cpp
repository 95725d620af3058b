#include <qxTools/data/QXValueTools.h>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::QXValueTools;
using namespace qxTools::test;

std::string NamesOf(TQXValueList& list) {
  std::string names;
  for (Integer i = 0; i < list.GetCount(); ++i) names += std::string(list.GetItem(i)->Name) + "|";
  return names;
}

TEST(QXValueTools, AnUnknownNameIsMadeAndHoldsNull) {
  TQXValueList list;
  for (const char* name : {"Qty", "\t qTY\x01 "}) EXPECT_TRUE(list.GetValue(name).IsNull());
  list.SetValue(" new ", 5);
  EXPECT_EQ(list.GetValue("NEW"), Variant(5));
  list.SetAutoCreate(false);
  EXPECT_EQ(MessageOf([&] { list.GetValue(" none"); }), "Index ( none) is not find.");
  EXPECT_EQ(MessageOf([&] { list.SetValue("none", 1); }), "Index (none) is not find.");
  EXPECT_EQ(NamesOf(list), "Qty| new |");
}

TEST(QXValueTools, NamesMatchWithoutCaseAndBlanksByteByByte) {
  // A second byte like a letter's changes with the letters; a name of more than 100 bytes is stored cut.
  // clang-format off
  const std::tuple<std::string, std::string, bool> cases[] = {
    {std::string("\0a\x1F", 3), " A", true}, {"a\x7F", "a", false}, {"\xA4\x61", "\xA4\x41", true},
    {std::string(150, 'x'), std::string(150, 'x'), false}, {std::string(150, 'x'), std::string(100, 'X'), true},
    {std::string(100, ' ') + "x", "", true}};
  // clang-format on
  for (const auto& [name, query, found] : cases) {
    TQXValueList list;
    list.SetValue(name, 1);
    EXPECT_EQ(list.IndexOf(query), found ? 0 : -1) << name;
  }
}

TEST(QXValueTools, RecordsAreCopiedAndPlacesPastTheEndAreReached) {
  TQXValueList list, copy;
  EXPECT_TRUE(list.GetItem(2)->Value.IsEmpty());
  const TValueRecord record("a", 5);
  list.SetItem(3, record);
  list.SetItem(3, *list.GetItem(3));
  list.Insert(0, &record);
  list.Insert(5, list.GetItem(0));
  EXPECT_EQ(MessageOf([&] { list.GetItem(std::numeric_limits<Integer>::max()); }),
            "List index out of bounds (2147483647)");
  EXPECT_EQ(MessageOf([&] { list.GetItem(-2); }), "List index out of bounds (-2)");
  EXPECT_EQ(MessageOf([&] { list.Insert(7, &record); }), "List index out of bounds (7)");
  EXPECT_EQ(MessageOf([&] { list.Delete("none"); }), "List index out of bounds (-1)");
  list.SetAutoCreate(false);
  EXPECT_EQ(MessageOf([&] { list.SetItem(6, record); }), "List index out of bounds (6)");
  copy.SetValue("old", 1);
  copy.Assign(&list);
  copy.Assign(nullptr);
  list.Assign(&list);  // cleared first
  EXPECT_EQ(list.GetCount(), 0);
  EXPECT_EQ(NamesOf(copy), "a||||a|a|");
  EXPECT_EQ(copy.GetValue("a"), record.Value);
  EXPECT_TRUE(copy.GetAutoCreate());
}

// The list against a plain walk over the same names, changed in every way that a caller has. Reading takes
// the first of a name, writing and IndexOf the last.
TEST(QXValueTools, LookUpsStayExactWhateverChanges) {
  TQXValueList list;
  list.SetValue("a", 0);
  std::string names = "A";
  std::mt19937 random(1);
  const auto below = [&](std::size_t n) { return static_cast<Integer>(random() % n); };
  for (int step = 0; step < 20000; ++step) {
    const std::string name(1, static_cast<char>('A' + below(6)));
    const Integer place = below(names.size());
    const auto at = static_cast<std::size_t>(place);
    const int action = below(12);
    if (action == 0) {
      const TValueRecord record(name, step);
      list.Insert(place, &record);
      names.insert(at, name);
    } else if (action == 1) {
      list.Add()->Name = name;
      names += name;
    } else if (action == 2) {
      list.GetItem(place)->Name = name;
      names.replace(at, 1, name);
    } else if (action == 3 && names.size() > 1) {
      list.Delete(place);
      names.erase(at, 1);
    } else if (action == 4 && step % 16 == 0) {
      TQXValueList one;
      one.SetValue(name, step);
      list.Assign(&one);
      names = name;
    } else if (names.find(name) == std::string::npos) {
      ASSERT_EQ(list.IndexOf(name), -1) << step;
    } else {
      const auto last = static_cast<Integer>(names.rfind(name));
      ASSERT_EQ(list.IndexOf(name), last) << step;
      list.SetValue(name, step);
      ASSERT_EQ(list.GetItem(last)->Value, Variant(step));
      ASSERT_EQ(list.GetValue(name), list.GetItem(static_cast<Integer>(names.find(name)))->Value);
    }
  }
}

}  // namespace
