#include <qxTools/runtime/StrAlloc.h>
#include <qxTools/strings/QXStrTools.h>

#include "support/Sources.h"
#include "support/Testing.h"

using namespace qxTools;
using namespace qxTools::QXStrTools;
using namespace std::string_literals;
using namespace qxTools::test;

namespace {

constexpr Integer kMin = std::numeric_limits<Integer>::min();

TEST(QXStrTools, SearchesSurviveTheWorstTexts) {
  const std::string half(100000, 'a');
  const std::string text = half + half;
  EXPECT_EQ(Occurs(half, text), 100001);
  EXPECT_EQ(At(half + "b", text, 1), -1);
  EXPECT_EQ(GetAt(half, text, 7), "") << "overlapping separators have nothing between them";
  const std::string knot = Replicate("a", 500) + "c" + Replicate("a", 500);
  const std::string end =
      knot.substr(500);  // the last knot of text + knot + knot + end overlaps the one before
  EXPECT_EQ(ReplaceAllStr(text + knot + knot + end, knot, "x", false), text + "xx" + end);
  EXPECT_EQ(ReplaceAllStr(text, "aa", "a", false), "a");
  EXPECT_EQ(ReplaceAllStr(text, "a", "ba", false), Replicate("b", 200000) + text);
}

// clang-format off
TEST(QXStrTools, SearchesAndReplacementsHaveTheirOddCases) {
  Results<Integer>()
      (At("cd", "abc", 1), -1)(At("aa", "aaaa", 2), 2)(Occurs("aa", "aaaa"), 3)(At("", "abc", 1), 0)
      (At("@", "\xA4\x40", 1), 2)  // the second byte of 一 is a byte like any other
      (Atc("", ""), true)(Atc("a\0"s, "a"), false)(InList("", {}, true), false)
      (InList("abc", {"x", "ABC"}, false), true)(InList("abc", {"x", "ABC"}, true), false);
  Results<std::string>()
      (GetAt("", "a,b", 2), "a,b")(GetAtLeft("", "a,b", 1), "a,b")(GetAtRight("", "a,b", 1), "a,b")
      (GetAt(",", "abc,d", 0), "")(GetAt(",", "abc,d", kMin), "")(GetAt(",", "ab", 0), "ab")
      (ReplaceStr("Select a", "SELECT", "update", true), "update a")
      (ReplaceAllStr("xAx", "x", "xx", false), "xxxAx");  // what was put in is found again
}

TEST(QXStrTools, TextIsTrimmedCutPaddedAndJoined) {
  Results<std::string>()
      (Trim("  a b  ", TrimOrign[tsTrimAll]), "a b")(Trim("  a b  ", TrimOrign[tsTrimLeft]), "a b  ")
      (Trim("  a b  ", TrimOrign[tsTrimRight]), "  a b")(Trim(" x ", TrimOrign[tsNotTrim]), " x ")
      (Trim("  a b  ", 3), "a b")(Trim("  ", 1), "")(Trim("  ", 2), "")(Trim(" \t ", 0), "\t")
      (Trim(Space(33) + "a" + Space(40) + "b" + Space(16), 0), "a" + Space(40) + "b")(Trim(Space(47), 0), "")
      (GetRightStr("a = b=c "), "b=c")(GetRightStr("abc"), "")
      (substr("abc", 2, 2), "bc")(substr("abc", 3, 9), "c\0\0"s)(substr("abc", 0, 2), "\0a"s)
      (substr("abc", 2147483647, 2147483647), "\0\0\0"s)(substr("abc", kMin, 2), "\0\0"s)
      (substr("abc", 1, -1), "")(CommaAdd("", "a", ","), "a")(CommaAdd("a", "", ","), "a,")
      (Space(2), "  ")(Space(-1), "")(Replicate("ab", 3), "ababab")(Replicate("ab", kMin), "")
      (IIF(true, "a", "b"), "a")(IIF(false, "a", "b"), "b");
  Results<double>()(IIF(false, 1, 2), 2)(IIF(true, 1.5, 2.5), 1.5);
  Results<bool>()(Empty(""), true)(Empty("  "), true)(Empty(" \t"), false);
}

TEST(QXStrTools, NumbersAreReadAsFarAsTheyGoAndWrap) {
  Results<Integer>()
      (IntEx(""), 0)(IntEx("abc"), 0)(IntEx("-12"), -12)(IntEx("12-3"), 123)(IntEx("--5"), -5)
      (IntEx("0-5"), -5)(IntEx("+-+7"), -7)(IntEx("12a34"), 12)(IntEx(" 1"), 0)
      (IntEx("4294967295"), -1)(IntEx("2147483648"), kMin)
      (IntEx("4294967296-7"), -7)  // wrapped back to 0, where "-" counts
      (HexToInt('f'), 15)(HexToInt('A'), 10)(HexToInt('G'), 0)
      (HexsToInt("1G2"), 18)(HexsToInt("0x1F"), 31)(HexsToInt("1FFFFFFFF"), -1)
      (ModEx(10, 5), 5)(ModEx(7, 5), 2)(ModEx(0, 7), 7)(ModEx(-7, 5), -2)(ModEx(kMin, -1), -1);
  Results<std::string>()
      (StrEx(7, 3), "007")(StrEx(1234, 2), "1234")(StrEx(0, 0), "0")
      (StrEx(-7, 3), "000")(StrEx(-7, -1), "");
  EXPECT_EQ(MessageOf([] { ModEx(1, 0); }), "Division by zero");
}

TEST(QXStrTools, CodesAndMarkersAreFilledIn) {
  Results<std::string>()
      (SerialNO("A0099", 1), "A0100")(SerialNO("A99", 1), "A100")(SerialNO("ABC", 1), "ABC1")
      (SerialNO("", 1), "1")(SerialNO("INV-007", 5), "INV-012")(SerialNO("A1B", -1), "A1B")
      (SerialNO("A0005", -10), "A0000")(SerialNO("4294967296", 1), "0000000001")
      (FormatEx("#x #S, #s#", "#"), "#x #, ##")(FormatEx("##S#S#S", "#"), "##S##");
}

TEST(QXStrTools, KeysHaveNames) {
  Rows<std::uint16_t, std::string>(KeyToStr)
      (8, "BackSpace")(16, "")(19, "NumLock")(40, "Down Arrow")(46, "Delete")(47, "")(48, "0")(57, "9")(58, "")
      (64, "")(65, "A")(90, "Z")(91, "")(95, "")(96, "Num Pad 0")(105, "Num Pad 9")(108, "")(112, "F1")
      (123, "F12")(124, "")(144, "NumLock")(220, "\\")(65535, "");
}
// clang-format on

TEST(QXStrTools, BuffersAreCopiedUpToTheirNul) {
  char* dest = nullptr;
  EXPECT_EQ(PCopyEx(dest, "a\0b"), 1);
  EXPECT_STREQ(dest, "a");
  StrDispose(dest);
  EXPECT_EQ(PCopyEx(dest, "a\0b"s), 3);
  EXPECT_EQ(std::string(dest, 4), "a\0b\0"s);
  StrDispose(dest);
  std::string text = SCopy("old\0") + SCopy(nullptr);
  SCopyEx(text, "\0x\0\0z"s);
  EXPECT_EQ(text, "oxd\0z"s);
  SCopyEx(text, "new");
  EXPECT_EQ(text, "new");
}

TEST(QXStrTools, EncodedTextIsLaidOutAndGivenBack) {
  std::vector<std::uint32_t> draws(25, 0xFFFFFFFF);
  std::fill_n(draws.begin() + 1, 19, 0);
  std::string code;
  {
    const FixedDraws fixed(draws);
    code = EDS("ab\xA4");
  }
  // The first number drawn is 126, the others are 32: 5 * 126 + 'a', 5 * 32 + character; then with the key's
  // characters; then 3 + 126 and the multipliers.
  const std::string keyPart = "711277269257274" + Replicate("241277269257274", 3);
  EXPECT_EQ(code, "727258324" + Replicate("192", 17) + keyPart + "12955555");
  EXPECT_EQ(DDS(code), "ab\xA4");
  EXPECT_NE(EDS("ab\xA4"), EDS("ab\xA4"));
}

TEST(QXStrTools, DamagedCodesFailOnlyByLengthAndMultiplier) {
  EXPECT_EQ(MessageOf([] { DDS(""); }), "EnCode Length <> 128");
  for (const char* bad : {"0", "-", "x"}) {
    EXPECT_EQ(MessageOf([=] { DDS(Replicate("9", 127) + bad); }), "Division by zero");
  }
  EXPECT_EQ(DDS(Replicate("?", 123) + "11111"), "");
  EXPECT_EQ(DDS(Replicate("9", 128)).size(), 20U);
}

}  // namespace
