#include <qxTools/base/CodePage950Bytes.h>
#include <qxTools/base/Lines.h>
#include <qxTools/sql/LinePieces.h>
#include <qxTools/sql/StoreProcText.h>
#include <qxTools/strings/QXStrTools.h>

#include <algorithm>
#include <optional>
#include <unordered_map>

namespace qxTools::qxSqlStoreProc {

namespace {

constexpr std::string_view kMacroOpen = "[$";
constexpr std::string_view kQuoteMark = "[##]";
constexpr std::string_view kLineBreak = "\r\n";

/// Returns the first place from `start` on where `first` and `second` are, or kNone.
template <class Char>
std::size_t FindPair(std::basic_string_view<Char> text, char first, char second, std::size_t start) {
  for (std::size_t i = FindUnit(text, Char(first), start); i + 1 < text.size();
       i = FindUnit(text, Char(first), i + 1))
    if (text[i + 1] == Char(second)) return i;
  return kNone;
}

/// Returns the place of the first character from "!" to DEL, or kNone.
template <class Char>
std::size_t FirstVisible(std::basic_string_view<Char> text) {
  for (std::size_t i = 0, size = 0; i < text.size(); i += size) {
    size = CharacterSize(text, i);
    if (size == 1 && text[i] >= Char(33) && text[i] <= Char(127)) return i;
  }
  return kNone;
}

template <class Char>
void Remove(std::basic_string<Char>& text) {
  // What is kept is at the start, `kept` long, and holds no mark. Removing a comment can join its end with
  // the unread rest to a new opening mark, so the two characters at that seam are looked at first. A closing
  // one cannot come about: a "*" right before a comment is one already, with the comment's "/". Each piece is
  // read from its own start, since two bytes that meet at a seam are no character.
  const std::basic_string_view<Char> whole = text;
  std::size_t kept = 0;
  std::size_t rest = 0;
  std::size_t visible = kNone;
  const auto keep = [&](std::size_t end) {
    const std::size_t found = visible == kNone ? FirstVisible(whole.substr(rest, end - rest)) : kNone;
    if (found != kNone) visible = kept + found;
    kept = static_cast<std::size_t>(std::move(&text[rest], &text[end], &text[kept]) - text.data());
  };
  std::size_t open = FindPair(whole, '/', '*', 0);
  std::size_t close = open == kNone ? kNone : FindPair(whole, '*', '/', 0);
  while (close != kNone) {
    if (open < rest) open = FindPair(whole, '/', '*', rest);
    if (close < rest) close = FindPair(whole, '*', '/', rest);
    if (close == kNone) break;
    if (kept > 0 && text[kept - 1] == Char('/') && text[rest] == Char('*')) {
      --kept;
      if (visible == kept) visible = kNone;
    } else if (open < close) {
      keep(open);
    } else {
      break;
    }
    rest = close + 2;
  }
  if (rest == 0) return;
  keep(text.size());
  text.resize(kept);
  if (visible != kNone) text.erase(0, visible);
}

/// A name as the scanner finds it: "[$", no second one, and "]" at its end alone.
bool IsPlainName(std::string_view name) {
  return name.starts_with(kMacroOpen) && name.find(kMacroOpen, 1) == kNone &&
         name.find(']') == name.size() - 1;
}

/// Whether a text can stand in a macro's place without making part of another macro's name.
bool IsPlainText(std::string_view text) { return text.find(kMacroOpen) == kNone && !text.ends_with('['); }

/// Macros by their names, if one look at each name in a text is enough; see ExpandInOnePass.
using MacroTable = std::unordered_map<std::string_view, std::string_view>;

std::optional<MacroTable> TableOf(const std::vector<Macro>& macros) {
  MacroTable table;
  for (const auto& [name, value] : macros) {
    if (!IsPlainName(name) || !IsPlainText(value)) return std::nullopt;
    table.emplace(name, value);  // the first of equal names is the one that finds something to replace
  }
  return table;
}

/// Calls `append` with the pieces of the expanded text: one look at each "[$". This equals replacing macro
/// after macro in the whole text as long as no expansion can make a name, which runs from "[$" to the first
/// "]". A plain text brings in no "[$", but for an empty one, or one that begins with "$", right after a "[";
/// and none before it is open, but for a name around another one. Returns false for these.
template <class Append>
bool ExpandInOnePass(std::string_view text, const MacroTable& macros, Append append) {
  std::size_t done = 0;
  std::size_t close = text.find(']');
  for (std::size_t open = text.find(kMacroOpen), next = 0; open != kNone; open = next) {
    next = text.find(kMacroOpen, open + 1);
    if (close < open) close = text.find(']', open);
    if (close == kNone) break;
    if (next < close) return false;  // a name around another one
    const auto macro = macros.find(text.substr(open, close + 1 - open));
    if (macro == macros.end()) continue;
    const bool behindBracket = open > 0 && text[open - 1] == '[';
    if (behindBracket && (macro->second.empty() || macro->second[0] == '$')) return false;
    append(text.substr(done, open - done));
    append(macro->second);
    done = close + 1;
  }
  append(text.substr(done));
  return true;
}

/// In two steps this is: every apostrophe becomes "[##]", then every "[##]" two apostrophes. No end of "[##]"
/// begins another one, so those that come in cannot join with what stands around them and one step will do.
void AppendDoubled(std::string& out, std::string_view text) {
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
  out.append(text, done);
}

/// Whether nothing goes over the edges of a macro or of its text: no name over a line's end, no "[##]" into
/// the text or out of it.
bool StaysApart(const Macro& macro) {
  const auto& [name, text] = macro;
  return name.find_first_of(kLineBreak) == kNone && !text.empty() && text.front() != '#' &&
         text.front() != ']' && text.back() != '#' && text.back() != '[';
}

/// Returns false, and has appended something, where one pass is not exact.
bool AppendLines(std::string& out, const TStrings& lines, const std::vector<Macro>& macros) {
  if (!std::ranges::all_of(macros, StaysApart)) return false;
  const std::optional<MacroTable> table = TableOf(macros);
  const auto append = [&](std::string_view text) { AppendDoubled(out, text); };
  return table &&
         ForEachPiece(lines, [&](std::string_view piece) { return ExpandInOnePass(piece, *table, append); });
}

}  // namespace

void RemoveNotes(std::string& text) { Remove(text); }
void RemoveNotes(std::u16string& text) { Remove(text); }

bool HasNotes(std::u16string_view text) { return FindPair(text, '/', '*', 0) != kNone; }

std::string ExpandMacros(std::string_view text, const std::vector<Macro>& macros) {
  std::string expanded;
  expanded.reserve(text.size());
  const std::optional<MacroTable> table = TableOf(macros);
  if (table && ExpandInOnePass(text, *table, [&](std::string_view piece) { expanded += piece; }))
    return expanded;
  expanded = text;
  for (const auto& [name, value] : macros) expanded = QXStrTools::ReplaceAllStr(expanded, name, value, false);
  return expanded;
}

std::string QuoteStatement(const TStrings& lines, const std::vector<Macro>& macros, std::string_view end) {
  std::size_t size = end.size();
  for (const auto& [name, value] : macros) size += value.size();
  for (Integer i = 0; i < lines.GetCount(); ++i) size += lines.GetView(i).size() + kLineBreak.size();
  std::string out;
  out.reserve(size + size / 16);  // every 16th may be an apostrophe
  if (!AppendLines(out, lines, macros)) {
    out.clear();
    AppendDoubled(out, ExpandMacros(lines.GetText(), macros));
  }
  return std::move(out += end);
}

}  // namespace qxTools::qxSqlStoreProc
