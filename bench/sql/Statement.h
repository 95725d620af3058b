// A statement of any size.
#pragma once

#include <string>

/// Line `i` of a statement that names `names` different parameters, one every 25 bytes, and holds a literal
/// now and then. All names are of one length, so that none begins another.
inline std::string StatementLine(std::size_t i, std::size_t names) {
  std::string line;
  for (std::size_t place = 4 * i; place < 4 * (i + 1); ++place) {
    line += " and Col = @MM_P" + std::to_string(1000000 + place % names);
    if (place % 10 == 0) line += " or Kind = 'old'";
  }
  return line;
}

/// A statement of about `size` bytes.
inline std::string Statement(std::size_t size, std::size_t names) {
  std::string text;
  text.reserve(size + 200);
  for (std::size_t i = 0; text.size() < size; ++i) text += StatementLine(i, names) + "\r\n";
  return text;
}
