#include <qxTools/base/CodePage950.h>

#include "support/Testing.h"

namespace qxTools {
namespace {

std::string TwoBytes(int code) { return {static_cast<char>(code >> 8), static_cast<char>(code)}; }

TEST(CodePage950, ReadsAndWritesThePage) {
  const std::tuple<const char*, const char16_t*, const char*> cases[] = {
      {"A1\x7F\xA4\x40@\xA6\x7E", u"A1\x7F\u4E00@\u5E74", "A1\x7F\xE4\xB8\x80@\xE5\xB9\xB4"},  // 一@年
      {"\xA1\xC2\xA3\xE1", u"\u00AF\u20AC", "\xC2\xAF\xE2\x82\xAC"},
      {"\xF9\xD6\xF9\xFE", u"\u7881\u2593", "\xE7\xA2\x81\xE2\x96\x93"},
      // The ends of the user-defined areas.
      {"\xFA\x40\xFE\xFE", u"\uE000\uE310", "\xEE\x80\x80\xEE\x8C\x90"},
      {"\x8E\x40\xA0\xFE", u"\uE311\uEEB7", "\xEE\x8C\x91\xEE\xBA\xB7"},
      {"\x81\x40\x8D\xFE", u"\uEEB8\uF6B0", "\xEE\xBA\xB8\xEF\x9A\xB0"},
      {"\xC6\xA1\xC8\xFE", u"\uF6B1\uF848", "\xEF\x9A\xB1\xEF\xA1\x88"},
  };
  for (const auto& [bytes, wide, utf8] : cases) {
    EXPECT_EQ(BytesToWide(bytes), wide) << utf8;
    EXPECT_EQ(WideToBytes(wide), bytes) << utf8;
    EXPECT_EQ(BytesToUtf8(bytes), utf8);
    EXPECT_EQ(Utf8ToBytes(utf8), bytes) << utf8;
  }
  // A byte that begins no character stands alone.
  const char* const stray = "\x80\xFF\xA4 \xA4\x40\xA3\xC0 \xC9\x7F\xC9\xA0";
  EXPECT_EQ(BytesToWide(stray), u"\xDC80\xDCFF\xDCA4 \u4E00\xDCA3\xDCC0 \xDCC9\x7F\xDCC9\xDCA0");
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
  // clang-format off
  test::Rows<std::u16string, std::string>(WideToBytes)
      (u"a\u00E9\u2022\uFFFD\uE000z", "a???\xFA\x40z")  // no look-alikes
      (u"\xD83D\xDE00\xD83D\xDC80", "??")  // one for a surrogate pair
      (u"\xD83D-\xDC7F\xDD00\xD83D", "?-???");  // one for a lone surrogate
  // Invalid UTF-8 gives one for each piece that could have begun a character.
  test::Rows(Utf8ToBytes)
      ("\xEF\xBB\xBFz", "?z")  // a byte-order mark
      ("\xC3\xA9\xF0\x9F\x98\x80z", "??z")  // valid, not in the page
      ("\xE4\xB8\xE4\xB8\xAD\xE4\xB8", "?\xA4\xA4?")
      ("\xF0\x9F\x98z\xF4\x90\x80\x80", "?z????")  // cut short; above 10FFFF
      ("\xC0\xAF\xE0\x80\xAF\xED\xB2\xA4", "????????")  // overlong, surrogate
      ("\x80\xBF\xFF", "???");
  // clang-format on
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
