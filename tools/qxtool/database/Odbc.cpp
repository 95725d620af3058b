#include "database/Odbc.h"

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace qxtool::database {

namespace {

// Odd, so that the pairs of digits of a binary value fill all but the NUL behind them.
constexpr std::size_t kFirstPiece = 4097;
constexpr std::size_t kLaterPiece = 1048577;

SQLCHAR* Text(std::string& text) { return reinterpret_cast<SQLCHAR*>(text.data()); }

/// For arguments that ODBC does not write to, although their type says so.
SQLCHAR* Text(std::string_view text) { return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.data())); }

std::string Joined(const std::vector<Message>& messages) {
  std::string text;
  for (const Message& message : messages) text += (text.empty() ? "" : "\n") + message;
  return text.empty() ? "the driver gives no reason" : text;
}

const Handle& AskForVersion3(const Handle& environment) {
  // The interface passes numbers as pointers.
  const auto version = reinterpret_cast<SQLPOINTER>(static_cast<std::uintptr_t>(SQL_OV_ODBC3));
  environment.Check(SQLSetEnvAttr(environment.Get(), SQL_ATTR_ODBC_VERSION, version, 0));
  return environment;
}

}  // namespace

// --- Errors and handles ------------------------------------------------------------------------------

Error::Error(std::vector<Message> messages)
    : qxTools::Exception(Joined(messages)), messages_(std::move(messages)) {}

Handle::Handle(std::int16_t type, void* parent) : type_(type) {
  if (!SQL_SUCCEEDED(SQLAllocHandle(type, parent, &handle_))) throw Error({"no ODBC handle to be had"});
}

Handle::~Handle() { SQLFreeHandle(type_, handle_); }

std::vector<Message> Handle::Messages() const {
  std::vector<Message> messages;
  std::string text(std::numeric_limits<SQLSMALLINT>::max(), '\0');
  SQLCHAR state[SQL_SQLSTATE_SIZE + 1] = {};
  SQLINTEGER number = 0;
  SQLSMALLINT length = 0;
  for (SQLSMALLINT i = 1; SQL_SUCCEEDED(SQLGetDiagRec(type_, handle_, i, state, &number, Text(text),
                                                      static_cast<SQLSMALLINT>(text.size()), &length));
       ++i) {
    Message message(reinterpret_cast<const char*>(state));
    if (number != 0) message += " (" + std::to_string(number) + ")";
    messages.push_back(message + " " + text.c_str());
  }
  return messages;
}

void Handle::Check(std::int16_t result) const {
  if (!SQL_SUCCEEDED(result)) throw Error(Messages());
}

// --- Connection --------------------------------------------------------------------------------------

Connection::Connection(const std::string& target)
    : environment_(SQL_HANDLE_ENV, nullptr), connection_(SQL_HANDLE_DBC, AskForVersion3(environment_).Get()) {
  const std::string text = target.find('=') == std::string::npos ? "DSN=" + target : target;
  if (text.size() > std::numeric_limits<SQLSMALLINT>::max())
    throw Error({"the connection string is too long"});
  connection_.Check(SQLDriverConnect(connection_.Get(), nullptr, Text(std::string_view(text)),
                                     static_cast<SQLSMALLINT>(text.size()), nullptr, 0, nullptr,
                                     SQL_DRIVER_NOPROMPT));
}

Connection::~Connection() { SQLDisconnect(connection_.Get()); }

// --- Statement ---------------------------------------------------------------------------------------

Statement::Statement(const Connection& connection)
    : statement_(SQL_HANDLE_STMT, connection.Get().Get()), piece_(kFirstPiece, '\0') {
  // The text is the server's own. A driver that looks for ODBC's {escapes} would find braces and brackets in
  // the second bytes of Chinese characters; one that does not look has no such attribute.
  const auto off = reinterpret_cast<SQLPOINTER>(static_cast<std::uintptr_t>(SQL_NOSCAN_ON));
  SQLSetStmtAttr(statement_.Get(), SQL_ATTR_NOSCAN, off, 0);
}

/// Keeps what a call that succeeded has to say.
void Statement::Keep(std::int16_t result) {
  if (result == SQL_SUCCESS || result == SQL_NO_DATA) return;
  statement_.Check(result);
  for (Message& message : statement_.Messages()) messages_.push_back(std::move(message));
}

void Statement::Execute(std::string_view text) {
  if (text.size() > std::numeric_limits<SQLINTEGER>::max()) throw Error({"the statement is too long"});
  if (text.empty()) throw Error({"the statement is empty"});
  // Drivers end the text at a NUL, which would cut it unseen.
  if (text.find('\0') != std::string_view::npos) throw Error({"the statement holds a NUL byte"});
  Keep(SQLExecDirect(statement_.Get(), Text(text), static_cast<SQLINTEGER>(text.size())));
}

bool Statement::NextResult() {
  const SQLRETURN result = SQLMoreResults(statement_.Get());
  Keep(result);
  return result != SQL_NO_DATA;
}

int Statement::ColumnCount() const {
  SQLSMALLINT count = 0;
  statement_.Check(SQLNumResultCols(statement_.Get(), &count));
  return count;
}

std::string Statement::ColumnName(int column) const {
  std::string name(std::numeric_limits<SQLSMALLINT>::max(), '\0');
  statement_.Check(SQLColAttribute(statement_.Get(), static_cast<SQLUSMALLINT>(column), SQL_DESC_LABEL,
                                   name.data(), static_cast<SQLSMALLINT>(name.size()), nullptr, nullptr));
  return name.c_str();
}

bool Statement::Fetch() {
  const SQLRETURN result = SQLFetch(statement_.Get());
  Keep(result);
  return result != SQL_NO_DATA;
}

std::optional<std::string> Statement::Value(int column) {
  std::string value;
  for (;;) {
    // Not NUL, so that the last NUL is the one behind the text, also where a driver leaves the last bytes of
    // a piece free because half a character would not do.
    std::fill(piece_.begin(), piece_.end(), '\xFF');
    SQLLEN length = 0;
    const SQLRETURN result = SQLGetData(statement_.Get(), static_cast<SQLUSMALLINT>(column), SQL_C_CHAR,
                                        piece_.data(), static_cast<SQLLEN>(piece_.size()), &length);
    if (result == SQL_NO_DATA) break;
    statement_.Check(result);
    if (length == SQL_NULL_DATA) return std::nullopt;
    const bool fits = length >= 0 && static_cast<std::size_t>(length) < piece_.size();
    const std::size_t end = fits ? static_cast<std::size_t>(length) : piece_.rfind('\0');
    const bool whole = fits || (result == SQL_SUCCESS && length == SQL_NO_TOTAL);
    if (end == std::string::npos || (result == SQL_SUCCESS && !whole))
      throw Error({"the driver gives a value and its length that do not agree"});
    value.append(piece_, 0, end);
    if (whole) break;
    piece_.resize(kLaterPiece);
  }
  if (piece_.size() != kFirstPiece) piece_.resize(kFirstPiece);
  return value;
}

std::int64_t Statement::AffectedRows() const {
  SQLLEN rows = -1;
  statement_.Check(SQLRowCount(statement_.Get(), &rows));
  return rows;
}

std::vector<Message> Statement::TakeMessages() { return std::exchange(messages_, {}); }

void Statement::Cancel() noexcept { SQLCancel(statement_.Get()); }

}  // namespace qxtool::database
