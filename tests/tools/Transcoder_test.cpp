#include "tools/qxtool/Transcoder.h"

#include <gtest/gtest.h>
#include <qxTools/base/CodePage950.h>
#include <qxTools/encoding/CVCode.h>

#include <random>

namespace qxtool {

namespace {

using enum TextEncoding;
std::mt19937 random_;

/// Mostly pairs, with ASCII, line breaks and any bytes between them.
std::string RandomText(std::size_t size) {
  std::string text;
  while (text.size() < size) {
    const auto draw = static_cast<unsigned>(random_());
    if (draw % 3 != 0)
      text += {static_cast<char>(0xA1 + (draw >> 8) % 94), static_cast<char>(0xA1 + (draw >> 16) % 94)};
    else if (draw % 2 != 0)
      text += "ab \n"[(draw >> 8) % 4];
    else
      text += static_cast<char>(draw >> 8);
  }
  return text;
}

struct Result {
  std::string output;
  std::string lost;  // LINE:COLUMN:LENGTH of each
  bool operator==(const Result&) const = default;
};

Result Convert(TextEncoding from, TextEncoding to, std::string_view text, std::size_t longestPiece) {
  Result result;
  const auto transcoder = MakeTranscoder(from, to, [&](const Loss& loss) {
    result.lost += std::to_string(loss.line) + ":" + std::to_string(loss.column) + ":" +
                   std::to_string(loss.bytes.size()) + " ";
  });
  while (!text.empty()) {
    const std::size_t length = std::min(text.size(), 1 + random_() % longestPiece);
    result.output += transcoder->Convert(text.substr(0, length));
    text.remove_prefix(length);
  }
  result.output += transcoder->Finish();
  return result;
}

}  // namespace

TEST(Transcoder, PiecesGiveWhatTheWholeGives) {
  for (const TextEncoding from : {kBig5, kGb2312, kGbk, kUtf8})
    for (const TextEncoding to : {kBig5, kGb2312, kUtf8}) {
      if (from == to) continue;
      const std::string text =
          from == kUtf8 ? qxTools::BytesToUtf8(RandomText(5000)) + "\xE0\x80\xF0\x9F" : RandomText(5000);
      const Result whole = Convert(from, to, text, 1'000'000);
      EXPECT_NE(whole.lost, "") << NameOf(from);
      EXPECT_EQ(Convert(from, to, text, 4), whole) << NameOf(from) << " to " << NameOf(to);
    }
}

TEST(Transcoder, ScriptsAreConvertedAsTheLibraryDoes) {
  for (std::size_t size = 0; size < 200; ++size) {
    const std::string text = RandomText(size);
    EXPECT_EQ(Convert(kGb2312, kBig5, text, 100).output, qxTools::CVCode::GBtoBIG5(text));
    EXPECT_EQ(Convert(kBig5, kGb2312, text, 100).output, qxTools::CVCode::BIG5toGB(text));
  }
}

TEST(Transcoder, EachCharacterComesBackFromUtf8) {
  for (const TextEncoding encoding : {kBig5, kGb2312}) {
    const CodeMap units = MakeCodeMap(encoding, kUtf8);
    std::string text;
    for (std::size_t code = 0x8140; code < units.size(); ++code)
      if (units[code] != 0) text += {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF), '\n'};
    const Result utf8 = Convert(encoding, kUtf8, text, 1000);
    const Result back = Convert(kUtf8, encoding, utf8.output, 1000);
    EXPECT_EQ(utf8.lost + back.lost, "");
    // Ten characters that code page 950 holds twice come back as their main code.
    const std::string main = encoding == kBig5 ? qxTools::WideToBytes(qxTools::BytesToWide(text)) : text;
    EXPECT_EQ(back.output, main);
  }
}

}  // namespace qxtool
