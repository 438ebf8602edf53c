#include "tests/support/recording_driver.h"

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <cmath>
#include <codecvt>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <locale>

namespace posto::testing {
namespace {

Recording recording;

// What any handle can hold: the last failure.
struct Handle {
  std::string state, message;
  std::int32_t native = 0;
};

struct Parameter {
  SQLSMALLINT c_type = 0, sql_type = 0;
  const char* value = nullptr;
  const SQLLEN* length = nullptr;
};

struct BoundColumn {
  SQLSMALLINT c_type = 0;
  char* value = nullptr;
  SQLLEN room = 0;
  SQLLEN* length = nullptr;
};

struct Statement : Handle {
  std::string text;
  std::map<SQLUSMALLINT, Parameter> parameters;
  std::map<SQLUSMALLINT, BoundColumn> columns;
  std::vector<DriverResult> results;
  std::size_t result = 0, row = 0;            // the row behind the one that was fetched
  std::map<SQLUSMALLINT, std::size_t> taken;  // of a text that is got in pieces
  SQLULEN array_size = 1, row_bytes = 0;
  SQLULEN* fetched = nullptr;
  SQLUSMALLINT* states = nullptr;

  const DriverResult* current() const { return result < results.size() ? &results[result] : nullptr; }
};

using Convert = std::wstring_convert<std::codecvt_utf8_utf16<char16_t>, char16_t>;

std::string narrow(const SQLWCHAR* text, SQLINTEGER length) {
  const auto* begin = reinterpret_cast<const char16_t*>(text);
  return Convert().to_bytes(length == SQL_NTS ? std::u16string(begin)
                                              : std::u16string(begin, static_cast<std::size_t>(length)));
}

// Writes a text where a caller wants it; the count of bytes that it has.
std::size_t write_wide(const std::string& text, std::size_t from, void* out, std::size_t room) {
  const std::u16string wide = Convert().from_bytes(text).substr(from);
  const std::size_t units = std::min(wide.size(), room / sizeof(char16_t) - 1);
  std::memcpy(out, wide.data(), units * sizeof(char16_t));
  static_cast<char16_t*>(out)[units] = 0;
  return wide.size() * sizeof(char16_t);
}

SQLRETURN fail(Handle& handle, std::string state, std::string message, std::int32_t native = 0) {
  handle.state = std::move(state);
  handle.message = std::move(message);
  handle.native = native;
  return SQL_ERROR;
}

std::string shown(const Parameter& p) {
  if (*p.length == SQL_NULL_DATA) return "null";
  const char* type = p.sql_type == SQL_BIGINT    ? "bigint "
                     : p.sql_type == SQL_INTEGER ? "integer "
                     : p.sql_type == SQL_DOUBLE  ? "double "
                     : p.sql_type == SQL_VARCHAR ? "varchar "
                                                 : "other ";
  const auto bytes = static_cast<std::size_t>(*p.length);
  std::string value;
  char figure[40];
  switch (p.c_type) {
    case SQL_C_SBIGINT:
      value = std::to_string(*reinterpret_cast<const std::int64_t*>(p.value));
      break;
    case SQL_C_DOUBLE:
      std::snprintf(figure, sizeof figure, "%.17g", *reinterpret_cast<const double*>(p.value));
      value = figure;
      break;
    case SQL_C_WCHAR:
      value = "'" + narrow(reinterpret_cast<const SQLWCHAR*>(p.value), static_cast<SQLINTEGER>(bytes / 2)) + "'";
      break;
    default:
      value = std::string(p.value, bytes);
  }
  return type + value;
}

// Gives a value in the form that the caller wants; its length, or how much of it is left.
SQLLEN give(const std::string& value, SQLSMALLINT c_type, void* out, SQLLEN room, std::size_t from) {
  switch (c_type) {
    case SQL_C_SBIGINT:
      *static_cast<std::int64_t*>(out) = std::atoll(value.c_str());
      return sizeof(std::int64_t);
    case SQL_C_DOUBLE:
      *static_cast<double*>(out) = std::atof(value.c_str());
      return sizeof(double);
    case SQL_C_TYPE_TIMESTAMP: {
      int year = 0, month = 0, day = 0, hour = 0, minute = 0;
      double second = 0;
      std::sscanf(value.c_str(), "%d-%d-%d %d:%d:%lf", &year, &month, &day, &hour, &minute, &second);
      auto& t = *static_cast<SQL_TIMESTAMP_STRUCT*>(out);
      t.year = static_cast<SQLSMALLINT>(year);
      t.month = static_cast<SQLUSMALLINT>(month);
      t.day = static_cast<SQLUSMALLINT>(day);
      t.hour = static_cast<SQLUSMALLINT>(hour);
      t.minute = static_cast<SQLUSMALLINT>(minute);
      t.second = static_cast<SQLUSMALLINT>(second);
      t.fraction = static_cast<SQLUINTEGER>(std::lround((second - std::floor(second)) * 1e9));
      return sizeof(SQL_TIMESTAMP_STRUCT);
    }
    case SQL_C_WCHAR:
      return static_cast<SQLLEN>(write_wide(value, from, out, static_cast<std::size_t>(room)));
    default:
      std::memcpy(out, value.c_str(), std::min(value.size() + 1, static_cast<std::size_t>(room)));
      return static_cast<SQLLEN>(value.size());
  }
}

SQLRETURN show_result(Statement& s) {
  const DriverResult* result = s.current();
  s.row = 0;
  s.taken.clear();
  if (result == nullptr || result->state.empty()) return SQL_SUCCESS;
  const DriverResult failed = *result;
  s.results.clear();
  return fail(s, failed.state, failed.message, failed.native);
}

SQLRETURN execute(Statement& s) {
  const auto known = recording.answers.find(s.text);
  s.results = known == recording.answers.end() ? std::vector{DriverResult::count(1)} : known->second;
  s.result = 0;
  return show_result(s);
}

Statement& statement(SQLHSTMT handle) { return *static_cast<Statement*>(handle); }

}  // namespace
}  // namespace posto::testing

using namespace posto::testing;

extern "C" {

Recording* posto_recording() { return &recording; }

SQLRETURN SQLAllocHandle(SQLSMALLINT type, SQLHANDLE, SQLHANDLE* out) {
  if (type == SQL_HANDLE_STMT) {
    ++recording.open_statements;
    *out = new Statement();
  } else {
    *out = new Handle();
  }
  return SQL_SUCCESS;
}
SQLRETURN SQLFreeHandle(SQLSMALLINT type, SQLHANDLE handle) {
  if (type == SQL_HANDLE_STMT) {
    --recording.open_statements;
    delete &statement(handle);
  } else {
    delete static_cast<Handle*>(handle);
  }
  return SQL_SUCCESS;
}
SQLRETURN SQLSetEnvAttr(SQLHENV, SQLINTEGER, SQLPOINTER, SQLINTEGER) { return SQL_SUCCESS; }

SQLRETURN SQLDriverConnectW(SQLHDBC, SQLHWND, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*, SQLSMALLINT, SQLSMALLINT*,
                            SQLUSMALLINT) {
  return SQL_SUCCESS;
}
SQLRETURN SQLDisconnect(SQLHDBC) { return SQL_SUCCESS; }

SQLRETURN SQLGetInfoW(SQLHDBC, SQLUSMALLINT what, SQLPOINTER out, SQLSMALLINT room, SQLSMALLINT* bytes) {
  if (what == SQL_DBMS_NAME) {
    *bytes = static_cast<SQLSMALLINT>(write_wide(recording.dbms, 0, out, static_cast<std::size_t>(room)));
  } else if (room >= static_cast<SQLSMALLINT>(sizeof(SQLUINTEGER)) && out != nullptr) {
    std::memset(out, 0, sizeof(SQLUINTEGER));
  }
  return SQL_SUCCESS;
}

SQLRETURN SQLSetConnectAttrW(SQLHDBC, SQLINTEGER what, SQLPOINTER value, SQLINTEGER) {
  if (what == SQL_ATTR_AUTOCOMMIT && reinterpret_cast<SQLULEN>(value) == SQL_AUTOCOMMIT_OFF) {
    recording.calls.emplace_back("begin");
  }
  return SQL_SUCCESS;
}
SQLRETURN SQLGetConnectAttrW(SQLHDBC, SQLINTEGER what, SQLPOINTER out, SQLINTEGER room, SQLINTEGER* bytes) {
  if (what == SQL_ATTR_CURRENT_CATALOG) {
    *bytes = static_cast<SQLINTEGER>(write_wide("posto1", 0, out, static_cast<std::size_t>(room)));
  } else {
    std::memset(out, 0, sizeof(SQLUINTEGER));
  }
  return SQL_SUCCESS;
}
SQLRETURN SQLEndTran(SQLSMALLINT, SQLHANDLE, SQLSMALLINT how) {
  recording.calls.emplace_back(how == SQL_COMMIT ? "commit" : "rollback");
  return SQL_SUCCESS;
}

SQLRETURN SQLSetStmtAttrW(SQLHSTMT handle, SQLINTEGER what, SQLPOINTER value, SQLINTEGER) {
  Statement& s = statement(handle);
  const auto number = reinterpret_cast<SQLULEN>(value);
  if (what == SQL_ATTR_ROW_ARRAY_SIZE) s.array_size = number;
  if (what == SQL_ATTR_ROW_BIND_TYPE) s.row_bytes = number;
  if (what == SQL_ATTR_ROWS_FETCHED_PTR) s.fetched = static_cast<SQLULEN*>(value);
  if (what == SQL_ATTR_ROW_STATUS_PTR) s.states = static_cast<SQLUSMALLINT*>(value);
  if (what == SQL_ATTR_QUERY_TIMEOUT) recording.calls.push_back("timeout " + std::to_string(number));
  return SQL_SUCCESS;
}
SQLRETURN SQLGetStmtAttrW(SQLHSTMT handle, SQLINTEGER, SQLPOINTER out, SQLINTEGER, SQLINTEGER*) {
  *static_cast<SQLHANDLE*>(out) = handle;  // the descriptors, which nobody uses
  return SQL_SUCCESS;
}

SQLRETURN SQLPrepareW(SQLHSTMT handle, SQLWCHAR* text, SQLINTEGER length) {
  Statement& s = statement(handle);
  s.text = narrow(text, length);
  recording.calls.push_back("prepare " + s.text);
  return SQL_SUCCESS;
}
SQLRETURN SQLExecute(SQLHSTMT handle) {
  Statement& s = statement(handle);
  std::string call = "run ";
  for (const auto& [number, parameter] : s.parameters) call += (number > 1 ? ", " : "") + shown(parameter);
  recording.calls.push_back(call);
  return execute(s);
}
SQLRETURN SQLExecDirectW(SQLHSTMT handle, SQLWCHAR* text, SQLINTEGER length) {
  Statement& s = statement(handle);
  s.text = narrow(text, length);
  recording.calls.push_back("direct " + s.text);
  return execute(s);
}
SQLRETURN SQLBindParameter(SQLHSTMT handle, SQLUSMALLINT number, SQLSMALLINT, SQLSMALLINT c_type, SQLSMALLINT sql_type,
                           SQLULEN, SQLSMALLINT, SQLPOINTER value, SQLLEN, SQLLEN* length) {
  statement(handle).parameters[number] = {c_type, sql_type, static_cast<const char*>(value), length};
  return SQL_SUCCESS;
}
SQLRETURN SQLBindCol(SQLHSTMT handle, SQLUSMALLINT number, SQLSMALLINT c_type, SQLPOINTER value, SQLLEN room,
                     SQLLEN* length) {
  statement(handle).columns[number] = {c_type, static_cast<char*>(value), room, length};
  return SQL_SUCCESS;
}

SQLRETURN SQLNumResultCols(SQLHSTMT handle, SQLSMALLINT* columns) {
  const DriverResult* result = statement(handle).current();
  *columns = result == nullptr ? SQLSMALLINT{0} : static_cast<SQLSMALLINT>(result->sizes.size());
  return SQL_SUCCESS;
}
SQLRETURN SQLRowCount(SQLHSTMT handle, SQLLEN* rows) {
  const DriverResult* result = statement(handle).current();
  *rows = result == nullptr ? -1 : result->row_count;
  return SQL_SUCCESS;
}
SQLRETURN SQLDescribeColW(SQLHSTMT handle, SQLUSMALLINT number, SQLWCHAR*, SQLSMALLINT, SQLSMALLINT*, SQLSMALLINT* type,
                          SQLULEN* size, SQLSMALLINT*, SQLSMALLINT*) {
  *type = SQL_VARCHAR;
  *size = statement(handle).current()->sizes[number - 1U];
  return SQL_SUCCESS;
}
SQLRETURN SQLMoreResults(SQLHSTMT handle) {
  Statement& s = statement(handle);
  ++s.result;
  return s.current() == nullptr ? SQL_NO_DATA : show_result(s);
}

SQLRETURN SQLFetch(SQLHSTMT handle) {
  Statement& s = statement(handle);
  const DriverResult& result = *s.current();
  recording.calls.emplace_back("fetch");
  SQLULEN rows = 0;
  s.taken.clear();
  for (; rows < s.array_size && s.row < result.rows.size(); ++rows, ++s.row) {
    for (const auto& [number, column] : s.columns) {
      const auto& value = result.rows[s.row][number - 1U];
      auto* length = reinterpret_cast<SQLLEN*>(reinterpret_cast<char*>(column.length) + rows * s.row_bytes);
      *length = value ? give(*value, column.c_type, column.value + rows * s.row_bytes, column.room, 0) : SQL_NULL_DATA;
    }
    if (s.states != nullptr) s.states[rows] = SQL_ROW_SUCCESS;
  }
  if (s.fetched != nullptr) *s.fetched = rows;
  return rows == 0 ? SQL_NO_DATA : SQL_SUCCESS;
}
SQLRETURN SQLGetData(SQLHSTMT handle, SQLUSMALLINT number, SQLSMALLINT c_type, SQLPOINTER out, SQLLEN room,
                     SQLLEN* length) {
  Statement& s = statement(handle);
  const auto& value = s.current()->rows[s.row - 1][number - 1U];
  if (!value) {
    *length = SQL_NULL_DATA;
    return SQL_SUCCESS;
  }
  std::size_t& taken = s.taken[number];
  *length = give(*value, c_type, out, room, taken);
  if (c_type != SQL_C_WCHAR || *length < room) return SQL_SUCCESS;
  taken += static_cast<std::size_t>(room) / sizeof(SQLWCHAR) - 1;
  return SQL_SUCCESS_WITH_INFO;
}
SQLRETURN SQLFreeStmt(SQLHSTMT handle, SQLUSMALLINT what) {
  if (what == SQL_CLOSE) statement(handle).results.clear();
  return SQL_SUCCESS;
}

SQLRETURN SQLGetDiagRecW(SQLSMALLINT, SQLHANDLE handle, SQLSMALLINT number, SQLWCHAR* state, SQLINTEGER* native,
                         SQLWCHAR* message, SQLSMALLINT room, SQLSMALLINT* length) {
  const auto& failed = *static_cast<Handle*>(handle);
  if (number > 1 || failed.state.empty()) return SQL_NO_DATA;
  write_wide(failed.state, 0, state, 6 * sizeof(SQLWCHAR));
  *native = failed.native;
  const std::size_t bytes = write_wide(failed.message, 0, message, static_cast<std::size_t>(room) * sizeof(SQLWCHAR));
  *length = static_cast<SQLSMALLINT>(bytes / sizeof(SQLWCHAR));
  return SQL_SUCCESS;
}
SQLRETURN SQLGetDiagFieldW(SQLSMALLINT, SQLHANDLE, SQLSMALLINT, SQLSMALLINT, SQLPOINTER, SQLSMALLINT, SQLSMALLINT*) {
  return SQL_ERROR;
}
}
