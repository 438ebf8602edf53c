// What a driver reports, as failures of the provider.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "posto/types/erro.h"

namespace posto::odbc {

// A report of a driver: five characters of SQLSTATE, the server's own number, the words.
struct Report {
  std::string state;
  std::int32_t native = 0;
  std::string message;  // without the names of the driver and its parts in front
};

// The first report of a handle that is no mere notice.
Report report_of(SQLSMALLINT handle_type, SQLHANDLE handle);

struct Told {
  std::int32_t number;
  std::string description;
};
// How each server's reports are told.
Told told_by_postgres(const Report& report);
Told told_by_sql_server(const Report& report);

// Whether a report says that the connection is lost.
bool ends_connection(const Report& report);

}  // namespace posto::odbc
