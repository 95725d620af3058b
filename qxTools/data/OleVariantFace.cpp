#include <qxTools/data/OleVariantFace.h>

namespace qxTools::qxOleVariant {

namespace {

/// No exception crosses the edge.
template <class Call>
HRESULT Guarded(Call&& call) {
  try {
    call();
    return S_OK;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

template <class Result, class Call>
HRESULT Guarded(Result& result, Call&& call) {
  const HRESULT code = Guarded([&] { result = call(); });
  if (code != S_OK) result = Result();
  return code;
}

}  // namespace

HRESULT TQXOleVariant::Face::QueryInterface(const GUID& iid, void** result) {
  return packet_.QueryInterface(iid, result);
}
Integer TQXOleVariant::Face::_AddRef() { return packet_._AddRef(); }
Integer TQXOleVariant::Face::_Release() { return packet_._Release(); }

HRESULT TQXOleVariant::Face::GetFields(Integer Index, TOleVariantField*& Result) {
  return Guarded(Result, [&] { return packet_.GetFields(Index); });
}

HRESULT TQXOleVariant::Face::GetItems(Integer Index, Variant& Result) {
  return Guarded(Result, [&] { return packet_.GetItems(Index); });
}

HRESULT TQXOleVariant::Face::GetValue(std::u16string_view Name, Variant& Result) {
  return Guarded(Result, [&] { return packet_.GetValue(Name); });
}

HRESULT TQXOleVariant::Face::SetItems(Integer Index, const Variant& Value) {
  return Guarded([&] { packet_.SetItems(Index, Value); });
}

HRESULT TQXOleVariant::Face::SetValue(std::u16string_view Name, const Variant& Value) {
  return Guarded([&] { packet_.SetValue(Name, Value); });
}

HRESULT TQXOleVariant::Face::GetCount(Integer& Result) {
  return Guarded(Result, [&] { return packet_.GetCount(); });
}

HRESULT TQXOleVariant::Face::GetSqlValue(std::u16string_view Name, WideString& Result) {
  return Guarded(Result, [&] { return packet_.GetSqlValue(Name); });
}

HRESULT TQXOleVariant::Face::GetAction(Integer& Result) {
  return Guarded(Result, [&] { return packet_.GetAction(); });
}

HRESULT TQXOleVariant::Face::GetOption(Integer& Result) {
  return Guarded(Result, [&] { return packet_.GetOption(); });
}

HRESULT TQXOleVariant::Face::SetAction(Integer Value) {
  return Guarded([&] { packet_.SetAction(Value); });
}

HRESULT TQXOleVariant::Face::SetOption(Integer Value) {
  return Guarded([&] { packet_.SetOption(Value); });
}

HRESULT TQXOleVariant::Face::GetStoreProcIndex(Integer& Result) {
  return Guarded(Result, [&] { return packet_.GetStoreProcIndex(); });
}

HRESULT TQXOleVariant::Face::GetViewIndex(Integer& Result) {
  return Guarded(Result, [&] { return packet_.GetViewIndex(); });
}

HRESULT TQXOleVariant::Face::SetStoreProcIndex(Integer Value) {
  return Guarded([&] { packet_.SetStoreProcIndex(Value); });
}

HRESULT TQXOleVariant::Face::SetViewIndex(Integer Value) {
  return Guarded([&] { packet_.SetViewIndex(Value); });
}

HRESULT TQXOleVariant::Face::Add(TOleVariantField*& Result) {
  return Guarded(Result, [&] { return packet_.Add(); });
}

HRESULT TQXOleVariant::Face::AddValue(std::u16string_view Name, const Variant& Value) {
  return Guarded([&] { packet_.AddValue(Name, Value); });
}

HRESULT TQXOleVariant::Face::Clear() {
  return Guarded([&] { packet_.Clear(); });
}

HRESULT TQXOleVariant::Face::SaveToOle(Variant& Packet) {
  return Guarded([&] { packet_.SaveToOle(Packet); });
}

HRESULT TQXOleVariant::Face::LoadFromOle(const Variant& Packet) {
  return Guarded([&] { packet_.LoadFromOle(Packet); });
}

HRESULT TQXOleVariant::Face::FindField(std::u16string_view Name, TOleVariantField*& Result) {
  return Guarded(Result, [&] { return packet_.FindField(Name); });
}

}  // namespace qxTools::qxOleVariant
