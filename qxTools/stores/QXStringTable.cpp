#include <qxTools/base/Ascii.h>
#include <qxTools/base/CaselessHash.h>
#include <qxTools/platform/Files.h>
#include <qxTools/runtime/HashIndex.h>
#include <qxTools/stores/FieldMarks.h>
#include <qxTools/stores/QXStringTable.h>
#include <qxTools/strings/QXStrTools.h>

#include <limits>

namespace qxTools::QXStringTable {

using QXStrTools::At;

namespace {

constexpr std::size_t kNoField = std::numeric_limits<std::size_t>::max();

std::size_t FindField(std::string_view line, const FieldMarks& marks, std::string_view name) {
  for (std::size_t i = 0; i < marks.Count(); ++i)
    if (SameText(marks.Text(line, i), name)) return i;
  return kNoField;
}

std::string_view TrimSpaces(std::string_view s) {
  while (s.starts_with(' ')) s.remove_prefix(1);
  while (s.ends_with(' ')) s.remove_suffix(1);
  return s;
}

// What At returns for the n-th "[#" or "#]" of the line, where `offsets` holds the places of all of them.
Integer Position(const Offsets& offsets, Integer n, std::string_view mark, std::string_view line) {
  const auto i = static_cast<std::size_t>(n) - 1;
  if (i < offsets.size()) return static_cast<Integer>(offsets[i] + 1);
  return line.ends_with(mark.front()) ? -1 : 0;
}

// On purpose: a record with fewer fields is cut by the same sum, with 0 or -1 for the mark that is missing.
[[gnu::noinline]] std::string CutField(const FieldMarks& record, Integer number, std::string_view line) {
  const Integer start = Position(record.Begins(), number, kFieldBegin, line) + 2;
  const Integer end = Position(record.Ends(), number, kFieldEnd, line);
  return QXStrTools::substr(line, start, end - start);
}

}  // namespace

// --- Lines -------------------------------------------------------------------

std::string GenField(std::string_view s) {
  std::string field(kFieldBegin);
  field.append(TrimSpaces(s)).append(kFieldEnd);
  return field;
}

Integer FieldIndex(std::string_view rec, std::string_view field) {
  const std::size_t found = FindField(rec, FieldMarks(rec), field);
  return found != kNoField ? static_cast<Integer>(found) + 1 : 0;
}

void AtField(std::string_view rec, std::string_view field, Integer& pos, Integer& len) {
  if (rec.empty()) pos = len = 0;
  const FieldMarks marks(rec);
  const std::size_t found = FindField(rec, marks, field);
  if (found == kNoField) return;
  const auto begin = static_cast<Integer>(marks.Begins()[found]) + 1;
  pos = begin + 2;
  len = static_cast<Integer>(marks.Ends()[found]) + 1 - begin - 3;
}

std::string ReplaceField(std::string_view rec, Integer index, std::string_view newText) {
  const auto begin = static_cast<std::size_t>(At(kFieldBegin, rec, index)) + 1;
  const auto end = static_cast<std::size_t>(std::max(At(kFieldEnd, rec, index), 1)) - 1;
  const std::string_view head = rec.substr(0, begin);
  const std::string_view tail = rec.substr(end);
  std::string record;
  record.reserve(head.size() + newText.size() + tail.size());
  record.append(head).append(newText).append(tail);
  return record;
}

// --- The table ---------------------------------------------------------------

namespace {

// A header's fields and their numbers, from 1, by name: the first of equal names.
struct Header {
  struct Field {
    std::string_view name;
    Integer number;
  };

  const std::string line;
  std::vector<Field> fields{};
  HashIndex<Integer> numbers{};

  explicit Header(std::string_view text);
  auto HasName(std::string_view name) const {
    return [this, name](Integer number) {
      return SameHashedName(fields[static_cast<std::size_t>(number) - 1].name, name);
    };
  }
  Integer NumberOf(std::string_view name) const;
};

[[gnu::noinline]] Integer Header::NumberOf(std::string_view name) const {
  const Integer* const found = numbers.Find({CaselessHash(name)}, HasName(name));
  return found != nullptr ? *found : 0;
}

Header::Header(std::string_view text) : line(text) {
  const FieldMarks marks(line);
  fields.resize(marks.Count());
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const std::string_view name = fields[i].name = marks.Text(line, i);
    fields[i].number = numbers.Insert(static_cast<Integer>(i) + 1, {CaselessHash(name)}, HasName(name));
  }
}

constexpr std::uint64_t kNever = std::numeric_limits<std::uint64_t>::max();

}  // namespace

struct TQXStringTable::State {
  std::string fileName;
  bool inMemory;
  Integer recNo = 0;
  std::string newRecord{};  // kept for its memory

  // What was worked out from the lines, and after how many of their changes.
  std::unique_ptr<const Header> header{};
  std::uint64_t headerChanges = kNever;
  std::size_t nextField = 0;  // in the header, after the one that was asked for last
  FieldMarks record{};
  std::string_view line{};  // the record's
  Integer recordNumber = 0;
  std::uint64_t recordChanges = kNever;

  const Header& HeaderOf(const TQXStringTable& table);
  void ReadHeader(const TQXStringTable& table);
  Integer NumberOf(const TQXStringTable& table, std::string_view name);
  const FieldMarks& RecordOf(const TQXStringTable& table);
  void ReadRecord(const TQXStringTable& table);
};

// The table has a line.
const Header& TQXStringTable::State::HeaderOf(const TQXStringTable& table) {
  if (headerChanges != table.GetChanges()) ReadHeader(table);
  return *header;
}

[[gnu::noinline]] void TQXStringTable::State::ReadHeader(const TQXStringTable& table) {
  if (header == nullptr || header->line != table.GetView(0))
    header = std::make_unique<Header>(table.GetView(0));
  headerChanges = table.GetChanges();
}

// Fields are mostly asked for one after the other.
inline Integer TQXStringTable::State::NumberOf(const TQXStringTable& table, std::string_view name) {
  const std::vector<Header::Field>& fields = HeaderOf(table).fields;
  if (nextField >= fields.size()) nextField = 0;
  const std::size_t guess = nextField++;  // which the next call need not wait for
  if (guess < fields.size() && SameBytes(fields[guess].name, name)) return fields[guess].number;
  const Integer number = header->NumberOf(name);
  nextField = static_cast<std::size_t>(number);
  return number;
}

inline const FieldMarks& TQXStringTable::State::RecordOf(const TQXStringTable& table) {
  if (recordChanges != table.GetChanges() || recordNumber != recNo) ReadRecord(table);
  return record;
}

[[gnu::noinline]] void TQXStringTable::State::ReadRecord(const TQXStringTable& table) {
  recordChanges = kNever;  // until they are read
  line = table.GetView(recNo);
  record.Read(line);
  recordChanges = table.GetChanges();
  recordNumber = recNo;
}

TQXStringTable::TQXStringTable(const std::string& fileName)
    : state_(new State{fileName, fileName.empty() || SameText(fileName, "#TEMP")}) {
  if (state_->inMemory) return;
  if (!FileExists(fileName)) CreateFileIfMissing(fileName);
  LoadFromFile(fileName);
  Top();
}

TQXStringTable::~TQXStringTable() = default;

void TQXStringTable::UpdateTable() const {
  if (!state_->inMemory) SaveToFile(state_->fileName);
}

void TQXStringTable::RevertTable() {
  if (FileExists(state_->fileName)) LoadFromFile(state_->fileName);
}

// --- Fields ------------------------------------------------------------------

void TQXStringTable::AddField(std::string_view name) {
  if (GetEmpty())
    Add(GenField(name));
  else if (FieldIndex(GetView(0), name) < 1)
    SetStrings(0, GetStrings(0) + GenField(name));
}

void TQXStringTable::RemoveField(std::string_view name) {
  if (GetEmpty()) return;
  std::string header = GetStrings(0);
  Integer position = 0;
  Integer length = 0;
  AtField(header, name, position, length);
  if (length <= 0) return;
  const std::size_t marks = kFieldBegin.size() + kFieldEnd.size();
  header.erase(static_cast<std::size_t>(position) - 1 - kFieldBegin.size(),
               static_cast<std::size_t>(length) + 1 + marks);
  SetStrings(0, header);
}

Integer TQXStringTable::GetFieldCount() const {
  return GetEmpty() ? 0 : static_cast<Integer>(state_->HeaderOf(*this).fields.size());
}

// --- Records -----------------------------------------------------------------

void TQXStringTable::AddRecord(const std::vector<std::string>& values) {
  if (GetEmpty()) return;
  const auto count = static_cast<std::size_t>(GetFieldCount());
  std::size_t size = count * (kFieldBegin.size() + kFieldEnd.size());
  for (const std::string& value : values) size += value.size();
  std::string& line = state_->newRecord;
  if (line.size() < size) line.resize(size);
  char* end = line.data();
  const auto put = [&end](std::string_view piece) { end += piece.copy(end, piece.size()); };
  for (std::size_t i = 0; i < count; ++i) {
    put(kFieldBegin);
    if (i < values.size()) put(TrimSpaces(values[i]));
    put(kFieldEnd);
  }
  const std::uint64_t changes = GetChanges() + 1;
  Add(std::string_view(line).substr(0, static_cast<std::size_t>(end - line.data())));
  state_->headerChanges = changes;  // after this one the header is as it was
}

void TQXStringTable::NewEmptyRecord() { AddRecord({}); }

Integer TQXStringTable::GetReccount() const { return GetEmpty() ? 0 : GetCount() - 1; }

// --- The cursor --------------------------------------------------------------

Integer TQXStringTable::GetRecNo() const { return state_->recNo; }

void TQXStringTable::Top() { state_->recNo = GetReccount() > 0 ? 1 : 0; }

void TQXStringTable::Bottom() { state_->recNo = GetReccount(); }

void TQXStringTable::Previous() {
  if (GetReccount() >= 1 && state_->recNo >= 2) --state_->recNo;
}

void TQXStringTable::Next() {
  if (GetReccount() >= 1 && state_->recNo < GetReccount()) ++state_->recNo;
}

// --- The current record ------------------------------------------------------

std::string TQXStringTable::GetField(std::string_view name) const {
  const Integer number = GetEmpty() ? 0 : state_->NumberOf(*this, name);
  if (number < 1) return {};
  const FieldMarks& record = state_->RecordOf(*this);
  const std::size_t i = static_cast<std::size_t>(number) - 1;
  if (i < record.Count()) return std::string(record.Text(state_->line, i));
  return CutField(record, number, state_->line);
}

void TQXStringTable::SetField(std::string_view name, std::string_view value) {
  if (GetEmpty()) return;
  const Integer recNo = state_->recNo;
  SetStrings(recNo, ReplaceField(GetView(recNo), state_->NumberOf(*this, name), value));
}

}  // namespace qxTools::QXStringTable
