// Writes bound conditions and values in the SQL that the engines have in common. What they say differently is a virtual
// function; what a database lacks, or answers otherwise than the server, is a function of ours in it, by the same name
// on every engine ("posto_divide_money").
#pragma once

#include <fmt/format.h>

#include <functional>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "posto/tsql/compiled.h"
#include "posto/tsql/names.h"
#include "posto/tsql/types.h"

namespace posto::tsql {

inline bool is_text_column(const Expr& e) { return e.kind == ExprKind::column && e.column->type == SqlType::text; }

// One half of the writer: expressions, and what they are written with. The other half writes selects and statements.
class ExpressionWriter {
 protected:
  virtual ~ExpressionWriter() = default;
  // `wanted`: the types that the columns become. `one_row`: a second row is a failure.
  virtual void select(const Select& s, const std::vector<Type>& wanted, bool one_row) = 0;
  // A select that is a value.
  virtual void single_value(const Select& s, const std::vector<Type>& wanted) = 0;

  // --- what engines say differently ---

  using Inner = std::function<void()>;
  // The place of a parameter, counted from 1.
  virtual void place(std::size_t number) = 0;
  // Behind a value of text: makes it compare as the dialect compares texts.
  virtual std::string_view collation() const = 0;
  // An operand of a comparison of texts that is no column, literal or marker.
  virtual void compared_text(const Inner& inner) { inner(); }
  // A text of which every blank counts: an operand of "+" and the like.
  virtual void whole_text(const Expr& e) { value_as(e, value_type(SqlType::text)); }
  // A condition that few rows meet, where a database must be told.
  virtual void met_by_few(const Inner& inner) { inner(); }
  virtual void to_bit(const Inner& inner) = 0;
  virtual void integer_to_money(const Inner& inner) = 0;
  virtual void money_to_float(const Inner& inner) = 0;
  // An operand of an operation on whole numbers, wide enough for its result.
  virtual void whole_number(const Inner& inner) { inner(); }
  virtual void integer_to_float(const Inner& inner) { inner(); }
  virtual void single_to_double(const Inner& inner) { inner(); }
  // The text of a value; width 0 leaves it as long as it is.
  virtual void text_of(const Type& from, std::uint16_t width, bool padded, int style, const Inner& inner) = 0;
  // The average of whole units of a type, cut there as the server does.
  virtual void exact_average(const Expr& e) = 0;

  template <class... Args>
  void put(fmt::format_string<Args...> format, Args&&... args) {
    fmt::format_to(std::back_inserter(out_), format, std::forward<Args>(args)...);
  }
  void put_name(std::string_view name) { out_ += quoted_name(name); }

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

  void parameter(const Parameter& p) {
    parameters_.push_back(p);
    place(parameters_.size());
  }
  void literal(const Expr& e, SqlType type, bool only_compared);
  void collate() { out_ += collation(); }
  void wrapped(std::string_view before, const Inner& inner, std::string_view behind) {
    out_ += before;
    inner();
    out_ += behind;
  }

  void condition(const Expr& e);
  void value(const Expr& e);
  void value_as(const Expr& e, const Type& wanted, bool only_compared = false);

  void aggregate(std::string_view name, const Expr& e, const Type& type);

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
  void like(const Expr& e);
  // A bit is 0 or 1, so that every test of it is an equality, which an index can serve.
  void compare_bit(const Expr& bit, std::int64_t number, Op op);
  static Type type_of_all(const Expr& e);
  void between(const Expr& e);
  void in_list(const Expr& e);
  void in_select(const Expr& e);
  void plain(const Expr& e);
  static bool is_sum(const Expr& e);
  // An operand of an arithmetic operation, of "+" between texts.
  void term(const Expr& e, const Type& type);
  // Terms of a sum without parentheses of their own, as far as they have its type.
  void sum_chain(const Expr& e);
  void arithmetic(const Expr& e);
  void rounded_decimal(const Expr& e, std::int64_t decimals);
  void case_when(const Expr& e);
  void cast(const Expr& e);
  void call(const Expr& e);
  // Wraps what `inner` writes so that a value of type `from` becomes one of type `to`.
  void converted(const Type& from, const Type& to, const Inner& inner);
  void to_float(SqlType from, SqlType to, const Inner& inner);
};

}  // namespace posto::tsql
