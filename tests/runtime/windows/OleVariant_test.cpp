// What automation has of the library: interfaces that are the system's, and values in its form. The system
// itself reads and makes the values, and its allocator is watched.
#include <windows.h>
// After windows.h, whose macros they must survive.
#include <qxTools/data/qxOleVariant.h>
#include <qxTools/runtime/windows/OleVariant.h>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::test;
using namespace std::literals;

/// A VARIANT that frees what it holds.
struct OleValue : VARIANT {
  OleValue() { ::VariantInit(this); }
  explicit OleValue(const Variant& value) : OleValue() { VariantToOle(value, *this); }
  OleValue(const OleValue&) = delete;
  OleValue& operator=(const OleValue&) = delete;
  ~OleValue() { ::VariantClear(this); }
};

/// Counts the blocks that the system's allocator has given out and not taken back.
class Spy final : public IMallocSpy {
 public:
  Spy() {
    if (auto* const noCache = ::GetProcAddress(::GetModuleHandleA("oleaut32"), "SetOaNoCache"))
      reinterpret_cast<void (*)()>(reinterpret_cast<void*>(noCache))();  // freed texts are freed at once
    EXPECT_EQ(::CoRegisterMallocSpy(this), S_OK);
  }
  ~Spy() { EXPECT_EQ(::CoRevokeMallocSpy(), S_OK); }

  int blocks = 0;

  // clang-format off
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override {
    *result = iid == IID_IUnknown || iid == IID_IMallocSpy ? this : nullptr;
    return *result != nullptr ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override { return size; }
  void* STDMETHODCALLTYPE PostAlloc(void* block) override { blocks += block != nullptr; return block; }
  void* STDMETHODCALLTYPE PreFree(void* block, BOOL) override { blocks -= block != nullptr; return block; }
  void STDMETHODCALLTYPE PostFree(BOOL) override {}
  SIZE_T STDMETHODCALLTYPE PreRealloc(void* b, SIZE_T size, void** real, BOOL) override { *real = b; return size; }
  void* STDMETHODCALLTYPE PostRealloc(void* block, BOOL) override { return block; }
  void* STDMETHODCALLTYPE PreGetSize(void* block, BOOL) override { return block; }
  SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, BOOL) override { return size; }
  void* STDMETHODCALLTYPE PreDidAlloc(void* block, BOOL) override { return block; }
  int STDMETHODCALLTYPE PostDidAlloc(void*, BOOL, int found) override { return found; }
  void STDMETHODCALLTYPE PreHeapMinimize() override {}
  void STDMETHODCALLTYPE PostHeapMinimize() override {}
  // clang-format on
};

/// An object of the library that is counted.
class Counted final : public TInterfacedObject, public IInterface {
 public:
  QXTOOLS_INTERFACED_OBJECT
 private:
  void* FindInterface(const qxTools::GUID& iid) override {
    return iid == IInterface::IID ? static_cast<IInterface*>(this) : nullptr;
  }
};

IUnknown* AsUnknown(IInterface* object) { return reinterpret_cast<IUnknown*>(object); }

/// An array with these bounds whose elements are numbered in the order of memory.
Variant Numbered(std::vector<VarBounds> bounds, VarType element) {
  Variant array = Variant::NewArray(bounds, element);
  Integer number = 0;
  for (Integer y = bounds[1].Low; y <= bounds[1].High; ++y)
    for (Integer x = bounds[0].Low; x <= bounds[0].High; ++x) {
      const Integer indexes[] = {x, y};
      array.SetElement(indexes, Variant(++number));
    }
  return array;
}

/// `depth` arrays, one in the other.
Variant Nested(int depth) {
  Variant value = u"\u5E74";  // 年
  for (int i = 0; i < depth; ++i) {
    Variant array = Variant::NewArray(1, 2);
    array.SetElement(1, value);
    value = array;
  }
  return value;
}

/// What the system reads in a value.
std::u16string SystemText(const Variant& value) {
  OleValue form(value);
  OleValue text;
  EXPECT_EQ(::VariantChangeTypeEx(&text, &form, LOCALE_INVARIANT, 0, VT_BSTR), S_OK);
  return {reinterpret_cast<const char16_t*>(text.bstrVal), ::SysStringLen(text.bstrVal)};
}

std::string FailureOf(const Variant& value) {
  return MessageOf([&] { OleValue form(value); });
}

TEST(Interfaces, TheRootIsTheSystemsOwn) {
  auto* const object = new Counted;
  IUnknown* const unknown = AsUnknown(object);
  EXPECT_EQ(unknown->AddRef(), 1U);
  void* found = nullptr;
  EXPECT_EQ(unknown->QueryInterface(IID_IUnknown, &found), S_OK);
  EXPECT_EQ(found, unknown);
  EXPECT_EQ(unknown->QueryInterface(IID_IDispatch, &found), E_NOINTERFACE);
  EXPECT_EQ(found, nullptr);
  EXPECT_EQ(unknown->Release(), 1U);
  EXPECT_EQ(unknown->Release(), 0U);

  IStream* stream = nullptr;
  ASSERT_EQ(::CreateStreamOnHGlobal(nullptr, TRUE, &stream), S_OK);
  auto* const root = reinterpret_cast<IInterface*>(static_cast<IUnknown*>(stream));
  {
    const Variant held = Variant::FromUnknown(root);
    const OleValue form(held);
    EXPECT_EQ(form.punkVal, stream);
    EXPECT_EQ(stream->AddRef(), 4U);
    EXPECT_EQ(VariantFromOle(form).AsInterface(), root);
    EXPECT_EQ(stream->Release(), 3U);
    EXPECT_EQ(root->QueryInterface(IInterface::IID, &found), S_OK);
    EXPECT_EQ(root->_Release(), 3);
  }
  EXPECT_EQ(stream->Release(), 0U);
}

TEST(OleVariant, ValuesAreThoseThatTheSystemReads) {
  // clang-format off
  const std::tuple<Variant, VARTYPE, std::u16string> rows[] = {
    {Variant(), VT_EMPTY, u""}, {std::int8_t{-5}, VT_I1, u"-5"}, {std::int16_t{-32768}, VT_I2, u"-32768"},
    {-2147483647, VT_I4, u"-2147483647"}, {std::int64_t{-9007199254740993}, VT_I8, u"-9007199254740993"},
    {std::uint8_t{255}, VT_UI1, u"255"}, {std::uint16_t{65535}, VT_UI2, u"65535"},
    {std::uint32_t{4294967295}, VT_UI4, u"4294967295"}, {1.5F, VT_R4, u"1.5"}, {-0.25, VT_R8, u"-0.25"},
    {Variant::FromCurrency(-9007199254740993), VT_CY, u"-900719925474.0993"},
    {Variant::FromDate(36525.75), VT_DATE, u"12/31/1999 18:00:00"}, {true, VT_BOOL, u"-1"},
    {false, VT_BOOL, u"0"}, {u"\u5E74 a\0b"s, VT_BSTR, u"\u5E74 a\0b"s},  // 年
    {std::u16string(), VT_BSTR, u""}};
  // clang-format on
  for (const auto& [value, type, text] : rows) {
    const OleValue form(value);
    EXPECT_EQ(form.vt, type);
    EXPECT_EQ(VariantFromOle(form), value) << type;
    EXPECT_EQ(SystemText(value), text) << type;
    if (type == VT_EMPTY) continue;
    OleValue reference;
    reference.vt = static_cast<VARTYPE>(VT_BYREF | type);
    reference.byref = const_cast<LONGLONG*>(&form.llVal);
    EXPECT_EQ(VariantFromOle(reference), value) << type;
  }
  for (const Variant& value :
       {Variant::Null(), Variant::FromError(-2147352572), Variant::FromDispatch(nullptr)})
    EXPECT_EQ(VariantFromOle(OleValue(value)), value);
  const OleValue narrow(Variant("\xA6\x7E"));  // 年
  EXPECT_EQ(VariantFromOle(narrow), Variant(u"\u5E74"));
}

TEST(OleVariant, ArraysKeepTypeBoundsAndPlaces) {
  for (const VarType element : {varVariant, varInteger, varByte}) {
    const Variant array = Numbered({{-3, 1}, {7, 9}}, element);
    const OleValue form(array);
    EXPECT_EQ(form.vt, VT_ARRAY | element);
    LONG low = 0, high = 0;
    ::SafeArrayGetLBound(form.parray, 2, &low);
    ::SafeArrayGetUBound(form.parray, 1, &high);
    EXPECT_EQ(std::pair(low, high), std::pair(7L, 1L));
    LONG place[] = {1, 8};  // the fifth of the second row
    OleValue found;
    ASSERT_EQ(::SafeArrayGetElement(form.parray, place,
                                    element == varVariant ? static_cast<void*>(&found) : &found.llVal),
              S_OK);
    EXPECT_EQ(found.llVal & 0xFF, 10);
    EXPECT_EQ(VariantFromOle(form), array);
  }
  const VarBounds empty{5, 4};
  for (const VarType element : {varVariant, varByte, varDouble}) {
    const Variant array = Variant::NewArray(std::span(&empty, 1), element);
    EXPECT_EQ(VariantFromOle(OleValue(array)), array);
  }
  for (const int depth : {1, 3, 256}) EXPECT_EQ(VariantFromOle(OleValue(Nested(depth))), Nested(depth));
}

TEST(OleVariant, ArraysOfTheSystemAreRead) {
  SAFEARRAYBOUND sides[] = {{2, 10}, {3, -1}};
  OleValue form;
  form.parray = ::SafeArrayCreate(VT_BSTR, 2, sides);
  form.vt = VT_ARRAY | VT_BSTR;
  LONG place[] = {11, 0};
  const BSTR text = ::SysAllocString(L"\x5E74");
  ASSERT_EQ(::SafeArrayPutElement(form.parray, place, text), S_OK);
  ::SysFreeString(text);
  const Variant array = VariantFromOle(form);
  EXPECT_EQ(array.Type(), varArray | varOleStr);
  EXPECT_EQ(array.Bounds(2), (VarBounds{-1, 1}));
  const Integer there[] = {11, 0}, elsewhere[] = {10, 1};
  EXPECT_EQ(array.GetElement(there), Variant(u"\u5E74"));
  EXPECT_EQ(array.GetElement(elsewhere), Variant(u""));
  OleValue nothing;
  nothing.vt = VT_ARRAY | VT_I4;
  EXPECT_EQ(VariantFromOle(nothing), Variant::OfType(varArray | varInteger));
}

TEST(OleVariant, ElementsAreMadeTheTypeOfTheirArray) {
  Variant array = Variant::NewArray(0, 2, varSmallint);
  array.SetElement(0, "12");
  array.SetElement(2, -1.0);
  const Variant read = VariantFromOle(OleValue(array));
  EXPECT_EQ(read.GetElement(0), Variant(std::int16_t{12}));
  EXPECT_EQ(read.GetElement(1), Variant(std::int16_t{0}));
  EXPECT_EQ(read.GetElement(2), Variant(std::int16_t{-1}));
  array.SetElement(1, 40000);
  EXPECT_EQ(FailureOf(array), "Variant has no VARIANT form");
}

TEST(OleVariant, WhatHasNoFormIsRefusedAndChangesNothing) {
  const std::string noForm = "Variant has no VARIANT form";
  EXPECT_EQ(FailureOf(Variant::OfType(varByRef | varInteger)), noForm);
  EXPECT_EQ(FailureOf(Variant::OfType(99)), noForm);
  EXPECT_EQ(FailureOf(Variant::NewArray(0, 1, 99)), noForm);
  EXPECT_EQ(FailureOf(Variant::NewArray(std::span<const VarBounds>())), noForm);
  EXPECT_EQ(FailureOf(Nested(257)), "Variant is nested too deeply");
  OleValue kept(Variant(7));
  EXPECT_THROW(VariantToOle(Variant::OfType(99), kept), EVariantError);
  EXPECT_EQ(VariantFromOle(kept), Variant(7));
  OleValue locked(Variant::NewArray(0, 1));
  ::SafeArrayLock(locked.parray);
  EXPECT_EQ(MessageOf([&] { VariantToOle(Variant(u"text"), locked); }), "VARIANT cannot be replaced");
  ::SafeArrayUnlock(locked.parray);
  OleValue foreign;
  foreign.vt = VT_UI8;
  foreign.ullVal = 1ULL << 63;
  for (const VARTYPE type : {VARTYPE{VT_UI8}, VARTYPE{VT_DECIMAL}, VARTYPE{VT_BYREF | VT_I4}}) {
    foreign.vt = type;
    if ((type & VT_BYREF) != 0) foreign.byref = nullptr;
    EXPECT_EQ(MessageOf([&] { VariantFromOle(foreign); }), "VARIANT has no Variant form") << type;
  }
}

TEST(OleVariant, NothingIsLeftBehind) {
  Spy spy;
  {
    const OleValue deep(Nested(100));
    EXPECT_GT(spy.blocks, 100);
    EXPECT_EQ(VariantFromOle(deep), Nested(100));
    OleValue replaced(Variant(u"a text that is replaced"));
    VariantToOle(Numbered({{0, 20}, {1, 3}}, varOleStr), replaced);
    VariantToOle(Variant(u"and again"), replaced);
    Variant broken = Nested(5);  // after an array that has been made
    broken.SetElement(2, Variant::OfType(99));
    EXPECT_THROW(VariantToOle(broken, replaced), EVariantError);
    EXPECT_THROW(VariantToOle(Nested(300), replaced), EVariantError);
    qxOleVariant::TQXOleVariant packet;
    packet.SetValue(u"Name", u"\u5E74");
    packet.SetValue(u"Blob", Variant::NewArray(1, 100, varByte));
    Variant sent;
    packet.SaveToOle(sent);
    const OleValue travelling(sent);
    qxOleVariant::TQXOleVariant received;
    received.LoadFromOle(VariantFromOle(travelling));
    EXPECT_EQ(received.GetValue(u"name"), Variant(u"\u5E74"));
    EXPECT_EQ(received.GetValue(u"blob").Bounds(), (VarBounds{1, 100}));
  }
  EXPECT_EQ(spy.blocks, 0);
}

}  // namespace
