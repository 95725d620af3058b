#include "SqlNames.h"

#include <qxTools/base/Ascii.h>

namespace qxtool::check {

bool IsParameter(std::string_view name, Route route) {
  return route != Route::kCall || qxTools::SameText(name.substr(0, name.find('_')), "MM");
}

SqlNames::SqlNames(const KeptText& kept, Route route)
    : text_(kept.Text()),
      scanner_(text_, route == Route::kCommand ? qxTools::Literals::kScan : qxTools::Literals::kSkip),
      seconds_(text_),
      places_(kept) {}

bool SqlNames::Next(NameUse& use) {
  if (!scanner_.Next(use.name)) return false;
  const auto begin = static_cast<std::size_t>(use.name.data() - text_.data());
  const std::size_t at = text_.rfind('@', begin);
  use.secondByte = at > 0 && Byte(text_[at - 1]) >= 0x80 && seconds_.IsSecond(at);
  use.at = places_.Original(at);
  use.begin = places_.Original(begin);
  // A comment that the call removes can stand inside a name.
  use.end = places_.Original(begin + use.name.size() - 1) + 1;
  return true;
}

SqlMacros::SqlMacros(const KeptText& kept)
    : text_(kept.Text()), seconds_(text_), places_(kept), lastClose_(text_.rfind(']')) {}

bool SqlMacros::Next(MacroUse& use) {
  const std::size_t open = text_.find("[$", place_);
  if (open == std::string_view::npos) return false;
  std::size_t end = open + 2;
  while (end < text_.size() && qxTools::IsNameChar(text_[end])) ++end;
  use.plain = end < text_.size() && text_[end] == ']' && end > open + 2;
  use.closed = lastClose_ != std::string_view::npos && lastClose_ > open;
  use.name = text_.substr(open + 2, end - open - 2);
  const bool secondOpen = seconds_.IsSecond(open);
  use.secondByte = secondOpen || (use.plain && seconds_.IsSecond(end));
  use.begin = places_.Original(open) - (secondOpen ? 1 : 0);
  use.end = use.begin + (secondOpen ? 1 : 0) + (end - open) + (use.plain ? 1 : 0);
  place_ = end;
  return true;
}

}  // namespace qxtool::check
