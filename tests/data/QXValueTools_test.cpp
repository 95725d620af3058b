#include <gtest/gtest.h>
#include <qxTools/data/QXValueTools.h>

#include <limits>
#include <random>

#include "support/MessageOf.h"

namespace {

using namespace qxTools;
using namespace qxTools::QXValueTools;
using test::MessageOf;

std::string NamesOf(TQXValueList& list) {
  std::string names;
  for (Integer i = 0; i < list.GetCount(); ++i) names += std::string(list.GetItem(i)->Name) + "|";
  return names;
}

TEST(QXValueTools, AnUnknownNameIsMadeAndHoldsNull) {
  TQXValueList list;
  EXPECT_TRUE(list.GetValue("Qty").IsNull());
  EXPECT_TRUE(list.GetValue("\t qTY\x01 ").IsNull());
  EXPECT_EQ(NamesOf(list), "Qty|");
  list.SetValue(" new ", 5);
  EXPECT_EQ(list.GetValue("NEW"), Variant(5));
  EXPECT_EQ(NamesOf(list), "Qty| new |");
  list.SetAutoCreate(false);
  EXPECT_EQ(MessageOf([&] { list.GetValue(" none"); }), "Index ( none) is not find.");
  EXPECT_EQ(MessageOf([&] { list.SetValue("none", 1); }), "Index (none) is not find.");
  EXPECT_EQ(list.GetCount(), 2);
}

TEST(QXValueTools, NamesMatchWithoutCaseAndBlanksByteByByte) {
  struct {
    std::string name;
    std::string query;
    bool found;
  } const cases[] = {
      {"Qty", "QTY", true},
      {std::string("\0a\x1F", 3), " A", true},
      {"a b", "ab", false},
      {"a\x7F", "a", false},
      {"\xA4\x61", "\xA4\x41", true},  // a second byte like a letter's changes with the letters
      {"", " \r\n", true},
      {std::string(150, 'x'), std::string(150, 'x'), false},  // stored cut
      {std::string(150, 'x'), std::string(100, 'X'), true},
      {std::string(100, ' ') + "x", "", true},
  };
  for (const auto& c : cases) {
    TQXValueList list;
    list.SetValue(c.name, 1);
    EXPECT_EQ(list.IndexOf(c.query), c.found ? 0 : -1) << c.name;
  }
}

TEST(QXValueTools, ReadingTakesTheFirstAndWritingTheLast) {
  TQXValueList list;
  for (int i = 0; i < 3; ++i) list.Add()->Name = "twin";
  list.SetValue("twin", 7);
  list.GetItem(0)->Value = 1;
  EXPECT_EQ(list.GetValue("twin"), Variant(1));
  EXPECT_EQ(list.GetItem(2)->Value, Variant(7));
  EXPECT_EQ(list.IndexOf("twin"), 2);
  list.Delete("twin");
  EXPECT_EQ(list.IndexOf("twin"), 1);
  EXPECT_EQ(MessageOf([&] { list.Delete("none"); }), "List index out of bounds (-1)");
}

TEST(QXValueTools, PlacesPastTheEndAreReached) {
  TQXValueList list;
  EXPECT_TRUE(list.GetItem(4)->Value.IsEmpty());
  EXPECT_EQ(NamesOf(list), "|||||");
  const TValueRecord record("a", "text");
  list.SetItem(6, record);
  list.SetItem(6, *list.GetItem(6));
  list.Insert(0, &record);
  list.Insert(8, list.GetItem(0));
  EXPECT_EQ(NamesOf(list), "a|||||||a|a|");
  EXPECT_EQ(list.GetItem(7)->Value, Variant("text"));
  list.GetItem(8)->Value = "other";
  EXPECT_EQ(record.Value, Variant("text"));

  constexpr Integer kLast = std::numeric_limits<Integer>::max();
  EXPECT_EQ(MessageOf([&] { list.GetItem(kLast); }), "List index out of bounds (2147483647)");
  EXPECT_EQ(MessageOf([&] { list.GetItem(-1); }), "List index out of bounds (-1)");
  EXPECT_EQ(MessageOf([&] { list.Insert(10, &record); }), "List index out of bounds (10)");
  EXPECT_EQ(MessageOf([&] { list.Delete(9); }), "List index out of bounds (9)");
  list.SetAutoCreate(false);
  EXPECT_EQ(MessageOf([&] { list.GetItem(9); }), "List index out of bounds (9)");
  EXPECT_EQ(MessageOf([&] { list.SetItem(9, record); }), "List index out of bounds (9)");
  EXPECT_EQ(list.GetCount(), 9);
}

TEST(QXValueTools, AssignCopiesTheRecordsAndEmptiesTheListItself) {
  TQXValueList source;
  source.SetValue("a", Variant::NewArray(0, 3));
  source.SetAutoCreate(false);
  TQXValueList list;
  list.SetValue("old", 1);
  list.Assign(&source);
  source.Clear();
  EXPECT_EQ(NamesOf(list), "a|");
  EXPECT_EQ(list.GetValue("a"), Variant::NewArray(0, 3));
  EXPECT_TRUE(list.GetAutoCreate());
  list.Assign(nullptr);
  EXPECT_EQ(list.GetCount(), 1);
  list.Assign(&list);
  EXPECT_EQ(list.GetCount(), 0);
  EXPECT_EQ(list.IndexOf("a"), -1);
}

// The list against a plain walk over the same names, changed in every way that a caller has.
TEST(QXValueTools, LookUpsStayExactWhateverChanges) {
  TQXValueList list;
  list.SetAutoCreate(false);
  std::vector<std::string> names;
  std::mt19937 random(1);
  const auto below = [&](std::size_t n) { return static_cast<Integer>(random() % n); };
  const auto anyName = [&] { return std::string(1, static_cast<char>('A' + below(6))); };
  for (int step = 0; step < 20000; ++step) {
    const Integer count = list.GetCount();
    const Integer place = count > 0 ? below(names.size()) : 0;
    const std::string name = anyName();
    const auto at = names.begin() + place;
    switch (count == 0 ? 0 : below(12)) {
      case 0: {
        const TValueRecord record(name, 1);
        list.Insert(place, &record);
        names.insert(at, name);
        break;
      }
      case 1:
        list.Add()->Name = name;
        names.push_back(name);
        break;
      case 2:
        list.GetItem(place)->Name = name;
        *at = name;
        break;
      case 3:
        list.Delete(place);
        names.erase(at);
        break;
      default: {
        const auto last = std::find(names.rbegin(), names.rend(), name);
        ASSERT_EQ(list.IndexOf(name), names.rend() - last - 1) << "step " << step;
      }
    }
  }
}

}  // namespace
