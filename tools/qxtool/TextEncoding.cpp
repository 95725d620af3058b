#include "TextEncoding.h"

#include <qxTools/base/Ascii.h>
#include <qxTools/base/CodePage950.h>
#include <qxTools/encoding/CVCode.h>

#include <algorithm>

#include "TextIo.h"
#include "platform/System.h"

namespace qxtool {

namespace {

using enum TextEncoding;

constexpr std::size_t kCodes = 0x10000;

struct EncodingName {
  const char* name;
  TextEncoding encoding;
};

// The first name of an encoding is the one that is shown.
constexpr EncodingName kNames[] = {
    {"big5", kBig5},     {"cp950", kBig5},   {"ms950", kBig5},     {"windows950", kBig5},
    {"gb2312", kGb2312}, {"euccn", kGb2312}, {"gb", kGb2312},      {"gbk", kGbk},
    {"cp936", kGbk},     {"ms936", kGbk},    {"windows936", kGbk}, {"utf8", kUtf8},
};

unsigned Lead(std::size_t code) { return static_cast<unsigned>(code >> 8); }
unsigned Trail(std::size_t code) { return static_cast<unsigned>(code & 0xFF); }

std::string BytesOf(std::size_t code) {
  return {static_cast<char>(Lead(code)), static_cast<char>(Trail(code))};
}

std::uint16_t CodeOf(std::string_view pair) {
  return static_cast<std::uint16_t>(static_cast<unsigned char>(pair[0]) << 8 |
                                    static_cast<unsigned char>(pair[1]));
}

/// Calls `visit` with each pair of bytes that a double-byte encoding may have.
template <class Visit>
void ForEachPair(Visit&& visit) {
  for (std::size_t lead = 0x81; lead <= 0xFE; ++lead)
    for (std::size_t trail = 0x40; trail <= 0xFE; ++trail) visit(lead << 8 | trail);
}

bool IsGb2312Place(std::size_t code) {
  return Lead(code) >= 0xA1 && Lead(code) <= 0xF7 && Trail(code) >= 0xA1;
}

/// The code of a unit in code page 950, or 0.
std::uint16_t Big5Of(char16_t unit) {
  const std::string bytes = qxTools::WideToBytes({&unit, 1});
  return bytes.size() == 2 ? CodeOf(bytes) : std::uint16_t{0};
}

// --- To and from UTF-16 ------------------------------------------------------------------------------

CodeMap Big5ToUnits() {
  CodeMap map(kCodes);
  ForEachPair([&](std::size_t code) {
    const std::u16string units = qxTools::BytesToWide(BytesOf(code));
    if (units.size() == 1) map[code] = units[0];
  });
  return map;
}

CodeMap UnitsToBig5() {
  CodeMap map(kCodes);
  for (std::size_t unit = 0x80; unit < kCodes; ++unit) map[unit] = Big5Of(static_cast<char16_t>(unit));
  return map;
}

/// Two symbols that code page 936, and so nearly every text, reads otherwise than the standard's table.
constexpr std::pair<std::uint16_t, char16_t> kGbSymbols[] = {
    {0xA1A4, 0x00B7},  // ·
    {0xA1AA, 0x2014},  // —
};

CodeMap GbToUnits(TextEncoding encoding) {
  const SystemCharset charset(encoding == kGbk ? "GBK" : "GB2312");
  CodeMap map(kCodes);
  ForEachPair([&](std::size_t code) {
    if (encoding == kGbk || IsGb2312Place(code))
      map[code] =
          charset.Unit(static_cast<unsigned char>(Lead(code)), static_cast<unsigned char>(Trail(code)));
  });
  return map;
}

CodeMap PreferredGbToUnits(TextEncoding encoding) {
  CodeMap map = GbToUnits(encoding);
  for (const auto& [code, unit] : kGbSymbols) map[code] = unit;
  return map;
}

/// Both readings of the two symbols come in.
CodeMap UnitsToGb2312() {
  CodeMap map(kCodes);
  const CodeMap units = GbToUnits(kGb2312);
  for (std::size_t code = kCodes; code-- > 0;)
    if (units[code] != 0) map[units[code]] = static_cast<std::uint16_t>(code);
  for (const auto& [code, unit] : kGbSymbols) map[unit] = code;
  return map;
}

// --- Between double-byte encodings -------------------------------------------------------------------

CodeMap Converted(std::string (*convert)(std::string_view), bool (*isPlace)(std::size_t)) {
  CodeMap map(kCodes);
  ForEachPair([&](std::size_t code) {
    if (!isPlace(code)) return;
    const std::string pair = convert(BytesOf(code));
    if (pair != "  ") map[code] = CodeOf(pair);
  });
  return map;
}

CodeMap Gb2312ToBig5() { return Converted(qxTools::CVCode::GBtoBIG5, IsGb2312Place); }

CodeMap Big5ToGb2312() {
  return Converted(qxTools::CVCode::BIG5toGB, [](std::size_t code) {
    return Lead(code) >= 0xA1 && (Trail(code) <= 0x7E || Trail(code) >= 0xA1);
  });
}

/// What gb2312 has changes script; a further character is itself where code page 950 has it.
CodeMap GbkToBig5() {
  CodeMap map = Gb2312ToBig5();
  const CodeMap gb2312 = GbToUnits(kGb2312);
  const CodeMap gbk = GbToUnits(kGbk);
  for (std::size_t code = 0; code < kCodes; ++code)
    if (gb2312[code] == 0)
      map[code] = gbk[code] != 0 ? Big5Of(static_cast<char16_t>(gbk[code])) : std::uint16_t{0};
  return map;
}

CodeMap GbkToGb2312() {
  CodeMap map(kCodes);
  const CodeMap gb2312 = GbToUnits(kGb2312);
  for (std::size_t code = 0; code < kCodes; ++code)
    if (gb2312[code] != 0) map[code] = static_cast<std::uint16_t>(code);
  return map;
}

struct Way {
  TextEncoding from;
  TextEncoding to;
  CodeMap (*make)();
};

constexpr Way kWays[] = {
    {kBig5, kUtf8, Big5ToUnits},
    {kUtf8, kBig5, UnitsToBig5},
    {kGb2312, kUtf8, [] { return PreferredGbToUnits(kGb2312); }},
    {kGbk, kUtf8, [] { return PreferredGbToUnits(kGbk); }},
    {kUtf8, kGb2312, UnitsToGb2312},
    {kGb2312, kBig5, Gb2312ToBig5},
    {kBig5, kGb2312, Big5ToGb2312},
    {kGbk, kBig5, GbkToBig5},
    {kGbk, kGb2312, GbkToGb2312},
};

}  // namespace

TextEncoding FindEncoding(const std::string& name) {
  std::string plain = qxTools::LowerCase(name);
  std::erase_if(plain, [](char c) { return c == '-' || c == '_'; });
  for (const EncodingName& known : kNames)
    if (plain == known.name) return known.encoding;
  throw Failure("unknown encoding " + Visible(name) +
                "; known are big5 (cp950), gb2312 (euc-cn), gbk (cp936) and utf8 (utf-8)");
}

std::string NameOf(TextEncoding encoding) {
  return std::ranges::find(kNames, encoding, &EncodingName::encoding)->name;
}

std::vector<std::string> EncodingNames() {
  return {NameOf(kBig5), NameOf(kGb2312), NameOf(kGbk), NameOf(kUtf8)};
}

CodeMap MakeCodeMap(TextEncoding from, TextEncoding to) {
  for (const Way& way : kWays)
    if (way.from == from && way.to == to) return way.make();
  if (from == to) throw Failure("nothing to convert from " + NameOf(from) + " to " + NameOf(to));
  throw Failure(NameOf(to) + " is for reading only");
}

std::string Utf8Of(char16_t unit) {
  const auto byte = [](int value) { return static_cast<char>(value); };
  if (unit < 0x80) return {byte(unit)};
  if (unit < 0x800) return {byte(0xC0 | unit >> 6), byte(0x80 | (unit & 0x3F))};
  return {byte(0xE0 | unit >> 12), byte(0x80 | (unit >> 6 & 0x3F)), byte(0x80 | (unit & 0x3F))};
}

}  // namespace qxtool
