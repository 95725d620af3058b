#include <qxTools/data/qxOleVariant.h>

#include "support/SlotOf.h"
#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::qxOleVariant;
using namespace qxTools::test;

Variant ArrayOf(std::initializer_list<Variant> elements, Integer low = 0) {
  Variant array = Variant::NewArray(low, low + static_cast<Integer>(elements.size()) - 1);
  for (const Variant& element : elements) array.SetElement(low++, element);
  return array;
}

/// The packet as other modules see it, which calls the methods of the packet itself.
IQXOleVariant* FaceOf(TQXOleVariant& packet) {
  void* face = nullptr;
  EXPECT_EQ(packet.QueryInterface(GUID{}, &face), S_OK);
  return static_cast<IQXOleVariant*>(face);
}

/// What calls gave, made one after the other.
void ExpectCodes(HRESULT want, std::initializer_list<HRESULT> codes) {
  for (const HRESULT code : codes) EXPECT_EQ(code, want);
}

TEST(qxOleVariant, FieldsTravelAsNamesAndValuesInTurn) {
  TQXOleVariant packet, loaded;
  IQXOleVariant* const from = FaceOf(packet);
  IQXOleVariant* const to = FaceOf(loaded);
  Variant array = "kept";
  ExpectCodes(S_OK, {from->SaveToOle(array)});  // without fields
  EXPECT_EQ(array, Variant("kept"));
  ExpectCodes(
      S_OK, {from->SetValue(u"qty", 5), from->SetAction(1), from->SetValue(u"Qty", "x"),
             from->SetViewIndex(2), from->SetStoreProcIndex(3), from->SetOption(4), from->SaveToOle(array)});
  EXPECT_EQ(array, ArrayOf({u"QTY", "x", u"ACTION", 1, u"VIEWINDEX", 2, u"STOREPROCINDEX", 3, u"OPTION", 4}));
  std::array<Integer, 5> got;
  ExpectCodes(S_OK, {to->LoadFromOle(array), to->GetAction(got[0]), to->GetViewIndex(got[1]),
                     to->GetStoreProcIndex(got[2]), to->GetOption(got[3]), to->GetCount(got[4])});
  EXPECT_EQ(got, (std::array{1, 2, 3, 4, 5}));
}

TEST(qxOleVariant, NamesAreCapitalsCutTo20Bytes) {
  const std::u16string x19(19, u'x');
  // ± is two bytes in the page; 小, whose second byte is a letter's, keeps it.
  // clang-format off
  const std::pair<std::u16string, std::string> cases[] = {
    {u" qty", " QTY"}, {u"\u00B1a", "\xA1\xD3\x41"}, {u"\u5C0Fa", "\xA4\x70\x41"}, {x19 + u"xy", std::string(20, 'X')},
    {x19 + u"\u5C0F", std::string(19, 'X') + "\xA4"}, {std::u16string(200, u'x'), std::string(20, 'X')}};
  // clang-format on
  for (const auto& [name, stored] : cases) {
    TQXOleVariant packet;
    packet.LoadFromOle(ArrayOf({name, 1}));
    packet.SetValue(name, 1);  // one more where it was cut, since it is not found
    EXPECT_EQ(packet.GetCount(), name.size() > 19 ? 2 : 1);
    for (Integer i = 0; i < packet.GetCount(); ++i) EXPECT_EQ(packet.GetFields(i)->Name, stored);
  }
}

TEST(qxOleVariant, LookUpsTakeTheLastFieldOfAName) {
  TQXOleVariant packet;
  packet.LoadFromOle(ArrayOf({"a", 1, u"A", "\xA4\x70' ", "b", ArrayOf({1})}));
  WideString literal;
  ExpectCodes(S_OK, {FaceOf(packet)->GetSqlValue(u"a", literal)});
  EXPECT_EQ(literal, u"'\u5C0F'''");
  packet.GetFields(2)->Name = "A";
  EXPECT_EQ(MessageOf([&] { packet.GetSqlValue(u"a"); }), "Variant has no text form");
  packet.Add()->Name = "a";  // compared as it stands, and so never found
  packet.SetValue(u"a", 4);
  EXPECT_EQ(packet.GetItems(2), Variant(4));
  EXPECT_EQ(MessageOf([&] { packet.GetValue(u"\u5C0Fc"); }), "Param \xA4\x70\x63 is not found.");
  EXPECT_EQ(MessageOf([&] { packet.GetAction(); }), "Param Action is not found.");
  EXPECT_EQ(MessageOf([&] { packet.GetItems(4); }), "List index out of bounds (4)");
  packet.Clear();
  EXPECT_EQ(packet.FindField(u"a"), nullptr);
}

TEST(qxOleVariant, LoadingReadsFromIndex0Whatever) {
  const char* const done = "(nothing thrown)";
  const char* const outside = "Variant array index out of bounds";
  const VarBounds square[] = {{0, 1}, {0, 1}};
  const std::tuple<Variant, const char*, Variant> cases[] = {
      {ArrayOf({1.5, "x", true, 2, "a"}), done, ArrayOf({u"1.5", "x", u"TRUE", 2})},
      {"no array", done, ArrayOf({u"OLD", 0})},
      {ArrayOf({}, 5), done, ArrayOf({u"OLD", 0})},
      {ArrayOf({"a", 1, "b", 2}, 1), outside, Variant()},
      {ArrayOf({"a", 1, "b", 2}, -1), outside, ArrayOf({u"1", "b"})},
      {Variant::NewArray(square), outside, Variant()},
      {ArrayOf({"a", ArrayOf({1}), ArrayOf({"n"}), 1}), "Variant has no text form",
       ArrayOf({u"A", ArrayOf({1})})}};
  for (const auto& [source, message, kept] : cases) {
    TQXOleVariant packet;
    packet.SetValue(u"old", 0);
    EXPECT_EQ(MessageOf([&, array = source] { packet.LoadFromOle(array); }), message);
    Variant saved;
    packet.SaveToOle(saved);
    EXPECT_EQ(saved, kept);
  }
  TQXOleVariant packet;
  packet.SetValue(u"own", ArrayOf({"deep", 1}));
  packet.LoadFromOle(packet.GetFields(0)->Value);
  EXPECT_EQ(packet.GetValue(u"deep"), Variant(1));
}

TEST(qxOleVariant, AnAddedValueIsEmptyUntilItIsSetByIndex) {
  TQXOleVariant packet;
  IQXOleVariant* const face = FaceOf(packet);
  Variant value = 9;
  TOleVariantField* field = nullptr;
  ExpectCodes(S_OK, {face->AddValue(u"x", 1), face->GetItems(0, value), face->Add(field)});
  EXPECT_TRUE(packet.GetFields(0)->Name == "" && value.IsEmpty());
  ExpectCodes(S_OK, {face->SetItems(1, 7), face->GetItems(1, value)});
  EXPECT_EQ(value, Variant(7));
  EXPECT_EQ(field->Value, value);
}

TEST(qxOleVariant, TheInterfaceTurnsExceptionsIntoACodeAndAnEmptyResult) {
  TQXOleVariant packet;
  IQXOleVariant* const face = FaceOf(packet);
  Integer number = 9;
  Variant value = 9;
  WideString literal = u"9";
  TOleVariantField* field = packet.Add();
  ExpectCodes(E_UNEXPECTED, {face->GetFields(1, field), face->GetAction(number), face->GetValue(u"no", value),
                             face->GetSqlValue(u"no", literal), face->SetItems(1, 5),
                             face->LoadFromOle(ArrayOf({1, 2}, 1))});
  EXPECT_TRUE(field == nullptr && number == 0 && value.IsEmpty() && literal.empty());
  ExpectCodes(S_OK, {face->SetOption(2), face->FindField(u"option", field), face->GetCount(number)});
  EXPECT_TRUE(field == packet.GetFields(0) && number == 1);
  ExpectCodes(S_OK, {face->Clear(), face->GetCount(number), face->FindField(u"option", field)});
  EXPECT_TRUE(field == nullptr && number == 0);
}

TEST(qxOleVariant, ReferencesByTheInterfaceLockThePacket) {
  auto* const packet = new TQXOleVariant;
  IQXOleVariant* const face = FaceOf(*packet);
  void* found = nullptr;
  EXPECT_EQ(face->QueryInterface(IInterface::IID, &found), S_OK);
  EXPECT_EQ(found, static_cast<IInterface*>(packet));
  face->_Release();
  EXPECT_EQ(packet->GetLocked(), -1);
  packet->UnLock();
  face->_Release();  // destroys the packet
}

TEST(qxOleVariant, TheInterfaceHasItsMethodsInOrder) {
  using I = IQXOleVariant;
  const std::array slots{SlotOf(&I::GetFields), SlotOf(&I::SetAction), SlotOf(&I::Add),
                         SlotOf(&I::FindField)};
  EXPECT_EQ(slots, (std::array<std::uintptr_t, 4>{3, 12, 18, 23}));
}

}  // namespace
