#include <qxTools/base/AsciiFastPath.h>
#include <qxTools/base/PairBlocks.h>
#include <qxTools/encoding/CVCode.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <utility>

namespace qxTools::CVCode {

namespace {

#include "CVCodeTables.inc"

constexpr int kGbRow = 94;
constexpr int kBig5Row = 157;
static_assert(std::size(kBig5OfGb) == 8178 && std::size(kGbOfBig5) == 14758);

constexpr std::uint16_t kCopied = 0;
constexpr std::uint16_t kMissing = 0x2020;

// --- The look-ups, constant data laid out by the compiler --------------------

/// The counterpart of each pair of bytes, both as they lie in memory; `kCopied` where the first byte is
/// copied. It holds every odd pair, so that conversion is one look-up and no arithmetic.
using PairTable = std::array<std::uint16_t, 0x10000>;

constexpr std::uint16_t InMemory(int first, int second) {
  const int pair = std::endian::native == std::endian::little ? first | second << 8 : first << 8 | second;
  return static_cast<std::uint16_t>(pair);
}

constexpr std::uint16_t InMemory(std::uint16_t code) { return InMemory(code >> 8, code & 0xFF); }

constexpr PairTable MakeGbTable() {
  PairTable table{};
  for (int first = 0xA0; first <= 0xFF; ++first)
    for (int second = 0; second <= 0xFF; ++second) {
      const int index = (first - 0xA1) * kGbRow + (second - 0xA1);
      if (index >= 0 && index < static_cast<int>(std::size(kBig5OfGb)))
        table[InMemory(first, second)] = InMemory(kBig5OfGb[index]);
    }
  return table;
}

constexpr PairTable MakeBig5Table() {
  PairTable table{};
  for (int first = 0xA1; first <= 0xFE; ++first)
    for (int column = 0; column < kBig5Row; ++column) {
      const int second = column < 63 ? 0x40 + column : 0xA1 - 63 + column;
      table[InMemory(first, second)] = InMemory(kGbOfBig5[(first - 0xA1) * kBig5Row + column]);
    }
  return table;
}

constexpr PairTable kGbTable = MakeGbTable();
constexpr PairTable kBig5Table = MakeBig5Table();

const PairTable& TableOf(TDirection direction) { return direction == drGBtoBIG5 ? kGbTable : kBig5Table; }

// --- The scan ----------------------------------------------------------------

int Byte(char c) { return static_cast<unsigned char>(c); }

bool IsAscii(char c) { return Byte(c) < 0x80; }

/// The byte after the one at `p`; a zero after the last one.
int SecondAt(const char* p, const char* end) { return end - p > 1 ? Byte(p[1]) : 0; }

std::uint16_t EntryAt(const PairTable& table, const char* p, const char* end) {
  return table[InMemory(Byte(*p), SecondAt(p, end))];
}

std::ptrdiff_t LengthOf(std::uint16_t entry, const char* p, const char* end) {
  return entry == kCopied || end - p == 1 ? 1 : 2;
}

/// Converts what begins before `stop`; the last character may reach beyond it, up to `end`.
void ConvertPiece(const PairTable& table, const char*& p, const char* stop, const char* end, char*& out) {
  const auto convertPair = [&table](const char* pair, char* to) {
    std::uint16_t index;
    std::memcpy(&index, pair, sizeof index);
    const std::uint16_t entry = table[index];
    std::memcpy(to, &entry, sizeof entry);
    return entry != kCopied;
  };
  while (p < stop) {
    ConvertBlocks(p, stop, out, convertPair);
    if (p == stop) return;
    const std::uint16_t entry = EntryAt(table, p, end);
    std::memcpy(out, &entry, sizeof entry);
    if (entry == kCopied) *out = *p;
    out += entry == kCopied ? 1 : 2;
    p += LengthOf(entry, p, end);
  }
}

/// Appends to `result` what begins before `stop`, and returns where the next character begins. It works in
/// pieces through the stack, so that the memory of the result is written once.
const char* Append(std::string& result, const PairTable& table, const char* p, const char* stop,
                   const char* end) {
  constexpr std::ptrdiff_t kPiece = 16384;
  char piece[kPiece + 2];
  while (p < stop) {
    const char* pieceEnd = p + std::min(kPiece, stop - p);
    if (IsAllAscii(p, pieceEnd)) {
      result.append(p, pieceEnd);
      p = pieceEnd;
      continue;
    }
    char* out = piece;
    ConvertPiece(table, p, pieceEnd, end, out);
    result.append(piece, out);
  }
  return p;
}

std::string ConvertAll(const PairTable& table, std::string_view text) {
  std::string result;
  result.reserve(text.size() + 1);  // a lone last byte may become two
  const char* end = text.data() + text.size();
  Append(result, table, text.data(), end, end);
  return result;
}

}  // namespace

std::string GBtoBIG5(std::string_view text) { return ConvertAll(kGbTable, text); }

std::string BIG5toGB(std::string_view text) { return ConvertAll(kBig5Table, text); }

// --- Text in pieces ----------------------------------------------------------

TConverter::TConverter(TDirection direction, TMissing onMissing)
    : direction_(direction), onMissing_(std::move(onMissing)) {}

void TConverter::Report(const char* p, const char* stop, const char* end) const {
  if (!onMissing_) return;
  const char* begin = p;
  while (p < stop) {
    const std::uint16_t entry = EntryAt(TableOf(direction_), p, end);
    if (entry == kMissing)
      onMissing_(offset_ + static_cast<std::uint64_t>(p - begin),
                 static_cast<std::uint16_t>(Byte(*p) << 8 | SecondAt(p, end)));
    p += LengthOf(entry, p, end);
  }
}

std::string TConverter::Convert(std::string_view piece) {
  std::string result;
  const std::string text = std::exchange(pending_, {}).append(piece);
  if (text.empty()) return result;
  const char* end = text.data() + text.size();
  const char* last = end - 1;  // its character may go on in the next piece
  Report(text.data(), last, end);
  result.reserve(text.size());
  const char* p = Append(result, TableOf(direction_), text.data(), last, end);
  if (p == last && IsAscii(*p)) result += *p++;
  offset_ += static_cast<std::uint64_t>(p - text.data());
  pending_.assign(p, end);
  return result;
}

std::string TConverter::Finish() {
  const std::string text = std::exchange(pending_, {});
  Report(text.data(), text.data() + text.size(), text.data() + text.size());
  offset_ = 0;
  return ConvertAll(TableOf(direction_), text);
}

}  // namespace qxTools::CVCode
