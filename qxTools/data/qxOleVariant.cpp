#include <qxTools/base/CodePage950.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/data/ComAdapter.h>
#include <qxTools/data/NameChanges.h>
#include <qxTools/data/UpperCaseKey.h>
#include <qxTools/runtime/NamedList.h>
#include <qxTools/sql/QXSqlTools.h>

namespace qxTools::qxOleVariant {

namespace {

/// Names are looked up in capitals.
struct ExactName {
  static std::string_view Of(const TOleVariantField& field) { return field.Name; }
  static bool Same(std::string_view name, std::string_view asked) { return SameBytes(name, asked); }
};

[[noreturn, gnu::noinline]] void RaiseNotFound(std::u16string_view name) {
  throw Exception("Param " + WideToBytes(name) + " is not found.");
}

}  // namespace

struct TQXOleVariant::State {
  explicit State(TQXOleVariant& packet) : adapter(packet) {}

  void Append(std::u16string_view name, Variant value) {
    fields.Add(std::make_unique<TOleVariantField>(UpperCaseKey(name), std::move(value)));
  }

  TOleVariantField* Find(std::u16string_view name) {
    fields.Names().Follow(NameChanges());
    const Integer index = fields.Find(UpperCaseKey(name)).last;
    return index >= 0 ? fields.GetItems(index) : nullptr;
  }

  NamedList<TOleVariantField, ExactName> fields;
  ComAdapter adapter;
};

TQXOleVariant::TQXOleVariant() : state_(std::make_unique<State>(*this)) {}
TQXOleVariant::~TQXOleVariant() = default;

void* TQXOleVariant::FindInterface(const GUID& iid) {
  if (iid == IQXOleVariant::IID) return static_cast<IQXOleVariant*>(&state_->adapter);
  return TSafeInterfacedObject::FindInterface(iid);
}

// --- By index ----------------------------------------------------------------------------------------

Integer TQXOleVariant::GetCount() const { return state_->fields.GetCount(); }

TOleVariantField* TQXOleVariant::GetFields(Integer index) const { return state_->fields.GetItems(index); }

TOleVariantField* TQXOleVariant::Add() { return state_->fields.Add(std::make_unique<TOleVariantField>()); }

void TQXOleVariant::AddValue(std::u16string_view, const Variant&) { Add(); }

void TQXOleVariant::Clear() { state_->fields.Clear(); }

// --- By name -----------------------------------------------------------------------------------------

TOleVariantField* TQXOleVariant::FindField(std::u16string_view name) { return state_->Find(name); }

Variant TQXOleVariant::GetValue(std::u16string_view name) {
  const TOleVariantField* const field = state_->Find(name);
  if (field == nullptr) RaiseNotFound(name);
  return field->Value;
}

void TQXOleVariant::SetValue(std::u16string_view name, const Variant& value) {
  TOleVariantField* const field = FindField(name);
  if (field != nullptr)
    field->Value = value;
  else
    state_->Append(name, value);
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
    state_->Append(name.AsWideString(), std::move(value));
  }
}

}  // namespace qxTools::qxOleVariant
