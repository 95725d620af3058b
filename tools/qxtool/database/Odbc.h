// A connection over ODBC: handles that free themselves, and errors that carry what the driver said.
//
// Text passes as the bytes that it is, both ways; Charset.h says what they mean.
#pragma once

#include <qxTools/base/Exceptions.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qxtool::database {

/// One record of what a driver says: "SQLSTATE message", with the server's own number, if any, between.
using Message = std::string;

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
  /// What the driver says of the last call.
  std::vector<Message> Messages() const;
  /// @throws Error when `result`, the answer of a call on this handle, is none of success.
  void Check(std::int16_t result) const;

 private:
  std::int16_t type_;
  void* handle_ = nullptr;
};

class Connection {
 public:
  /// `target` is a connection string ("Driver=SQLite3;Database=goods.db") or the name of a data source.
  explicit Connection(const std::string& target);
  ~Connection();

  const Handle& Get() const { return connection_; }

 private:
  Handle environment_;
  Handle connection_;
};

/// One statement and its results. Columns count from 1. @throws Error from every call that the driver fails.
class Statement {
 public:
  explicit Statement(const Connection& connection);

  /// Runs a text; its first result is then at hand.
  void Execute(std::string_view text);
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

  Handle statement_;
  std::string piece_;
  std::vector<Message> messages_;
};

}  // namespace qxtool::database
