/// @file
/// GB2312 (simplified characters) to BIG5 (traditional characters) and back, by two fixed tables: a character
/// with no counterpart becomes two spaces, and every byte that is no part of a character is copied.
///
/// The tables are constant data; nothing has to be started, and any number of threads may convert at a time.
/// docs/encodings.md lists what they hold, how a counterpart was chosen, and what has none.
/// Both directions are linear and allocate nothing but the result.
#pragma once

#include <qxTools/Export.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace qxTools::CVCode {

/// `text` in BIG5, as long as `text`, or one byte longer where its last byte stands alone (below).
/// On purpose: only the place in the table decides what is a character. A lead byte A1 to F9 takes the byte
/// behind it along whatever it is, as long as row and column fall into the table (A3 41 does); so does the
/// pair A0 FF. At the very end a lone byte A3 to F9 is paired with a zero byte and gives two bytes.
QXTOOLS_API std::string GBtoBIG5(std::string_view text);

/// `text` in GB2312, as long as `text`. A lead byte A1 to FE without a trail byte 40 to 7E or A1 to FE is
/// copied, and the next byte is looked at afresh.
/// On purpose: the ideographic space A140 and the full-width point A144 have no counterpart.
QXTOOLS_API std::string BIG5toGB(std::string_view text);

/// From which set to which.
enum TDirection { drGBtoBIG5, drBIG5toGB };

/// The same conversion for text that comes in pieces, cut anywhere: the results of `Convert` and, at the end,
/// of `Finish` make up what the function above gives for the whole. Between pieces it holds one byte at most.
class QXTOOLS_API TConverter {
 public:
  /// Told of each character that becomes two spaces: its offset in the whole text, in bytes from 0, and the
  /// character, lead byte first (0xB0A1 for B0 A1).
  using TMissing = std::function<void(std::uint64_t offset, std::uint16_t code)>;

  /// Begins a text.
  explicit TConverter(TDirection direction, TMissing onMissing = nullptr);

  /// `piece` converted, all but a last byte that may begin a character.
  std::string Convert(std::string_view piece);

  /// What is left of the text; the next piece begins a new one.
  std::string Finish();

 private:
  void Report(const char* p, const char* stop, const char* end) const;

  TDirection direction_;
  TMissing onMissing_;
  std::uint64_t offset_ = 0;
  std::string pending_;
};

}  // namespace qxTools::CVCode
