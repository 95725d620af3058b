#include <qxTools/base/Ascii.h>
#include <qxTools/base/CodePage950.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/runtime/Numbers.h>
#include <qxTools/sql/SafeTypes.h>

#include <algorithm>
#include <set>

namespace qxTools::qxSqlSafeCall {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

/// Reads words and marks off the front of one declaration.
class Words {
 public:
  explicit Words(std::string_view text) : rest_(text) { SkipBlanks(); }

  bool AtEnd() const { return rest_.empty(); }

  /// All up to the next blank or mark.
  std::string Next() { return Take(rest_.find_first_of(" \t\r\n(,)")); }

  /// Whether the mark is next, which is then passed.
  bool Pass(char mark) {
    if (!rest_.starts_with(mark)) return false;
    Take(1);
    return true;
  }

 private:
  std::string Take(std::size_t count) {
    std::string taken(rest_.substr(0, count));
    rest_.remove_prefix(taken.size());
    SkipBlanks();
    return taken;
  }
  void SkipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size())); }

  std::string_view rest_;
};

/// What stands between the parentheses behind a type.
void ReadSize(Words& words, TSafeParam& param) {
  if (!words.Pass('(')) return;
  const std::string size = words.Next();
  param.Max = SameText(size, "max");
  if (!param.Max) param.Length = StrToInt(size);
  if (words.Pass(',')) param.Scale = StrToInt(words.Next());
  if (!words.Pass(')') || param.Length + (param.Max ? 1 : 0) == 0) throw Exception("no length");
}

TSafeParam ReadParam(std::string_view declaration) {
  Words words(declaration);
  TSafeParam param;
  param.Name = words.Next();
  CheckName(param.Name);
  param.Type = FindSafeType(words.Next()).name;
  ReadSize(words, param);
  TypeText(param);  // throws if the type cannot have that length
  const std::string direction = words.Next();
  param.Output = SameText(direction, "output") || SameText(direction, "out");
  if (!words.AtEnd() || (!direction.empty() && !param.Output))
    throw Exception("unknown text behind the type");
  return param;
}

/// Where the declaration that begins at `start` ends: at the next comma outside parentheses.
std::size_t DeclarationEnd(std::string_view text, std::size_t start) {
  const std::size_t open = text.find('(', start);
  const std::size_t comma = std::min(text.find(',', start), text.size());
  return open < comma ? std::min(text.find(',', text.find(')', open)), text.size()) : comma;
}

TSafeParam ReadNamed(std::string_view declaration) {
  try {
    return ReadParam(declaration);
  } catch (const Exception& e) {
    throw Exception("\"" + std::string(declaration) + "\": " + e.what());
  }
}

}  // namespace

std::vector<TSafeParam> ReadSafeParams(std::string_view declarations) {
  const std::string text = WideToBytes(TQXSqlStoreProc::ClearNote(BytesToWide(declarations)));
  std::vector<TSafeParam> params;
  std::set<std::string> names;
  if (text.find_first_not_of(kBlanks) == std::string::npos) return params;
  for (std::size_t start = 0, end = 0; start <= text.size(); start = end + 1) {
    end = DeclarationEnd(text, start);
    params.push_back(ReadNamed(std::string_view(text).substr(start, end - start)));
    if (!names.insert(UpperCase(params.back().Name)).second)
      throw Exception(params.back().Name + " is declared twice");
  }
  return params;
}

}  // namespace qxTools::qxSqlSafeCall
