#include <qxTools/base/Ascii.h>

#include <algorithm>
#include <vector>

#include "Rule.h"

namespace qxtool::check {

namespace {

std::vector<Rule> MakeTable() {
  std::vector<Rule> all;
  for (const auto part : {CallRules(), EncodingRules(), SuppressionRules(), SettingsRules(), CommentRules(),
                          NameRules(), MacroRules(), ServerRules(), TableRules()})
    all.insert(all.end(), part.begin(), part.end());
  return all;
}

}  // namespace

std::span<const Rule> AllRules() {
  static const std::vector<Rule> all = MakeTable();
  return all;
}

const Rule* FindRule(std::string_view id) {
  const auto found =
      std::ranges::find_if(AllRules(), [&](const Rule& rule) { return qxTools::SameText(rule.id, id); });
  return found != AllRules().end() ? &*found : nullptr;
}

std::string_view LevelName(Level level) {
  constexpr std::string_view kNames[] = {"information", "warning", "error"};
  return kNames[static_cast<std::size_t>(level)];
}

std::string_view FileKindName(FileKind kind) {
  constexpr std::string_view kNames[] = {"statement", "settings", "table", "text", "call"};
  return kNames[static_cast<std::size_t>(kind)];
}

std::string PlacesOf(const Rule& rule) {
  constexpr std::string_view kNames[] = {"command", "call", "call-all"};
  if (rule.routes == 0)
    return std::string(rule.kind == FileKind::kText ? "any file" : FileKindName(rule.kind));
  std::string places;
  for (unsigned i = 0; i < 3; ++i)
    if ((rule.routes >> i & 1) != 0) places.append(places.empty() ? "" : ", ").append(kNames[i]);
  return places;
}

}  // namespace qxtool::check
