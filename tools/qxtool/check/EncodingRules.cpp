// ENC1..: what a file is encoded as.
#include "Characters.h"
#include "Context.h"

namespace qxtool::check {

namespace {

std::string ByteInHex(char c) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  return {kDigits[Byte(c) >> 4], kDigits[Byte(c) & 15]};
}

bool IsText(const Context& context) { return context.coding.coding == TextCoding::kCodePage950; }

void StrayByte(const Event&, Context& context) {
  if (!IsText(context) || context.coding.expectedUtf8) return;
  const std::string_view text = context.text;
  for (std::size_t i = 0; i < text.size(); i += CharacterSize(text, i))
    if (Byte(text[i]) >= 0x80 && CharacterSize(text, i) == 1)
      context.Report(i, i + 1, "the byte " + ByteInHex(text[i]) + " begins no character of code page 950");
}

void OtherEncoding(const Event&, Context& context) {
  const CodingFacts& facts = context.coding;
  const bool isUtf8 = facts.coding == TextCoding::kUtf8;
  if (facts.coding == TextCoding::kOther) return context.Report(0, 0, "the file is UTF-16");
  if (!facts.expectedUtf8 && isUtf8)
    return context.Report(0, 0,
                          facts.markSize != 0 ? "the file is UTF-8, with a byte-order mark"
                                              : "the file is UTF-8, not code page 950");
  if (facts.firstInvalid != kNowhere)
    context.Report(facts.firstInvalid, facts.firstInvalid + 1, "this byte is no UTF-8");
}

void Simplified(const Event&, Context& context) {
  if (context.coding.coding == TextCoding::kGb2312 && !context.coding.expectedUtf8)
    context.Report(0, 0, "all characters of this file are GB2312: it may be simplified Chinese");
}

bool IsOddControl(char c) { return (Byte(c) < ' ' && c != '\t' && c != '\r' && c != '\n') || c == 0x7F; }

bool IsUserDefined(std::string_view text, std::size_t place) {
  if (place + 1 == text.size()) return false;
  const char16_t wide = WideOf(text[place], text[place + 1]);
  return wide >= 0xE000 && wide <= 0xF8FF;
}

void OddCharacters(const Event&, Context& context) {
  if (context.coding.coding == TextCoding::kGb2312 || context.coding.coding == TextCoding::kOther) return;
  for (const std::size_t place : context.coding.lacking)
    context.Report(place, place + 1, "code page 950 lacks this character: it becomes ?");
  const std::string_view text = context.text;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t size = CharacterSize(text, i);
    if (IsOddControl(text[i])) context.Report(i, i + 1, "the control byte " + ByteInHex(text[i]));
    if (size == 2 && IsUserDefined(text, i))
      context.Report(i, i + 2, "a user-defined character, which other systems show otherwise");
    i += size;
  }
}

constexpr Rule kEncodingRules[] = {
    {"ENC101", Level::kError, FileKind::kText, 0, true, "a byte that is no character of code page 950",
     "Programs take the byte behind it along: a quote or a line end can vanish.", "Put the character right.",
     "Name \xFF\n", "Name\n", On(EventKind::kWholeFile), StrayByte},
    {"ENC102", Level::kError, FileKind::kText, 0, true, "a file in another encoding than is expected",
     "Other characters are read, and a byte-order mark is text in front of the first word.",
     "Use --utf8, or save the file in code page 950.",
     "\xEF\xBB\xBF"
     "Name\n",
     "Name\n", On(EventKind::kWholeFile), OtherEncoding},
    {"ENC103", Level::kWarning, FileKind::kText, 0, true,
     "text that is GB2312 where code page 950 is expected", "The bytes are read as other characters.",
     "Convert it: qxtool convert --from gb2312 --to big5.",
     "\xBB\xFA\xC6\xF7\xBB\xFA\xC6\xF7\xBB\xFA\xC6\xF7\xBB\xFA\xC6\xF7\n",  // 机器, four times, in GB2312
     "\xBE\xF7\xBE\xB9\xBE\xF7\xBE\xB9\xBE\xF7\xBE\xB9\xA4\x40\xA4\x40\n",  // 機器, three times, 一一
     On(EventKind::kWholeFile), Simplified},
    {"ENC104", Level::kWarning, FileKind::kText, 0, true,
     "a control byte, a user-defined character, or one that code page 950 lacks",
     "A NUL or 1A ends the text for some programs; the others show as ? or as another character elsewhere.",
     "Spell it otherwise.", "Name \x1A\n", "Name\n", On(EventKind::kWholeFile), OddCharacters},
};

}  // namespace

std::span<const Rule> EncodingRules() { return kEncodingRules; }

}  // namespace qxtool::check
