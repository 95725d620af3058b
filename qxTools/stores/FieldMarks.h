/// @file
/// Where the fields of a table's line begin and end. For the string table and what shows tables.
#pragma once

#include <algorithm>
#include <string_view>
#include <vector>

namespace qxTools::QXStringTable {

inline constexpr std::string_view kFieldBegin = "[#";
inline constexpr std::string_view kFieldEnd = "#]";

/// The offsets of each "[#" and of each "#]". On purpose they are counted separately and are not pairs: "[#]"
/// holds one of each. Field i, from 0, is between the i-th of both.
class FieldMarks {
 public:
  FieldMarks() = default;
  explicit FieldMarks(std::string_view line) { Read(line); }

  /// Replaces the marks by those of another line.
  void Read(std::string_view line) {
    begins_.clear();
    ends_.clear();
    for (std::size_t i = line.find('#'); i != std::string_view::npos;) {
      if (i > 0 && line[i - 1] == '[') begins_.push_back(i - 1);
      const std::string_view rest = line.substr(i);
      if (rest.starts_with(kFieldEnd)) ends_.push_back(i);
      i = rest.starts_with("#][#") ? i + 3 : line.find('#', i + 1);  // mostly the next field begins at once
    }
  }

  /// Returns the number of fields.
  std::size_t Count() const { return std::min(begins_.size(), ends_.size()); }
  const std::vector<std::size_t>& Begins() const { return begins_; }
  const std::vector<std::size_t>& Ends() const { return ends_; }

  /// Returns the text of field `i` below Count in the line; "" where the marks overlap.
  std::string_view Text(std::string_view line, std::size_t i) const {
    const std::size_t start = begins_[i] + kFieldBegin.size();
    return start < ends_[i] ? line.substr(start, ends_[i] - start) : std::string_view();
  }

 private:
  std::vector<std::size_t> begins_;
  std::vector<std::size_t> ends_;
};

}  // namespace qxTools::QXStringTable
