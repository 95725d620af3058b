#include "Pages.h"

#include <algorithm>

#include "Characters.h"
#include "Report.h"

namespace qxtool::check {

namespace {

/// A byte-order mark, control and stray bytes as <XX>.
std::string Readable(std::string_view text) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string shown;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t size = CharacterSize(text, i);
    const unsigned byte = Byte(text[i]);
    if ((byte < ' ' && byte != '\n') || (byte >= 0x80 && size == 1) ||
        text.substr(i).starts_with("\xEF\xBB\xBF"))
      shown += {'<', kDigits[byte >> 4], kDigits[byte & 15], '>'};
    else
      shown += Utf8Of(text.substr(i, size));
    i += byte < 0x80 || size == 2 ? size : 1;
  }
  return shown;
}

std::string Block(std::string_view example) { return "\n```\n" + Readable(example) + "```\n"; }

/// Text for a page: words with marks of Markdown or of Doxygen are set as code.
std::string Prose(std::string_view text) {
  std::string page;
  while (!text.empty()) {
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(std::min(word.size() + 1, text.size()));
    const std::size_t end = word.find_last_not_of(",;:)") + 1;
    const bool marked = word.find_first_of("@*#<>\\") != std::string_view::npos;
    page.append(page.empty() ? "" : " ")
        .append(marked ? "`" : "")
        .append(word, 0, end)
        .append(marked ? "`" : "");
    page.append(word, end);
  }
  return page;
}

/// Text for man: no dash that a terminal breaks at, and no line that begins with a mark of its own.
std::string ForMan(std::string_view text) {
  std::string escaped;
  for (const char c : text)
    escaped += c == '-' ? std::string("\\-") : c == '\\' ? std::string("\\e") : std::string(1, c);
  return escaped.starts_with('.') || escaped.starts_with('\'') ? "\\&" + escaped : escaped;
}

}  // namespace

std::string RulesAsMarkdown() {
  std::string page;
  for (const Rule& rule : AllRules()) {
    page.append("\n## ").append(rule.id).append("\n\n**").append(LevelName(rule.level)).append("**: ");
    page.append(Prose(rule.summary)).append(".\nLooks at: ").append(PlacesOf(rule));
    page.append(rule.byDefault ? ".\n\n" : "; off by default.\n\n").append(Prose(rule.why));
    page.append("\nInstead: ").append(Prose(rule.remedy)).append("\n\nFound in:\n").append(Block(rule.bad));
    page.append("\nNot in:\n").append(Block(rule.good));
  }
  return page;
}

std::string RulesAsMan() {
  std::string list;
  for (const Rule& rule : AllRules())
    list.append(".TP\n.B ")
        .append(rule.id)
        .append("\n")
        .append(ForMan(rule.summary))
        .append(rule.byDefault ? ".\n" : " (off by default).\n");
  return list;
}

}  // namespace qxtool::check
