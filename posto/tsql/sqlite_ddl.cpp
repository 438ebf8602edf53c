#include "posto/tsql/sqlite_ddl.h"

#include <fmt/format.h>

#include <algorithm>

#include "posto/tsql/ddl_names.h"
#include "posto/tsql/names.h"

namespace posto::tsql {
namespace {

std::string_view sqlite_storage(SqlType type) {
  switch (type) {
    case SqlType::float32:
    case SqlType::float64:
      return "REAL";
    case SqlType::date:
    case SqlType::text:
      return "TEXT";
    default:
      return "INTEGER";
  }
}

// What the column's values must keep to, and how a person reads it; empty for types without limits.
std::pair<std::string, std::string> sqlite_limit(const Column& column) {
  const std::string name = quoted_name(column.name);
  auto range = [&](std::string_view low, std::string_view high) {
    return std::pair(fmt::format("{} BETWEEN {} AND {}", name, low, high), fmt::format("de {} a {}", low, high));
  };
  switch (column.type) {
    case SqlType::bit:
      return range("0", "1");
    case SqlType::byte:
      return range("0", "255");
    case SqlType::int16:
      return range("-32768", "32767");
    case SqlType::int32:
      return range("-2147483648", "2147483647");
    case SqlType::text:
      if (column.width == 0) return {};
      return {fmt::format("length({}) <= {}", name, column.width), fmt::format("{} caracteres", column.width)};
    default:
      return {};
  }
}

std::string sqlite_column(const Table& table, const Column& column) {
  std::string line = fmt::format("{} {}", quoted_name(column.name), sqlite_storage(column.type));
  if (column.identity) return line + " PRIMARY KEY AUTOINCREMENT";
  if (column.type == SqlType::text) line += fmt::format(" COLLATE {}", kSqliteCollation);
  if (!column.nullable) line += " NOT NULL";
  if (!column.default_value.empty()) line += fmt::format(" DEFAULT {}", column.default_value);
  auto [check, shown] = sqlite_limit(column);
  if (!check.empty()) {
    line += fmt::format(" CONSTRAINT {} CHECK ({})",
                        quoted_name(fmt::format("{}.{}: {}", table.name, column.name, shown)), check);
  }
  return line;
}

}  // namespace

std::string sqlite_create_table(const Table& table, bool temporary) {
  std::string lines;
  for (const Column& column : table.columns) lines += (lines.empty() ? "  " : ",\n  ") + sqlite_column(table, column);
  bool generated = table.identity() != nullptr;
  if (table.has_key()) lines += fmt::format(",\n  {} ({})", generated ? "UNIQUE" : "PRIMARY KEY", quoted_key(table));
  bool rowless = table.has_key() && !generated && !temporary;
  return fmt::format("CREATE {}TABLE {} (\n{}\n) STRICT{}", temporary ? "TEMPORARY " : "", quoted_name(table.name),
                     lines, rowless ? ", WITHOUT ROWID" : "");
}

std::vector<std::string> sqlite_create_indexes(const Table& table) {
  std::vector<std::string> statements;
  for (const Index& index : table.indexes) {
    std::string name = fmt::format("{}_{}", table.name, statements.size() + 1);
    std::string text = fmt::format("CREATE {}INDEX {} ON {} ({})", index.unique ? "UNIQUE " : "", quoted_name(name),
                                   quoted_name(table.name), quoted_names(index));
    if (!index.only_where_zero.empty()) text += fmt::format(" WHERE {} = 0", quoted_name(index.only_where_zero));
    statements.push_back(std::move(text));
  }
  return statements;
}

namespace {

// How many values of a column a large table has, roughly.
double spread(const Column& column) {
  if (column.name == "Cd_PessoaUsuaria") return 1;
  if (column.type == SqlType::bit) return 2;
  bool few = column.type == SqlType::byte || (column.type == SqlType::text && column.width <= 3);
  return few ? 5 : 1000;
}

// "rows, then how many of them share the first column, the first two, ...".
std::string statistics_row(const Table& table, std::string_view index, const std::vector<const Column*>& columns,
                           double rows, bool unique) {
  std::string numbers = fmt::format("{:.0f}", rows);
  for (const Column* column : columns) {
    rows = std::max(1.0, rows / spread(*column));
    if (unique && column == columns.back()) rows = 1;
    numbers += fmt::format(" {:.0f}", rows);
  }
  return fmt::format("INSERT INTO sqlite_stat1 VALUES ('{}', '{}', '{}')", table.name, index, numbers);
}

std::vector<const Column*> columns_of(const Table& table, const Index& index) {
  std::vector<const Column*> columns;
  for (std::string_view name : names_of(index)) columns.push_back(table.find(name));
  return columns;
}

}  // namespace

std::vector<std::string> sqlite_statistics(const Table& table) {
  constexpr double kRows = 100'000, kPendingRows = 50;
  std::vector<std::string> rows;
  std::vector<const Column*> key;
  for (const Column& column : table.columns) {
    if (column.key) key.push_back(&column);
  }
  if (!key.empty()) {
    const bool generated = table.identity() != nullptr;
    const std::string index = generated ? fmt::format("sqlite_autoindex_{}_1", table.name) : std::string(table.name);
    rows.push_back(statistics_row(table, index, key, kRows, true));
  }
  int number = 0;
  for (const Index& index : table.indexes) {
    const double size = index.only_where_zero.empty() ? kRows : kPendingRows;
    rows.push_back(statistics_row(table, fmt::format("{}_{}", table.name, ++number), columns_of(table, index), size,
                                  index.unique));
  }
  return rows;
}

}  // namespace posto::tsql
