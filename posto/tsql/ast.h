// A parsed statement. The parser fills the names, the binder fills the members under "bound".
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "posto/schema/table.h"

namespace posto::tsql {

struct Select;

// The type of an expression. `known` is false for the literal NULL, which fits everything.
struct Type {
  SqlType base = SqlType::int32;
  std::uint16_t width = 0;  // of text: characters, 0 when not known
  bool known = false;
  bool predicate = false;  // a condition, not a value
};

// A table as a FROM clause names it; bound to the catalogue. Addresses are stable: expressions point to it.
struct Source {
  std::string name;   // the bare name of the table
  std::string alias;  // empty when there is none
  std::size_t position = 0;
  // bound
  const Table* table = nullptr;
  std::string written;  // the name under which the written statement knows it; unique in the statement
};

enum class ExprKind : std::uint8_t {
  literal,
  null,
  marker,
  column,
  negate,
  arithmetic,
  compare,
  logic,
  negation,
  between,
  in_list,
  in_select,
  exists,
  is_null,
  like,
  case_when,
  call,
  cast,
  subquery,
  now,
  last_identity
};
enum class Op : std::uint8_t {
  add,
  subtract,
  multiply,
  divide,
  equal,
  not_equal,
  less,
  less_equal,
  greater,
  greater_equal,
  and_,
  or_
};
// The aggregates stand from `sum` on.
enum class Function : std::uint8_t { round, is_null, substring, rtrim, sum, count, count_rows, min, max, avg };
inline bool is_aggregate(Function f) { return f >= Function::sum; }

struct Expr;
using ExprPtr = std::unique_ptr<Expr>;

struct Expr {
  ExprKind kind;
  std::size_t position = 0;
  int depth = 1;          // nodes on the longest way down
  bool inverted = false;  // NOT IN, NOT BETWEEN, NOT LIKE, IS NOT NULL; of a literal: a minus in front
  bool distinct = false;  // of an aggregate
  Op op = Op::add;
  Function function = Function::round;
  std::size_t ordinal = 0;      // of a literal or marker: which one
  std::string qualifier, name;  // of a column
  std::vector<ExprPtr> args;    // of case_when: condition, value, condition, value, ..., otherwise
  std::unique_ptr<Select> select;
  // Of a cast: the type it names, whether blanks pad it, and the style of CONVERT (-1 when none is given).
  Type target{};
  bool padded = false;
  int style = -1;
  // bound
  Type type{};
  const Source* source = nullptr;
  const Column* column = nullptr;
  std::optional<std::int64_t> pinned;  // a literal whose value is part of the compiled form
  bool has_prefix = false;             // of Like: the pattern is a literal that begins with no wild card
  mutable std::size_t same_as = 0;     // of a literal: the position, from 1, of one that always has the same value
};

enum class JoinKind : std::uint8_t { inner, left, right, full, cross };

// A table or a join of two.
struct From {
  std::unique_ptr<Source> source;  // of a table
  JoinKind join = JoinKind::inner;
  std::unique_ptr<From> left, right;
  ExprPtr on;
};

struct SelectItem {
  ExprPtr expr;  // null for a star
  std::string alias;
  std::string star_of;  // "T" of T.*; empty for a bare star
  std::size_t position = 0;
};

struct SelectCore {
  bool distinct = false;
  std::optional<std::int64_t> top;
  std::vector<SelectItem> items;
  std::vector<std::unique_ptr<From>> from;  // separated by commas
  ExprPtr where, having;
  std::vector<ExprPtr> group_by;
  // bound
  bool grouped = false;
};

struct OrderItem {
  ExprPtr expr;
  bool descending = false;
  // bound
  std::size_t output = 0;  // 1-based position of an output column, 0 for an expression
};

struct Select {
  std::vector<SelectCore> parts;  // joined by UNION ALL (or UNION, where `unique` is set)
  bool unique = false;
  std::vector<OrderItem> order_by;
  // bound
  std::vector<Type> types;  // of the output columns
};

struct Assignment {
  std::string qualifier, name;
  std::size_t position = 0;
  ExprPtr value;
  // bound
  const Column* column = nullptr;
};

struct ColumnSpec {
  std::string name;
  Type type;
  bool nullable = true, identity = false, key = false;
};

enum class StatementKind : std::uint8_t { select, insert, update, remove, create_table, drop_table, set_date_format };
// Whether a statement makes or drops a temporary table.
inline bool defines_table(StatementKind kind) {
  return kind == StatementKind::create_table || kind == StatementKind::drop_table;
}

struct Statement {
  StatementKind kind = StatementKind::select;
  std::size_t position = 0, end = 0;  // bytes of the batch
  std::unique_ptr<Select> select;     // of select, and of insert from select
  std::unique_ptr<Source> target;     // of all but select and set_date_format
  std::vector<std::string> columns;   // of insert, as named
  std::vector<std::size_t> column_positions;
  std::vector<ExprPtr> values;          // of insert with VALUES
  std::vector<Assignment> assignments;  // of update
  ExprPtr where;
  std::vector<ColumnSpec> specs;  // of create_table
  std::string date_format;        // "ymd" and its like
  // bound
  std::vector<const Column*> target_columns;
};

}  // namespace posto::tsql
