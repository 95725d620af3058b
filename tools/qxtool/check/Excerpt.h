// Lines and columns of findings, and the lines as a terminal shows them.
#pragma once

#include <qxTools/base/Lines.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace qxtool::check {

struct ShownFinding;

/// Counts the lines of a text for places that do not go back. Lines end in CR LF, LF or CR.
class LineCounter {
 public:
  explicit LineCounter(std::string_view text) : text_(text), breaks_(text, '\r', '\n') { TakeLine(0); }

  /// Fills in line, columns, hash and excerpt. A finding of several lines is shown in its first one.
  void Place(std::size_t begin, std::size_t end, ShownFinding& shown);

 private:
  void MoveTo(std::size_t place);
  void TakeLine(std::size_t begin);

  std::string_view text_;
  qxTools::NearestOfTwo<char> breaks_;
  std::size_t number_ = 0;
  std::size_t begin_ = 0;
  std::string_view line_;
  std::uint64_t hash_ = 0;
  std::size_t counted_ = 0;  // bytes of the line whose characters are counted
  std::size_t column_ = 1;   // of the character behind them
};

/// The number of characters in code page 950.
std::size_t CountCharacters(std::string_view text);

}  // namespace qxtool::check
