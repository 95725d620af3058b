#include <qxTools/sql/NameScanner.h>

namespace qxTools {

inline bool NameScanner::SkipLiteral() {
  const std::size_t close = text_.find('\'', position_ + 1);
  position_ = close == std::string_view::npos ? text_.size() : close + 1;
  return close != std::string_view::npos;
}

inline bool NameScanner::FindMark() {
  for (position_ = marks_.From(position_); position_ < text_.size(); position_ = marks_.From(position_)) {
    if (text_[position_] == '@') {
      ++position_;
      return true;
    }
    if (!SkipLiteral()) return false;
  }
  return false;
}

inline bool NameScanner::FindNameStart() {
  if (!FindMark()) return false;
  while (position_ < text_.size()) {
    if (IsNameStart(text_[position_])) return true;
    if (!IsQuote(position_))
      ++position_;
    else if (!SkipLiteral())
      return false;
  }
  return false;
}

bool NameScanner::Next(std::string_view& name) {
  while (FindNameStart()) {
    const std::size_t start = position_;
    const std::size_t end = EndOfName(text_, start);
    position_ = end;
    if (end == text_.size()) return false;
    if (text_[end] == '@') continue;  // the new mark discards the name in front of it
    if (IsQuote(end) && !SkipLiteral()) return false;
    name = text_.substr(start, end - start);
    return true;
  }
  return false;
}

std::string_view NameScanner::Joined(std::string_view name) {
  joined_.assign(1, '@').append(name);
  return joined_;
}

}  // namespace qxTools
