// Writes bound conditions and values in SQLite's SQL.
#pragma once

#include <fmt/format.h>

#include <functional>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "posto/tsql/compiled.h"
#include "posto/tsql/sqlite_ddl.h"

namespace posto::tsql {

inline bool is_text_column(const Expr& e) { return e.kind == ExprKind::column && e.column->type == SqlType::text; }

// One half of the writer: expressions, and what they are written with. The other half writes selects and statements.
class SqliteExpressionWriter {
 protected:
  virtual ~SqliteExpressionWriter() = default;
  // `wanted`: the types that the columns become. `one_row`: a second row is a failure.
  virtual void select(const Select& s, const std::vector<Type>& wanted, bool one_row) = 0;
  // A select that is a value.
  virtual void single_value(const Select& s, const std::vector<Type>& wanted) = 0;

  template <class... Args>
  void put(fmt::format_string<Args...> format, Args&&... args) {
    fmt::format_to(std::back_inserter(out_), format, std::forward<Args>(args)...);
  }
  void put_name(std::string_view name) { out_ += sqlite_name(name); }

  void parameter(Parameter p) {
    constexpr std::size_t kMostNumbered = 999;  // SQLite is slow with thousands of numbers
    parameters_.push_back(p);
    out_ += '?';
    if (parameters_.size() <= kMostNumbered) put("{}", parameters_.size());
  }

  // Writes `items` with a separator between them.
  template <class Items, class Each>
  void list(const Items& items, std::string_view separator, Each each) {
    bool first = true;
    for (const auto& item : items) {
      if (!first) out_ += separator;
      first = false;
      each(item);
    }
  }

  void collate() { put(" COLLATE {}", kSqliteCollation); }

  void condition(const Expr& e);
  void value(const Expr& e);
  void value_as(const Expr& e, const Type& wanted, bool only_compared = false);

  std::string out_;
  std::vector<Parameter> parameters_;

 private:
  // Terms of one operator without parentheses of their own: SQLite nests only so many.
  void chain(const Expr& e);
  // An operand of a comparison.
  void compared(const Expr& e, const Type& type);
  // The left side of a comparison of texts decides how they compare.
  void deciding(const Expr& e, const Type& type, bool other_is_column);
  void compare(const Expr& e);
  // A bit is 0 or 1, so that every test of it is an equality, which an index can serve.
  void compare_bit(const Expr& bit, std::int64_t number, Op op);
  static Type type_of_all(const Expr& e);
  void between(const Expr& e);
  void in_list(const Expr& e);
  void in_select(const Expr& e);
  void plain(const Expr& e);
  static bool is_sum(const Expr& e);
  // Terms of a sum without parentheses of their own, as far as they have its type.
  void sum_chain(const Expr& e);
  void arithmetic(const Expr& e);
  void case_when(const Expr& e);
  void cast(const Expr& e);
  void call(const Expr& e);
  void aggregate(std::string_view name, const Expr& e, const Type& type);

  // Wraps what `inner` writes so that a value of type `from` becomes one of type `to`.
  using Inner = std::function<void()>;
  void converted(const Type& from, const Type& to, const Inner& inner);
  // The text of a value; width 0 leaves it as long as it is.
  void text_of(const Type& from, std::uint16_t width, bool padded, int style, const Inner& inner);
};

}  // namespace posto::tsql
