#include <qxTools/base/Ascii.h>
#include <qxTools/platform/Files.h>
#include <qxTools/stores/FieldMarks.h>
#include <qxTools/stores/QXStringTable.h>
#include <qxTools/strings/QXStrTools.h>

#include <limits>
#include <unordered_map>

namespace qxTools::QXStringTable {

using QXStrTools::At;

namespace {

constexpr std::size_t kNoField = std::numeric_limits<std::size_t>::max();

std::size_t FindField(std::string_view line, const FieldMarks& marks, std::string_view name) {
  for (std::size_t i = 0; i < marks.Count(); ++i)
    if (SameText(marks.Text(line, i), name)) return i;
  return kNoField;
}

// What At gives for the n-th "[#" or "#]" of the line, where `offsets` holds the places of all of them.
Integer Position(const std::vector<std::size_t>& offsets, Integer n, std::string_view mark,
                 std::string_view line) {
  const auto i = static_cast<std::size_t>(n) - 1;
  if (i < offsets.size()) return static_cast<Integer>(offsets[i] + 1);
  return line.ends_with(mark.front()) ? -1 : 0;
}

}  // namespace

// --- Lines -------------------------------------------------------------------

std::string GenField(std::string_view s) {
  return std::string(kFieldBegin).append(QXStrTools::Trim(s, 0)).append(kFieldEnd);
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
  return record.append(head).append(newText).append(tail);
}

// --- The table ---------------------------------------------------------------

// What was worked out from the lines, and after how many changes that was.
struct TQXStringTable::Cache {
  static constexpr std::uint64_t kNever = std::numeric_limits<std::uint64_t>::max();

  std::uint64_t headerChanges = kNever;
  std::string header;
  std::unordered_map<std::string, Integer> numbers;  // by names in capitals, the first of equal ones

  std::uint64_t recordChanges = kNever;
  Integer recordNumber = 0;
  FieldMarks record;

  void ReadHeader(const std::string& line);
};

void TQXStringTable::Cache::ReadHeader(const std::string& line) {
  header = line;
  numbers.clear();
  const FieldMarks marks(line);
  for (std::size_t i = 0; i < marks.Count(); ++i)
    numbers.emplace(UpperCase(marks.Text(line, i)), static_cast<Integer>(i) + 1);
}

TQXStringTable::TQXStringTable(const std::string& fileName)
    : fileName_(fileName),
      temp_(fileName.empty() || SameText(fileName, "#TEMP")),
      cache_(std::make_unique<Cache>()) {
  if (temp_) return;
  if (!FileExists(fileName_)) CreateFileIfMissing(fileName_);
  LoadFromFile(fileName_);
  Top();
}

TQXStringTable::~TQXStringTable() = default;

void TQXStringTable::UpdateTable() const {
  if (!temp_) SaveToFile(fileName_);
}

void TQXStringTable::RevertTable() {
  if (FileExists(fileName_)) LoadFromFile(fileName_);
}

// --- Fields ------------------------------------------------------------------

void TQXStringTable::AddField(std::string_view name) {
  if (GetEmpty())
    Add(GenField(name));
  else if (FieldIndex(GetStrings(0), name) < 1)
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
  return GetEmpty() ? 0 : static_cast<Integer>(FieldMarks(GetStrings(0)).Count());
}

Integer TQXStringTable::NumberOf(std::string_view name) const {
  Cache& cache = *cache_;
  if (cache.headerChanges != GetChanges()) {
    if (cache.headerChanges == Cache::kNever || cache.header != GetStrings(0))
      cache.ReadHeader(GetStrings(0));
    cache.headerChanges = GetChanges();
  }
  const auto found = cache.numbers.find(UpperCase(name));
  return found != cache.numbers.end() ? found->second : 0;
}

// --- Records -----------------------------------------------------------------

void TQXStringTable::AddRecord(const std::vector<std::string>& values) {
  if (GetEmpty()) return;
  std::string line;
  const auto count = static_cast<std::size_t>(GetFieldCount());
  for (std::size_t i = 0; i < count; ++i) line += GenField(i < values.size() ? values[i] : "");
  Add(std::move(line));
}

void TQXStringTable::NewEmptyRecord() { AddRecord({}); }

Integer TQXStringTable::GetReccount() const { return GetEmpty() ? 0 : GetCount() - 1; }

// --- The cursor --------------------------------------------------------------

void TQXStringTable::Top() { recNo_ = GetReccount() > 0 ? 1 : 0; }

void TQXStringTable::Bottom() { recNo_ = GetReccount(); }

void TQXStringTable::Previous() {
  if (GetReccount() >= 1 && recNo_ >= 2) --recNo_;
}

void TQXStringTable::Next() {
  if (GetReccount() >= 1 && recNo_ < GetReccount()) ++recNo_;
}

// --- The current record ------------------------------------------------------

std::string TQXStringTable::GetField(std::string_view name) const {
  const Integer number = GetEmpty() ? 0 : NumberOf(name);
  if (number < 1) return {};
  const std::string& line = GetStrings(recNo_);
  Cache& cache = *cache_;
  if (cache.recordChanges != GetChanges() || cache.recordNumber != recNo_) {
    cache.record = FieldMarks(line);
    cache.recordChanges = GetChanges();
    cache.recordNumber = recNo_;
  }
  // On purpose: a record with fewer fields is cut by the same sum, with 0 or -1 for the mark that is missing.
  const Integer start = Position(cache.record.Begins(), number, kFieldBegin, line) + 2;
  const Integer end = Position(cache.record.Ends(), number, kFieldEnd, line);
  return QXStrTools::substr(line, start, end - start);
}

void TQXStringTable::SetField(std::string_view name, std::string_view value) {
  if (GetEmpty()) return;
  SetStrings(recNo_, ReplaceField(GetStrings(recNo_), NumberOf(name), value));
}

}  // namespace qxTools::QXStringTable
