// Tables and indexes in SQL Server's SQL, of version 2008 and later.
#pragma once

#include <string>
#include <vector>

#include "posto/schema/table.h"

namespace posto::tsql {

// The types themselves keep the limits of the columns. Text is kept in code page 1252 and compares blind to case and to
// trailing blanks, not to accents, whatever the database's own collation is.
std::string sqlserver_create_table(const Table& table);
// A unique index takes any number of rows in which one of its columns is null, as on the other databases.
std::vector<std::string> sqlserver_create_indexes(const Table& table);

}  // namespace posto::tsql
