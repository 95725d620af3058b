// The packet as other modules see it: it returns result codes and throws nothing.
#pragma once

#include <qxTools/data/qxOleVariant.h>

namespace qxTools::qxOleVariant {

class TQXOleVariant::ComAdapter final : public IQXOleVariant {
 public:
  explicit ComAdapter(TQXOleVariant& packet) : packet_(packet) {}

  HRESULT QueryInterface(const GUID& iid, void** result) override;
  Integer _AddRef() override;
  Integer _Release() override;
  HRESULT GetFields(Integer index, TOleVariantField*& result) override;
  HRESULT GetItems(Integer index, Variant& result) override;
  HRESULT GetValue(std::u16string_view name, Variant& result) override;
  HRESULT SetItems(Integer index, const Variant& value) override;
  HRESULT SetValue(std::u16string_view name, const Variant& value) override;
  HRESULT GetCount(Integer& result) override;
  HRESULT GetSqlValue(std::u16string_view name, WideString& result) override;
  HRESULT GetAction(Integer& result) override;
  HRESULT GetOption(Integer& result) override;
  HRESULT SetAction(Integer value) override;
  HRESULT SetOption(Integer value) override;
  HRESULT GetStoreProcIndex(Integer& result) override;
  HRESULT GetViewIndex(Integer& result) override;
  HRESULT SetStoreProcIndex(Integer value) override;
  HRESULT SetViewIndex(Integer value) override;
  HRESULT Add(TOleVariantField*& result) override;
  HRESULT AddValue(std::u16string_view name, const Variant& value) override;
  HRESULT Clear() override;
  HRESULT SaveToOle(Variant& packet) override;
  HRESULT LoadFromOle(const Variant& packet) override;
  HRESULT FindField(std::u16string_view name, TOleVariantField*& result) override;

 private:
  TQXOleVariant& packet_;
};

}  // namespace qxTools::qxOleVariant
