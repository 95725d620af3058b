// The rules, each one record.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "Event.h"

namespace qxtool::check {

class Context;

enum class Level : std::uint8_t { kInformation, kWarning, kError };

/// "information", "warning" or "error".
std::string_view LevelName(Level level);

/// What a rule looks at.
enum class FileKind : std::uint8_t { kStatement, kSettings, kTable, kText, kCall };

/// "statement", "settings", "table", "text" or "call".
std::string_view FileKindName(FileKind kind);

/// The routes of a statement on which a rule speaks, as bits.
using Routes = unsigned;
constexpr Routes kCommandRoute = 1;
constexpr Routes kCallRoute = 2;
constexpr Routes kCallAllRoute = 4;
constexpr Routes kCallRoutes = kCallRoute | kCallAllRoute;
constexpr Routes kEveryRoute = 7;

constexpr Routes BitOf(Route route) { return 1u << static_cast<unsigned>(route); }

/// The kinds of events, as bits.
using Events = std::uint32_t;
template <class... Kind>
constexpr Events On(Kind... kind) {
  return ((Events{1} << static_cast<unsigned>(kind)) | ...);
}

struct Rule {
  std::string_view id;
  Level level;
  FileKind kind;
  Routes routes;  // of a statement; 0 for other files
  bool byDefault;
  std::string_view summary;  // what it finds, without a full stop
  std::string_view why;      // what happens otherwise
  std::string_view remedy;   // what to write instead
  /// A text that has a finding and one that has none, in code page 950. For calls: lines of qxtool's options,
  /// `declare TEXT` and `set NAME=VALUE`.
  std::string_view bad;
  std::string_view good;
  Events events;
  void (*check)(const Event& event, Context& context);
};

/// All rules, ordered by id.
std::span<const Rule> AllRules();

/// The rule of that id in any case, or null.
const Rule* FindRule(std::string_view id);

/// Where a rule speaks: "command, call, call-all", or the kind of file.
std::string PlacesOf(const Rule& rule);

// The parts of the table, one file each.
std::span<const Rule> CommentRules();
std::span<const Rule> NameRules();
std::span<const Rule> MacroRules();
std::span<const Rule> ServerRules();
std::span<const Rule> CallRules();
std::span<const Rule> SettingsRules();
std::span<const Rule> TableRules();
std::span<const Rule> EncodingRules();
std::span<const Rule> SuppressionRules();

}  // namespace qxtool::check
