// The text of a file as the rules see it: code page 950, whatever the file is encoded as.
#pragma once

#include <string>

#include "Context.h"

namespace qxtool::check {

class CheckedText {
 public:
  /// Takes in the bytes of a file. `utf8` says what is expected of it.
  CheckedText(std::string bytes, bool utf8);

  /// The text; it ends in a line break, also if the file does not.
  std::string_view Text() const { return text_; }
  const CodingFacts& Coding() const { return coding_; }
  bool IsReadable() const { return coding_.coding != TextCoding::kOther; }

  /// Translates places in Text into those in the file, for places that do not go back.
  class FilePlaces {
   public:
    explicit FilePlaces(const CheckedText& text) : text_(text), file_(text.coding_.markSize) {}
    std::size_t Of(std::size_t place);

   private:
    const CheckedText& text_;
    std::size_t place_ = 0;
    std::size_t file_;
  };

 private:
  void TakeUtf8();

  std::string text_;
  std::string utf8_;  // the file, if it is UTF-8 and not ASCII
  CodingFacts coding_;
};

/// The number of bytes of the UTF-8 character at `place`; 0 if there is none.
std::size_t Utf8Size(std::string_view text, std::size_t place);

/// True if the text holds eight or more characters of two bytes and all of them are in GB2312 alone: no
/// second byte is below A1.
bool LooksLikeGb2312(std::string_view text);

}  // namespace qxtool::check
