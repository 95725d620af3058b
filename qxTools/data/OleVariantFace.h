// The packet as other modules see it: result codes in place of exceptions.
#pragma once

#include <qxTools/data/qxOleVariant.h>

namespace qxTools::qxOleVariant {

class TQXOleVariant::Face final : public IQXOleVariant {
 public:
  explicit Face(TQXOleVariant& packet) : packet_(packet) {}

  HRESULT QueryInterface(const GUID& iid, void** result) override;
  Integer _AddRef() override;
  Integer _Release() override;
  HRESULT GetFields(Integer Index, TOleVariantField*& Result) override;
  HRESULT GetItems(Integer Index, Variant& Result) override;
  HRESULT GetValue(std::u16string_view Name, Variant& Result) override;
  HRESULT SetItems(Integer Index, const Variant& Value) override;
  HRESULT SetValue(std::u16string_view Name, const Variant& Value) override;
  HRESULT GetCount(Integer& Result) override;
  HRESULT GetSqlValue(std::u16string_view Name, WideString& Result) override;
  HRESULT GetAction(Integer& Result) override;
  HRESULT GetOption(Integer& Result) override;
  HRESULT SetAction(Integer Value) override;
  HRESULT SetOption(Integer Value) override;
  HRESULT GetStoreProcIndex(Integer& Result) override;
  HRESULT GetViewIndex(Integer& Result) override;
  HRESULT SetStoreProcIndex(Integer Value) override;
  HRESULT SetViewIndex(Integer Value) override;
  HRESULT Add(TOleVariantField*& Result) override;
  HRESULT AddValue(std::u16string_view Name, const Variant& Value) override;
  HRESULT Clear() override;
  HRESULT SaveToOle(Variant& Packet) override;
  HRESULT LoadFromOle(const Variant& Packet) override;
  HRESULT FindField(std::u16string_view Name, TOleVariantField*& Result) override;

 private:
  TQXOleVariant& packet_;
};

}  // namespace qxTools::qxOleVariant
