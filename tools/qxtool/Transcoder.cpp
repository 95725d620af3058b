#include "Transcoder.h"

#include <qxTools/base/PairBlocks.h>
#include <qxTools/encoding/CVCode.h>

#include <algorithm>
#include <cstring>
#include <type_traits>

#include "TextIo.h"

namespace qxtool {

namespace {

unsigned Byte(char c) { return static_cast<unsigned char>(c); }

// --- Where characters come from -----------------------------------------------------------------------
// A source reads the character at `p`, whose first byte is not ASCII: the key in the map, or 0, and the
// number of bytes. A length of 0 means that more bytes must be seen. ReadKnown reads one that has a
// counterpart, of which there are kLongest bytes; the map has nothing for the key that it gives any other.

struct Character {
  std::uint16_t key;
  std::size_t length;
};

struct DoubleByteSource {
  static constexpr std::ptrdiff_t kLongest = 2;
  static Character ReadKnown(const char* p) {
    Character character{0, 2};
    std::memcpy(&character.key, p, sizeof character.key);
    return character;
  }

  static Character Read(const char* p, const char* end, bool atEnd) {
    if (Byte(*p) < 0x81) return {0, 1};
    if (end - p == 1) return {0, std::size_t{atEnd}};
    if (Byte(p[1]) < 0x40) return {0, 1};
    return ReadKnown(p);
  }
};

struct Utf8Source {
  static constexpr std::ptrdiff_t kLongest = 4;
  static Character ReadKnown(const char* p) { return Read(p, p + kLongest, true); }

  static std::size_t Wanted(unsigned lead) {
    return lead < 0xC2 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 1;
  }

  static Character Read(const char* p, const char* end, bool atEnd) {
    const std::size_t wanted = Wanted(Byte(*p));
    const auto left = static_cast<std::size_t>(end - p);
    std::size_t length = 1;
    while (length < wanted && length < left && (Byte(p[length]) & 0xC0) == 0x80) ++length;
    if (length < wanted) return {0, length == left && !atEnd ? 0 : length};
    if (wanted == 2) return {static_cast<std::uint16_t>((Byte(p[0]) & 0x1F) << 6 | (Byte(p[1]) & 0x3F)), 2};
    if (wanted == 3) return {ThreeBytes(p), 3};
    return {0, wanted};
  }

 private:
  /// 0 for a form that is longer than needed. Surrogates have no counterpart anyway.
  static std::uint16_t ThreeBytes(const char* p) {
    const unsigned unit = (Byte(p[0]) & 0x0F) << 12 | (Byte(p[1]) & 0x3F) << 6 | (Byte(p[2]) & 0x3F);
    return unit < 0x800 ? std::uint16_t{0} : static_cast<std::uint16_t>(unit);
  }
};

// --- Where they go ------------------------------------------------------------------------------------

struct DoubleByteTarget {
  static char* Write(std::uint16_t code, char* out) {
    std::memcpy(out, &code, sizeof code);
    return out + sizeof code;
  }
};

struct Utf8Target {
  static char* Write(std::uint16_t unit, char* out) {
    if (unit < 0x800) {
      out[0] = static_cast<char>(0xC0 | unit >> 6);
      out[1] = static_cast<char>(0x80 | (unit & 0x3F));
      return out + 2;
    }
    out[0] = static_cast<char>(0xE0 | unit >> 12);
    out[1] = static_cast<char>(0x80 | (unit >> 6 & 0x3F));
    out[2] = static_cast<char>(0x80 | (unit & 0x3F));
    return out + 3;
  }
};

// --- The way between them -----------------------------------------------------------------------------

/// Where the next bytes are read and written. It is passed by value: written bytes cannot change it then.
struct Place {
  const char* from;
  char* to;
};

/// Copies ASCII up to the first other byte.
Place CopyAscii(Place at, const char* end) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  for (std::uint64_t word; end - at.from >= 8; at = {at.from + 8, at.to + 8}) {
    std::memcpy(&word, at.from, sizeof word);
    if ((word & kHighBits) != 0) break;
    std::memcpy(at.to, &word, sizeof word);
  }
  while (at.from < end && Byte(*at.from) < 0x80) *at.to++ = *at.from++;
  return at;
}

/// Where a text was read to, as people count. It moves only when it is asked for and at the end of a piece.
template <class Source>
class Position {
 public:
  std::uint64_t Line() const { return line_; }
  std::uint64_t Column() const { return column_; }

  void Advance(const char* begin, const char* end) {
    line_ += CountBreaks(begin, end);
    const std::string_view text(begin, static_cast<std::size_t>(end - begin));
    const std::size_t lastBreak = text.rfind('\n');
    if (lastBreak != std::string_view::npos) column_ = 1;
    column_ += CountCharacters(begin + lastBreak + 1, end);  // npos + 1 is 0
  }

  /// Passes bytes that count as one character whatever they are.
  void PassCharacter(std::string_view bytes) {
    const bool isBreak = bytes.find('\n') != std::string_view::npos;
    line_ += isBreak ? 1 : 0;
    column_ = isBreak ? 1 : column_ + 1;
  }

 private:
  /// In blocks, of which each count fits a byte: the compiler counts in vectors of bytes then.
  static std::uint64_t CountBreaks(const char* p, const char* end) {
    constexpr std::ptrdiff_t kBlock = 128;
    std::uint64_t count = 0;
    for (; end - p >= kBlock; p += kBlock) {
      std::uint8_t inBlock = 0;
      for (std::ptrdiff_t i = 0; i < kBlock; ++i)
        inBlock = static_cast<std::uint8_t>(inBlock + (p[i] == '\n'));
      count += inBlock;
    }
    return count + static_cast<std::uint64_t>(std::count(p, end, '\n'));
  }

  static std::uint64_t CountCharacters(const char* p, const char* end) {
    std::uint64_t count = 0;
    for (; p < end; ++count) p += Byte(*p) < 0x80 ? 1 : Source::Read(p, end, true).length;
    return count;
  }

  std::uint64_t line_ = 1;
  std::uint64_t column_ = 1;
};

/// How the library converts bytes between two scripts; null where what is lost becomes two spaces.
using ScriptConversion = std::string (*)(std::string_view bytes);

template <class Source, class Target>
class MapTranscoder : public Transcoder {
 public:
  MapTranscoder(CodeMap map, ScriptConversion script, OnLoss onLoss)
      : map_(std::move(map)), script_(script), onLoss_(std::move(onLoss)) {}

  std::string_view Convert(std::string_view piece) override {
    text_ += piece;
    return Run(false);
  }

  std::string_view Finish() override { return Run(true); }

 private:
  std::string_view Run(bool atEnd) {
    if (result_.size() < 2 * text_.size() + 2)
      result_.resize(2 * text_.size() + 2);  // a byte makes two at most
    const char* const end = text_.data() + text_.size();
    Place at{known_ = text_.data(), result_.data()};
    while (at.from < end) {
      at = ConvertKnown(CopyAscii(at, end), end);
      if (at.from == end || Byte(*at.from) < 0x80) continue;
      const Character character = Source::Read(at.from, end, atEnd);
      if (character.length == 0) break;
      if (const std::uint16_t counterpart = map_[character.key]; counterpart != 0)
        at = {at.from + character.length, Target::Write(counterpart, at.to)};
      else
        at.from += Lose({at.from, static_cast<std::size_t>(end - at.from)}, character.length, at.to);
    }
    position_.Advance(known_, at.from);
    started_ = started_ || at.from > text_.data();
    text_.erase(0, static_cast<std::size_t>(at.from - text_.data()));
    return {result_.data(), static_cast<std::size_t>(at.to - result_.data())};
  }

  /// Converts characters up to one that has no counterpart, as ASCII has none, or may be there only in part.
  Place ConvertKnown(Place at, const char* end) const {
    const std::uint16_t* const map = map_.data();
    if constexpr (std::is_same_v<Source, DoubleByteSource> && std::is_same_v<Target, DoubleByteTarget>)
      qxTools::ConvertBlocks(at.from, end, at.to, [map](const char* from, char* to) {
        const std::uint16_t counterpart = map[Source::ReadKnown(from).key];
        Target::Write(counterpart, to);
        return counterpart != 0;
      });
    while (end - at.from >= Source::kLongest) {
      const Character character = Source::ReadKnown(at.from);
      const std::uint16_t counterpart = map[character.key];
      if (counterpart == 0) break;
      at = {at.from + character.length, Target::Write(counterpart, at.to)};
    }
    return at;
  }

  /// Writes what takes the place of a character that has no counterpart. @return its length.
  std::size_t Lose(std::string_view rest, std::size_t length, char*& out) {
    const bool isMark = !started_ && rest.data() == text_.data() && rest.starts_with(kByteOrderMark);
    if (isMark) return Pass(rest, length);
    std::string output = "  ";
    if (script_ != nullptr) length = ConvertOdd(rest.substr(0, 2), output);
    out = std::copy(output.begin(), output.end(), out);
    position_.Advance(known_, rest.data());
    onLoss_({position_.Line(), position_.Column(), rest.substr(0, length)});
    position_.PassCharacter(rest.substr(0, length));
    return Pass(rest, length);
  }

  /// The position is after the first `length` bytes of `rest`. @return `length`.
  std::size_t Pass(std::string_view rest, std::size_t length) {
    known_ = rest.data() + length;
    return length;
  }

  /// Bytes outside of the map are converted as the library does: as a pair, or the first one is copied.
  std::size_t ConvertOdd(std::string_view bytes, std::string& output) const {
    output = script_(bytes);
    const bool isPair = bytes.size() == 1 || (output.size() == 2 && output != bytes);
    if (!isPair) output = bytes.substr(0, 1);
    return isPair ? bytes.size() : 1;
  }

  CodeMap map_;
  ScriptConversion script_;
  OnLoss onLoss_;
  std::string text_;  // a piece behind what is left of the one before
  std::vector<char> result_;
  Position<Source> position_;
  const char* known_ = nullptr;  // where position_ is in text_
  bool started_ = false;
};

/// The map with the pairs of double-byte encodings as they lie in memory, to be read and written whole.
CodeMap WithPairsAsInMemory(const CodeMap& codes, TextEncoding from, TextEncoding to) {
  const auto inMemory = [](std::size_t code, TextEncoding encoding) {
    const auto swapped = static_cast<std::uint16_t>(code >> 8 | code << 8);
    return encoding == TextEncoding::kUtf8 ? static_cast<std::uint16_t>(code) : swapped;
  };
  CodeMap map(codes.size());
  for (std::size_t code = 0; code < codes.size(); ++code)
    map[inMemory(code, from)] = inMemory(codes[code], to);
  return map;
}

}  // namespace

std::unique_ptr<Transcoder> MakeTranscoder(TextEncoding from, TextEncoding to, OnLoss onLoss) {
  using enum TextEncoding;
  CodeMap map = WithPairsAsInMemory(MakeCodeMap(from, to), from, to);
  const auto make = [&]<class Source, class Target>(ScriptConversion script) -> std::unique_ptr<Transcoder> {
    return std::make_unique<MapTranscoder<Source, Target>>(std::move(map), script, std::move(onLoss));
  };
  if (from == kUtf8) return make.operator()<Utf8Source, DoubleByteTarget>(nullptr);
  if (to == kUtf8) return make.operator()<DoubleByteSource, Utf8Target>(nullptr);
  const ScriptConversion script = from == kGb2312 ? qxTools::CVCode::GBtoBIG5
                                  : from == kBig5 ? qxTools::CVCode::BIG5toGB
                                                  : nullptr;
  return make.operator()<DoubleByteSource, DoubleByteTarget>(script);
}

}  // namespace qxtool
