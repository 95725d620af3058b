#include "Transcoder.h"

#include <iconv.h>
#include <qxTools/base/CodePage950.h>
#include <qxTools/encoding/CVCode.h>

#include <algorithm>
#include <unordered_map>

#include "TextIo.h"
#include "database/Charset.h"

namespace qxtool {

namespace {

using qxTools::CVCode::TConverter;
using qxTools::CVCode::TDirection;

constexpr std::string_view kMissing = "  ";

unsigned Byte(char c) { return static_cast<unsigned char>(c); }

// --- Between BIG5 and GB2312 -------------------------------------------------------------------------

class ScriptTranscoder : public Transcoder {
 public:
  ScriptTranscoder(TDirection direction, OnMissing onMissing)
      : converter_(direction, [tell = std::move(onMissing)](std::uint64_t offset, std::uint16_t code) {
          const char bytes[] = {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
          tell(offset, {bytes, 2});
        }) {}

  std::string Convert(std::string_view piece) override { return converter_.Convert(piece); }
  std::string Finish() override { return converter_.Finish(); }

 private:
  TConverter converter_;
};

// --- To and from UTF-8 -------------------------------------------------------------------------------

/// Both ways between GB2312 and UTF-8, by the C library's table.
class GB2312Table {
 public:
  GB2312Table() {
    const iconv_t converter = iconv_open("UTF-8", "GB2312");
    if (converter == iconv_t(-1)) throw Failure("this system's C library has no table of GB2312");
    for (unsigned lead = 0xA1; lead <= 0xF7; ++lead)
      for (unsigned trail = 0xA1; trail <= 0xFE; ++trail)
        Add(converter, {static_cast<char>(lead), static_cast<char>(trail)});
    iconv_close(converter);
    // Two symbols that code page 936, and so nearly every text, reads otherwise; the other reading still
    // comes in.
    Prefer("\xA1\xA4", "\xC2\xB7");      // ·
    Prefer("\xA1\xAA", "\xE2\x80\x94");  // —
  }

  std::string ToUtf8(std::string_view character) const { return Find(toUtf8_, character); }
  std::string FromUtf8(std::string_view character) const { return Find(fromUtf8_, character); }

 private:
  using Table = std::unordered_map<std::string, std::string>;

  void Add(iconv_t converter, std::string code) {
    char utf8[8];
    char* in = code.data();
    char* out = utf8;
    std::size_t inLeft = code.size();
    std::size_t outLeft = sizeof utf8;
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    if (iconv(converter, &in, &inLeft, &out, &outLeft) == static_cast<std::size_t>(-1)) return;
    const std::string character(utf8, out);
    toUtf8_.emplace(code, character);
    fromUtf8_.emplace(character, code);
  }

  void Prefer(const std::string& code, const std::string& character) {
    toUtf8_[code] = character;
    fromUtf8_[character] = code;
  }

  static std::string Find(const Table& table, std::string_view character) {
    const auto found = table.find(std::string(character));
    return found != table.end() ? found->second : std::string();
  }

  Table toUtf8_;
  Table fromUtf8_;
};

/// The bytes of a double-byte character, or 1 for a byte that begins none, or 0 when more must be seen.
std::size_t DoubleByteLength(std::string_view text, bool atEnd) {
  if (Byte(text[0]) < 0x81) return 1;
  if (text.size() == 1) return atEnd ? 1 : 0;
  return Byte(text[1]) < 0x40 ? 1 : 2;
}

std::size_t Utf8Length(std::string_view text, bool atEnd) {
  const unsigned lead = Byte(text[0]);
  const std::size_t wanted = lead < 0xC2 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 1;
  std::size_t length = 1;
  while (length < wanted && length < text.size() && (Byte(text[length]) & 0xC0) == 0x80) ++length;
  return length < wanted && length == text.size() && !atEnd ? 0 : length;
}

/// Character by character; ASCII is copied in runs.
class CharacterTranscoder : public Transcoder {
 public:
  using Length = std::size_t (*)(std::string_view text, bool atEnd);
  using Translate = std::function<std::string(std::string_view character)>;  // "" when there is none

  CharacterTranscoder(Length length, Translate translate, OnMissing onMissing)
      : length_(length), translate_(std::move(translate)), onMissing_(std::move(onMissing)) {}

  std::string Convert(std::string_view piece) override {
    pending_ += piece;
    return Run(false);
  }

  std::string Finish() override { return Run(true); }

 private:
  std::string Run(bool atEnd) {
    std::string out;
    std::string_view rest = pending_;
    while (!rest.empty()) {
      const auto run = std::ranges::find_if(rest, [](char c) { return Byte(c) >= 0x80; });
      std::size_t length = static_cast<std::size_t>(run - rest.begin());
      if (length > 0) {
        out += rest.substr(0, length);
      } else {
        length = length_(rest, atEnd);
        if (length == 0) break;
        out += Character(rest.substr(0, length));
      }
      rest.remove_prefix(length);
      offset_ += length;
    }
    pending_.erase(0, pending_.size() - rest.size());
    return out;
  }

  std::string Character(std::string_view character) {
    if (offset_ == 0 && character == kByteOrderMark) return {};
    std::string translated = translate_(character);
    if (!translated.empty()) return translated;
    onMissing_(offset_, character);
    return std::string(kMissing);
  }

  Length length_;
  Translate translate_;
  OnMissing onMissing_;
  std::string pending_;
  std::uint64_t offset_ = 0;
};

std::string Big5ToUtf8(std::string_view character) {
  using database::Charset;
  return database::Convert(character, Charset::kCodePage950, Charset::kUtf8).value_or("");
}

std::string Utf8ToBig5(std::string_view character) {
  std::string bytes = qxTools::Utf8ToBytes(character);
  return bytes != "?" ? bytes : std::string();
}

}  // namespace

std::unique_ptr<Transcoder> MakeTranscoder(const std::string& from, const std::string& to,
                                           OnMissing onMissing) {
  using qxTools::CVCode::drBIG5toGB;
  using qxTools::CVCode::drGBtoBIG5;
  const std::string way = from + " " + to;
  if (way == "gb2312 big5") return std::make_unique<ScriptTranscoder>(drGBtoBIG5, std::move(onMissing));
  if (way == "big5 gb2312") return std::make_unique<ScriptTranscoder>(drBIG5toGB, std::move(onMissing));
  const auto byCharacter = [&](CharacterTranscoder::Length length, CharacterTranscoder::Translate translate) {
    return std::make_unique<CharacterTranscoder>(length, std::move(translate), std::move(onMissing));
  };
  if (way == "big5 utf8") return byCharacter(DoubleByteLength, Big5ToUtf8);
  if (way == "utf8 big5") return byCharacter(Utf8Length, Utf8ToBig5);
  const auto table = std::make_shared<GB2312Table>();
  if (way == "gb2312 utf8")
    return byCharacter(DoubleByteLength, [table](std::string_view c) { return table->ToUtf8(c); });
  if (way == "utf8 gb2312")
    return byCharacter(Utf8Length, [table](std::string_view c) { return table->FromUtf8(c); });
  throw Failure("convert: nothing to do from " + Visible(from) + " to " + Visible(to));
}

}  // namespace qxtool
