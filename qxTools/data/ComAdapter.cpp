#include <qxTools/data/ComAdapter.h>

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

HRESULT TQXOleVariant::ComAdapter::QueryInterface(const GUID& iid, void** result) {
  return packet_.QueryInterface(iid, result);
}
Integer TQXOleVariant::ComAdapter::_AddRef() { return packet_._AddRef(); }
Integer TQXOleVariant::ComAdapter::_Release() { return packet_._Release(); }

HRESULT TQXOleVariant::ComAdapter::GetFields(Integer index, TOleVariantField*& result) {
  return Guarded(result, [&] { return packet_.GetFields(index); });
}

HRESULT TQXOleVariant::ComAdapter::GetItems(Integer index, Variant& result) {
  return Guarded(result, [&] { return packet_.GetItems(index); });
}

HRESULT TQXOleVariant::ComAdapter::GetValue(std::u16string_view name, Variant& result) {
  return Guarded(result, [&] { return packet_.GetValue(name); });
}

HRESULT TQXOleVariant::ComAdapter::SetItems(Integer index, const Variant& value) {
  return Guarded([&] { packet_.SetItems(index, value); });
}

HRESULT TQXOleVariant::ComAdapter::SetValue(std::u16string_view name, const Variant& value) {
  return Guarded([&] { packet_.SetValue(name, value); });
}

HRESULT TQXOleVariant::ComAdapter::GetCount(Integer& result) {
  return Guarded(result, [&] { return packet_.GetCount(); });
}

HRESULT TQXOleVariant::ComAdapter::GetSqlValue(std::u16string_view name, WideString& result) {
  return Guarded(result, [&] { return packet_.GetSqlValue(name); });
}

HRESULT TQXOleVariant::ComAdapter::GetAction(Integer& result) {
  return Guarded(result, [&] { return packet_.GetAction(); });
}

HRESULT TQXOleVariant::ComAdapter::GetOption(Integer& result) {
  return Guarded(result, [&] { return packet_.GetOption(); });
}

HRESULT TQXOleVariant::ComAdapter::SetAction(Integer value) {
  return Guarded([&] { packet_.SetAction(value); });
}

HRESULT TQXOleVariant::ComAdapter::SetOption(Integer value) {
  return Guarded([&] { packet_.SetOption(value); });
}

HRESULT TQXOleVariant::ComAdapter::GetStoreProcIndex(Integer& result) {
  return Guarded(result, [&] { return packet_.GetStoreProcIndex(); });
}

HRESULT TQXOleVariant::ComAdapter::GetViewIndex(Integer& result) {
  return Guarded(result, [&] { return packet_.GetViewIndex(); });
}

HRESULT TQXOleVariant::ComAdapter::SetStoreProcIndex(Integer value) {
  return Guarded([&] { packet_.SetStoreProcIndex(value); });
}

HRESULT TQXOleVariant::ComAdapter::SetViewIndex(Integer value) {
  return Guarded([&] { packet_.SetViewIndex(value); });
}

HRESULT TQXOleVariant::ComAdapter::Add(TOleVariantField*& result) {
  return Guarded(result, [&] { return packet_.Add(); });
}

HRESULT TQXOleVariant::ComAdapter::AddValue(std::u16string_view name, const Variant& value) {
  return Guarded([&] { packet_.AddValue(name, value); });
}

HRESULT TQXOleVariant::ComAdapter::Clear() {
  return Guarded([&] { packet_.Clear(); });
}

HRESULT TQXOleVariant::ComAdapter::SaveToOle(Variant& packet) {
  return Guarded([&] { packet_.SaveToOle(packet); });
}

HRESULT TQXOleVariant::ComAdapter::LoadFromOle(const Variant& packet) {
  return Guarded([&] { packet_.LoadFromOle(packet); });
}

HRESULT TQXOleVariant::ComAdapter::FindField(std::u16string_view name, TOleVariantField*& result) {
  return Guarded(result, [&] { return packet_.FindField(name); });
}

}  // namespace qxTools::qxOleVariant
