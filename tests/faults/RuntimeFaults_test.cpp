// An operation of the ground floors that runs out of memory leaves its object as it was.
#include <qxTools/runtime/Filer.h>
#include <qxTools/runtime/Lists.h>
#include <qxTools/runtime/OwnedList.h>
#include <qxTools/runtime/StringList.h>
#include <qxTools/runtime/Variant.h>

#include "faults/Faults.h"
#include "support/Picture.h"
#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::test;

const std::string kLong(100, 'l');  // longer than what a string holds without memory

TEST(RuntimeFaults, ListsOfLines) {
  const TStrings source{kLong, "short", kLong + kLong};
  const auto make = [] {
    return std::make_unique<TStrings>(std::initializer_list<std::string>{"a", "b", "c"});
  };
  // clang-format off
  ExpectAllOrNothing(make, {
    [](auto& list) { list.SetText("a\n" + kLong); }, [&](auto& list) { list.Assign(source); },
    [](auto& list) { list.SetStrings(1, kLong); }, [](auto& list) { list.Insert(0, kLong); },
    [](auto& list) { list.Add(kLong); }}, [](const TStrings& list) { return list.GetText(); });
  // clang-format on
}

TEST(RuntimeFaults, Values) {
  const auto array = [] {
    Variant value = Variant::NewArray(0, 2);
    value.SetElement(0, kLong);
    value.SetElement(1, 5);
    return value;
  };
  const Variant other = array();
  struct Shared {
    Variant value, copy;
  };
  const auto shared = [&] {
    const Variant value = array();
    return std::make_unique<Shared>(Shared{value, value});
  };
  const auto state = [&](const Shared& both) {
    EXPECT_EQ(both.copy, other);
    return both.value;
  };
  // clang-format off
  ExpectAllOrNothing(shared, {
    [](Shared& s) { s.value.SetElement(1, kLong); }, [&](Shared& s) { s.value.SetElement(2, other); },
    [](Shared& s) { s.value = Variant(kLong); }, [](Shared& s) { s.value = Variant(u"wide text"); },
    [](Shared& s) { s.value = Variant::NewArray(0, 9, varByte); }}, state);
  // clang-format on
}

TEST(RuntimeFaults, ListsOfPointersAndItems) {
  const auto count = [](const auto& list) { return list.GetCount(); };
  ExpectAllOrNothing(std::make_unique<TList>, {[](TList& list) { list.Add(&list); }}, count);
  using Items = OwnedList<std::string>;
  ExpectAllOrNothing(std::make_unique<Items>,
                     {[](Items& items) { items.Insert(0, std::make_unique<std::string>(kLong)); }}, count);
}

TEST(RuntimeFaults, WritingPropertiesForgetsTheAncestor) {
  struct Object : TPersistent {
    void DefineProperties(TFiler& filer) override {
      EXPECT_EQ(filer.GetAncestor(), this);
      filer.DefineBinaryProperty(
          kLong, {}, [](TStream* stream) { stream->WriteBuffer("data", 4); }, true);
    }
  } object;
  ForEachCall([&](long n) {
    TMemoryStream stream;
    TWriter writer(&stream);
    const Outcome outcome = RunFailing(Fault::kMemory, n, [&] { writer.WriteProperties(&object, &object); });
    EXPECT_EQ(writer.GetAncestor(), nullptr);
    return outcome.reached;
  });
}

TEST(RuntimeFaults, PicturesHaveNoRestOfAnother) {
  Paper stamp(3, 2);
  const std::vector<TPoint> sliver{{0, 0}, {15, 14}, {2, 0}};  // its edges take more memory than its inside
  const auto paper = [] {
    auto bitmap = std::make_unique<Paper>(16, 16);
    bitmap->GetCanvas().SetBrushColor(ColorOf('r'));
    return bitmap;
  };
  // clang-format off
  ExpectAllOrNothing(paper, {
    [&](auto& bitmap) { bitmap.GetCanvas().Polygon(sliver); },
    [](auto& bitmap) { bitmap.GetCanvas().LineTo(12, 15); }, [](auto& bitmap) { bitmap.SetSize(4, 20); },
    [&](auto& bitmap) { bitmap.GetCanvas().CopyRect({0, 0, 9, 9}, stamp); }}, TextOf);
  // clang-format on
}

}  // namespace
