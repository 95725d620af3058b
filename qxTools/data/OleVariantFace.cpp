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

HRESULT TQXOleVariant::Face::GetFields(Integer index, TOleVariantField*& result) {
  return Guarded(result, [&] { return packet_.GetFields(index); });
}

HRESULT TQXOleVariant::Face::GetItems(Integer index, Variant& result) {
  return Guarded(result, [&] { return packet_.GetItems(index); });
}

HRESULT TQXOleVariant::Face::GetValue(std::u16string_view name, Variant& result) {
  return Guarded(result, [&] { return packet_.GetValue(name); });
}

HRESULT TQXOleVariant::Face::SetItems(Integer Index, const Variant& Value) {
  return Guarded([&] { packet_.SetItems(Index, Value); });
}

HRESULT TQXOleVariant::Face::SetValue(std::u16string_view name, const Variant& value) {
  return Guarded([&] { packet_.SetValue(name, value); });
}

HRESULT TQXOleVariant::Face::GetCount(Integer& result) {
  return Guarded(result, [&] { return packet_.GetCount(); });
}

HRESULT TQXOleVariant::Face::GetSqlValue(std::u16string_view name, WideString& result) {
  return Guarded(result, [&] { return packet_.GetSqlValue(name); });
}

HRESULT TQXOleVariant::Face::GetAction(Integer& result) {
  return Guarded(result, [&] { return packet_.GetAction(); });
}

HRESULT TQXOleVariant::Face::GetOption(Integer& result) {
  return Guarded(result, [&] { return packet_.GetOption(); });
}

HRESULT TQXOleVariant::Face::SetAction(Integer value) {
  return Guarded([&] { packet_.SetAction(value); });
}

HRESULT TQXOleVariant::Face::SetOption(Integer value) {
  return Guarded([&] { packet_.SetOption(value); });
}

HRESULT TQXOleVariant::Face::GetStoreProcIndex(Integer& result) {
  return Guarded(result, [&] { return packet_.GetStoreProcIndex(); });
}

HRESULT TQXOleVariant::Face::GetViewIndex(Integer& result) {
  return Guarded(result, [&] { return packet_.GetViewIndex(); });
}

HRESULT TQXOleVariant::Face::SetStoreProcIndex(Integer value) {
  return Guarded([&] { packet_.SetStoreProcIndex(value); });
}

HRESULT TQXOleVariant::Face::SetViewIndex(Integer value) {
  return Guarded([&] { packet_.SetViewIndex(value); });
}

HRESULT TQXOleVariant::Face::Add(TOleVariantField*& result) {
  return Guarded(result, [&] { return packet_.Add(); });
}

HRESULT TQXOleVariant::Face::AddValue(std::u16string_view name, const Variant& value) {
  return Guarded([&] { packet_.AddValue(name, value); });
}

HRESULT TQXOleVariant::Face::Clear() {
  return Guarded([&] { packet_.Clear(); });
}

HRESULT TQXOleVariant::Face::SaveToOle(Variant& packet) {
  return Guarded([&] { packet_.SaveToOle(packet); });
}

HRESULT TQXOleVariant::Face::LoadFromOle(const Variant& packet) {
  return Guarded([&] { packet_.LoadFromOle(packet); });
}

HRESULT TQXOleVariant::Face::FindField(std::u16string_view name, TOleVariantField*& result) {
  return Guarded(result, [&] { return packet_.FindField(name); });
}

}  // namespace qxTools::qxOleVariant
