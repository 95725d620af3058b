#include <qxTools/base/CodePage950Bytes.h>
#include <qxTools/base/Lines.h>
#include <qxTools/sql/CommandNotes.h>

namespace qxTools::QXSqlTools {

namespace {

/// Which marks of a comment are there. A text has comments if it has both, anywhere and in any order.
struct Marks {
  bool hasOpen = false;
  bool hasClose = false;
  bool AreBoth() const { return hasOpen && hasClose; }

  /// Each mark has a "/".
  template <class Char>
  void Search(std::basic_string_view<Char> text) {
    for (std::size_t i = FindUnit(text, Char('/'), 0); i < text.size() && !AreBoth();
         i = FindUnit(text, Char('/'), i + 1)) {
      hasOpen = hasOpen || (i + 1 < text.size() && text[i + 1] == Char('*'));
      hasClose = hasClose || (i > 0 && text[i - 1] == Char('*'));
    }
  }
};

/// Keeps what is outside comments. On purpose: each "/" outside removes the character after it too, and each
/// "*" inside skips the one after it, so that "/* x **/" never closes.
template <class Char>
void DropComments(std::basic_string<Char>& text) {
  const std::basic_string_view<Char> whole = text;
  std::size_t kept = 0;
  bool inComment = false;
  for (std::size_t start = 0; start < whole.size();) {
    const std::size_t mark = FindUnit(whole, inComment ? Char('*') : Char('/'), start);
    const bool isLast = mark + 1 >= whole.size();
    const std::size_t end = isLast ? whole.size() : mark;
    if (!inComment)
      kept = static_cast<std::size_t>(std::copy(&text[start], &text[end], &text[kept]) - &text[0]);
    if (isLast) break;
    start = mark + 1 + CharacterSize(whole, mark + 1);
    inComment = inComment ? whole[mark + 1] != Char('/') : whole[mark + 1] == Char('*');
  }
  text.resize(kept);
}

template <class Char>
bool IsBlank(std::basic_string_view<Char> line) {
  return line.find_first_not_of(Char(' ')) == line.npos;
}

/// Returns the lines without the blank ones at the start and the end, each followed by CR LF.
template <class Char>
std::basic_string<Char> TrimLines(std::basic_string_view<Char> text) {
  auto lines = SplitLines(text);
  while (!lines.empty() && IsBlank(lines.back())) lines.pop_back();
  std::size_t first = 0;
  while (first < lines.size() && IsBlank(lines[first])) ++first;
  std::basic_string<Char> joined;
  joined.reserve(text.size() + 2);
  for (; first < lines.size(); ++first) {
    joined.append(lines[first]);
    joined += Char('\r');
    joined += Char('\n');
  }
  return joined;
}

template <class Char>
void Remove(std::basic_string<Char>& text) {
  Marks marks;
  marks.Search<Char>(text);
  if (!marks.AreBoth()) return;
  DropComments(text);
  text = TrimLines<Char>(text);
}

}  // namespace

bool HasNotes(const TStrings& lines) {
  Marks marks;
  for (Integer i = 0; i < lines.GetCount() && !marks.AreBoth(); ++i) marks.Search(lines.GetView(i));
  return marks.AreBoth();
}

void RemoveNotes(std::string& text) { Remove(text); }
void RemoveNotes(std::u16string& text) { Remove(text); }

}  // namespace qxTools::QXSqlTools
