// The string table: lines cut by counting, against the wording, and a text that loads as it was saved.
#include <qxTools/stores/QXStringTable.h>

#include "Plain.h"
#include "Target.h"

namespace {

using namespace qxTools;
using namespace QXStringTable;
namespace plain = fuzz::plain;

std::int32_t FieldCount(const std::string& line) {
  return std::min(plain::Occurs("[#", line), plain::Occurs("#]", line));
}

std::string FieldAt(const std::string& line, std::int32_t i) {
  const std::int32_t start = plain::At("[#", line, i);
  return plain::Substr(line, start + 2, plain::At("#]", line, i) - start - 2);
}

std::int32_t NumberOf(const std::string& line, const std::string& name) {
  for (std::int32_t i = 1; i <= FieldCount(line); ++i)
    if (plain::Upper(FieldAt(line, i)) == plain::Upper(name)) return i;
  return 0;
}

std::string Replaced(const std::string& line, std::int32_t i, const std::string& text) {
  const std::int32_t begin = plain::At("[#", line, i) + 1;
  const std::int32_t end = std::max(plain::At("#]", line, i), 1);
  return line.substr(0, static_cast<std::size_t>(begin)) + text +
         line.substr(static_cast<std::size_t>(end) - 1);
}

void CheckLine(const std::string& line, const std::string& name, std::int32_t index) {
  const std::int32_t number = NumberOf(line, name);
  FUZZ_CHECK(FieldIndex(line, name) == number);
  FUZZ_CHECK(ReplaceField(line, index, name) == Replaced(line, index, name));
  Integer position = -7;
  Integer length = -7;
  AtField(line, name, position, length);
  if (number > 0) {
    FUZZ_CHECK(position == plain::At("[#", line, number) + 2);
    FUZZ_CHECK(length == plain::At("#]", line, number) - plain::At("[#", line, number) - 3);
  } else {
    FUZZ_CHECK(position == (line.empty() ? 0 : -7) && length == position);
  }
}

void CheckCells(const TQXStringTable& table, const std::string& name) {
  const std::string header = table.GetStrings(0);
  const std::string line = table.GetStrings(table.GetRecNo());
  FUZZ_CHECK(table.GetFieldCount() == FieldCount(header));
  const std::int32_t number = NumberOf(header, name);
  const std::int32_t start = plain::At("[#", line, number) + 2;
  const std::int32_t stop = plain::At("#]", line, number) - 1;
  FUZZ_CHECK(table.GetField(name) == (number > 0 ? plain::Substr(line, start, stop - start + 1) : ""));
}

void Run(TQXStringTable& table, fuzz::Input& input) {
  const std::uint8_t call = input.Byte();
  const std::string text = input.Text(6);
  switch (call % 12) {
    case 0:
    case 1:
      return table.AddField(text);
    case 2:
      return table.RemoveField(text);
    case 3:
      return table.AddRecord({text, "x"});
    case 4:
      return table.NewEmptyRecord();
    case 5:
      return table.RemoveRecord(call / 12);
    case 6:
      return call / 12 % 2 == 0 ? table.Top() : table.Bottom();
    case 7:
      return call / 12 % 2 == 0 ? table.Next() : table.Previous();
    case 8:
      return table.SetText(table.GetText() + text);
    case 9:
      return table.Insert(call / 12, text);
    default: {
      if (table.GetEmpty() || table.GetRecNo() >= table.GetCount()) return;
      const std::string line = table.GetStrings(table.GetRecNo());
      const std::int32_t number = NumberOf(table.GetStrings(0), text);
      const std::string value = input.Text(6);
      table.SetField(text, value);
      FUZZ_CHECK(table.GetStrings(table.GetRecNo()) == Replaced(line, number, value));
    }
  }
}

}  // namespace

FUZZ_TARGET(StringTable) {
  const std::int32_t index = input.Small();
  const std::string name = input.Text(8);
  CheckLine(input.Text(60), name, index);

  TQXStringTable table("#temp");
  table.SetText(input.Text(200));
  for (int i = 0; i < 60 && !input.AtEnd(); ++i) {
    fuzz::Completes([&] { Run(table, input); });
    if (!table.GetEmpty() && table.GetRecNo() < table.GetCount()) CheckCells(table, name);
  }
  const std::string saved = table.GetText();
  TQXStringTable again("");
  again.SetText(saved);
  FUZZ_CHECK(again.GetText() == plain::WithCrLf(saved));
}
