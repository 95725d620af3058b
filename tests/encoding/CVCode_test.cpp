#include <qxTools/base/CodePage950.h>
#include <qxTools/encoding/CVCode.h>

#include <random>

#include "support/Testing.h"

namespace qxTools::CVCode {
namespace {

using test::Rows;

std::string ReadFile(const std::string& name) { return test::BytesOf(QXTOOLS_TEST_DATA "/cvcode/" + name); }

TEST(CVCode, FrequentAndExceptionalCharactersAndAPageReadRight) {
  ASSERT_FALSE(ReadFile("to_big5.utf8").empty() || ReadFile("to_gb.gb2312").empty());
  EXPECT_EQ(BytesToUtf8(GBtoBIG5(ReadFile("to_big5.gb2312"))), ReadFile("to_big5.utf8"));
  EXPECT_EQ(BIG5toGB(Utf8ToBytes(ReadFile("to_gb.utf8"))), ReadFile("to_gb.gb2312"));
}

TEST(CVCode, GbBecomesBig5ByTheIndexAlone) {
  // clang-format off
  Rows([](const std::string& text) { return GBtoBIG5(text); })
      ("\xCA\xAE\xD8\xA6\xD8\xA3", "\xA4\x51\xA4\xCA\xA4\x61")  // 十卅兀, by their first codes
      ("\xA1\xA1\xA1\xA4\xA1\xAA\xA9\xB3\xA3\xAE", "\xA1\x40\xA1\x45\xA1\x58\xA2\x7A\xA1\x44")
      ("ASCII ~\x7F\x80\xA0", "ASCII ~\x7F\x80\xA0")("\xA3\x41", GBtoBIG5("\xA1\xFD"))  // index 92
      ("\xA0\xFF", GBtoBIG5("\xA1\xA1"))  // index 0
      ("\xA1\x41\xA1", "\xA1\x41\xA1")("\xA2", "\xA2")
      ("\xB3", GBtoBIG5("\xB1\xBC"))  // a zero byte stands behind the last one
      ("\xF9\x42\xF9\x43\xFA", GBtoBIG5("\xF7\xFE") + "\xF9\x43\xFA");
}

TEST(CVCode, Big5BecomesGbByItsTrailBytes) {
  Rows([](const std::string& text) { return BIG5toGB(text); })
      ("\xA2\xCC\xA2\xCE\xC9\x4A", "\xCA\xAE\xD8\xA6\xD8\xA3")  // 十卅兀, by their second codes
      ("\xA1\x40\xA1\x41\xA1\x42\xA1\x43\xA1\x44\xA1\x45", "  \xA3\xAC\xA1\xA2\xA1\xA3  \xA1\xA4")
      ("\xA1\x50\xA1\x58\xA1\x5E\xA1\xB0", "\xA1\xA4\xA1\xAA\xA3\xA9\xA1\xF9")
      ("\xA6\x54\xA7\x60\xAF\x40", "      ")  // 吋呎浬, amounts of their own
      ("\xAA\x7A\xC6\xA1\xC8\xFE", "      ")  // 沬 is not 沫; user-defined
      ("ASCII ~\x7F\x80\xA0", "ASCII ~\x7F\x80\xA0")("\xA4 \xA4\x40\xA4", "\xA4 \xD2\xBB\xA4")
      ("\xA4\x7F\xA4\xA0\xA4\xFF\xFF\x40", "\xA4\x7F\xA4\xA0\xA4\xFF\xFF\x40");
  // clang-format on
}

/// How many characters have a counterpart, and how many of those come back.
std::pair<int, int> Cover(int first, int last, int firstTrail, auto there, auto back) {
  std::pair<int, int> coverage;
  for (int code = first; code <= last; ++code) {
    if ((code & 0xFF) < firstTrail || (code & 0xFF) == 0xFF) continue;
    const std::string character = {static_cast<char>(code >> 8), static_cast<char>(code)};
    const std::string converted = there(character);
    if (converted.size() != 2 || converted == "  " || converted == character) continue;
    ++coverage.first;
    coverage.second += back(converted) == character;
  }
  return coverage;
}

TEST(CVCode, CoverageIsAsPublished) {
  EXPECT_EQ(Cover(0xB0A1, 0xF7FE, 0xA1, GBtoBIG5, BIG5toGB), std::pair(6556, 6504)) << "GB2312 hanzi";
  EXPECT_EQ(Cover(0xA1A1, 0xAFFE, 0xA1, GBtoBIG5, BIG5toGB), std::pair(321, 262)) << "GB2312 symbols";
  EXPECT_EQ(Cover(0xA440, 0xC67E, 0x40, BIG5toGB, GBtoBIG5), std::pair(5278, 5001)) << "BIG5 level 1";
  EXPECT_EQ(Cover(0xC940, 0xF9D5, 0x40, BIG5toGB, GBtoBIG5), std::pair(1897, 1503)) << "BIG5 level 2";
}

TEST(CVCode, TheConverterReportsWhatBecomesSpaces) {
  std::vector<std::pair<std::uint64_t, int>> missing;
  TConverter converter(drGBtoBIG5, [&](auto offset, auto code) { missing.emplace_back(offset, code); });
  const std::string text = "ab\xD8\xAD\xD6\xD0\xD8\xAD\xC3\xB8.\xD8";  // 丨中丨酶, a lone last byte
  std::string converted;
  for (const char c : text) converted += converter.Convert({&c, 1});
  EXPECT_EQ(converted + converter.Finish(), GBtoBIG5(text));
  EXPECT_EQ(converter.Convert("\xC3\xB8 \xC3"), "   ");  // the next text counts from 0 again
  EXPECT_EQ(missing, (decltype(missing){{2, 0xD8AD}, {6, 0xD8AD}, {8, 0xC3B8}, {0, 0xC3B8}}));
  EXPECT_EQ(converter.Convert("\xB8-"), "  -");  // only a byte that may begin a character waits
}

/// Text of every kind of byte in runs of all lengths, `size` bytes.
std::string RandomText(std::mt19937& random, std::size_t size) {
  constexpr std::pair<unsigned, unsigned> kKinds[] = {{0x00, 0x7F}, {0xA1, 0xF7}, {0xA0, 0xFF}, {0x00, 0xFF}};
  std::string text;
  while (text.size() < size) {
    const auto [low, high] = kKinds[random() % std::size(kKinds)];
    for (auto left = random() % 99; left > 0; --left)
      text += static_cast<char>(low + random() % (high - low + 1));
  }
  return text.substr(0, size);
}

TEST(CVCode, ABlockIsConvertedAsItsCharactersOneByOne) {
  std::mt19937 random;
  for (std::size_t size = 0; size < 600; ++size)
    for (const TDirection direction : {drGBtoBIG5, drBIG5toGB}) {
      const std::string text = RandomText(random, size);
      TConverter converter(direction);
      std::string converted;
      for (const char c : text) converted += converter.Convert({&c, 1});
      EXPECT_EQ((direction == drGBtoBIG5 ? GBtoBIG5 : BIG5toGB)(text), converted + converter.Finish());
    }
}

}  // namespace
}  // namespace qxTools::CVCode
