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
  const std::function<void(TStrings&)> changes[] = {
      [&](TStrings& list) { list.SetText("a\n" + kLong); },
      [&](TStrings& list) { list.Assign(source); },
      [&](TStrings& list) { list.SetStrings(1, kLong); },
      [&](TStrings& list) { list.Insert(0, kLong); },
      [&](TStrings& list) { list.Add(kLong); },
  };
  for (const auto& change : changes)
    ExpectAllOrNothing(
        [] {
          return TStrings{"a", "b", "c"};
        },
        change, [](const TStrings& list) { return list.GetText(); });
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
    return Shared{value, value};
  };
  const std::function<void(Variant&)> changes[] = {
      [&](Variant& value) { value.SetElement(1, kLong); },
      [&](Variant& value) { value.SetElement(2, other); },
      [](Variant& value) { value = Variant(kLong); },
      [](Variant& value) { value = Variant(u"wide text"); },
      [](Variant& value) { value = Variant::NewArray(0, 9, varByte); },
  };
  for (const auto& change : changes)
    ExpectAllOrNothing(
        shared, [&](Shared& both) { change(both.value); },
        [&](const Shared& both) {
          EXPECT_EQ(both.copy, other);
          return both.value;
        });
}

TEST(RuntimeFaults, ListsOfPointersAndItems) {
  ExpectAllOrNothing([] { return TList(); }, [](TList& list) { list.Add(&list); },
                     [](const TList& list) { return list.GetCount(); });
  using Items = OwnedList<std::string>;
  ExpectAllOrNothing([] { return Items(); },
                     [](Items& items) { items.Insert(0, std::make_unique<std::string>(kLong)); },
                     [](const Items& items) { return items.GetCount(); });
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
  const std::function<void(TBitmap&)> changes[] = {
      [&](TBitmap& bitmap) { bitmap.GetCanvas().Polygon(sliver); },
      [](TBitmap& bitmap) { bitmap.GetCanvas().LineTo(12, 15); },
      [&](TBitmap& bitmap) {
        bitmap.GetCanvas().CopyRect({0, 0, 9, 9}, stamp);
      },
      [](TBitmap& bitmap) { bitmap.SetSize(4, 20); },
  };
  const auto paper = [] {
    auto bitmap = std::make_unique<Paper>(16, 16);
    bitmap->GetCanvas().SetBrushColor(ColorOf('r'));
    return bitmap;
  };
  for (const auto& change : changes)
    ExpectAllOrNothing(
        paper, [&](std::unique_ptr<Paper>& bitmap) { change(*bitmap); },
        [](const std::unique_ptr<Paper>& bitmap) { return TextOf(*bitmap); });
}

}  // namespace
