// Data packets: any variant loads or raises what is stated, and what was loaded travels unchanged.
#include <qxTools/base/CodePage950.h>
#include <qxTools/data/qxOleVariant.h>

#include <bit>
#include <cmath>

#include "Plain.h"
#include "Target.h"

namespace {

using namespace qxTools;
using qxOleVariant::TQXOleVariant;

Variant MakeValue(fuzz::Input& input, int depth);

Variant MakeArray(fuzz::Input& input, int depth) {
  const Integer low = input.Byte() % 8 != 0 ? 0 : input.Small();
  const Integer count = input.Byte() % 16;
  const VarBounds bounds[] = {{low, low + count - 1}, {0, 0}};
  const bool flat = input.Byte() % 16 != 0;
  Variant array = Variant::NewArray(std::span(bounds, flat ? 1 : 2));
  for (Integer i = 0; i < count; ++i) {
    const Integer places[] = {low + i, 0};
    array.SetElement(std::span(places, flat ? 1 : 2), MakeValue(input, depth + 1));
  }
  return array;
}

Variant MakeValue(fuzz::Input& input, int depth) {
  const std::uint8_t kind = input.Byte();
  switch (kind % 12) {
    case 0:
      return Variant();
    case 1:
      return Variant::Null();
    case 2:
      return input.Number();
    case 3: {
      const auto real = std::bit_cast<double>(input.Number<std::uint64_t>());
      return std::isnan(real) ? 0.0 : real;  // one that is not a number equals nothing
    }
    case 4:
      return input.Bit();
    case 5:
      return BytesToWide(input.Text(40));
    case 6:
      return Variant::FromCurrency(input.Number());
    case 7:
      return Variant::FromDate(input.Number() / 1000.0);
    case 8:
      return Variant::OfType(input.Number<VarType>());
    case 9: {
      const std::string bytes = input.Text(8);
      Variant array = Variant::NewArray(1, static_cast<Integer>(bytes.size()), varByte);
      std::copy(bytes.begin(), bytes.end(), array.Bytes().begin());
      return array;
    }
    case 10:
      if (depth < 4) return MakeArray(input, depth);
      [[fallthrough]];
    default:
      return input.Text(40);
  }
}

/// Each name is found, and it is the last field of it.
void CheckNames(TQXOleVariant& packet) {
  for (Integer i = 0; i < packet.GetCount(); ++i) {
    const std::string name(packet.GetFields(i)->Name.View());
    Integer last = i;
    for (Integer k = i; k < packet.GetCount(); ++k)
      if (packet.GetFields(k)->Name.View() == name) last = k;
    FUZZ_CHECK(name.size() <= 20 && packet.FindField(BytesToWide(name)) == packet.GetFields(last));
  }
}

void CheckSame(const TQXOleVariant& a, const TQXOleVariant& b) {
  FUZZ_CHECK(a.GetCount() == b.GetCount());
  for (Integer i = 0; i < a.GetCount(); ++i) {
    FUZZ_CHECK(a.GetFields(i)->Name.View() == b.GetFields(i)->Name.View());
    FUZZ_CHECK(a.GetItems(i) == b.GetItems(i));
  }
}

}  // namespace

FUZZ_TARGET(Packet) {
  const Variant source = input.Byte() % 8 != 0 ? MakeArray(input, 0) : MakeValue(input, 0);
  TQXOleVariant packet;
  packet.SetValue(u"Old", 1);
  std::string error;
  if (!fuzz::Completes([&] { packet.LoadFromOle(source); }, &error))
    FUZZ_CHECK(error == "Variant array index out of bounds" || error == "Variant has no text form" ||
               error == "Variant is not an array" ||  // a reference to one, which holds none
               error.ends_with(" is not a valid date"));
  else if (!source.IsArray())
    FUZZ_CHECK(packet.GetCount() == 1);
  else if (const VarBounds bounds = source.Bounds(); bounds.High >= bounds.Low)
    FUZZ_CHECK(packet.GetCount() == (bounds.High - bounds.Low + 1) / 2);
  CheckNames(packet);

  Variant travelling = Variant::Null();
  packet.SaveToOle(travelling);
  TQXOleVariant arrived;
  arrived.LoadFromOle(travelling);
  CheckSame(packet, arrived);
  // A packet that is a value of the very object that loads it.
  arrived.SetValue(u"Nested", travelling);
  arrived.LoadFromOle(arrived.GetValue(u"Nested"));
  CheckSame(packet.GetCount() > 0 ? packet : arrived, arrived);
  for (int i = 0; i < 8 && !input.AtEnd(); ++i) {
    const std::u16string name = BytesToWide(input.Text(24));
    const Variant value = MakeValue(input, 0);
    arrived.SetValue(name, value);
    if (WideToBytes(name).size() <= 20) FUZZ_CHECK(arrived.GetValue(name) == value);
    fuzz::Try([&] { return arrived.GetSqlValue(name); });
  }
  CheckNames(arrived);
}
