#include "posto/tsql/sqlserver_ddl.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "posto/tsql/ddl_names.h"
#include "posto/tsql/names.h"

namespace posto::tsql {
namespace {

std::string sqlserver_storage(const Column& column) {
  switch (column.type) {
    case SqlType::bit:
      return "bit";
    case SqlType::byte:
      return "tinyint";
    case SqlType::int16:
      return "smallint";
    case SqlType::int32:
      return "int";
    case SqlType::money:
      return "money";
    case SqlType::float32:
      return "real";
    case SqlType::float64:
      return "float";
    case SqlType::date:
      return "datetime";
    case SqlType::text:
      break;
  }
  const std::string width = column.width == 0 ? "max" : std::to_string(column.width);
  return "varchar(" + width + ") COLLATE Latin1_General_CI_AS";
}

// What a bit holds is 0 or 1 and a byte is 0 to 255 by the types; nothing else limits a column.
std::string sqlserver_column(const Column& column) {
  std::string line = quoted_name(column.name) + " " + sqlserver_storage(column);
  line += column.nullable ? " NULL" : " NOT NULL";
  if (column.identity) return line + " IDENTITY(1,1)";
  if (!column.default_value.empty()) line += fmt::format(" DEFAULT {}", column.default_value);
  return line;
}

// The rows that an index holds; empty where it holds all.
std::string condition_of(const Table& table, const Index& index) {
  std::vector<std::string> terms;
  if (!index.only_where_zero.empty()) terms.push_back(quoted_name(index.only_where_zero) + " = 0");
  for (std::string_view name : names_of(index)) {
    const Column* column = table.find(name);
    if (index.unique && column != nullptr && column->nullable) terms.push_back(quoted_name(name) + " IS NOT NULL");
  }
  return terms.empty() ? std::string() : fmt::format(" WHERE {}", fmt::join(terms, " AND "));
}

}  // namespace

std::string sqlserver_create_table(const Table& table) {
  std::vector<std::string> lines;
  for (const Column& column : table.columns) lines.push_back("  " + sqlserver_column(column));
  if (table.has_key()) lines.push_back(fmt::format("  PRIMARY KEY ({})", quoted_key(table)));
  return fmt::format("CREATE TABLE {} (\n{}\n)", quoted_name(table.name), fmt::join(lines, ",\n"));
}

std::vector<std::string> sqlserver_create_indexes(const Table& table) {
  std::vector<std::string> statements;
  const std::string name = quoted_name(table.name);
  for (const Index& index : table.indexes) {
    statements.push_back(fmt::format("CREATE {}INDEX {} ON {} ({}){}", index.unique ? "UNIQUE " : "",
                                     quoted_name(fmt::format("{}_{}", table.name, statements.size() + 1)), name,
                                     quoted_names(index), condition_of(table, index)));
  }
  // A generated number finds its row, whatever the key begins with.
  if (const Column* generated = table.identity(); generated != nullptr) {
    statements.push_back(fmt::format("CREATE UNIQUE INDEX {} ON {} ({})",
                                     quoted_name(fmt::format("{}_identity", table.name)), name,
                                     quoted_name(generated->name)));
  }
  return statements;
}

}  // namespace posto::tsql
