// Tables and indexes in PostgreSQL's SQL.
#pragma once

#include <string>
#include <vector>

#include "posto/schema/table.h"

namespace posto::tsql {

// Text is of the type bpchar, whose comparisons are blind to trailing blanks, in a collation blind to case. Every limit
// of a column is a constraint that bears the column's name.
std::string postgres_create_table(const Table& table, bool temporary = false);
// Nulls come first, as ORDER BY wants them.
std::vector<std::string> postgres_create_indexes(const Table& table);

}  // namespace posto::tsql
