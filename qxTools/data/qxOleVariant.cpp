#include <qxTools/base/CodePage950.h>
#include <qxTools/data/FoldedKey.h>
#include <qxTools/data/OleVariantFace.h>
#include <qxTools/sql/QXSqlTools.h>

namespace qxTools::qxOleVariant {

TQXOleVariant::TQXOleVariant() : FFace(std::make_unique<Face>(*this)) {}
TQXOleVariant::~TQXOleVariant() = default;

void* TQXOleVariant::FindInterface(const GUID& iid) {
  if (iid == IQXOleVariant::IID) return static_cast<IQXOleVariant*>(FFace.get());
  return TSafeInterfacedObject::FindInterface(iid);
}

// --- By place ----------------------------------------------------------------------------------------

TOleVariantField* TQXOleVariant::Add() { return Append(std::make_unique<TOleVariantField>()); }

TOleVariantField* TQXOleVariant::Append(std::unique_ptr<TOleVariantField> field) {
  TOleVariantField* const added = FFields.Add(std::move(field));
  try {
    FIndex.Append(added->Name, GetCount() - 1);
  } catch (...) {
    FFields.Delete(GetCount() - 1);
    FIndex.Drop();
    throw;
  }
  return added;
}

void TQXOleVariant::AddValue(std::u16string_view, const Variant&) { Add(); }

void TQXOleVariant::Clear() {
  FFields.Clear();
  FIndex.Drop();
}

// --- By name -----------------------------------------------------------------------------------------

TOleVariantField* TQXOleVariant::FindField(std::u16string_view Name) {
  const auto nameAt = [this](Integer i) { return FFields.GetItems(i)->Name.View(); };
  const Integer place = FIndex.Find(FoldedKey(Name), GetCount(), nameAt).last;
  return place >= 0 ? FFields.GetItems(place) : nullptr;
}

Variant TQXOleVariant::GetValue(std::u16string_view Name) {
  const TOleVariantField* const field = FindField(Name);
  if (field == nullptr) throw Exception("Param " + WideToBytes(Name) + " is not found.");
  return field->Value;
}

void TQXOleVariant::SetValue(std::u16string_view Name, const Variant& Value) {
  TOleVariantField* const field = FindField(Name);
  if (field != nullptr)
    field->Value = Value;
  else
    Append(std::make_unique<TOleVariantField>(FoldedKey(Name), Value));
}

WideString TQXOleVariant::GetSqlValue(std::u16string_view Name) {
  return BytesToWide(QXSqlTools::VarToSql(GetValue(Name)));
}

// --- The packet --------------------------------------------------------------------------------------

void TQXOleVariant::SaveToOle(Variant& Packet) const {
  const Integer count = GetCount();
  if (count == 0) return;
  Variant packet = Variant::NewArray(0, static_cast<Integer>(std::int64_t{2} * count - 1));
  for (Integer i = 0; i < count; ++i) {
    const TOleVariantField& field = *GetFields(i);
    packet.SetElement(2 * i, BytesToWide(field.Name));
    packet.SetElement(2 * i + 1, field.Value);
  }
  Packet = std::move(packet);
}

void TQXOleVariant::LoadFromOle(const Variant& Packet) {
  if (!Packet.IsArray()) return;
  const VarBounds bounds = Packet.Bounds();
  const std::int64_t length = std::int64_t{bounds.High} - bounds.Low + 1;
  if (length <= 0) return;
  // A copy: the packet may be a value of this very object.
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
  const Variant packet = Packet;
  Clear();
  for (Integer i = 0; i < length / 2; ++i) {
    const Variant name = packet.GetElement(2 * i);
    Variant value = packet.GetElement(2 * i + 1);
    Append(std::make_unique<TOleVariantField>(FoldedKey(name.AsWideString()), std::move(value)));
  }
}

}  // namespace qxTools::qxOleVariant
