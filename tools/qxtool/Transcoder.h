// Conversion of Chinese text between encodings, piece by piece, in constant memory.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "TextEncoding.h"

namespace qxtool {

/// A character without a counterpart, or bytes that are not a character.
struct Loss {
  std::uint64_t line;    // from 1
  std::uint64_t column;  // in characters, from 1
  std::string_view bytes;
};
using OnLoss = std::function<void(const Loss& loss)>;

/// Converts a text that comes in pieces, cut anywhere. What is lost becomes two spaces and is reported;
/// between big5 and gb2312 bytes that are not a character are converted as the library does, and reported as
/// well. A byte-order mark in front of UTF-8 is left out.
class Transcoder {
 public:
  virtual ~Transcoder() = default;
  /// The piece, converted, but for a last character that may be incomplete. Valid until the next call.
  virtual std::string_view Convert(std::string_view piece) = 0;
  /// What was held back at the end of the text. Valid until the next call.
  virtual std::string_view Finish() = 0;
};

/// @throws Failure if there is no way from one to the other.
std::unique_ptr<Transcoder> MakeTranscoder(TextEncoding from, TextEncoding to, OnLoss onLoss);

}  // namespace qxtool
