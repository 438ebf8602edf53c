// The catalogue, filled from the .def files: columns and indexes of every table.
#include <string>
#include <unordered_map>
#include <vector>

#include "posto/schema/table.h"
#include "posto/types/text.h"

namespace posto {
namespace {

#include "posto/schema/def.h"
#define TABLE(table) constexpr Column k##table##Columns[] = {
#define KEY(sql, col) {.name = #col, .type = SqlType::sql, .key = true, .nullable = false},
#define KEY_TEXT(col, n) {.name = #col, .type = SqlType::text, .width = n, .key = true, .nullable = false},
#define KEY_IDENTITY(sql, col) {.name = #col, .type = SqlType::sql, .key = true, .identity = true, .nullable = false},
#define IDENTITY(sql, col) {.name = #col, .type = SqlType::sql, .identity = true, .nullable = false},
#define COL(sql, col)                        \
  {.name = #col,                             \
   .type = SqlType::sql,                     \
   .nullable = SqlType::sql != SqlType::bit, \
   .default_value = SqlType::sql == SqlType::bit ? "0" : ""},
#define TEXT(col, n) {.name = #col, .type = SqlType::text, .width = n},
#define REQ(sql, col) {.name = #col, .type = SqlType::sql, .nullable = false},
#define REQ_TEXT(col, n) {.name = #col, .type = SqlType::text, .width = n, .nullable = false},
#define ZERO(sql, col) {.name = #col, .type = SqlType::sql, .nullable = false, .default_value = "0"},
#define PROP(sql, col)
#define INDEX(...)
#define UNIQUE(...)
#define INDEX_WHILE_ZERO(...)
#define END_TABLE(table) \
  }                      \
  ;
#include "posto/schema/all_tables.def"
#include "posto/schema/undef.h"

// Every list ends in an entry without columns, because an array needs one.
#include "posto/schema/def.h"
#define TABLE(table) constexpr Index k##table##Indexes[] = {
#define KEY(type, name)
#define KEY_TEXT(name, n)
#define KEY_IDENTITY(type, name)
#define IDENTITY(type, name)
#define COL(type, name)
#define TEXT(name, n)
#define REQ(type, name)
#define REQ_TEXT(name, n)
#define ZERO(type, name)
#define PROP(type, name)
#define INDEX(...) {.columns = #__VA_ARGS__},
#define UNIQUE(...) {.columns = #__VA_ARGS__, .unique = true},
#define INDEX_WHILE_ZERO(column, ...) {.columns = #__VA_ARGS__, .only_where_zero = #column},
#define END_TABLE(table) \
  {}                     \
  }                      \
  ;
#include "posto/schema/all_tables.def"
#include "posto/schema/undef.h"

template <std::size_t N>
constexpr std::span<const Index> without_end(const Index (&list)[N]) {
  return {list, N - 1};
}

#include "posto/schema/def.h"
#define TABLE(table) {#table, k##table##Columns, without_end(k##table##Indexes)},
#define KEY(type, name)
#define KEY_TEXT(name, n)
#define KEY_IDENTITY(type, name)
#define IDENTITY(type, name)
#define COL(type, name)
#define TEXT(name, n)
#define REQ(type, name)
#define REQ_TEXT(name, n)
#define ZERO(type, name)
#define PROP(type, name)
#define INDEX(...)
#define UNIQUE(...)
#define INDEX_WHILE_ZERO(column, ...)
#define END_TABLE(table)
constexpr Table kTables[] = {
#include "posto/schema/all_tables.def"
};
#include "posto/schema/undef.h"

}  // namespace

const char* type_name(SqlType type) {
  static constexpr const char* kNames[] = {"bit",     "byte",  "int16", "int32", "float32",
                                           "float64", "money", "date",  "text"};
  return kNames[static_cast<std::size_t>(type)];
}

const Column* Table::find(std::string_view column) const {
  for (const Column& c : columns) {
    if (equal_names(c.name, column)) return &c;
  }
  return nullptr;
}

const Column* Table::identity() const {
  for (const Column& c : columns) {
    if (c.identity) return &c;
  }
  return nullptr;
}

bool Table::has_key() const {
  for (const Column& c : columns) {
    if (c.key) return true;
  }
  return false;
}

bool Table::has_index_of_zeros(const Column& column) const {
  for (const Index& index : indexes) {
    if (index.only_where_zero == column.name) return true;
  }
  return false;
}

std::span<const Table> all_tables() { return kTables; }

const Table* find_table(std::string_view name) {
  static const auto by_name = [] {
    std::unordered_map<std::string, const Table*> map;
    for (const Table& t : kTables) map.emplace(ascii_lower(t.name), &t);
    return map;
  }();
  auto found = by_name.find(ascii_lower(name));
  return found == by_name.end() ? nullptr : found->second;
}

}  // namespace posto
