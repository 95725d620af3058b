#include <qxTools/runtime/CodePage950.h>

#include <map>

#include "support/Testing.h"

namespace qxTools {
namespace {

std::string TwoBytes(int code) { return {static_cast<char>(code >> 8), static_cast<char>(code)}; }

TEST(CodePage950, ReadsAndWritesThePage) {
  struct {
    const char* bytes;
    const char16_t* wide;
    const char* utf8;
  } const cases[] = {
      {"", u"", ""},
      {"A1\x7F", u"A1\x7F", "A1\x7F"},
      {"\xA4\xA4\xA4\xE5", u"\u4E2D\u6587", "\xE4\xB8\xAD\xE6\x96\x87"},     // 中文
      {"\xA4\x40@\xA6\x7E", u"\u4E00@\u5E74", "\xE4\xB8\x80@\xE5\xB9\xB4"},  // 一@年
      {"\xA1\x45", u"\u2027", "\xE2\x80\xA7"},
      {"\xA1\xC2\xA1\xD1", u"\u00AF\u00D7", "\xC2\xAF\xC3\x97"},
      {"\xA3\xE1", u"\u20AC", "\xE2\x82\xAC"},
      {"\xF9\xD6\xF9\xFE", u"\u7881\u2593", "\xE7\xA2\x81\xE2\x96\x93"},
      // The ends of the user-defined areas.
      {"\xFA\x40\xFE\xFE", u"\uE000\uE310", "\xEE\x80\x80\xEE\x8C\x90"},
      {"\x8E\x40\xA0\xFE", u"\uE311\uEEB7", "\xEE\x8C\x91\xEE\xBA\xB7"},
      {"\x81\x40\x8D\xFE", u"\uEEB8\uF6B0", "\xEE\xBA\xB8\xEF\x9A\xB0"},
      {"\xC6\xA1\xC8\xFE", u"\uF6B1\uF848", "\xEF\x9A\xB1\xEF\xA1\x88"},
      {"\xC6\xE7\xC7\xE9", u"\uF6F7\uF796", "\xEF\x9B\xB7\xEF\x9E\x96"},  // no kana, no circled digit
  };
  for (const auto& c : cases) {
    EXPECT_EQ(BytesToWide(c.bytes), c.wide) << c.utf8;
    EXPECT_EQ(WideToBytes(c.wide), c.bytes) << c.utf8;
    EXPECT_EQ(BytesToUtf8(c.bytes), c.utf8);
    EXPECT_EQ(Utf8ToBytes(c.utf8), c.bytes) << c.utf8;
  }
}

TEST(CodePage950, AByteThatBeginsNoCharacterStandsAlone) {
  using Row = std::pair<const char*, const char16_t*>;
  for (const auto& [bytes, wide] : {Row("\x80\xFF", u"\xDC80\xDCFF"),
                                    {"\xA4 \xA4\x40\xA4", u"\xDCA4 \u4E00\xDCA4"},
                                    {"\xA3\xC0 \xA3\xFC", u"\xDCA3\xDCC0 \xDCA3\xDCFC"},
                                    {"\x81\xA4\x40", u"\uEEFA@"},
                                    {"\xC9\x7F\xC9\xA0", u"\xDCC9\x7F\xDCC9\xDCA0"}}) {
    EXPECT_EQ(BytesToWide(bytes), wide);
    EXPECT_EQ(WideToBytes(wide), bytes);
  }
  EXPECT_EQ(BytesToUtf8("\xA4\x40\xFF\xA4"), "\xE4\xB8\x80\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(CodePage950, EveryTwoBytesComeBackButForTheTenSecondCodes) {
  const std::map<int, int> mainCodes = {
      {0xA2CC, 0xA451}, {0xA2CE, 0xA4CA}, {0xF9E9, 0xA2A5}, {0xF9EA, 0xA2A6}, {0xF9EB, 0xA2A7},
      {0xF9F9, 0xA2A4}, {0xF9FA, 0xA27E}, {0xF9FB, 0xA2A1}, {0xF9FC, 0xA2A2}, {0xF9FD, 0xA2A3}};
  int characters = 0;
  for (int code = 0; code <= 0xFFFF; ++code) {
    const std::u16string wide = BytesToWide(TwoBytes(code));
    characters += wide.size() == 1;
    const auto second = mainCodes.find(code);
    EXPECT_EQ(WideToBytes(wide), TwoBytes(second == mainCodes.end() ? code : second->second))
        << std::hex << code;
  }
  EXPECT_EQ(characters, 13503 + 5 * 157 + 19 * 157 + 13 * 157 + 94 + 2 * 157);
}

TEST(CodePage950, WhatThePageLacksIsAQuestionMark) {
  EXPECT_EQ(WideToBytes(u"a\u00E9\uFFFD\uE000z"), "a??\xFA\x40z");
  EXPECT_EQ(WideToBytes(u"\xD83D\xDE00\xD83D\xDC80"), "??") << "one for a surrogate pair";
  EXPECT_EQ(WideToBytes(u"\xD83D-\xDC7F\xDD00\xD83D"), "?-???") << "one for a lone surrogate";
  EXPECT_EQ(WideToBytes(u"\u00A2\u2022"), "??") << "no look-alikes";
}

TEST(CodePage950, InvalidUtf8GivesOneQuestionMarkForEachPiece) {
  test::ExpectRows(Utf8ToBytes,
                   {{"\xEF\xBB\xBFz", "?z"},               // a byte-order mark
                    {"\xC3\xA9\xF0\x9F\x98\x80z", "??z"},  // valid, not in the page
                    {"\xE4\xB8", "?"},                     // cut short
                    {"\xE4\xB8\xE4\xB8\xAD", "?\xA4\xA4"},
                    {"\xF0\x9F\x98z\xF4\x90\x80\x80", "?z????"},       // cut short; above 10FFFF
                    {"\xC0\xAF\xE0\x80\xAF\xED\xB2\xA4", "????????"},  // overlong forms, a surrogate
                    {"\x80\xBF\xFF", "???"}});
}

TEST(CodePage950, LongTextIsReadAcrossEveryBorder) {
  std::string bytes, utf8;
  for (std::size_t i = 0; i < 9000; ++i) {
    bytes.append(i % 71, 'x').append("\xA4\xA4");
    utf8.append(i % 71, 'x').append("\xE4\xB8\xAD");
  }
  EXPECT_EQ(BytesToUtf8("y" + bytes), "y" + utf8);
  EXPECT_EQ(Utf8ToBytes(utf8), bytes);
}

}  // namespace
}  // namespace qxTools
