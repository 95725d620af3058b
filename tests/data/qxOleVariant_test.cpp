#include <gtest/gtest.h>
#include <qxTools/data/qxOleVariant.h>

#include "support/MessageOf.h"
#include "support/SlotOf.h"

namespace {

using namespace qxTools;
using namespace qxTools::qxOleVariant;
using test::MessageOf;

Variant ArrayOf(std::initializer_list<Variant> elements, Integer low = 0) {
  Variant array = Variant::NewArray(low, low + static_cast<Integer>(elements.size()) - 1);
  for (const Variant& element : elements) array.SetElement(low++, element);
  return array;
}

std::string NamesOf(const TQXOleVariant& packet) {
  std::string names;
  for (Integer i = 0; i < packet.GetCount(); ++i) names += std::string(packet.GetFields(i)->Name) + "|";
  return names;
}

TEST(qxOleVariant, FieldsTravelAsNamesAndValuesInTurn) {
  TQXOleVariant packet;
  Variant array = "kept";
  packet.SaveToOle(array);
  EXPECT_EQ(array, Variant("kept"));
  packet.SetValue(u"qty", 5);
  packet.SetAction(2);
  packet.SetValue(u"Qty", 6);
  packet.SaveToOle(array);
  EXPECT_EQ(array, ArrayOf({u"QTY", 6, u"ACTION", 2}));
  TQXOleVariant loaded;
  loaded.LoadFromOle(array);
  EXPECT_EQ(NamesOf(loaded), "QTY|ACTION|");
  EXPECT_EQ(loaded.GetAction(), 2);
}

TEST(qxOleVariant, ControlFieldsAreFieldsLikeAnyOther) {
  TQXOleVariant packet;
  EXPECT_EQ(MessageOf([&] { packet.GetAction(); }), "Param Action is not found.");
  EXPECT_EQ(MessageOf([&] { packet.GetViewIndex(); }), "Param ViewIndex is not found.");
  packet.SetViewIndex(4);
  packet.SetStoreProcIndex(-3);
  packet.SetOption(2);
  packet.SetAction(1);
  EXPECT_EQ(NamesOf(packet), "VIEWINDEX|STOREPROCINDEX|OPTION|ACTION|");
  EXPECT_EQ(packet.GetViewIndex() * 1000 + packet.GetStoreProcIndex() * 100 + packet.GetOption() * 10 +
                packet.GetAction(),
            3721);
  EXPECT_EQ(packet.GetItems(0).Type(), varInteger);
  packet.SetValue(u"OPTION", " 12");
  EXPECT_EQ(packet.GetOption(), 12);
  packet.SetValue(u"OPTION", "x");
  EXPECT_EQ(MessageOf([&] { packet.GetOption(); }), "'x' is not a valid integer value");
}

TEST(qxOleVariant, NamesAreCapitalsCutTo20Bytes) {
  struct {
    std::u16string name;
    std::string stored;
    std::u16string query;
    bool found;
  } const cases[] = {
      {u"qty", "QTY", u"Qty", true},
      {u"qty", "QTY", u" qty", false},
      {u"\u4E00a",
       "\xA4\x40"
       "A",
       u"\u4E00A", true},                        // 一
      {u"\u5206", "\xA4\xC0", u"\u5206", true},  // 分
      {u"\u4E5D", "\xA4\x45", u"\u4E5D", true},  // 九, whose second byte is a letter's
      {u"\u529B", "\xA4\x4F", u"\u529B", true},  // 力
      {u"\u5C0F", "\xA4\x70", u"\u5C0F", true},  // 小: the second byte stays as it is
      {std::u16string(21, u'x'), std::string(20, 'X'), std::u16string(21, u'x'), false},
      {std::u16string(21, u'x'), std::string(20, 'X'), std::u16string(20, u'x'), true},
      {std::u16string(19, u'x') + u"\u5C0F", std::string(19, 'X') + "\xA4",
       std::u16string(19, u'x') + u"\u5C0F", false},
      {u"\U0001F600", "?", u"?", true},
  };
  for (const auto& c : cases) {
    TQXOleVariant packet;
    packet.SetValue(c.name, 1);
    EXPECT_EQ(packet.GetFields(0)->Name, c.stored);
    EXPECT_EQ(packet.FindField(c.query) != nullptr, c.found) << c.stored;
    Variant array;
    packet.SaveToOle(array);
    TQXOleVariant loaded;
    loaded.LoadFromOle(array);
    EXPECT_EQ(loaded.GetFields(0)->Name, c.stored);
  }
  TQXOleVariant packet;
  const std::u16string longName(21, u'x');
  for (int i = 0; i < 3; ++i) packet.SetValue(longName, i);
  EXPECT_EQ(packet.GetCount(), 3);
}

TEST(qxOleVariant, LookUpsTakeTheLastFieldOfAName) {
  TQXOleVariant packet;
  packet.LoadFromOle(ArrayOf({"a", 1, u"A", 2, "b", 3}));
  EXPECT_EQ(packet.GetValue(u"a"), Variant(2));
  packet.GetFields(2)->Name = "A";
  EXPECT_EQ(packet.GetValue(u"a"), Variant(3));
  packet.Add()->Name = "a";  // compared as it stands, and so never found
  EXPECT_EQ(packet.GetValue(u"a"), Variant(3));
  packet.SetValue(u"a", 4);
  EXPECT_EQ(packet.GetItems(2), Variant(4));
  EXPECT_EQ(MessageOf([&] { packet.GetValue(u"\u5C0Fc"); }),
            "Param \xA4\x70"
            "c is not found.");
  EXPECT_EQ(MessageOf([&] { packet.GetItems(4); }), "List index out of bounds (4)");
  EXPECT_EQ(MessageOf([&] { packet.SetItems(-1, 0); }), "List index out of bounds (-1)");
  EXPECT_EQ(packet.FindField(u"c"), nullptr);
  packet.AddValue(u"x", 1);
  EXPECT_EQ(packet.GetFields(4)->Name, "");
  EXPECT_TRUE(packet.GetItems(4).IsEmpty());
  packet.Clear();
  EXPECT_EQ(packet.FindField(u"a"), nullptr);
}

TEST(qxOleVariant, LoadingReadsFromIndex0Whatever) {
  const VarBounds flat[] = {{0, 1}, {0, 1}};
  struct {
    Variant packet;
    const char* message;
    const char* names;
  } const cases[] = {
      {ArrayOf({"a", 1, "b"}), "(nothing thrown)", "A|"},
      {ArrayOf({1.5, "x", true, 2}), "(nothing thrown)", "1.5|TRUE|"},
      {ArrayOf({"a"}), "(nothing thrown)", ""},
      {"no array", "(nothing thrown)", "OLD|"},
      {Variant(), "(nothing thrown)", "OLD|"},
      {ArrayOf({}), "(nothing thrown)", "OLD|"},
      {ArrayOf({}, 5), "(nothing thrown)", "OLD|"},
      {ArrayOf({"a", 1, "b", 2}, 1), "Variant array index out of bounds", ""},
      {ArrayOf({"a", 1, "b", 2}, -1), "Variant array index out of bounds", "1|"},
      {Variant::NewArray(flat), "Variant array index out of bounds", ""},
      {ArrayOf({"a", ArrayOf({"n", 1}), ArrayOf({"n"}), 1}), "Variant has no text form", "A|"},
  };
  for (const auto& c : cases) {
    TQXOleVariant packet;
    packet.SetValue(u"old", 0);
    EXPECT_EQ(MessageOf([&] { packet.LoadFromOle(c.packet); }), c.message);
    EXPECT_EQ(NamesOf(packet), c.names);
  }
  TQXOleVariant packet;
  packet.SetValue(u"own", ArrayOf({"a", ArrayOf({"deep", 1})}));
  packet.LoadFromOle(packet.GetFields(0)->Value);
  packet.LoadFromOle(packet.GetFields(0)->Value);
  EXPECT_EQ(NamesOf(packet), "DEEP|");
  packet.SaveToOle(packet.GetFields(0)->Value);
  EXPECT_EQ(packet.GetItems(0), ArrayOf({u"DEEP", 1}));
}

TEST(qxOleVariant, ValuesAsSqlAreWideText) {
  TQXOleVariant packet;
  packet.SetValue(u"s", "\xA4\x70' ");
  packet.SetValue(u"n", Variant::Null());
  packet.SetValue(u"a", ArrayOf({1}));
  EXPECT_EQ(packet.GetSqlValue(u"S"), u"'\u5C0F'''");
  EXPECT_EQ(packet.GetSqlValue(u"N"), u"NULL");
  EXPECT_EQ(MessageOf([&] { packet.GetSqlValue(u"a"); }), "Variant has no text form");
}

TEST(qxOleVariant, TheInterfaceTurnsExceptionsIntoACode) {
  auto* packet = new TQXOleVariant;
  void* found = nullptr;
  ASSERT_EQ(packet->QueryInterface(GUID{}, &found), S_OK);
  auto* const face = static_cast<IQXOleVariant*>(found);
  EXPECT_EQ(packet->GetLocked(), -1);

  Integer number = 9;
  Variant value = 9;
  WideString text = u"9";
  TOleVariantField* field = nullptr;
  EXPECT_EQ(face->Add(field), S_OK);
  EXPECT_EQ(field, packet->GetFields(0));
  EXPECT_EQ(face->GetFields(7, field), E_UNEXPECTED);
  EXPECT_EQ(field, nullptr);
  EXPECT_EQ(face->GetAction(number), E_UNEXPECTED);
  EXPECT_EQ(number, 0);
  EXPECT_EQ(face->GetValue(u"none", value), E_UNEXPECTED);
  EXPECT_TRUE(value.IsEmpty());
  EXPECT_EQ(face->GetSqlValue(u"none", text), E_UNEXPECTED);
  EXPECT_EQ(text, u"");
  EXPECT_EQ(face->SetItems(1, 0), E_UNEXPECTED);
  EXPECT_EQ(face->LoadFromOle(ArrayOf({1, 2}, 1)), E_UNEXPECTED);

  EXPECT_EQ(face->SetAction(1), S_OK);
  EXPECT_EQ(face->SetOption(2), S_OK);
  EXPECT_EQ(face->SetStoreProcIndex(3), S_OK);
  EXPECT_EQ(face->SetViewIndex(4), S_OK);
  EXPECT_EQ(face->GetViewIndex(number), S_OK);
  EXPECT_EQ(number, 4);
  EXPECT_EQ(face->SaveToOle(value), S_OK);
  EXPECT_EQ(value, ArrayOf({u"ACTION", 1, u"OPTION", 2, u"STOREPROCINDEX", 3, u"VIEWINDEX", 4}));
  EXPECT_EQ(face->FindField(u"none", field), S_OK);
  EXPECT_EQ(field, nullptr);

  void* root = nullptr;
  EXPECT_EQ(face->QueryInterface(IInterface::IID, &root), S_OK);
  EXPECT_EQ(root, static_cast<IInterface*>(packet));
  face->_Release();
  packet->UnLock();
  face->_Release();  // destroys the packet
}

TEST(qxOleVariant, TheMethodsKeepTheirSlots) {
  using Face = IQXOleVariant;
  const std::uintptr_t slots[] = {test::SlotOf(&Face::GetFields),    test::SlotOf(&Face::GetItems),
                                  test::SlotOf(&Face::GetValue),     test::SlotOf(&Face::SetItems),
                                  test::SlotOf(&Face::SetValue),     test::SlotOf(&Face::GetCount),
                                  test::SlotOf(&Face::GetSqlValue),  test::SlotOf(&Face::GetAction),
                                  test::SlotOf(&Face::GetOption),    test::SlotOf(&Face::SetAction),
                                  test::SlotOf(&Face::SetOption),    test::SlotOf(&Face::GetStoreProcIndex),
                                  test::SlotOf(&Face::GetViewIndex), test::SlotOf(&Face::SetStoreProcIndex),
                                  test::SlotOf(&Face::SetViewIndex), test::SlotOf(&Face::Add),
                                  test::SlotOf(&Face::AddValue),     test::SlotOf(&Face::Clear),
                                  test::SlotOf(&Face::SaveToOle),    test::SlotOf(&Face::LoadFromOle),
                                  test::SlotOf(&Face::FindField)};
  for (std::size_t i = 0; i < std::size(slots); ++i) EXPECT_EQ(slots[i], i + 3);
}

}  // namespace
