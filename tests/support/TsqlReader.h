// Reads T-SQL text as a server does, without the library: literals, `+`, character codes, and the call that
// is made of them.
#pragma once

#include <cstdlib>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qxTools::test {

/// How bytes are taken for characters: one by one; in pairs where a lead byte has a fitting trail byte; in
/// pairs behind every lead byte.
enum class Reading { kBytes, kCharacters, kSwallowing };

inline constexpr Reading kReadings[] = {Reading::kBytes, Reading::kCharacters, Reading::kSwallowing};

/// A call of sp_executesql as the server gets it. A value that is no text is as it is written.
struct TsqlCall {
  std::string statement;
  std::string declarations;
  std::vector<std::string> values;
};

class TsqlReader {
 public:
  TsqlReader(std::string_view text, Reading reading) : text_(text), reading_(reading) {}

  bool AtEnd() const { return at_ == text_.size(); }

  bool Pass(std::string_view mark) {
    if (text_.substr(at_, mark.size()) != mark) return false;
    at_ += mark.size();
    return true;
  }

  /// Literals and characters joined by `+`, one variable, or nothing if that is no text.
  std::optional<std::string> Text() {
    std::string value;
    if (text_.substr(at_).starts_with("@")) return variables_[Word()];
    if (!Pass("CAST(N'' AS nvarchar(max)) + ")) Pass("CAST('' AS varchar(max)) + ");
    do
      if (!Term(value)) return std::nullopt;
    while (Pass(" + "));
    return value;
  }

  std::optional<TsqlCall> Call() {
    while (Pass("DECLARE ")) {
      const std::string name = Word();
      Word();  // its type
      const auto value = Pass("= ") ? Text() : std::nullopt;
      if (!value || !Pass("\r\n")) return std::nullopt;
      variables_[name] = *value;
    }
    TsqlCall call;
    if (!Pass("EXEC sp_executesql ") || !Take(call.statement)) return std::nullopt;
    if (Pass(",\r\n") && !(Take(call.declarations) && Pass(", \r\n") && TakeValues(call.values)))
      return std::nullopt;
    return Pass("\r\n") && AtEnd() ? std::optional(call) : std::nullopt;
  }

 private:
  bool Take(std::string& text) {
    const auto read = Text();
    if (read) text = *read;
    return read.has_value();
  }

  bool TakeValues(std::vector<std::string>& values) {
    do {
      const bool isText = text_.find_first_of("'@", at_) <= at_ + 1;
      if (!isText) values.push_back(Word());
      if (isText && !Take(values.emplace_back())) return false;
    } while (Pass(" , ") || Pass(", "));
    return true;
  }

  /// All up to the next blank or break, and one blank behind it.
  std::string Word() {
    const std::size_t end = std::min(text_.find_first_of(" ,\r", at_), text_.size());
    const std::string word(text_.substr(at_, end - at_));
    at_ = end;
    if (text_.substr(at_, 3) != " , ") Pass(" ");
    return word;
  }

  bool Term(std::string& value) {
    if (Pass("NCHAR(") || Pass("CHAR(")) {
      value += static_cast<char>(std::atoi(std::string(text_.substr(at_, 2)).c_str()));
      at_ += 2;
      return Pass(")");
    }
    Pass("N");
    return Pass("'") && Literal(value);
  }

  /// All up to the closing quote. A backslash and the line end behind it are dropped.
  bool Literal(std::string& value) {
    while (!AtEnd()) {
      if (Pass("''")) {
        value += '\'';
      } else if (Pass("'")) {
        return true;
      } else if (!Pass("\\\r\n") && !Pass("\\\n") && !Pass("\\\r")) {
        const std::size_t size = CharacterSize();
        value += text_.substr(at_, size);
        at_ += size;
      }
    }
    return false;
  }

  std::size_t CharacterSize() const {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text_[i]); };
    if (reading_ == Reading::kBytes || byte(at_) <= 0x80 || byte(at_) == 0xFF || at_ + 1 == text_.size())
      return 1;
    const unsigned trail = byte(at_ + 1);
    const bool fits = (trail >= 0x40 && trail <= 0x7E) || (trail >= 0xA1 && trail <= 0xFE);
    return reading_ == Reading::kSwallowing || fits ? 2 : 1;
  }

  std::string_view text_;
  Reading reading_;
  std::size_t at_ = 0;
  std::map<std::string, std::string> variables_;
};

}  // namespace qxTools::test
