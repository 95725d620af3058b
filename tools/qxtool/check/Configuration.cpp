#include "Configuration.h"

#include <qxTools/base/Ascii.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/stores/IniLines.h>
#include <qxTools/stores/qxIniTools.h>

#include <algorithm>
#include <filesystem>

#include "PathOf.h"

namespace qxtool::check {

namespace {

using namespace qxTools;
using namespace qxTools::qxIniTools;

std::string Text(const char* text) { return text != nullptr ? text : ""; }

/// Matches with one star to go back to: at most |pattern| * |text| steps.
bool FitsWhole(std::string_view pattern, std::string_view text) {
  std::size_t p = 0;
  std::size_t star = std::string_view::npos;
  std::size_t behindStar = 0;
  for (std::size_t i = 0; i < text.size();) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      behindStar = i;
    } else if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == text[i])) {
      ++p;
      ++i;
    } else if (star != std::string_view::npos) {
      p = star + 1;
      i = ++behindStar;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

void Apply(const std::string& name, const std::string& value, FileOptions& options) {
  if (name == "AS")
    options.route = ReadRoute(value);
  else if (name == "PEDANTIC" && (SameText(value, "yes") || SameText(value, "no")))
    options.pedantic = SameText(value, "yes");
  else if (name == "SELECT" || name == "IGNORE")
    for (std::string& id : ReadIds(value))
      (name == "SELECT" ? options.select : options.ignore).push_back(std::move(id));
  else
    throw Exception("unknown: " + name + ":" + value + "; known are As, Select, Ignore and Pedantic:yes");
}

}  // namespace

Route ReadRoute(std::string_view name) {
  constexpr std::string_view kNames[] = {"command", "call", "call-all"};
  const auto* const found = std::ranges::find(kNames, name);
  if (found == std::end(kNames)) throw Exception("not command, call or call-all: " + std::string(name));
  return static_cast<Route>(found - kNames);
}

std::vector<std::string> ReadIds(std::string_view list) {
  std::vector<std::string> ids;
  while (!list.empty()) {
    const std::size_t comma = std::min(list.find(','), list.size());
    const std::string id(TrimBlanks(list.substr(0, comma)));
    list.remove_prefix(std::min(comma + 1, list.size()));
    if (id.empty()) continue;
    if (std::ranges::none_of(AllRules(),
                             [&](const Rule& rule) { return SameText(rule.id.substr(0, id.size()), id); }))
      throw Exception("no rule has an id that begins with " + id);
    ids.push_back(id);
  }
  return ids;
}

bool Fits(std::string_view pattern, std::string_view path) {
  if (pattern.ends_with('/')) pattern.remove_suffix(1);
  if (FitsWhole(pattern, path)) return true;
  for (std::size_t slash = path.find('/', 1); slash != std::string_view::npos;
       slash = path.find('/', slash + 1))
    if (FitsWhole(pattern, path.substr(0, slash))) return true;
  return false;
}

Configuration::Configuration(const std::string& text, std::string folder) : folder_(std::move(folder)) {
  TQXIniFile file;
  file.SetText(text);
  std::string section;
  file.EnumTreeNode([&](pQXTreeNode node) {
    const auto* const pair = static_cast<pQXIniPair>(node->Data);
    if (node->Level == 1) section = Text(pair->Value);
    if (node->Level == 3) entries_.push_back({section, UpperCase(Text(pair->Name)), Text(pair->Value)});
  });
  FileOptions options;
  for (const Entry& entry : entries_) Apply(entry.name, entry.value, options);
}

FileOptions Configuration::For(const std::string& path, FileOptions options) const {
  if (entries_.empty()) return options;
  const std::string place = std::filesystem::absolute(PathOf(path))
                                .lexically_normal()
                                .lexically_relative(PathOf(folder_))
                                .generic_string();
  for (const Entry& entry : entries_)
    if (Fits(entry.pattern, place)) Apply(entry.name, entry.value, options);
  return options;
}

}  // namespace qxtool::check
