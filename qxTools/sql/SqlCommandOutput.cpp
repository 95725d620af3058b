// The output of a command: comments out, values in.
#include <qxTools/base/Ascii.h>
#include <qxTools/base/CodePage950.h>
#include <qxTools/base/Lines.h>
#include <qxTools/sql/NameScanner.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/strings/QXStrTools.h>

#include <optional>

namespace qxTools::QXSqlTools {

namespace {

constexpr std::size_t kNone = std::u16string_view::npos;

// --- Comments ----------------------------------------------------------------------------------------

/// What stands outside comments. On purpose: each "/" outside takes the character behind it along, each "*"
/// inside the one behind it, so that "/* x **/" never closes.
std::u16string DropComments(std::u16string_view text) {
  std::u16string kept;
  kept.reserve(text.size());
  bool inComment = false;
  for (std::size_t start = 0;;) {
    const std::size_t mark = text.find(inComment ? u'*' : u'/', start);
    const bool last = mark == kNone || mark + 1 == text.size();
    if (!inComment) kept.append(text, start, last ? kNone : mark - start);
    if (last) return kept;
    inComment = inComment ? text[mark + 1] != u'/' : text[mark + 1] == u'*';
    start = mark + 2;
  }
}

bool IsBlank(std::u16string_view line) { return line.find_first_not_of(u' ') == kNone; }

/// Whether both marks of a comment are there, anywhere and in any order.
bool HasComment(std::u16string_view text) { return text.find(u"/*") != kNone && text.find(u"*/") != kNone; }

/// The lines without the blank ones in front and behind, each ended by a break.
std::u16string TrimLines(std::u16string_view text) {
  auto lines = SplitLines(text);
  while (!lines.empty() && IsBlank(lines.back())) lines.pop_back();
  std::size_t first = 0;
  while (first < lines.size() && IsBlank(lines[first])) ++first;
  std::u16string joined;
  joined.reserve(text.size() + 2);
  for (; first < lines.size(); ++first) joined.append(lines[first]).append(u"\r\n");
  return joined;
}

// --- Values ------------------------------------------------------------------------------------------

std::string LiteralOf(const TQXSQLItem& item) {
  switch (item.Style) {
    case stString:
    case stDate:
    case stTime:
      return ToSQLStr(item.Text);
    case stInteger:
    case stBoolean:
      return ToSQLint(item.Text);
    default:
      return item.Text;
  }
}

/// The names of the parameters in capitals, without their "@", as a tree of letters: it finds, among the
/// names that a run of name characters begins with, the one that comes first in the list.
class NameTree {
 public:
  struct Match {
    Integer item = -1;
    std::size_t size = 0;  // of the name, without its "@"
  };

  void Add(std::string_view upperName, Integer item) {
    std::size_t node = 0;
    for (const char c : upperName) node = ChildToMake(node, c);
    if (nodes_[node].item < 0) nodes_[node].item = item;
  }

  Match Find(std::string_view run) const {
    Match best{nodes_[0].item, 0};
    std::size_t node = 0;
    for (std::size_t i = 0; i < run.size(); ++i) {
      node = Child(node, UpperChar(run[i]));
      if (node == 0) break;
      const Integer item = nodes_[node].item;
      if (item >= 0 && (best.item < 0 || item < best.item)) best = {item, i + 1};
    }
    return best;
  }

 private:
  struct Node {
    char letter = 0;
    Integer item = -1;             // the first in the list whose name ends here
    std::uint32_t firstChild = 0;  // the root is nobody's child: 0 is none
    std::uint32_t nextSibling = 0;
  };

  std::size_t Child(std::size_t node, char letter) const {
    std::size_t child = nodes_[node].firstChild;
    while (child != 0 && nodes_[child].letter != letter) child = nodes_[child].nextSibling;
    return child;
  }

  std::size_t ChildToMake(std::size_t node, char letter) {
    const std::size_t child = Child(node, letter);
    if (child != 0) return child;
    nodes_.push_back({letter, -1, 0, nodes_[node].firstChild});
    nodes_[node].firstChild = static_cast<std::uint32_t>(nodes_.size() - 1);
    return nodes_.size() - 1;
  }

  std::vector<Node> nodes_{1};
};

/// A piece of text that a name can match: an "@" and the name characters behind it.
std::string_view SegmentAt(std::string_view text, std::size_t mark) {
  std::size_t end = mark + 1;
  while (end < text.size() && IsNameChar(text[end])) ++end;
  return text.substr(mark, end - mark);
}

/// Fills all values in, in one pass over the text.
///
/// This equals replacing item after item in the whole text as long as no replacement can make or lengthen a
/// segment: only segments can match, each is matched by the first of the list alone, and what is left of it
/// holds no "@" any more. Where that is not certain the pass gives up.
class OnePassFiller {
 public:
  explicit OnePassFiller(const TQXSQLItems& items) {
    for (Integer i = 0; i < items.GetCount(); ++i) {
      literals_.push_back(LiteralOf(*items.GetItems(i)));
      const std::string upper = UpperCase(items.GetItems(i)->GetName());
      if (upper.empty()) continue;  // replaces nothing
      exact_ = exact_ && upper[0] == '@' && SegmentAt(upper, 0).size() == upper.size();
      if (exact_) tree_.Add(std::string_view(upper).substr(1), i);
    }
    for (const std::string& literal : literals_) exact_ = exact_ && CannotMatch(literal);
  }

  /// The text with the values in place, or nothing when the pass would not be exact.
  std::optional<std::string> Fill(std::string_view text) const {
    if (!exact_) return std::nullopt;
    std::string out;
    out.reserve(text.size());
    std::size_t done = 0;        // up to here the text stands in `out`
    std::size_t segmentEnd = 0;  // of the segment before
    for (std::size_t mark = text.find('@'); mark != std::string_view::npos;
         mark = text.find('@', segmentEnd)) {
      const std::string_view segment = SegmentAt(text, mark);
      const NameTree::Match match = tree_.Find(segment.substr(1));
      if (match.item >= 0) {
        const std::string& literal = literals_[static_cast<std::size_t>(match.item)];
        const bool behindSegment = mark > 0 && mark == segmentEnd;
        if (behindSegment && (literal.empty() || IsNameChar(literal[0]))) return std::nullopt;
        out.append(text, done, mark - done).append(literal);
        done = mark + 1 + match.size;
      }
      segmentEnd = mark + segment.size();
    }
    return out.append(text, done);
  }

 private:
  /// Whether no name matches inside the literal, now or together with what follows it.
  bool CannotMatch(std::string_view literal) const {
    for (std::size_t mark = literal.find('@'); mark != std::string_view::npos;) {
      const std::string_view segment = SegmentAt(literal, mark);
      mark += segment.size();
      if (mark == literal.size() || tree_.Find(segment.substr(1)).item >= 0) return false;
      mark = literal.find('@', mark);
    }
    return true;
  }

  NameTree tree_;
  std::vector<std::string> literals_;
  bool exact_ = true;
};

std::string FillItemByItem(std::string text, const TQXSQLItems& items) {
  for (Integer i = 0; i < items.GetCount(); ++i) {
    const TQXSQLItem& item = *items.GetItems(i);
    text = QXStrTools::ReplaceAllStr(text, item.GetName(), LiteralOf(item), true);
  }
  return text;
}

}  // namespace

WideString TQXSQL::ClearNote(std::u16string_view text) {
  return HasComment(text) ? TrimLines(DropComments(text)) : WideString(text);
}

TStrings& TQXSQL::GetOutLines() {
  // Large texts: each form is given up as soon as the next is there.
  outLines_.Clear();
  std::string text = inLines_.GetText();
  WideString wide = BytesToWide(text);
  std::string().swap(text);
  if (HasComment(wide)) wide = ClearNote(wide);
  text = WideToBytes(wide);
  WideString().swap(wide);
  if (auto filled = OnePassFiller(params_).Fill(text))
    text = *std::move(filled);
  else
    text = FillItemByItem(std::move(text), params_);
  outLines_.SetText(text);
  return outLines_;
}

}  // namespace qxTools::QXSqlTools
