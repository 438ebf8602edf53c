#include "posto/engines/odbc/link.h"

#include <algorithm>
#include <utility>

#include "posto/engines/odbc/text.h"

namespace posto::odbc {
namespace {

// As ODBC takes the number that an attribute becomes.
SQLPOINTER as_pointer(SQLULEN value) {
  return reinterpret_cast<SQLPOINTER>(value);  // NOLINT(performance-no-int-to-ptr)
}

std::string wide_answer(const SQLWCHAR* buffer, SQLSMALLINT bytes) {
  return to_utf8({buffer, static_cast<std::size_t>(bytes) / sizeof(SQLWCHAR)});
}

}  // namespace

Link::Link(const std::string& connection_string, std::int32_t timeout_seconds) {
  SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
  SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, as_pointer(SQL_OV_ODBC3), 0);
  SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
  SQLSetConnectAttrW(connection_, SQL_ATTR_LOGIN_TIMEOUT, as_pointer(static_cast<SQLULEN>(timeout_seconds)), 0);
  try {
    const WideText wide = to_utf16(connection_string);
    const SQLRETURN code =
        SQLDriverConnectW(connection_, nullptr, sql_text(wide), static_cast<SQLSMALLINT>(wide.size()), nullptr, 0,
                          nullptr, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(code)) {
      const Report report = report_of(SQL_HANDLE_DBC, connection_);
      throw Erro(erro::kProviderFailure, "ODBC", "Não foi possível abrir o banco: " + report.message,
                 {.sqlstate = report.state, .native_code = report.native, .connection_good = false});
    }
    try {
      require_known_server();
      // What a transaction has read stands until it ends: two that read one figure do not both write it anew.
      check(SQLSetConnectAttrW(connection_, SQL_ATTR_TXN_ISOLATION, as_pointer(SQL_TXN_REPEATABLE_READ), 0),
            SQL_HANDLE_DBC, connection_, {});
    } catch (const Erro&) {
      SQLDisconnect(connection_);
      throw;
    }
  } catch (const Erro&) {
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
    throw;
  }
}

Link::~Link() {
  SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_ROLLBACK);  // with one open the connection would not end
  SQLDisconnect(connection_);
  SQLFreeHandle(SQL_HANDLE_DBC, connection_);
  SQLFreeHandle(SQL_HANDLE_ENV, environment_);
}

void Link::require_known_server() {
  SQLWCHAR name[128] = {};
  SQLSMALLINT bytes = 0;
  SQLGetInfoW(connection_, SQL_DBMS_NAME, name, sizeof name, &bytes);
  const std::string dbms = wide_answer(name, bytes);
  server_ = server_named(dbms);
  if (server_ != nullptr) return;
  throw Erro(
      erro::kProviderFailure, "ODBC",
      "O servidor " + (dbms.empty() ? "sem nome" : dbms) + " não é conhecido: por ODBC só SQL Server e PostgreSQL");
}

std::string Link::database() const {
  SQLWCHAR name[256] = {};
  SQLINTEGER bytes = 0;
  SQLGetConnectAttrW(connection_, SQL_ATTR_CURRENT_CATALOG, name, sizeof name, &bytes);
  return wide_answer(name, static_cast<SQLSMALLINT>(bytes));
}

void Link::set_autocommit(bool on) {
  check(
      SQLSetConnectAttrW(connection_, SQL_ATTR_AUTOCOMMIT, as_pointer(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF), 0),
      SQL_HANDLE_DBC, connection_, {});
}

void Link::begin_transaction() { set_autocommit(false); }

void Link::end_transaction(bool commit) {
  const SQLRETURN code = SQLEndTran(SQL_HANDLE_DBC, connection_, commit ? SQL_COMMIT : SQL_ROLLBACK);
  if (code == SQL_ERROR) {
    const Erro failure = failure_of(SQL_HANDLE_DBC, connection_, {});
    SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_ROLLBACK);
    SQLSetConnectAttrW(connection_, SQL_ATTR_AUTOCOMMIT, as_pointer(SQL_AUTOCOMMIT_ON), 0);
    throw failure;
  }
  set_autocommit(true);
}

Erro Link::failure_of(SQLSMALLINT handle_type, SQLHANDLE handle, std::string_view statement) const {
  const Report report = report_of(handle_type, handle);
  ProviderDetail detail{.sqlstate = report.state, .native_code = report.native, .statement = std::string(statement)};
  SQLUINTEGER dead = SQL_CD_FALSE;
  SQLGetConnectAttrW(connection_, SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr);
  if (dead == SQL_CD_TRUE || ends_connection(report)) {
    detail.connection_good = false;
    return {erro::kProviderFailure, std::string(server_->name),
            "A conexão com o servidor foi perdida: " + report.message, std::move(detail)};
  }
  auto [number, description] = server_->told(report);
  return {number, std::string(server_->name), description, std::move(detail)};
}

std::vector<std::string> Link::run(std::string_view statement) {
  std::vector<std::string> fields;
  Command command(*this);
  command.execute(statement, statement);
  for (bool rows = command.to_rows(statement); rows; rows = command.to_further_rows(statement)) {
    for (;;) {
      const SQLRETURN fetched = SQLFetch(command.handle());
      check(fetched, SQL_HANDLE_STMT, command.handle(), statement);
      if (fetched == SQL_NO_DATA) break;
      SQLWCHAR field[1000] = {};
      SQLLEN bytes = 0;
      check(SQLGetData(command.handle(), 1, SQL_C_WCHAR, field, sizeof field, &bytes), SQL_HANDLE_STMT,
            command.handle(), statement);
      const std::size_t whole = bytes < 0 ? 0 : static_cast<std::size_t>(bytes) / sizeof(SQLWCHAR);
      fields.push_back(to_utf8({field, std::min(whole, std::size(field) - 1)}));
    }
  }
  return fields;
}

// --- commands

Command::Command(const Link& link) : link_(link) {
  link_.check(SQLAllocHandle(SQL_HANDLE_STMT, link_.handle(), &statement_), SQL_HANDLE_DBC, link_.handle(), {});
  // A text goes on as it is: what stands in braces means nothing to the driver.
  set_attribute(SQL_ATTR_NOSCAN, SQL_NOSCAN_ON);
}

Command::~Command() { SQLFreeHandle(SQL_HANDLE_STMT, statement_); }

void Command::prepare(std::string_view text, std::string_view told) {
  const WideText wide = to_utf16(text);
  check(SQLPrepareW(statement_, sql_text(wide), static_cast<SQLINTEGER>(wide.size())), told);
}

// A statement that touches no row may be told as one without data.
void Command::executed(SQLRETURN code, std::string_view told) {
  check(code, told);
  row_count_ = code == SQL_NO_DATA ? 0 : -1;
}

void Command::execute_prepared(std::string_view told) { executed(SQLExecute(statement_), told); }

void Command::execute(std::string_view text, std::string_view told) {
  const WideText wide = to_utf16(text);
  executed(SQLExecDirectW(statement_, sql_text(wide), static_cast<SQLINTEGER>(wide.size())), told);
}

bool Command::next_result(std::string_view told) {
  const SQLRETURN code = SQLMoreResults(statement_);
  check(code, told);
  return code != SQL_NO_DATA;
}

bool Command::to_rows(std::string_view told) {
  do {
    SQLSMALLINT columns = 0;
    check(SQLNumResultCols(statement_, &columns), told);
    if (columns > 0) return true;
    SQLLEN rows = -1;
    SQLRowCount(statement_, &rows);
    if (rows >= 0) row_count_ = rows;
  } while (next_result(told));
  return false;
}

void Command::finish(std::string_view told) {
  while (next_result(told)) continue;
  close();
}

void Command::close() noexcept { SQLFreeStmt(statement_, SQL_CLOSE); }

SQLRETURN Command::set_attribute(SQLINTEGER attribute, SQLULEN value) const {
  return SQLSetStmtAttrW(statement_, attribute, as_pointer(value), 0);
}

void Command::set_timeout(std::int32_t seconds) {
  if (timeout_ == seconds) return;
  set_attribute(SQL_ATTR_QUERY_TIMEOUT, static_cast<SQLULEN>(seconds));
  timeout_ = seconds;
}

}  // namespace posto::odbc
