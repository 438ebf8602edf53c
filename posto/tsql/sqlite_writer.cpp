#include "posto/tsql/sqlite_writer.h"

#include <fmt/format.h>

#include <algorithm>

#include "posto/tsql/sqlite_ddl.h"
#include "posto/tsql/types.h"
#include "posto/tsql/walk.h"

namespace posto::tsql {
namespace {

bool is_text_column(const Expr& e) { return e.kind == ExprKind::column && e.column->type == SqlType::text; }

// Whether an expression holds a subquery that reads a table.
bool reads(const Expr& e, const Table& table) {
  bool found = std::any_of(e.args.begin(), e.args.end(), [&](const ExprPtr& a) { return reads(*a, table); });
  if (!e.select) return found;
  each_source(*e.select, [&](const Source& source) { found = found || source.table == &table; });
  each_expression(*e.select, [&](const Expr& inner) { found = found || reads(inner, table); });
  return found;
}

// Whether a written statement works out values: a function of ours may refuse one, a figure may outgrow its column.
bool calculates(std::string_view text) {
  static constexpr std::string_view kMarks[] = {"posto_", " + ", " - ", " * ", "(-", "sum("};
  return std::any_of(std::begin(kMarks), std::end(kMarks),
                     [&](auto m) { return text.find(m) != std::string_view::npos; });
}

class Writer {
 public:
  CompiledStatement run(const Statement& s) {
    CompiledStatement c;
    c.kind = s.kind;
    if (s.target) c.target = s.target->table;
    switch (s.kind) {
      case StatementKind::select:
        select(*s.select, s.select->types);
        c.outputs = output_columns(*s.select);
        c.target = row_by_row_table(*s.select);
        break;
      case StatementKind::insert:
        insert(s);
        break;
      case StatementKind::update:
        update(s);
        break;
      case StatementKind::remove:
        remove(s);
        break;
      case StatementKind::create_table:
        out_ = sqlite_create_table(*s.target->table, true);
        break;
      case StatementKind::set_date_format:
        c.date_format = s.date_format;
        break;
    }
    bool one_row = s.kind == StatementKind::insert && !s.select;
    c.may_fail_between_rows = c.kind != StatementKind::select && !one_row && calculates(out_);
    c.text = std::move(out_);
    c.reads = std::move(reads_);
    c.parameters = std::move(parameters_);
    return c;
  }

 private:
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

  // --- selects ---

  // `wanted`: the types that the columns become.
  void select(const Select& s, const std::vector<Type>& wanted, bool one_row = false) {
    bool compound = s.parts.size() > 1;
    list(s.parts, s.unique ? " UNION " : " UNION ALL ", [&](const SelectCore& core) {
      bool wrapped = compound && core.top;
      if (wrapped) out_ += "SELECT * FROM (";
      this->core(core, wanted, core.distinct || s.unique, one_row);
      if (wrapped) put(" LIMIT {})", *core.top);
    });
    order_by(s, wanted);
    if (!compound && s.parts.front().top) put(" LIMIT {}", *s.parts.front().top);
  }

  // A select that is a value: a second row is a failure.
  void single_value(const Select& s, const std::vector<Type>& wanted) {
    const SelectCore& core = s.parts.front();
    bool one_at_most = s.parts.size() == 1 && ((core.grouped && core.group_by.empty()) || core.top.value_or(2) <= 1);
    bool plain_rows = s.parts.size() == 1 && !core.grouped && !core.top;
    if (one_at_most || plain_rows) return select(s, wanted, !one_at_most);
    out_ += "SELECT posto_single(v) FROM (SELECT NULL AS v WHERE 0 UNION ALL SELECT * FROM (";
    select(s, wanted);
    out_ += "))";
  }

  void core(const SelectCore& core, const std::vector<Type>& wanted, bool distinct, bool one_row) {
    out_ += "SELECT ";
    if (core.distinct && !one_row) out_ += "DISTINCT ";
    std::size_t i = 0;
    list(core.items, ", ", [&](const SelectItem& item) {
      if (one_row) out_ += core.distinct ? "posto_single(DISTINCT " : "posto_single(";
      value_as(*item.expr, wanted[i]);
      if (one_row) out_ += ')';
      if (distinct && wanted[i].base == SqlType::text && !is_text_column(*item.expr)) collate();
      ++i;
    });
    if (!core.from.empty()) {
      out_ += " FROM ";
      list(core.from, ", ", [&](const auto& from) { this->from(*from, false); });
    }
    std::vector<const Expr*> rows, groups;  // what tells rows, what tells groups
    if (core.where) rows.push_back(core.where.get());
    if (core.having) split_having(*core.having, core, rows, groups);
    conditions(" WHERE ", rows);
    if (!core.group_by.empty()) {
      out_ += " GROUP BY ";
      list(core.group_by, ", ", [&](const ExprPtr& e) { sorted(*e); });
    }
    conditions(" HAVING ", groups);
  }

  void conditions(std::string_view word, const std::vector<const Expr*>& terms) {
    if (terms.empty()) return;
    out_ += word;
    list(terms, " AND ", [&](const Expr* term) { condition(*term); });
  }

  // A term of HAVING that names only grouped columns holds for a whole group or for none of its rows: told of the rows,
  // it can use an index.
  static void split_having(const Expr& e, const SelectCore& core, std::vector<const Expr*>& rows,
                           std::vector<const Expr*>& groups) {
    if (e.kind == ExprKind::logic && e.op == Op::and_) {
      for (const ExprPtr& term : e.args) split_having(*term, core, rows, groups);
    } else {
      (core.group_by.empty() || aggregates(e) ? groups : rows).push_back(&e);
    }
  }

  // Whether a term holds an aggregate, or a subquery, which stays where it was written.
  static bool aggregates(const Expr& e) {
    if (e.select || (e.kind == ExprKind::call && is_aggregate(e.function))) return true;
    return std::any_of(e.args.begin(), e.args.end(), [](const ExprPtr& a) { return aggregates(*a); });
  }

  // A value by which rows are told apart or ordered.
  void sorted(const Expr& e) {
    value(e);
    if (e.type.known && e.type.base == SqlType::text && !is_text_column(e)) collate();
  }

  void order_by(const Select& s, const std::vector<Type>& wanted) {
    if (s.order_by.empty()) return;
    out_ += " ORDER BY ";
    list(s.order_by, ", ", [&](const OrderItem& item) {
      bool becomes_another = item.output > 0 && wanted[item.output - 1].base != s.types[item.output - 1].base;
      if (becomes_another && s.parts.size() == 1) {
        sorted(*s.parts.front().items[item.output - 1].expr);
      } else if (item.output > 0) {
        put("{}", item.output);
        if (s.types[item.output - 1].base == SqlType::text) collate();
      } else if (item.expr->kind == ExprKind::literal) {
        out_ += "NULL";  // a constant orders nothing, and a number here would be a position
      } else {
        sorted(*item.expr);
      }
      if (item.descending) out_ += " DESC";
    });
  }

  void from(const From& f, bool right_side) {
    if (f.source) return source(*f.source);
    static constexpr std::string_view kWords[] = {" INNER JOIN ", " LEFT JOIN ", " RIGHT JOIN ", " FULL JOIN ",
                                                  " CROSS JOIN "};
    if (right_side) out_ += '(';
    // Turned round it is a left join, which SQLite makes an inner one where a condition allows it.
    const bool turned = f.join == JoinKind::right && f.left->source;
    from(turned ? *f.right : *f.left, turned && !f.right->source);
    out_ += kWords[static_cast<std::size_t>(turned ? JoinKind::left : f.join)];
    from(turned ? *f.left : *f.right, true);
    if (f.on) {
      out_ += " ON ";
      condition(*f.on);
    }
    if (right_side) out_ += ')';
  }

  void source(const Source& s) {
    reads_.push_back(s.table);
    put_name(s.table->name);
    if (s.written != s.table->name) {
      out_ += " AS ";
      put_name(s.written);
    }
  }

  void collate() { put(" COLLATE {}", kSqliteCollation); }

  // --- writing statements ---

  void insert(const Statement& s) {
    const Table& table = *s.target->table;
    out_ += "INSERT INTO ";
    put_name(table.name);
    out_ += " (";
    list(s.target_columns, ", ", [&](const Column* c) { put_name(c->name); });
    out_ += ") ";
    if (s.select) {
      std::vector<Type> wanted;
      for (const Column* c : s.target_columns) wanted.push_back(value_type(c->type, c->width));
      return select(*s.select, wanted);
    }
    out_ += "VALUES (";
    std::size_t i = 0;
    list(s.values, ", ", [&](const ExprPtr& e) { assigned(*e, table, *s.target_columns[i++]); });
    out_ += ')';
  }

  void assigned(const Expr& e, const Table& table, const Column& column) {
    std::size_t before = parameters_.size();
    value_as(e, value_type(column.type, column.width));
    for (std::size_t i = before; i < parameters_.size() && e.kind == ExprKind::literal; ++i) {
      parameters_[i].table = &table;
      parameters_[i].column = &column;
    }
  }

  void update(const Statement& s) {
    const Table& table = *s.target->table;
    bool reads_itself = std::any_of(s.assignments.begin(), s.assignments.end(),
                                    [&](const Assignment& a) { return reads(*a.value, table); });
    if (reads_itself) return update_from_snapshot(s);
    out_ += "UPDATE ";
    put_name(table.name);
    out_ += " SET ";
    list(s.assignments, ", ", [&](const Assignment& a) {
      put_name(a.column->name);
      out_ += " = ";
      assigned(*a.value, table, *a.column);
    });
    where(s.where);
  }

  // The new values are all worked out before the first row changes.
  void update_from_snapshot(const Statement& s) {
    const Table& table = *s.target->table;
    std::vector<std::string> keys;
    for (const Column& c : table.columns) {
      if (c.key) keys.push_back(sqlite_name(c.name));
    }
    if (keys.empty()) keys.emplace_back("rowid");
    const std::string name = sqlite_name(table.name);
    out_ += "UPDATE " + name + " SET ";
    std::size_t n = 0;
    list(s.assignments, ", ", [&](const Assignment& a) { put("{} = \"$new\".v{}", sqlite_name(a.column->name), ++n); });
    out_ += " FROM (SELECT ";
    n = 0;
    list(keys, ", ", [&](const std::string& key) { put("{}.{} AS k{}", name, key, ++n); });
    n = 0;
    for (const Assignment& a : s.assignments) {
      out_ += ", ";
      assigned(*a.value, table, *a.column);
      put(" AS v{}", ++n);
    }
    out_ += " FROM " + name;
    where(s.where);
    out_ += ") AS \"$new\" WHERE ";
    n = 0;
    list(keys, " AND ", [&](const std::string& key) { put("{}.{} = \"$new\".k{}", name, key, ++n); });
  }

  void remove(const Statement& s) {
    out_ += "DELETE FROM ";
    put_name(s.target->table->name);
    where(s.where);
  }

  void where(const ExprPtr& e) {
    if (!e) return;
    out_ += " WHERE ";
    condition(*e);
  }

  // --- conditions ---

  void condition(const Expr& e) {
    switch (e.kind) {
      case ExprKind::logic:
        out_ += '(';
        chain(e);
        out_ += ')';
        return;
      case ExprKind::negation:
        out_ += "(NOT ";
        condition(*e.args[0]);
        out_ += ')';
        return;
      case ExprKind::compare:
        return compare(e);
      case ExprKind::between:
        return between(e);
      case ExprKind::in_list:
        return in_list(e);
      case ExprKind::in_select:
        return in_select(e);
      case ExprKind::exists:
        out_ += "EXISTS (";
        select(*e.select, e.select->types);
        out_ += ')';
        return;
      case ExprKind::is_null:
        out_ += '(';
        value(*e.args[0]);
        out_ += e.inverted ? " IS NOT NULL)" : " IS NULL)";
        return;
      case ExprKind::like:
        out_ += e.inverted ? "(NOT posto_like(" : "posto_like(";
        value_as(*e.args[0], value_type(SqlType::text));
        out_ += ", ";
        value_as(*e.args[1], value_type(SqlType::text));
        out_ += e.inverted ? "))" : ")";
        return;
      default:
        return;  // the binder lets nothing else be a condition
    }
  }

  // Terms of one operator without parentheses of their own: SQLite nests only so many.
  void chain(const Expr& e) {
    const Expr& left = *e.args[0];
    bool goes_on = left.kind == ExprKind::logic && left.op == e.op;
    goes_on ? chain(left) : condition(left);
    out_ += e.op == Op::and_ ? " AND " : " OR ";
    condition(*e.args[1]);
  }

  // An operand of a comparison.
  void compared(const Expr& e, const Type& type) { value_as(e, type, true); }

  // The left side of a comparison of texts decides how they compare.
  void deciding(const Expr& e, const Type& type, bool other_is_column) {
    compared(e, type);
    if (type.base == SqlType::text && !is_text_column(e) && !other_is_column) collate();
  }

  void compare(const Expr& e) {
    static constexpr std::string_view kSymbols[] = {" = ", " <> ", " < ", " <= ", " > ", " >= "};
    const Expr &left = *e.args[0], &right = *e.args[1];
    if (right.pinned && (e.op == Op::equal || e.op == Op::not_equal)) return compare_bit(left, *right.pinned, e.op);
    if (left.pinned && (e.op == Op::equal || e.op == Op::not_equal)) return compare_bit(right, *left.pinned, e.op);
    Type type = comparison_type(left, right);
    out_ += '(';
    deciding(left, type, is_text_column(right));
    out_ += kSymbols[static_cast<std::size_t>(e.op) - static_cast<std::size_t>(Op::equal)];
    compared(right, type);
    out_ += ')';
  }

  // A bit is 0 or 1, so that every test of it is an equality, which an index can serve.
  void compare_bit(const Expr& bit, std::int64_t number, Op op) {
    bool is_bit = number == 0 || number == 1;
    out_ += '(';
    value(bit);
    if (!is_bit) {
      out_ += op == Op::equal ? " <> 0 AND 0)" : " IS NOT NULL)";
    } else {
      put(" = {})", op == Op::equal ? number : 1 - number);
    }
  }

  Type type_of_all(const Expr& e) {
    Type type{};
    for (std::size_t i = 1; i < e.args.size(); ++i) {
      type = common_type(type, comparison_type(*e.args[0], *e.args[i]));
    }
    return type;
  }

  void between(const Expr& e) {
    Type type = type_of_all(e);
    out_ += '(';
    deciding(*e.args[0], type, false);
    out_ += e.inverted ? " NOT BETWEEN " : " BETWEEN ";
    compared(*e.args[1], type);
    out_ += " AND ";
    compared(*e.args[2], type);
    out_ += ')';
  }

  void in_list(const Expr& e) {
    Type type = type_of_all(e);
    out_ += '(';
    deciding(*e.args[0], type, false);
    out_ += e.inverted ? " NOT IN (" : " IN (";
    for (std::size_t i = 1; i < e.args.size(); ++i) {
      if (i > 1) out_ += ", ";
      compared(*e.args[i], type);
    }
    out_ += "))";
  }

  void in_select(const Expr& e) {
    Type type = common_type(e.args[0]->type, e.select->types.front());
    out_ += '(';
    deciding(*e.args[0], type, false);
    out_ += e.inverted ? " NOT IN (" : " IN (";
    select(*e.select, {type});
    out_ += "))";
  }

  // --- values ---

  void value(const Expr& e) { value_as(e, e.type); }

  void value_as(const Expr& e, const Type& wanted, bool only_compared = false) {
    switch (e.kind) {
      case ExprKind::null:
        out_ += "NULL";
        return;
      case ExprKind::literal:
        if (e.pinned && is_integer(wanted.base)) {
          put("{}", *e.pinned);
        } else {
          parameter({.ordinal = e.ordinal, .negative = e.inverted, .compared = only_compared, .type = wanted.base});
        }
        return;
      case ExprKind::marker:
        parameter(
            {.from = Parameter::From::marker, .ordinal = e.ordinal, .compared = only_compared, .type = wanted.base});
        return;
      default:
        break;
    }
    if (!wanted.known || !e.type.known) return plain(e);
    converted(e.type, wanted, [&] { plain(e); });
  }

  // Wraps what `inner` writes so that a value of type `from` becomes one of type `to`.
  template <class Inner>
  void converted(const Type& from, const Type& to, Inner inner) {
    auto call = [&](std::string_view function) {
      put("{}(", function);
      inner();
      out_ += ')';
    };
    if (from.base == to.base) return inner();
    if (from.base == SqlType::text) {
      static constexpr std::string_view kParsers[] = {"posto_text_bit",   "posto_text_int",    "posto_text_int",
                                                      "posto_text_int",   "posto_text_real32", "posto_text_real",
                                                      "posto_text_money", "posto_text_date",   ""};
      return call(kParsers[static_cast<std::size_t>(to.base)]);
    }
    switch (to.base) {
      case SqlType::bit:
        out_ += '(';
        inner();
        out_ += " <> 0)";
        return;
      case SqlType::byte:
      case SqlType::int16:
      case SqlType::int32:
        if (is_integer(from.base)) return inner();
        return call(from.base == SqlType::money ? "posto_money_int" : "posto_real_int");
      case SqlType::money:
        if (is_float(from.base)) return call("posto_real_money");
        out_ += '(';
        inner();
        out_ += " * 10000)";
        return;
      case SqlType::float32:
      case SqlType::float64: {
        bool narrow = to.base == SqlType::float32 && from.base != SqlType::float32;
        if (narrow) out_ += "posto_real32(";
        if (from.base == SqlType::money) {
          out_ += '(';
          inner();
          out_ += " / 10000.0)";
        } else {
          inner();
        }
        if (narrow) out_ += ')';
        return;
      }
      case SqlType::date:
        return call("posto_int_date");
      case SqlType::text:
        return text_of(from, 0, false, -1, inner);
    }
  }

  // The text of a value; width 0 leaves it as long as it is.
  template <class Inner>
  void text_of(const Type& from, std::uint16_t width, bool padded, int style, Inner inner) {
    out_ += "posto_text(";
    inner();
    put(", {}, {}, {}, {})", static_cast<int>(from.base), width, padded ? 1 : 0, style);
  }

  void plain(const Expr& e) {
    switch (e.kind) {
      case ExprKind::column:
        put_name(e.source->written);
        out_ += '.';
        put_name(e.column->name);
        return;
      case ExprKind::now:
        return parameter({.from = Parameter::From::now, .type = SqlType::date});
      case ExprKind::last_identity:
        return parameter({.from = Parameter::From::last_identity, .type = SqlType::int32});
      case ExprKind::negate:
        out_ += "(-";
        value_as(*e.args[0], e.type);
        out_ += ')';
        return;
      case ExprKind::arithmetic:
        return arithmetic(e);
      case ExprKind::case_when:
        return case_when(e);
      case ExprKind::cast:
        return cast(e);
      case ExprKind::call:
        return call(e);
      case ExprKind::subquery:
        out_ += '(';
        single_value(*e.select, e.select->types);
        out_ += ')';
        return;
      default:
        return condition(e);
    }
  }

  static bool is_sum(const Expr& e) {
    return e.kind == ExprKind::arithmetic && (e.op == Op::add || e.op == Op::subtract);
  }

  // Terms of a sum without parentheses of their own, as far as they have its type.
  void sum_chain(const Expr& e) {
    const Expr& left = *e.args[0];
    is_sum(left) && left.type.base == e.type.base ? sum_chain(left) : value_as(left, e.type);
    out_ += e.type.base == SqlType::text ? " || " : e.op == Op::add ? " + " : " - ";
    value_as(*e.args[1], e.type);
  }

  void arithmetic(const Expr& e) {
    const Expr &a = *e.args[0], &b = *e.args[1];
    SqlType type = e.type.base;
    auto infix = [&](std::string_view op, const Type& left, const Type& right) {
      out_ += '(';
      bool goes_on = is_sum(e) && is_sum(a) && a.type.base == type && type != SqlType::float32;
      goes_on ? sum_chain(a) : value_as(a, left);
      out_ += op;
      value_as(b, right);
      out_ += ')';
    };
    auto function = [&](std::string_view name, const Type& left, const Type& right) {
      put("{}(", name);
      value_as(a, left);
      out_ += ", ";
      value_as(b, right);
      out_ += ')';
    };
    if (type == SqlType::text) return infix(" || ", e.type, e.type);
    if (type == SqlType::float32) out_ += "posto_real32(";
    bool money_by_integer = type == SqlType::money && b.type.known && is_integer(b.type.base);
    bool integer_by_money = type == SqlType::money && a.type.known && is_integer(a.type.base);
    switch (e.op) {
      case Op::add:
        infix(" + ", e.type, e.type);
        break;
      case Op::subtract:
        infix(" - ", e.type, e.type);
        break;
      case Op::multiply:
        if (type == SqlType::money && !money_by_integer && !integer_by_money) {
          function("posto_multiply_money", e.type, e.type);
        } else {
          infix(" * ", integer_by_money ? a.type : e.type, money_by_integer ? b.type : e.type);
        }
        break;
      default:
        if (is_float(type)) {
          function("posto_divide_real", e.type, e.type);
        } else if (type == SqlType::money && !money_by_integer) {
          function("posto_divide_money", e.type, e.type);
        } else {
          function("posto_divide_int", e.type, money_by_integer ? b.type : e.type);
        }
    }
    if (type == SqlType::float32) out_ += ')';
  }

  void case_when(const Expr& e) {
    out_ += "CASE";
    for (std::size_t i = 0; i + 1 < e.args.size(); i += 2) {
      out_ += " WHEN ";
      condition(*e.args[i]);
      out_ += " THEN ";
      value_as(*e.args[i + 1], e.type);
    }
    out_ += " ELSE ";
    value_as(*e.args.back(), e.type);
    out_ += " END";
  }

  void cast(const Expr& e) {
    const Expr& inner = *e.args[0];
    if (e.target.base == SqlType::text) {
      const Type from = inner.type.known ? inner.type : value_type(SqlType::text);
      return text_of(from, e.target.width, e.padded, e.style, [&] { value_as(inner, from); });
    }
    bool narrows = is_integer(e.target.base) && e.target.base != SqlType::bit;
    if (narrows) out_ += "posto_fit(";
    value_as(inner, e.target);
    if (narrows) put(", {})", static_cast<int>(e.target.base));
  }

  void call(const Expr& e) {
    const Type& first = e.args.empty() ? e.type : e.args[0]->type;
    switch (e.function) {
      case Function::round: {
        std::string_view name = e.type.base == SqlType::money ? "posto_round_money"
                                : is_float(e.type.base)       ? "posto_round_real"
                                                              : "posto_round_int";
        put("{}(", name);
        value_as(*e.args[0], e.type);
        put(", {})", *e.args[1]->pinned);
        return;
      }
      case Function::is_null:
        out_ += "ifnull(";
        value_as(*e.args[0], e.type);
        out_ += ", ";
        if (e.type.base == SqlType::text && e.type.width > 0) {  // as wide as the first is
          text_of(e.type, e.type.width, false, -1, [&] { value_as(*e.args[1], e.type); });
        } else {
          value_as(*e.args[1], e.type);
        }
        out_ += ')';
        return;
      case Function::substring:
        out_ += "posto_substring(";
        value_as(*e.args[0], value_type(SqlType::text));
        for (std::size_t i = 1; i < 3; ++i) {
          out_ += ", ";
          value_as(*e.args[i], value_type(SqlType::int32));
        }
        out_ += ')';
        return;
      case Function::rtrim:
        out_ += "rtrim(";
        value_as(*e.args[0], value_type(SqlType::text));
        out_ += ')';
        return;
      case Function::count_rows:
        out_ += "count(*)";
        return;
      case Function::avg:
        if (!is_float(e.type.base)) {  // whole units of the type, as the server gives them
          aggregate("(sum", e, e.type);
          aggregate(" / count", e, e.type);
          out_ += ')';
          return;
        }
        return aggregate("avg", e, e.type);
      case Function::sum:
        return aggregate("sum", e, is_float(first.base) ? first : e.type);
      case Function::min:
        return aggregate("min", e, first);
      case Function::max:
        return aggregate("max", e, first);
      case Function::count:
        return aggregate("count", e, first);
    }
  }

  void aggregate(std::string_view name, const Expr& e, const Type& type) {
    put("{}({}", name, e.distinct ? "DISTINCT " : "");
    value_as(*e.args[0], type);
    if (type.base == SqlType::text && !is_text_column(*e.args[0])) collate();
    out_ += ')';
  }

  std::string out_;
  std::vector<Parameter> parameters_;
  std::vector<const Table*> reads_;
};

}  // namespace

CompiledStatement write_sqlite(const Statement& statement) { return Writer().run(statement); }

}  // namespace posto::tsql
