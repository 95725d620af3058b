#include <qxTools/sql/NameScanner.h>
#include <qxTools/sql/SinglePassSubstitution.h>

#include <algorithm>

namespace qxTools::QXSqlTools {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

/// The "@" at `mark` and the name characters after it.
inline std::string_view TokenAt(std::string_view text, std::size_t mark) {
  return text.substr(mark, EndOfName(text, mark + 1) - mark);
}

bool IsToken(std::string_view name) { return name[0] == '@' && TokenAt(name, 0).size() == name.size(); }

}  // namespace

SinglePassSubstitution::SinglePassSubstitution(std::size_t count) : names_(count) {
  literals_.reserve(count);
}

void SinglePassSubstitution::Add(std::string_view name, std::string literal) {
  literals_.push_back(std::move(literal));
  if (name.empty()) return;
  if (IsToken(name))
    names_.Add(name.substr(1), static_cast<Integer>(literals_.size() - 1));
  else
    hasOtherNames_ = true;
}

bool SinglePassSubstitution::CanBeExact() const {
  return !hasOtherNames_ &&
         std::ranges::all_of(literals_, [this](const std::string& literal) { return CannotMatch(literal); });
}

bool SinglePassSubstitution::Append(std::string& out, std::string_view text) const {
  std::size_t done = 0;      // up to here the text is in `out`
  std::size_t tokenEnd = 0;  // of the token before
  for (std::size_t mark = text.find('@'); mark != kNone; mark = text.find('@', tokenEnd)) {
    const std::string_view token = TokenAt(text, mark);
    const bool touchesToken = mark > 0 && mark == tokenEnd;
    tokenEnd = mark + token.size();
    const ParameterNames::Match match = names_.Find(token.substr(1));
    if (match.item < 0) continue;
    const std::string& literal = literals_[static_cast<std::size_t>(match.item)];
    if (touchesToken && (literal.empty() || IsNameChar(literal[0]))) return false;
    out.append(text, done, mark - done).append(literal);
    done = mark + 1 + match.size;
  }
  out.append(text, done);
  return true;
}

/// Whether no name matches inside the literal, now or together with what follows it.
bool SinglePassSubstitution::CannotMatch(std::string_view literal) const {
  for (std::size_t mark = literal.find('@'); mark != kNone;) {
    const std::string_view token = TokenAt(literal, mark);
    mark += token.size();
    if (mark == literal.size() || names_.Find(token.substr(1)).item >= 0) return false;
    mark = literal.find('@', mark);
  }
  return true;
}

}  // namespace qxTools::QXSqlTools
