// Conversion of Chinese text between encodings, piece by piece.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace qxtool {

/// Told of each character that became two spaces: its offset in the input, in bytes from 0, and its bytes.
using OnMissing = std::function<void(std::uint64_t offset, std::string_view character)>;

/// Converts a text that comes in pieces, cut anywhere, in constant memory.
class Transcoder {
 public:
  virtual ~Transcoder() = default;
  virtual std::string Convert(std::string_view piece) = 0;
  /// What was still held back at the end of the text.
  virtual std::string Finish() = 0;
};

/// From and to one of "big5", "gb2312" and "utf8". Between BIG5 and GB2312 characters change script; to and
/// from UTF-8 they stay the same ones.
/// @throws Failure for other names, and for twice the same.
std::unique_ptr<Transcoder> MakeTranscoder(const std::string& from, const std::string& to,
                                           OnMissing onMissing);

}  // namespace qxtool
