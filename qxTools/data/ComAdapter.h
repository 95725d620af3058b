// The packet as other modules see it: it returns result codes and throws nothing.
#pragma once

#include <qxTools/data/qxOleVariant.h>

namespace qxTools::qxOleVariant {

class TQXOleVariant::ComAdapter final : public IQXOleVariant {
 public:
  explicit ComAdapter(TQXOleVariant& packet) : packet_(packet) {}

  HRESULT QXTOOLS_CALL QueryInterface(const GUID& iid, void** result) override;
  Integer QXTOOLS_CALL _AddRef() override;
  Integer QXTOOLS_CALL _Release() override;
  HRESULT QXTOOLS_CALL GetFields(Integer index, TOleVariantField*& result) override;
  HRESULT QXTOOLS_CALL GetItems(Integer index, Variant& result) override;
  HRESULT QXTOOLS_CALL GetValue(std::u16string_view name, Variant& result) override;
  HRESULT QXTOOLS_CALL SetItems(Integer index, const Variant& value) override;
  HRESULT QXTOOLS_CALL SetValue(std::u16string_view name, const Variant& value) override;
  HRESULT QXTOOLS_CALL GetCount(Integer& result) override;
  HRESULT QXTOOLS_CALL GetSqlValue(std::u16string_view name, WideString& result) override;
  HRESULT QXTOOLS_CALL GetAction(Integer& result) override;
  HRESULT QXTOOLS_CALL GetOption(Integer& result) override;
  HRESULT QXTOOLS_CALL SetAction(Integer value) override;
  HRESULT QXTOOLS_CALL SetOption(Integer value) override;
  HRESULT QXTOOLS_CALL GetStoreProcIndex(Integer& result) override;
  HRESULT QXTOOLS_CALL GetViewIndex(Integer& result) override;
  HRESULT QXTOOLS_CALL SetStoreProcIndex(Integer value) override;
  HRESULT QXTOOLS_CALL SetViewIndex(Integer value) override;
  HRESULT QXTOOLS_CALL Add(TOleVariantField*& result) override;
  HRESULT QXTOOLS_CALL AddValue(std::u16string_view name, const Variant& value) override;
  HRESULT QXTOOLS_CALL Clear() override;
  HRESULT QXTOOLS_CALL SaveToOle(Variant& packet) override;
  HRESULT QXTOOLS_CALL LoadFromOle(const Variant& packet) override;
  HRESULT QXTOOLS_CALL FindField(std::u16string_view name, TOleVariantField*& result) override;

 private:
  TQXOleVariant& packet_;
};

}  // namespace qxTools::qxOleVariant
