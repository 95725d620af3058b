/// @file
/// Converts GB2312 (simplified characters) to BIG5 (traditional characters) and back, by two fixed tables. A
/// character without a counterpart becomes two spaces; a byte that is not part of a character is copied.
///
/// The tables are constant data: nothing has to be started, and any number of threads may convert at the same
/// time. docs/encodings.md lists the tables, how counterparts were chosen, and which characters have none.
/// Both directions are linear and allocate only the result. If memory runs out, std::bad_alloc is thrown;
/// nothing else is.
#pragma once

#include <qxTools/Export.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace qxTools::CVCode {

/// Returns GB2312 text in BIG5. The result is as long as `text`, or one byte longer if `text` ends in half of
/// a character (see below). On purpose: only the place in the table decides what is a character. A lead byte
/// A1 to F9 forms a character with any byte that follows it, if row and column are inside the table (A3 41 is
/// a character); so does the pair A0 FF. At the end of the text, a single byte A3 to F9 is paired with a zero
/// byte and gives two bytes.
QXTOOLS_API std::string GBtoBIG5(std::string_view text);

/// Returns BIG5 text in GB2312. The result is as long as `text`. A lead byte A1 to FE that no trail byte (40
/// to 7E or A1 to FE) follows is copied, and the next byte may begin a character. On purpose: the ideographic
/// space A140 and the full-width point A144 have no counterpart.
QXTOOLS_API std::string BIG5toGB(std::string_view text);

/// The direction of a TConverter: GB2312 to BIG5 or BIG5 to GB2312.
enum TDirection { drGBtoBIG5, drBIG5toGB };

/// Converts text that comes in pieces, cut anywhere: the results of all calls of Convert and, at the end, of
/// Finish together are what GBtoBIG5 or BIG5toGB returns for the whole text. Between pieces it holds one byte
/// at most. Not thread-safe; use one converter a thread.
class QXTOOLS_API TConverter {
 public:
  /// Called for each character that becomes two spaces, with its offset in the whole text (bytes, from 0) and
  /// the character, lead byte first (0xB0A1 for the bytes B0 A1).
  using TMissing = std::function<void(std::uint64_t offset, std::uint16_t code)>;

  /// Begins a text. `onMissing` may be null. If it throws, the exception passes through; then go on with a
  /// new converter only.
  explicit TConverter(TDirection direction, TMissing onMissing = nullptr);

  /// Returns `piece` converted, except a last byte that may begin a character: it is kept for the next call.
  std::string Convert(std::string_view piece);

  /// Returns the rest of the text, converted. The next call of Convert begins a new text.
  std::string Finish();

 private:
  void Report(const char* p, const char* stop, const char* end) const;

  TDirection direction_;
  TMissing onMissing_;
  std::uint64_t offset_ = 0;
  std::string pending_;
};

}  // namespace qxTools::CVCode
