// Tables and indexes in PostgreSQL's SQL.
#pragma once

#include <string>
#include <vector>

#include "posto/schema/table.h"

namespace posto::tsql {

// Text is of the type bpchar, whose comparisons are blind to trailing blanks, in a collation blind to case. Every limit
// of a column is a constraint that bears the column's name.
std::string postgres_create_table(const Table& table, bool temporary = false);
// Whether a table is one of those that grow with every sale: a database of several companies keeps each one's rows
// apart.
bool grows_by_company(const Table& table);
// Such a table: public."T" takes every company's rows; those of companies without a partition of their own lie in
// empresas."T". A key stands on each partition, which a foreign one could not be otherwise. With its indexes.
std::vector<std::string> postgres_create_partitioned(const Table& table);
// Nulls come first, as ORDER BY wants them.
std::vector<std::string> postgres_create_indexes(const Table& table);

}  // namespace posto::tsql
