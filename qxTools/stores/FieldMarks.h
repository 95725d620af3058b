/// @file
/// Where the fields of a table's line begin and end. For the string table and what shows tables.
#pragma once

#include <qxTools/base/Marks.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace qxTools::QXStringTable {

inline constexpr std::string_view kFieldBegin = "[#";
inline constexpr std::string_view kFieldEnd = "#]";

/// Offsets in rising order. They keep their memory for the next line.
class Offsets {
 public:
  void Clear() { count_ = 0; }
  /// Appends those that are marked among the kBlock from `start` on.
  void Append(std::size_t start, std::uint64_t marks) {
    if (room_.size() < count_ + Search::kBlock) room_.resize(room_.size() * 2 + Search::kBlock);
    std::size_t* end = &room_[count_];
    for (; marks != 0; marks &= marks - 1) *end++ = start + Search::LowestMark(marks);
    count_ = static_cast<std::size_t>(end - room_.data());
  }
  std::size_t size() const { return count_; }
  std::size_t operator[](std::size_t i) const { return room_[i]; }
  auto begin() const { return room_.begin(); }
  auto end() const { return room_.begin() + static_cast<std::ptrdiff_t>(count_); }

 private:
  std::vector<std::size_t> room_;
  std::size_t count_ = 0;
};

/// The offsets of each "[#" and of each "#]". On purpose they are counted separately and are not pairs: "[#]"
/// holds one of each. Field i, from 0, is between the i-th of both.
class FieldMarks {
 public:
  FieldMarks() = default;
  explicit FieldMarks(std::string_view line) { Read(line); }

  /// Replaces the marks by those of another line.
  void Read(std::string_view line) {
    begins_.Clear();
    ends_.Clear();
    const Search::Marker begin(kFieldBegin);
    const Search::Marker end(kFieldEnd);
    std::array<char, Search::kBlock + 1> last;
    for (std::size_t start = 0; start < line.size(); start += Search::kBlock) {
      const char* const block = BlockOf(line.substr(start), last);
      begins_.Append(start, begin.Mark(block));
      ends_.Append(start, end.Mark(block));
    }
  }

  /// Returns the number of fields.
  std::size_t Count() const { return std::min(begins_.size(), ends_.size()); }
  const Offsets& Begins() const { return begins_; }
  const Offsets& Ends() const { return ends_; }

  /// Returns the text of field `i` below Count in the line; "" where the marks overlap.
  std::string_view Text(std::string_view line, std::size_t i) const {
    const std::size_t start = begins_[i] + kFieldBegin.size();
    return start < ends_[i] ? line.substr(start, ends_[i] - start) : std::string_view();
  }

 private:
  /// Returns where a block and the byte after it can be read: in `last` those of a short rest, with zeros.
  static const char* BlockOf(std::string_view rest, std::array<char, Search::kBlock + 1>& last) {
    if (rest.size() >= last.size()) return rest.data();
    std::fill(std::copy(rest.begin(), rest.end(), last.begin()), last.end(), '\0');
    return last.data();
  }

  Offsets begins_;
  Offsets ends_;
};

}  // namespace qxTools::QXStringTable
