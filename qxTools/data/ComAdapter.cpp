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

HRESULT QXTOOLS_CALL TQXOleVariant::ComAdapter::QueryInterface(const GUID& iid, void** result) {
  return packet_.QueryInterface(iid, result);
}
Integer QXTOOLS_CALL TQXOleVariant::ComAdapter::_AddRef() { return packet_._AddRef(); }
Integer QXTOOLS_CALL TQXOleVariant::ComAdapter::_Release() { return packet_._Release(); }

HRESULT QXTOOLS_CALL TQXOleVariant::ComAdapter::GetFields(Integer index, TOleVariantField*& result) {
  return Guarded(result, [&] { return packet_.GetFields(index); });
}

HRESULT QXTOOLS_CALL TQXOleVariant::ComAdapter::GetItems(Integer index, Variant& result) {
  return Guarded(result, [&] { return packet_.GetItems(index); });
}

HRESULT QXTOOLS_CALL TQXOleVariant::ComAdapter::GetValue(std::u16string_view name, Variant& result) {
  return Guarded(result, [&] { return packet_.GetValue(name); });
}

HRESULT QXTOOLS_CALL TQXOleVariant::ComAdapter::SetItems(Integer index, const Variant& value) {
  return Guarded([&] { packet_.SetItems(index, value); });
}

HRESULT QXTOOLS_CALL TQXOleVariant::ComAdapter::SetValue(std::u16string_view name, const Variant& value) {
  return Guarded([&] { packet_.SetValue(name, value); });
}

HRESULT QXTOOLS_CALL TQXOleVariant::ComAdapter::GetCount(Integer& result) {
  return Guarded(result, [&] { return packet_.GetCount(); });
}

HRESULT QXTOOLS_CALL TQXOleVariant::ComAdapter::GetSqlValue(std::u16string_view name, WideString& result) {
  return Guarded(result, [&] { return packet_.GetSqlValue(name); });
}

HRESULT QXTOOLS_CALL TQXOleVariant::ComAdapter::GetAction(Integer& result) {
  return Guarded(result, [&] { return packet_.GetAction(); });
}

HRESULT QXTOOLS_CALL TQXOleVariant::ComAdapter::GetOption(Integer& result) {
  return Guarded(result, [&] { return packet_.GetOption(); });
}

HRESULT QXTOOLS_CALL TQXOleVariant::ComAdapter::SetAction(Integer value) {
  return Guarded([&] { packet_.SetAction(value); });
}

HRESULT QXTOOLS_CALL TQXOleVariant::ComAdapter::SetOption(Integer value) {
  return Guarded([&] { packet_.SetOption(value); });
}

HRESULT QXTOOLS_CALL TQXOleVariant::ComAdapter::GetStoreProcIndex(Integer& result) {
  return Guarded(result, [&] { return packet_.GetStoreProcIndex(); });
}

HRESULT QXTOOLS_CALL TQXOleVariant::ComAdapter::GetViewIndex(Integer& result) {
  return Guarded(result, [&] { return packet_.GetViewIndex(); });
}

HRESULT QXTOOLS_CALL TQXOleVariant::ComAdapter::SetStoreProcIndex(Integer value) {
  return Guarded([&] { packet_.SetStoreProcIndex(value); });
}

HRESULT QXTOOLS_CALL TQXOleVariant::ComAdapter::SetViewIndex(Integer value) {
  return Guarded([&] { packet_.SetViewIndex(value); });
}

HRESULT QXTOOLS_CALL TQXOleVariant::ComAdapter::Add(TOleVariantField*& result) {
  return Guarded(result, [&] { return packet_.Add(); });
}

HRESULT QXTOOLS_CALL TQXOleVariant::ComAdapter::AddValue(std::u16string_view name, const Variant& value) {
  return Guarded([&] { packet_.AddValue(name, value); });
}

HRESULT QXTOOLS_CALL TQXOleVariant::ComAdapter::Clear() {
  return Guarded([&] { packet_.Clear(); });
}

HRESULT QXTOOLS_CALL TQXOleVariant::ComAdapter::SaveToOle(Variant& packet) {
  return Guarded([&] { packet_.SaveToOle(packet); });
}

HRESULT QXTOOLS_CALL TQXOleVariant::ComAdapter::LoadFromOle(const Variant& packet) {
  return Guarded([&] { packet_.LoadFromOle(packet); });
}

HRESULT QXTOOLS_CALL TQXOleVariant::ComAdapter::FindField(std::u16string_view name,
                                                          TOleVariantField*& result) {
  return Guarded(result, [&] { return packet_.FindField(name); });
}

}  // namespace qxTools::qxOleVariant
