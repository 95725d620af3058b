#include <qxTools/base/Lines.h>
#include <qxTools/sql/StoreProcText.h>
#include <qxTools/strings/QXStrTools.h>

#include <algorithm>
#include <optional>
#include <unordered_map>

namespace qxTools::qxSqlStoreProc {

namespace {

constexpr std::u16string_view kOpen = u"/*";
constexpr std::u16string_view kClose = u"*/";
constexpr std::size_t kNone = std::string_view::npos;

constexpr std::string_view kMacroOpen = "[$";
constexpr std::string_view kQuoteMark = "[##]";

/// A name as the scanner finds it: "[$", no second one, and "]" at its end alone.
bool IsPlainName(std::string_view name) {
  return name.starts_with(kMacroOpen) && name.find(kMacroOpen, 1) == kNone &&
         name.find(']') == name.size() - 1;
}

/// Whether a text can stand in a macro's place without making part of another macro's name.
bool IsPlainText(std::string_view text) { return text.find(kMacroOpen) == kNone && !text.ends_with('['); }

using MacroTable = std::unordered_map<std::string_view, std::string_view>;

/// One look at each "[$". This equals replacing macro after macro in the whole text as long as no expansion
/// can make a name, which runs from "[$" to the first "]". A plain text brings in no "[$", but for an empty
/// one, or one that begins with "$", right behind a "["; and none that stands in front is open, but for a
/// name around another one.
std::optional<std::string> ExpandInOnePass(std::string_view text, const MacroTable& macros) {
  std::string out;
  out.reserve(text.size());
  std::size_t done = 0;
  std::size_t close = text.find(']');
  for (std::size_t open = text.find(kMacroOpen), next = 0; open != kNone; open = next) {
    next = text.find(kMacroOpen, open + 1);
    if (close < open) close = text.find(']', open);
    if (close == kNone) break;
    if (next < close) return std::nullopt;  // a name around another one
    const auto macro = macros.find(text.substr(open, close + 1 - open));
    if (macro == macros.end()) continue;
    const bool behindBracket = open > 0 && text[open - 1] == '[';
    if (behindBracket && (macro->second.empty() || macro->second[0] == '$')) return std::nullopt;
    out.append(text, done, open - done).append(macro->second);
    done = close + 1;
  }
  return out.append(text, done);
}

}  // namespace

bool RemoveComments(std::u16string& text) {
  // What is kept stands in front, `kept` long, and holds no mark. Removing a comment can join its end with
  // the unread rest to a new opening mark, so the two characters at that seam are looked at first. A closing
  // one cannot come about: a "*" right before a comment is one already, with the comment's "/".
  std::size_t kept = 0;
  std::size_t rest = 0;
  const auto keep = [&](std::size_t end) {
    kept = static_cast<std::size_t>(std::move(&text[rest], &text[end], &text[kept]) - text.data());
  };
  std::size_t open = text.find(kOpen);
  std::size_t close = text.find(kClose);
  while (close != kNone) {
    if (open < rest) open = text.find(kOpen, rest);
    if (close < rest) close = text.find(kClose, rest);
    if (close == kNone) break;
    if (kept > 0 && text[kept - 1] == u'/' && text[rest] == u'*') {
      --kept;
    } else if (open < close) {
      keep(open);
    } else {
      break;
    }
    rest = close + kClose.size();
  }
  if (rest == 0) return false;
  keep(text.size());
  text.resize(kept);
  return true;
}

std::string ExpandMacros(std::string_view text, const std::vector<Macro>& macros) {
  MacroTable table;
  bool plain = true;
  for (const auto& [name, value] : macros) {
    plain = plain && IsPlainName(name) && IsPlainText(value);
    table.emplace(name, value);  // the first of equal names is the one that finds something to replace
  }
  if (plain)
    if (auto expanded = ExpandInOnePass(text, table)) return *std::move(expanded);
  std::string expanded(text);
  for (const auto& [name, value] : macros) expanded = QXStrTools::ReplaceAllStr(expanded, name, value, false);
  return expanded;
}

std::string DoubleQuotes(std::string_view text, std::string_view end) {
  // In two steps this is: every apostrophe becomes "[##]", then every "[##]" two apostrophes. No end of
  // "[##]" begins another one, so those that come in cannot join with what stands around them and one step
  // will do.
  std::string out;
  out.reserve(text.size() + static_cast<std::size_t>(std::count(text.begin(), text.end(), '\'')) +
              end.size());
  NearestOfTwo<char> marks(text, '\'', '[');
  std::size_t done = 0;
  for (std::size_t mark = marks.From(0); mark < text.size();) {
    const bool isQuote = text[mark] == '\'';
    std::size_t next = mark + 1;
    if (isQuote || text.substr(mark).starts_with(kQuoteMark)) {
      out.append(text, done, mark - done).append("''");
      next = done = mark + (isQuote ? 1 : kQuoteMark.size());
    }
    mark = marks.From(next);
  }
  return out.append(text, done).append(end);
}

}  // namespace qxTools::qxSqlStoreProc
