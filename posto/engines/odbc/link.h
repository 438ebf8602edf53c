// A connection through a driver, and the commands that run on it.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "posto/engines/odbc/server.h"

namespace posto::odbc {

class Link {
 public:
  // Raises 0x80004005 when the server cannot be reached within the time or refuses, or is none that is known.
  Link(const std::string& connection_string, std::int32_t timeout_seconds);
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;
  ~Link();

  const Server& server() const { return *server_; }
  SQLHDBC handle() const { return connection_; }
  std::string database() const;

  // Outside a transaction every statement is one of its own.
  void begin_transaction();
  void end_transaction(bool commit);

  // Runs a statement at once; the first fields of the rows that it gives.
  std::vector<std::string> run(std::string_view statement);

  // The failure that a handle reports, met by `statement`.
  Erro failure_of(SQLSMALLINT handle_type, SQLHANDLE handle, std::string_view statement) const;
  void check(SQLRETURN code, SQLSMALLINT handle_type, SQLHANDLE handle, std::string_view statement) const {
    if (code == SQL_ERROR || code == SQL_INVALID_HANDLE) throw failure_of(handle_type, handle, statement);
  }

 private:
  void require_known_server();
  void set_autocommit(bool on);

  SQLHENV environment_ = SQL_NULL_HENV;
  SQLHDBC connection_ = SQL_NULL_HDBC;
  const Server* server_ = nullptr;
};

// A statement of a connection.
class Command {
 public:
  explicit Command(const Link& link);
  Command(const Command&) = delete;
  Command& operator=(const Command&) = delete;
  ~Command();

  SQLHSTMT handle() const { return statement_; }
  const Server& server() const { return link_.server(); }
  // Raises the failure that the driver reports where `code` says that there is one.
  void check(SQLRETURN code, std::string_view told) const { link_.check(code, SQL_HANDLE_STMT, statement_, told); }
  // `told`: what a failure names as its statement.
  void prepare(std::string_view text, std::string_view told);
  void execute_prepared(std::string_view told);
  void execute(std::string_view text, std::string_view told);
  // Passes row counts up to the first rows; false where none come.
  bool to_rows(std::string_view told);
  // The same behind rows that were read.
  bool to_further_rows(std::string_view told) { return next_result(told) && to_rows(told); }
  // Passes all that is left, so that failures behind the rows are met.
  void finish(std::string_view told);
  // The last row count that was passed; -1 when none was told.
  std::int64_t row_count() const { return row_count_; }
  // Gives up what is left; values and columns stay bound.
  void close() noexcept;
  SQLRETURN set_attribute(SQLINTEGER attribute, SQLULEN value) const;
  void set_timeout(std::int32_t seconds);

 private:
  void executed(SQLRETURN code, std::string_view told);
  bool next_result(std::string_view told);

  const Link& link_;
  SQLHSTMT statement_ = SQL_NULL_HSTMT;
  std::int64_t row_count_ = -1;
  std::optional<std::int32_t> timeout_;
};

}  // namespace posto::odbc
