// Tables and indexes in SQLite's SQL.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "posto/schema/table.h"

namespace posto::tsql {

// The collation of text: blind to case and to trailing blanks.
inline constexpr std::string_view kSqliteCollation = "posto";

// STRICT; without a row number where the key is not generated. Every limit of a column is a constraint whose name tells
// table, column and limit ("Bomba.De_Status: 20 caracteres").
std::string sqlite_create_table(const Table& table, bool temporary = false);
std::vector<std::string> sqlite_create_indexes(const Table& table);
// Rows for sqlite_stat1 that say how a large station's data is spread: the company tells nothing apart, a flag or a
// type little. Without them SQLite would rather walk a company's rows by the key than use a better index.
std::vector<std::string> sqlite_statistics(const Table& table);

}  // namespace posto::tsql
