// What a rule knows while it looks at an event, and where it puts what it finds.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>

#include "Findings.h"

namespace qxTools::qxSqlStoreProc {
class TQXSqlStoreProc;
class TQXSqlStoreProcItem;
}  // namespace qxTools::qxSqlStoreProc

namespace qxTools::QXSqlTools {
class TQXSQLItems;
}

namespace qxtool::check {

constexpr std::size_t kNowhere = std::string_view::npos;

/// What is known of a name of a statement once all of it was read.
struct NameFacts {
  std::size_t order = kNowhere;  // among the names that the library finds; kNowhere: it finds none
  std::size_t foundBegin = 0;    // where it finds the first one, "@" included
  std::size_t foundEnd = 0;
  std::size_t usedBegin = kNowhere;  // the first variable of that name, as the server reads it
  std::size_t usedEnd = 0;
  bool foundInCode = false;  // the library finds it where the server reads a variable
  bool declared = false;
  bool declaredByText = false;  // by DECLARE
  std::size_t declaredBegin = 0;
  std::size_t flippedBy = kNowhere;  // the odd apostrophes that hid it, or made a name of a literal's text
  std::size_t flippedEnd = 0;
};

/// The names in capitals, without "@".
using Names = std::unordered_map<std::string, NameFacts>;

/// What the reader of a file knows of its bytes.
enum class TextCoding { kCodePage950, kGb2312, kUtf8, kOther };

/// What was seen while the file's bytes were taken in; the rules for encodings speak of it.
struct CodingFacts {
  TextCoding coding = TextCoding::kCodePage950;
  bool expectedUtf8 = false;
  std::size_t markSize = 0;             // of the byte-order mark, which is no part of the text
  std::size_t firstInvalid = kNowhere;  // the first byte that is no UTF-8, where that is expected
  std::vector<std::size_t> lacking;     // where a "?" is in the place of a character that the page lacks
};

class Context {
 public:
  Context(std::string_view textOfFile, const CodingFacts& codingFacts, Findings& findings)
      : text(textOfFile), coding(codingFacts), findings_(findings) {}

  std::string_view text;
  const CodingFacts& coding;
  Route route = Route::kCall;
  bool pedantic = false;
  Names names;
  std::map<std::string, std::string> macros;  // the first spelling of each, by its capitals
  const qxTools::qxSqlStoreProc::TQXSqlStoreProc* set = nullptr;
  const qxTools::qxSqlStoreProc::TQXSqlStoreProcItem* item = nullptr;
  bool itemIsMacro = false;
  const qxTools::QXSqlTools::TQXSQLItems* commandItems = nullptr;
  int commandItem = 0;  // the one that is looked at, from 0

  /// The rule that is asked at the moment.
  void SetRule(const Rule& rule) { rule_ = &rule; }

  bool IsOn(Routes routes) const { return (BitOf(route) & routes) != 0; }
  std::string_view TextOf(const Event& event) const {
    return text.substr(event.begin, event.end - event.begin);
  }

  /// Reports a finding of the current rule, at its level.
  void Report(const Event& event, std::string message) { Report(event.begin, event.end, std::move(message)); }
  void Report(std::size_t begin, std::size_t end, std::string message) {
    Report(begin, end, rule_->level, std::move(message));
  }
  void Report(std::size_t begin, std::size_t end, Level level, std::string message) {
    findings_.Add(*rule_, level, begin, end, std::move(message));
  }

 private:
  Findings& findings_;
  const Rule* rule_ = nullptr;
};

/// A text for a message: cut behind 40 bytes, at a character, with control bytes as "?".
std::string Shown(std::string_view text);

}  // namespace qxtool::check
