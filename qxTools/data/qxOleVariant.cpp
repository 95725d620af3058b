#include <qxTools/base/CodePage950.h>
#include <qxTools/data/FoldedKey.h>
#include <qxTools/data/OleVariantFace.h>
#include <qxTools/sql/QXSqlTools.h>

namespace qxTools::qxOleVariant {

TQXOleVariant::TQXOleVariant() : face_(std::make_unique<Face>(*this)) {}
TQXOleVariant::~TQXOleVariant() = default;

void* TQXOleVariant::FindInterface(const GUID& iid) {
  if (iid == IQXOleVariant::IID) return static_cast<IQXOleVariant*>(face_.get());
  return TSafeInterfacedObject::FindInterface(iid);
}

// --- By place ----------------------------------------------------------------------------------------

TOleVariantField* TQXOleVariant::Add() { return Append(std::make_unique<TOleVariantField>()); }

TOleVariantField* TQXOleVariant::Append(std::unique_ptr<TOleVariantField> field) {
  TOleVariantField* const added = fields_.Add(std::move(field));
  try {
    index_.Append(added->Name, GetCount() - 1);
  } catch (...) {
    fields_.Delete(GetCount() - 1);
    index_.Drop();
    throw;
  }
  return added;
}

void TQXOleVariant::AddValue(std::u16string_view, const Variant&) { Add(); }

void TQXOleVariant::Clear() {
  fields_.Clear();
  index_.Drop();
}

// --- By name -----------------------------------------------------------------------------------------

TOleVariantField* TQXOleVariant::FindField(std::u16string_view name) {
  const auto nameAt = [this](Integer i) { return fields_.GetItems(i)->Name.View(); };
  const Integer place = index_.Find(FoldedKey(name), GetCount(), nameAt).last;
  return place >= 0 ? fields_.GetItems(place) : nullptr;
}

Variant TQXOleVariant::GetValue(std::u16string_view name) {
  const TOleVariantField* const field = FindField(name);
  if (field == nullptr) throw Exception("Param " + WideToBytes(name) + " is not found.");
  return field->Value;
}

void TQXOleVariant::SetValue(std::u16string_view name, const Variant& value) {
  TOleVariantField* const field = FindField(name);
  if (field != nullptr)
    field->Value = value;
  else
    Append(std::make_unique<TOleVariantField>(FoldedKey(name), value));
}

WideString TQXOleVariant::GetSqlValue(std::u16string_view name) {
  return BytesToWide(QXSqlTools::VarToSql(GetValue(name)));
}

// --- The packet --------------------------------------------------------------------------------------

void TQXOleVariant::SaveToOle(Variant& packet) const {
  const Integer count = GetCount();
  if (count == 0) return;
  Variant filled = Variant::NewArray(0, static_cast<Integer>(std::int64_t{2} * count - 1));
  for (Integer i = 0; i < count; ++i) {
    const TOleVariantField& field = *GetFields(i);
    filled.SetElement(2 * i, BytesToWide(field.Name));
    filled.SetElement(2 * i + 1, field.Value);
  }
  packet = std::move(filled);
}

void TQXOleVariant::LoadFromOle(const Variant& packet) {
  if (!packet.IsArray()) return;
  const VarBounds bounds = packet.Bounds();
  const std::int64_t length = std::int64_t{bounds.High} - bounds.Low + 1;
  if (length <= 0) return;
  // A copy: the packet may be a value of this very object.
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
  const Variant copy = packet;
  Clear();
  for (Integer i = 0; i < length / 2; ++i) {
    const Variant name = copy.GetElement(2 * i);
    Variant value = copy.GetElement(2 * i + 1);
    Append(std::make_unique<TOleVariantField>(FoldedKey(name.AsWideString()), std::move(value)));
  }
}

}  // namespace qxTools::qxOleVariant
