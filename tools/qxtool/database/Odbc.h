// A connection over ODBC: handles that free themselves, and errors that carry what the driver said.
//
// Text is UTF-8 here. Drivers get and give UTF-16, whatever character set they are set to; one that has no
// wide calls, as SQLite's, gets and gives UTF-8.
#pragma once

#include <qxTools/base/Exceptions.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "database/Parameter.h"

namespace qxtool::database {

/// One record of what a driver says.
struct Message {
  std::string state = {};   // SQLSTATE, none for a failure that was found here
  std::int32_t number = 0;  // the server's own, 0 without one
  std::string text = {};

  /// All of it: "SQLSTATE (number) text".
  std::string AsText() const;
  /// The text of a PRINT, without the names that the driver puts in front; nothing for other messages.
  std::optional<std::string> Printed() const;
};

/// A call that failed, with all the records that the driver gave.
class Error : public qxTools::Exception {
 public:
  explicit Error(std::vector<Message> messages);
  const std::vector<Message>& Messages() const { return messages_; }

 private:
  std::vector<Message> messages_;
};

/// An ODBC handle, of the type that sql.h numbers.
class Handle {
 public:
  Handle(std::int16_t type, void* parent);
  ~Handle();
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  void* Get() const { return handle_; }
  /// Whether the driver behind it has wide calls; so it is taken to be until it is known.
  bool IsWide() const { return isWide_; }
  void SetWide(bool isWide) { isWide_ = isWide; }
  /// What the driver says of the last call.
  std::vector<Message> Messages() const;
  /// @throws Error when `result`, the answer of a call on this handle, is none of success.
  void Check(std::int16_t result) const;

 private:
  std::int16_t type_;
  void* handle_ = nullptr;
  bool isWide_ = true;
};

class Connection {
 public:
  /// `target` is a connection string ("Driver=SQLite3;Database=goods.db") or the name of a data source.
  explicit Connection(const std::string& target);
  ~Connection();

  const Handle& Get() const { return connection_; }

 private:
  bool HasWideCalls() const;

  Handle environment_;
  Handle connection_;
};

/// One statement and its results. Columns count from 1. @throws Error from every call that the driver fails.
class Statement {
 public:
  explicit Statement(const Connection& connection);

  /// Runs a statement; its first result is then the current one. The parameters are bound to its "?" marks.
  /// @throws Error, before it runs, when the driver finds another number of marks than of parameters.
  void Execute(std::string_view utf8, std::vector<Parameter> parameters = {});
  /// Goes on to the next result. @return false when there is none.
  bool NextResult();

  /// The columns of the result; 0 when it has no rows.
  int ColumnCount() const;
  std::string ColumnName(int column) const;
  /// Goes on to the next row. @return false behind the last.
  bool Fetch();
  /// A value of the row as text, whole, however long; nothing for NULL. Each value can be read once, and from
  /// left to right.
  std::optional<std::string> Value(int column);
  /// The rows that the statement changed, or less than 0 when the driver does not know.
  std::int64_t AffectedRows() const;

  /// What the server has said since the last call, as a procedure's PRINT does.
  std::vector<Message> TakeMessages();

  /// Ends Execute, Fetch or NextResult, which another thread is in; it throws Error then. Nothing happens
  /// when the driver cannot.
  void Cancel() noexcept;

 private:
  void Keep(std::int16_t result);
  template <class String>
  void Run(String& text);
  template <class String>
  void BindAll(String& text);
  bool IsBinary(int column);
  template <class String>
  std::string Label(int column) const;
  template <class Unit>
  std::optional<std::basic_string<Unit>> Read(int column, std::int16_t type,
                                              std::basic_string<Unit>& piece) const;

  std::vector<Parameter> parameters_;  // drivers read them while rows are fetched
  Handle statement_;
  // The piece of a value that is being read.
  std::u16string wide_;
  std::string bytes_;
  std::vector<bool> isBinary_;  // of the result's first columns, as far as they were asked for
  std::vector<Message> messages_;
};

}  // namespace qxtool::database
