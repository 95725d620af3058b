#include <qxTools/base/AsciiFastPath.h>
#include <qxTools/base/CodePage950.h>
#include <qxTools/base/CodePage950Bytes.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace qxTools {

namespace {

// --- The look-ups, constant data laid out by the compiler --------------------

constexpr unsigned kRowLength = 157;
constexpr char16_t kStrayByte = 0xDC00;
constexpr char16_t kReplacement = 0xFFFD;

constexpr char16_t kPublished[] = {
#include "CodePage950Table.inc"
};
static_assert(std::size(kPublished) == (0xF9 - 0xA1 + 1) * kRowLength);

struct UserArea {
  unsigned firstLead;
  unsigned firstColumn;
  unsigned lastLead;
  char16_t firstWide;
};
constexpr UserArea kUserAreas[] = {
    {0xFA, 0, 0xFE, 0xE000}, {0x8E, 0, 0xA0, 0xE311}, {0x81, 0, 0x8D, 0xEEB8}, {0xC6, 63, 0xC8, 0xF6B1}};

/// The wide character of each code from 8000 on, or 0 if there is none.
using WideTable = std::array<char16_t, 0x8000>;
/// The code of each wide character (the byte for U+DC80 to U+DCFF); 0 where the page lacks it.
using CodeTable = std::array<std::uint16_t, 0x10000>;

constexpr unsigned CodeAt(unsigned lead, unsigned column) {
  return lead << 8 | (column < 63 ? 0x40 + column : 0xA1 - 63 + column);
}

constexpr WideTable MakeWideTable() {
  WideTable table{};
  const char16_t* published = kPublished;
  for (unsigned lead = 0xA1; lead <= 0xF9; ++lead)
    for (unsigned column = 0; column < kRowLength; ++column)
      table[CodeAt(lead, column) - 0x8000] = *published++;
  for (const UserArea& area : kUserAreas) {
    char16_t wide = area.firstWide;
    for (unsigned lead = area.firstLead; lead <= area.lastLead; ++lead)
      for (unsigned column = lead == area.firstLead ? area.firstColumn : 0; column < kRowLength; ++column)
        table[CodeAt(lead, column) - 0x8000] = wide++;
  }
  return table;
}

constexpr WideTable kWide = MakeWideTable();

/// Of two codes for one character the first is the main one, but for these.
constexpr bool IsSecondCode(unsigned code) { return code == 0xA2CC || code == 0xA2CE; }

constexpr CodeTable MakeCodeTable() {
  CodeTable table{};
  for (unsigned code = 0x8000; code <= 0xFFFF; ++code) {
    const char16_t wide = kWide[code - 0x8000];
    if (wide != 0 && table[wide] == 0 && !IsSecondCode(code)) table[wide] = static_cast<std::uint16_t>(code);
  }
  for (unsigned byte = 0x80; byte <= 0xFF; ++byte)
    table[kStrayByte + byte] = static_cast<std::uint16_t>(byte);
  return table;
}

constexpr CodeTable kCode = MakeCodeTable();

// --- Steps -------------------------------------------------------------------

unsigned Byte(char c) { return static_cast<unsigned char>(c); }

/// The character of the two bytes from `p` on, the first of them beyond ASCII; 0 where none is.
char16_t WideAt(const char* p) { return kWide[(Byte(p[0]) << 8 | Byte(p[1])) - 0x8000]; }

/// The character of the two bytes at `p`, the first of which is not ASCII; 0 if they are none.
char16_t PairAt(const char* p, const char* end) {
  return end - p > 1 ? kWide[(Byte(p[0]) << 8 | Byte(p[1])) - 0x8000] : char16_t{0};
}

/// Reads the characters that begin before `stop`; the last one may reach beyond it, up to `end`.
void ReadWide(const char*& p, const char* stop, const char* end, char16_t*& out) {
  while (p < stop) {
    if (Byte(*p) < 0x80) {
      CopyAscii(p, stop, out);
      continue;
    }
    const char16_t wide = end - p > 1 ? WideAt(p) : char16_t{0};
    *out++ = wide != 0 ? wide : static_cast<char16_t>(kStrayByte + Byte(*p));
    p += wide != 0 ? 2 : 1;
  }
}

/// Writes `wide` in code page 950: two bytes, the single byte that it was read from, or "?".
void WriteCode(char16_t wide, char*& out) {
  const unsigned code = kCode[wide];
  if (code > 0xFF) *out++ = static_cast<char>(code >> 8);
  *out++ = code != 0 ? static_cast<char>(code & 0xFF) : '?';
}

bool IsHighSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xD800; }
bool IsLowSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xDC00; }

void WriteUtf8(const char16_t* p, const char16_t* end, char*& out) {
  while (p < end) {
    const unsigned wide = IsLowSurrogate(*p) ? kReplacement : *p;
    if (wide < 0x80) {
      CopyAscii(p, end, out);
      continue;
    }
    ++p;
    if (wide < 0x800) {
      *out++ = static_cast<char>(0xC0 | wide >> 6);
    } else {
      *out++ = static_cast<char>(0xE0 | wide >> 12);
      *out++ = static_cast<char>(0x80 | (wide >> 6 & 0x3F));
    }
    *out++ = static_cast<char>(0x80 | (wide & 0x3F));
  }
}

/// The bytes that may follow a UTF-8 lead byte: how many, and the range of the first of them, which keeps
/// overlong forms, surrogates and values above 10FFFF out.
struct Utf8Tail {
  int count;
  unsigned low;
  unsigned high;
};

Utf8Tail TailOf(unsigned lead) {
  if (lead < 0xC2 || lead > 0xF4) return {0, 0, 0};
  if (lead < 0xE0) return {1, 0x80, 0xBF};
  if (lead < 0xF0) return {2, lead == 0xE0 ? 0xA0u : 0x80u, lead == 0xED ? 0x9Fu : 0xBFu};
  return {3, lead == 0xF0 ? 0x90u : 0x80u, lead == 0xF4 ? 0x8Fu : 0xBFu};
}

/// Reads one character beyond ASCII; 0, which the page lacks here, for invalid text and beyond U+FFFF.
char16_t ReadUtf8(const char*& p, const char* end) {
  const unsigned lead = Byte(*p++);
  const Utf8Tail tail = TailOf(lead);
  if (tail.count == 0) return 0;
  unsigned wide = lead & (0x3Fu >> tail.count);
  unsigned low = tail.low;
  unsigned high = tail.high;
  for (int i = 0; i < tail.count; ++i) {
    if (p == end || Byte(*p) < low || Byte(*p) > high) return 0;
    wide = wide << 6 | (Byte(*p++) & 0x3F);
    low = 0x80;
    high = 0xBF;
  }
  return wide <= 0xFFFF ? static_cast<char16_t>(wide) : char16_t{0};
}

}  // namespace

std::u16string BytesToWide(std::string_view s) {
  std::u16string result(s.size(), u'\0');
  const char* p = s.data();
  const char* end = p + s.size();
  char16_t* out = result.data();
  ReadWide(p, end, end, out);
  result.resize(static_cast<std::size_t>(out - result.data()));
  return result;
}

std::string WideToBytes(std::u16string_view s) {
  const auto wideCount = std::count_if(s.begin(), s.end(), [](char16_t unit) { return unit >= 0x80; });
  std::string result(s.size() + static_cast<std::size_t>(wideCount), '\0');
  const char16_t* p = s.data();
  const char16_t* end = p + s.size();
  char* out = result.data();
  while (p < end) {
    if (*p < 0x80) {
      CopyAscii(p, end, out);
      continue;
    }
    const bool isPair = IsHighSurrogate(*p) && end - p > 1 && IsLowSurrogate(p[1]);
    WriteCode(*p, out);  // no surrogate pair is in the page: "?"
    p += isPair ? 2 : 1;
  }
  result.resize(static_cast<std::size_t>(out - result.data()));
  return result;
}

std::size_t CharacterSize(std::string_view text, std::size_t at) {
  const char* const p = text.data() + at;
  return Byte(*p) >= 0x80 && PairAt(p, text.data() + text.size()) != 0 ? 2 : 1;
}

void UseMainCodes(std::string& text) {
  char* p = text.data();
  char* const end = p + text.size();
  while ((p = SkipAscii(p, end)) < end) {
    const char16_t wide = PairAt(p, end);
    if (wide != 0)
      WriteCode(wide, p);
    else
      ++p;
  }
}

std::string BytesToUtf8(std::string_view s) {
  // By pieces through the stack: the result is the only large block, and its size grows with what is written.
  constexpr std::ptrdiff_t kPiece = 4096;
  char16_t wide[kPiece];
  char utf8[kPiece * 3];
  std::string result;
  result.reserve(s.size() + s.size() / 2);  // two bytes of Chinese are three in UTF-8
  const char* p = s.data();
  const char* end = p + s.size();
  while (p < end) {
    char16_t* wideEnd = wide;
    ReadWide(p, p + std::min(kPiece, end - p), end, wideEnd);
    char* utf8End = utf8;
    WriteUtf8(wide, wideEnd, utf8End);
    result.append(utf8, utf8End);
  }
  return result;
}

std::string Utf8ToBytes(std::string_view utf8) {
  std::string result(utf8.size(), '\0');
  const char* p = utf8.data();
  const char* end = p + utf8.size();
  char* out = result.data();
  while (p < end) {
    if (Byte(*p) < 0x80) {
      CopyAscii(p, end, out);
      continue;
    }
    WriteCode(ReadUtf8(p, end), out);
  }
  result.resize(static_cast<std::size_t>(out - result.data()));
  return result;
}

std::size_t FindStrayByte(std::string_view s) {
  constexpr std::ptrdiff_t kBlock = 32;
  const char* p = s.data();
  const char* const end = p + s.size();
  while (p < end) {
    if (end - p >= kBlock && IsAsciiBlock<kBlock>(p)) {
      p += kBlock;
    } else if (Byte(*p) < 0x80) {
      ++p;
    } else {
      if (end - p < 2 || WideAt(p) == 0) return static_cast<std::size_t>(p - s.data());
      p += 2;
    }
  }
  return std::string_view::npos;
}

}  // namespace qxTools
