#include <qxTools/encoding/CVCode.h>
#include <qxTools/runtime/CodePage950.h>

#include "support/Testing.h"

namespace qxTools::CVCode {
namespace {

using test::ExpectRows;

std::string ReadFile(const std::string& name) { return test::BytesOf(QXTOOLS_TEST_DATA "/cvcode/" + name); }

std::string TwoBytes(int code) { return {static_cast<char>(code >> 8), static_cast<char>(code)}; }

/// How many characters have a counterpart, and how many of those come back.
template <class There, class Back>
std::pair<int, int> Cover(int first, int last, int firstTrail, There there, Back back) {
  std::pair<int, int> coverage;
  for (int code = first; code <= last; ++code) {
    if ((code & 0xFF) < firstTrail || (code & 0xFF) == 0xFF) continue;
    const std::string converted = there(TwoBytes(code));
    if (converted.size() != 2 || converted == "  " || converted == TwoBytes(code)) continue;
    ++coverage.first;
    coverage.second += back(converted) == TwoBytes(code);
  }
  return coverage;
}

TEST(CVCode, TwoHundredFrequentCharactersAndAPageReadRight) {
  ASSERT_FALSE(ReadFile("to_big5.utf8").empty() || ReadFile("to_gb.gb2312").empty());
  EXPECT_EQ(BytesToUtf8(GBtoBIG5(ReadFile("to_big5.gb2312"))), ReadFile("to_big5.utf8"));
  EXPECT_EQ(BIG5toGB(Utf8ToBytes(ReadFile("to_gb.utf8"))), ReadFile("to_gb.gb2312"));
}

TEST(CVCode, MeaningDecidesBetweenCounterparts) {
  ExpectRows<std::string>(
      [](const auto& text) { return GBtoBIG5(text); },
      {
          {"\xBB\xFA\xCC\xE5\xCD\xF2\xD3\xEB", "\xBE\xF7\xC5\xE9\xB8\x55\xBB\x50"},  // 机体万与 機體萬與
          {"\xBA\xF3\xC0\xEF\xD4\xC6\xD6\xD6", "\xAB\xE1\xB8\xCC\xB6\xB3\xBA\xD8"},  // 后里云种 後裡雲種
          {"\xD6\xD3\xC7\xA9\xD7\xC5\xD4\xE0", "\xC4\xC1\xC3\xB1\xB5\xDB\xC5\xA6"},  // 钟签着脏 鐘簽著臟
          {"\xCC\xA8\xD1\xD2\xC0\xF5\xD0\xD7", "\xA5\x78\xA9\xA5\xAE\xDF\xA4\xBF"},  // 台岩栗凶
          {"\xD5\xBC\xCD\xD0\xD4\xC0\xC3\xB9", "\xA5\x65\xA6\xAB\xA9\xA8\xBE\x60"},  // 占托岳霉
          {"\xCE\xDB\xD0\xB9\xD7\xC9\xD1\xAC\xB9\xCD",
           "\xA6\xC3\xAA\x6E\xAB\x74\xE2\xC0\xB6\xB1"},              // 污泄咨熏雇
          {"\xC8\xFE\xEE\xD0\xE3\xDF", "\xB0\xD1\xB9\x5A\xA4\xF4"},  // 叁钚氵 參鈽水
          {"\xCA\xAE\xD8\xA6\xD8\xA3", "\xA4\x51\xA4\xCA\xA4\x61"},  // 十卅兀
          {"\xA1\xA1\xA1\xA4\xA1\xAA\xA9\xB3\xA3\xAE",
           "\xA1\x40\xA1\x45\xA1\x58\xA2\x7A\xA1\x44"},  // symbols
      });
  ExpectRows<std::string>(
      [](const auto& text) { return BIG5toGB(text); },
      {
          {"\xA9\xF3\xAB\xE1\xB5\xDB\xB0\xAE", "\xD3\xDA\xBA\xF3\xD7\xC5\xB8\xC9"},  // 於後著乾 于后着干
          {"\xA4\x5C\xA9\x70\xC1\x41\xAD\x6F", "\xC3\xB4\xC4\xE3\xC1\xCB\xBD\xEF"},  // 么妳瞭觔 么你了斤
          {"\xBB\x4F\xB2\x41\xF9\xD2\xF9\xD8", "\xCC\xA8\xC7\xF2\xB4\xD6\xC0\xEF"},  // 臺毬麤裏 台球粗里
          {"\xA2\xCC\xA2\xCE\xC9\x4A\xF9\xD6", "\xCA\xAE\xD8\xA6\xD8\xA3\xC6\xE5"},  // second codes; 碁 棋
          {"\xA1\x50\xA1\x58\xA1\x5E\xA1\xB0", "\xA1\xA4\xA1\xAA\xA3\xA9\xA1\xF9"},  // symbols
          {"\xA1\x40\xA1\x41\xA1\x42\xA1\x43\xA1\x44\xA1\x45", "  \xA3\xAC\xA1\xA2\xA1\xA3  \xA1\xA4"},
          {"\xA6\x54\xA7\x60\xAF\x40", "      "},  // 吋呎浬, amounts of their own
          {"\xAA\x7A\xC6\xA1\xC8\xFE", "      "},  // 沬 is not 沫; user-defined
      });
}

TEST(CVCode, OddPairs) {
  ExpectRows<std::string>([](const auto& text) { return GBtoBIG5(text); },
                          {
                              {"", ""},
                              {"ASCII ~\x7F\x80\xA0", "ASCII ~\x7F\x80\xA0"},
                              {"\xA3\x41", GBtoBIG5("\xA1\xFD")},  // index 92
                              {"\xA0\xFF", GBtoBIG5("\xA1\xA1")},  // index 0
                              {"\xA1\x41\xA1", "\xA1\x41\xA1"},
                              {"\xA2", "\xA2"},
                              {"\xB0", GBtoBIG5("\xAE\xBC")},  // a zero byte stands behind the last one
                              {"\xF9\x42\xF9\x43\xFA", GBtoBIG5("\xF7\xFE") + "\xF9\x43\xFA"},
                          });
  ExpectRows<std::string>([](const auto& text) { return BIG5toGB(text); },
                          {
                              {"ASCII ~\x7F\x80\xA0", "ASCII ~\x7F\x80\xA0"},
                              {"\xA4 \xA4\x40\xA4", "\xA4 \xD2\xBB\xA4"},
                              {"\xA4\x7F\xA4\xA0\xA4\xFF\xFF\x40", "\xA4\x7F\xA4\xA0\xA4\xFF\xFF\x40"},
                          });
}

TEST(CVCode, CoverageIsAsPublished) {
  EXPECT_EQ(Cover(0xB0A1, 0xF7FE, 0xA1, GBtoBIG5, BIG5toGB), std::pair(6556, 6504)) << "GB2312 hanzi";
  EXPECT_EQ(Cover(0xA1A1, 0xAFFE, 0xA1, GBtoBIG5, BIG5toGB), std::pair(321, 262)) << "GB2312 symbols";
  EXPECT_EQ(Cover(0xA440, 0xC67E, 0x40, BIG5toGB, GBtoBIG5), std::pair(5278, 5001)) << "BIG5 level 1";
  EXPECT_EQ(Cover(0xC940, 0xF9D5, 0x40, BIG5toGB, GBtoBIG5), std::pair(1897, 1503)) << "BIG5 level 2";
}

TEST(CVCode, TheConverterReportsWhatBecomesSpaces) {
  std::vector<std::pair<std::uint64_t, int>> missing;
  TConverter converter(drGBtoBIG5,
                       [&](std::uint64_t offset, std::uint16_t code) { missing.emplace_back(offset, code); });
  const std::string text = "ab\xD8\xAD\xD6\xD0\xD8\xAD\xC3\xB8.\xD8";  // 丨中丨酶, a lone last byte
  std::string converted;
  for (char c : text) converted += converter.Convert({&c, 1});
  converted += converter.Finish();
  EXPECT_EQ(converted, GBtoBIG5(text));
  const std::vector<std::pair<std::uint64_t, int>> want = {{2, 0xD8AD}, {6, 0xD8AD}, {8, 0xC3B8}};
  EXPECT_EQ(missing, want);
  converter.Convert("\xC3\xB8");
  converter.Finish();
  EXPECT_EQ(missing.back().first, 0u) << "the next text counts from 0 again";
}

}  // namespace
}  // namespace qxTools::CVCode
