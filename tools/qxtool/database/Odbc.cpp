#include "database/Odbc.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "OdbcHeaders.h"
#include "Utf8Locale.h"
#include "database/Utf16.h"

namespace qxtool::database {

namespace {

// Odd, so that the pairs of digits of a binary value fill all but the NUL behind them.
constexpr std::size_t kFirstPiece = 4097;
constexpr std::size_t kLaterPiece = 1048577;
constexpr SQLSMALLINT kMostSmall = std::numeric_limits<SQLSMALLINT>::max();
constexpr SQLSMALLINT kMostName = 8192;  // bytes; for a larger room PostgreSQL's driver fails

SQLCHAR* Text(std::string& text) { return reinterpret_cast<SQLCHAR*>(text.data()); }
SQLWCHAR* Text(std::u16string& text) { return reinterpret_cast<SQLWCHAR*>(text.data()); }

std::u16string Wide(std::string_view utf8, const char* what) {
  auto text = ToUtf16(utf8);
  if (!text) throw Error({Message{.text = std::string(what) + " is not UTF-8"}});
  return *std::move(text);
}

/// The text up to its NUL, as UTF-8.
std::string UpToNul(const std::u16string& text) { return ToUtf8(text.c_str()); }
std::string UpToNul(const std::string& text) { return text.c_str(); }

// The calls that exist twice, for bytes and for UTF-16.
SQLRETURN GetDiagRec(SQLSMALLINT type, void* handle, SQLSMALLINT i, std::string& state, SQLINTEGER& number,
                     std::string& text) {
  return SQLGetDiagRec(type, handle, i, Text(state), &number, Text(text), kMostSmall - 1, nullptr);
}
SQLRETURN GetDiagRec(SQLSMALLINT type, void* handle, SQLSMALLINT i, std::u16string& state, SQLINTEGER& number,
                     std::u16string& text) {
  return SQLGetDiagRecW(type, handle, i, Text(state), &number, Text(text), kMostSmall - 1, nullptr);
}
SQLRETURN ColumnLabel(void* statement, SQLUSMALLINT column, std::string& name, SQLSMALLINT& bytes) {
  return SQLColAttribute(statement, column, SQL_DESC_LABEL, name.data(), kMostName, &bytes, nullptr);
}
SQLRETURN ColumnLabel(void* statement, SQLUSMALLINT column, std::u16string& name, SQLSMALLINT& bytes) {
  return SQLColAttributeW(statement, column, SQL_DESC_LABEL, name.data(), kMostName, &bytes, nullptr);
}
SQLRETURN ExecDirect(void* statement, std::string& text) {
  return SQLExecDirect(statement, Text(text), static_cast<SQLINTEGER>(text.size()));
}
SQLRETURN ExecDirect(void* statement, std::u16string& text) {
  return SQLExecDirectW(statement, Text(text), static_cast<SQLINTEGER>(text.size()));
}

SQLRETURN Prepare(void* statement, std::string& text) {
  return SQLPrepare(statement, Text(text), static_cast<SQLINTEGER>(text.size()));
}
SQLRETURN Prepare(void* statement, std::u16string& text) {
  return SQLPrepareW(statement, Text(text), static_cast<SQLINTEGER>(text.size()));
}

template <class String>
std::vector<Message> ReadMessages(SQLSMALLINT type, void* handle) {
  std::vector<Message> messages;
  String text(kMostSmall, 0);
  String state(SQL_SQLSTATE_SIZE + 1, 0);
  SQLINTEGER number = 0;
  for (SQLSMALLINT i = 1; SQL_SUCCEEDED(GetDiagRec(type, handle, i, state, number, text)); ++i)
    messages.push_back({UpToNul(state), number, UpToNul(text)});
  return messages;
}

std::string Joined(const std::vector<Message>& messages) {
  std::string text;
  for (const Message& message : messages) text += (text.empty() ? "" : "\n") + message.AsText();
  return text;
}

const Handle& AskForVersion3(const Handle& environment) {
  // The interface passes numbers as pointers.
  const auto version = reinterpret_cast<SQLPOINTER>(static_cast<std::uintptr_t>(SQL_OV_ODBC3));
  environment.Check(SQLSetEnvAttr(environment.Get(), SQL_ATTR_ODBC_VERSION, version, 0));
  return environment;
}

}  // namespace

// --- Errors and handles ------------------------------------------------------------------------------

std::string Message::AsText() const {
  const std::string code = number != 0 ? " (" + std::to_string(number) + ")" : "";
  return state.empty() ? text : state + code + " " + text;
}

std::optional<std::string> Message::Printed() const {
  constexpr std::string_view kServer = "[SQL Server]";
  const std::size_t server = text.find(kServer);
  const bool isPrinted =
      state == "01000" && number == 0 && text.starts_with('[') && server != std::string::npos;
  return isPrinted ? std::optional(text.substr(server + kServer.size())) : std::nullopt;
}

Error::Error(std::vector<Message> messages)
    : qxTools::Exception(Joined(messages)), messages_(std::move(messages)) {}

Handle::Handle(std::int16_t type, void* parent) : type_(type) {
  if (!SQL_SUCCEEDED(SQLAllocHandle(type, parent, &handle_)))
    throw Error({Message{.text = "no ODBC handle to be had"}});
}

Handle::~Handle() { SQLFreeHandle(type_, handle_); }

std::vector<Message> Handle::Messages() const {
  return isWide_ ? ReadMessages<std::u16string>(type_, handle_) : ReadMessages<std::string>(type_, handle_);
}

void Handle::Check(std::int16_t result) const {
  if (SQL_SUCCEEDED(result)) return;
  auto messages = Messages();
  if (messages.empty()) messages.push_back({.text = "the driver gives no reason"});
  throw Error(std::move(messages));
}

// --- Connection --------------------------------------------------------------------------------------

Connection::Connection(const std::string& target)
    : environment_(SQL_HANDLE_ENV, nullptr), connection_(SQL_HANDLE_DBC, AskForVersion3(environment_).Get()) {
  std::u16string text =
      Wide(target.find('=') == std::string::npos ? "DSN=" + target : target, "the connection string");
  if (text.size() >= static_cast<std::size_t>(kMostSmall))
    throw Error({Message{.text = "the connection string is too long"}});
  const Utf8Locale locale;  // for a driver without wide calls the driver manager converts by this
  connection_.Check(SQLDriverConnectW(connection_.Get(), nullptr, Text(text),
                                      static_cast<SQLSMALLINT>(text.size()), nullptr, 0, nullptr,
                                      SQL_DRIVER_NOPROMPT));
  connection_.SetWide(HasWideCalls());
}

/// Whether the driver has wide calls. Where it has none the driver manager puts other characters in the place
/// of some, and says nothing: this is a text that such a driver does not give back.
bool Connection::HasWideCalls() const {
  std::u16string sent = u"'\u7532\U0001F600'";
  std::u16string returned(2 * sent.size(), u'\0');
  const SQLRETURN result = SQLNativeSqlW(connection_.Get(), Text(sent), static_cast<SQLINTEGER>(sent.size()),
                                         Text(returned), static_cast<SQLINTEGER>(returned.size()), nullptr);
  return SQL_SUCCEEDED(result) && returned.c_str() == sent;
}

Connection::~Connection() { SQLDisconnect(connection_.Get()); }

// --- Statement ---------------------------------------------------------------------------------------

Statement::Statement(const Connection& connection)
    : statement_(SQL_HANDLE_STMT, connection.Get().Get()),
      wide_(kFirstPiece, u'\0'),
      bytes_(kFirstPiece, '\0') {
  statement_.SetWide(connection.Get().IsWide());
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

/// A driver that finds another number of marks reads the text otherwise: a value would go to a wrong place,
/// or to none.
template <class String>
void Statement::BindAll(String& text) {
  Keep(Prepare(statement_.Get(), text));
  SQLSMALLINT marks = 0;
  statement_.Check(SQLNumParams(statement_.Get(), &marks));
  if (static_cast<std::size_t>(marks) != parameters_.size())
    throw Error({Message{.text = "the driver finds " + std::to_string(marks) + " marks for " +
                                 std::to_string(parameters_.size()) + " bound values"}});
  for (std::size_t i = 0; i < parameters_.size(); ++i)
    statement_.Check(
        Bind(parameters_[i], statement_.Get(), static_cast<SQLUSMALLINT>(i + 1), statement_.IsWide()));
}

template <class String>
void Statement::Run(String& text) {
  if (!parameters_.empty()) BindAll(text);
  Keep(ExecDirect(statement_.Get(), text));
}

void Statement::Execute(std::string_view utf8, std::vector<Parameter> parameters) {
  std::u16string wide = Wide(utf8, "the statement");
  if (utf8.size() > std::numeric_limits<SQLINTEGER>::max())
    throw Error({Message{.text = "the statement is too long"}});
  if (utf8.empty()) throw Error({Message{.text = "the statement is empty"}});
  // Drivers end the text at a NUL, which would cut it unseen.
  if (utf8.find('\0') != std::string_view::npos)
    throw Error({Message{.text = "the statement holds a NUL byte"}});
  isBinary_.clear();
  parameters_ = std::move(parameters);
  if (statement_.IsWide()) return Run(wide);
  std::string bytes(utf8);
  Run(bytes);
}

bool Statement::NextResult() {
  isBinary_.clear();
  const SQLRETURN result = SQLMoreResults(statement_.Get());
  Keep(result);
  return result != SQL_NO_DATA;
}

int Statement::ColumnCount() const {
  SQLSMALLINT count = 0;
  statement_.Check(SQLNumResultCols(statement_.Get(), &count));
  return count;
}

template <class String>
std::string Statement::Label(int column) const {
  String name(kMostName, 0);
  SQLSMALLINT bytes = 0;
  statement_.Check(ColumnLabel(statement_.Get(), static_cast<SQLUSMALLINT>(column), name, bytes));
  if (bytes >= kMostName) throw Error({Message{.text = "the name of a column is too long"}});
  return UpToNul(name);
}

std::string Statement::ColumnName(int column) const {
  return statement_.IsWide() ? Label<std::u16string>(column) : Label<std::string>(column);
}

bool Statement::Fetch() {
  const SQLRETURN result = SQLFetch(statement_.Get());
  Keep(result);
  return result != SQL_NO_DATA;
}

bool Statement::IsBinary(int column) {
  for (int i = static_cast<int>(isBinary_.size()) + 1; i <= column; ++i) {
    SQLLEN type = 0;
    statement_.Check(SQLColAttributeW(statement_.Get(), static_cast<SQLUSMALLINT>(i), SQL_DESC_CONCISE_TYPE,
                                      nullptr, 0, nullptr, &type));
    isBinary_.push_back(type == SQL_BINARY || type == SQL_VARBINARY || type == SQL_LONGVARBINARY);
  }
  return isBinary_[static_cast<std::size_t>(column) - 1];
}

template <class Unit>
std::optional<std::basic_string<Unit>> Statement::Read(int column, std::int16_t type,
                                                       std::basic_string<Unit>& piece) const {
  constexpr auto kSize = static_cast<SQLLEN>(sizeof(Unit));
  std::basic_string<Unit> value;
  for (piece.resize(kFirstPiece);; piece.resize(kLaterPiece)) {
    // Not NUL, so that the last NUL is the one behind the text, also where a driver leaves the last units of
    // a piece free because half a character would not do.
    std::fill(piece.begin(), piece.end(), static_cast<Unit>(-1));
    SQLLEN length = 0;
    const SQLRETURN result = SQLGetData(statement_.Get(), static_cast<SQLUSMALLINT>(column), type,
                                        piece.data(), static_cast<SQLLEN>(piece.size()) * kSize, &length);
    if (result == SQL_NO_DATA) break;
    statement_.Check(result);
    if (length == SQL_NULL_DATA) return std::nullopt;
    const bool fits = length >= 0 && static_cast<std::size_t>(length / kSize) < piece.size();
    const std::size_t end = fits ? static_cast<std::size_t>(length / kSize) : piece.rfind(Unit{0});
    const bool whole = fits || (result == SQL_SUCCESS && length == SQL_NO_TOTAL);
    if (end == std::string::npos || (result == SQL_SUCCESS && !whole))
      throw Error({Message{.text = "the driver gives a value and its length that do not agree"}});
    value.append(piece, 0, end);
    if (whole) break;
  }
  return value;
}

std::optional<std::string> Statement::Value(int column) {
  // The digits of a binary value are ASCII, and not every driver makes them wide.
  if (!statement_.IsWide() || IsBinary(column)) return Read(column, SQL_C_CHAR, bytes_);
  const auto text = Read(column, SQL_C_WCHAR, wide_);
  return text ? std::optional(ToUtf8(*text)) : std::nullopt;
}

std::int64_t Statement::AffectedRows() const {
  SQLLEN rows = -1;
  statement_.Check(SQLRowCount(statement_.Get(), &rows));
  return rows;
}

std::vector<Message> Statement::TakeMessages() { return std::exchange(messages_, {}); }

void Statement::Cancel() noexcept { SQLCancel(statement_.Get()); }

}  // namespace qxtool::database
