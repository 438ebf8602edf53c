#include "posto/tsql/expression_writer.h"

#include <algorithm>

#include "posto/tsql/types.h"

namespace posto::tsql {

void ExpressionWriter::condition(const Expr& e) {
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
      select(*e.select, e.select->types, false);
      out_ += ')';
      return;
    case ExprKind::is_null:
      out_ += '(';
      value(*e.args[0]);
      out_ += e.inverted ? " IS NOT NULL)" : " IS NULL)";
      return;
    case ExprKind::like:
      return like(e);
    default:
      return;  // the binder lets nothing else be a condition
  }
}

void ExpressionWriter::chain(const Expr& e) {
  const Expr& left = *e.args[0];
  bool goes_on = left.kind == ExprKind::logic && left.op == e.op;
  goes_on ? chain(left) : condition(left);
  out_ += e.op == Op::and_ ? " AND " : " OR ";
  condition(*e.args[1]);
}

void ExpressionWriter::compared(const Expr& e, const Type& type) {
  const bool computed = e.kind != ExprKind::column && e.kind != ExprKind::literal && e.kind != ExprKind::marker;
  auto operand = [&] { value_as(e, type, true); };
  type.base == SqlType::text&& computed ? compared_text(operand) : operand();
}

void ExpressionWriter::deciding(const Expr& e, const Type& type, bool other_is_column) {
  compared(e, type);
  if (type.base == SqlType::text && !is_text_column(e) && !other_is_column) collate();
}

namespace {

// Who asks for what there is since a day asks for the last days of many.
bool asks_since_a_day(const Expr& e) {
  const Expr &left = *e.args[0], &right = *e.args[1];
  return (e.op == Op::greater || e.op == Op::greater_equal) && left.kind == ExprKind::column &&
         left.column->type == SqlType::date && right.kind == ExprKind::literal;
}

}  // namespace

void ExpressionWriter::compare(const Expr& e) {
  static constexpr std::string_view kSymbols[] = {" = ", " <> ", " < ", " <= ", " > ", " >= "};
  const Expr &left = *e.args[0], &right = *e.args[1];
  if (e.op == Op::equal || e.op == Op::not_equal) {
    if (right.pinned && left.type.base == SqlType::bit) return compare_bit(left, *right.pinned, e.op);
    if (left.pinned && right.type.base == SqlType::bit) return compare_bit(right, *left.pinned, e.op);
  }
  const Type type = comparison_type(left, right);
  auto comparison = [&] {
    out_ += '(';
    deciding(left, type, is_text_column(right));
    out_ += kSymbols[static_cast<std::size_t>(e.op) - static_cast<std::size_t>(Op::equal)];
    compared(right, type);
    out_ += ')';
  };
  asks_since_a_day(e) ? met_by_few(comparison) : comparison();
}

void ExpressionWriter::compare_bit(const Expr& bit, std::int64_t number, Op op) {
  bool is_bit = number == 0 || number == 1;
  out_ += '(';
  value(bit);
  if (!is_bit) {
    out_ += op == Op::equal ? " <> 0 AND 1 = 0)" : " IS NOT NULL)";
  } else {
    put(" = {})", op == Op::equal ? number : 1 - number);
  }
}

// What begins with a text lies between two others, which an index can tell.
void ExpressionWriter::like(const Expr& e) {
  const Expr &text = *e.args[0], &pattern = *e.args[1];
  const bool between = e.has_prefix && !e.inverted && is_text_column(text);
  auto bound = [&](std::string_view comparison, std::string_view function) {
    value(text);
    out_ += comparison;
    compared_text([&] {
      wrapped(
          function, [&] { whole_text(pattern); }, ")");
    });
    out_ += " AND ";
  };
  out_ += between ? "(" : e.inverted ? "(NOT " : "";
  if (between) {
    bound(" >= ", "posto_like_from(");
    bound(" <= ", "posto_like_to(");
  }
  out_ += "posto_like(";
  whole_text(text);
  out_ += ", ";
  whole_text(pattern);
  out_ += between || e.inverted ? "))" : ")";
}

Type ExpressionWriter::type_of_all(const Expr& e) {
  Type type{};
  for (std::size_t i = 1; i < e.args.size(); ++i) {
    type = common_type(type, comparison_type(*e.args[0], *e.args[i]));
  }
  return type;
}

void ExpressionWriter::between(const Expr& e) {
  Type type = type_of_all(e);
  out_ += '(';
  deciding(*e.args[0], type, false);
  out_ += e.inverted ? " NOT BETWEEN " : " BETWEEN ";
  compared(*e.args[1], type);
  out_ += " AND ";
  compared(*e.args[2], type);
  out_ += ')';
}

void ExpressionWriter::in_list(const Expr& e) {
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

void ExpressionWriter::in_select(const Expr& e) {
  Type type = common_type(e.args[0]->type, e.select->types.front());
  out_ += '(';
  deciding(*e.args[0], type, false);
  out_ += e.inverted ? " NOT IN (" : " IN (";
  select(*e.select, {type}, false);
  out_ += "))";
}

void ExpressionWriter::value(const Expr& e) { value_as(e, e.type); }

void ExpressionWriter::value_as(const Expr& e, const Type& wanted, bool only_compared) {
  switch (e.kind) {
    case ExprKind::null:
      out_ += "NULL";
      return;
    case ExprKind::literal:
      if (e.pinned && (is_integer(wanted.base) || is_float(wanted.base))) {
        put("{}", *e.pinned);
      } else {
        literal(e, wanted.base, only_compared);
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
  const bool decimal_money = wanted.base == SqlType::money && is_decimal(e);
  converted(e.type, wanted, [&] { decimal_money ? rounded_decimal(e, 4) : plain(e); });
}

// Expressions by which rows are grouped are the same to a database only when their parameters are.
void ExpressionWriter::literal(const Expr& e, SqlType type, bool only_compared) {
  Parameter wanted{.ordinal = e.ordinal, .negative = e.inverted, .compared = only_compared, .type = type};
  if (e.same_as == 0) return parameter(wanted);
  wanted.ordinal = e.same_as - 1;
  auto known = std::find(parameters_.begin(), parameters_.end(), wanted);
  known == parameters_.end() ? parameter(wanted) : place(static_cast<std::size_t>(known - parameters_.begin()) + 1);
}

void ExpressionWriter::to_float(SqlType from, SqlType to, const Inner& inner) {
  auto as_double = [&] {
    if (from == SqlType::money) return money_to_float(inner);
    from == SqlType::float32 ? single_to_double(inner) : integer_to_float(inner);
  };
  if (to == SqlType::float64) return as_double();
  from == SqlType::float64 ? wrapped("posto_real32(", inner, ")") : wrapped("posto_real32(", as_double, ")");
}

void ExpressionWriter::converted(const Type& from, const Type& to, const Inner& inner) {
  auto call = [&](std::string_view function) { wrapped(std::string(function) + "(", inner, ")"); };
  if (from.base == to.base) return inner();
  if (from.base == SqlType::text) {
    static constexpr std::string_view kParsers[] = {"posto_text_bit",   "posto_text_int",    "posto_text_int",
                                                    "posto_text_int",   "posto_text_real32", "posto_text_real",
                                                    "posto_text_money", "posto_text_date",   ""};
    return call(kParsers[static_cast<std::size_t>(to.base)]);
  }
  switch (to.base) {
    case SqlType::bit:
      return to_bit(inner);
    case SqlType::byte:
    case SqlType::int16:
    case SqlType::int32:
      if (is_integer(from.base)) return inner();
      return call(from.base == SqlType::money ? "posto_money_int" : "posto_real_int");
    case SqlType::money:
      return is_float(from.base) ? call("posto_real_money") : integer_to_money(inner);
    case SqlType::float32:
    case SqlType::float64:
      return to_float(from.base, to.base, inner);
    case SqlType::date:
      return call("posto_int_date");
    case SqlType::text:
      return text_of(from, 0, false, -1, inner);
  }
}

void ExpressionWriter::plain(const Expr& e) {
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

bool ExpressionWriter::is_sum(const Expr& e) {
  return e.kind == ExprKind::arithmetic && (e.op == Op::add || e.op == Op::subtract);
}

void ExpressionWriter::term(const Expr& e, const Type& type) {
  if (type.base == SqlType::text) return whole_text(e);
  is_integer(type.base) ? whole_number([&] { value_as(e, type); }) : value_as(e, type);
}

void ExpressionWriter::sum_chain(const Expr& e) {
  const Expr& left = *e.args[0];
  is_sum(left) && left.type.base == e.type.base ? sum_chain(left) : term(left, e.type);
  out_ += e.type.base == SqlType::text ? " || " : e.op == Op::add ? " + " : " - ";
  term(*e.args[1], e.type);
}

void ExpressionWriter::arithmetic(const Expr& e) {
  const Expr &a = *e.args[0], &b = *e.args[1];
  SqlType type = e.type.base;
  auto infix = [&](std::string_view op, const Type& left, const Type& right) {
    out_ += '(';
    bool goes_on = is_sum(e) && is_sum(a) && a.type.base == type && type != SqlType::float32;
    goes_on ? sum_chain(a) : term(a, left);
    out_ += op;
    term(b, right);
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
      if (is_decimal(e)) {
        function("posto_multiply_decimal", e.type, e.type);
      } else if (type == SqlType::money && !money_by_integer && !integer_by_money) {
        function("posto_multiply_money", e.type, e.type);
      } else {
        infix(" * ", integer_by_money ? a.type : e.type, money_by_integer ? b.type : e.type);
      }
      break;
    default:
      if (is_float(type)) {
        function("posto_divide_real", e.type, e.type);
      } else if (money_by_integer) {
        function("posto_part_of_money", e.type, b.type);
      } else {
        function(type == SqlType::money ? "posto_divide_money" : "posto_divide_int", e.type, e.type);
      }
  }
  if (type == SqlType::float32) out_ += ')';
}

void ExpressionWriter::rounded_decimal(const Expr& e, std::int64_t decimals) {
  out_ += "posto_round_decimal(";
  e.kind == ExprKind::literal ? value(e) : plain(e);
  put(", {})", decimals);
}

void ExpressionWriter::case_when(const Expr& e) {
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

void ExpressionWriter::cast(const Expr& e) {
  const Expr& inner = *e.args[0];
  if (e.target.base == SqlType::text) {
    const Type from = inner.type.known ? inner.type : value_type(SqlType::text);
    return text_of(from, e.target.width, e.padded, e.style, [&] { term(inner, from); });
  }
  bool narrows = is_integer(e.target.base) && e.target.base != SqlType::bit;
  if (narrows) out_ += "posto_fit(";
  value_as(inner, e.target);
  if (narrows) put(", {})", static_cast<int>(e.target.base));
}

void ExpressionWriter::call(const Expr& e) {
  const Type& first = e.args.empty() ? e.type : e.args[0]->type;
  switch (e.function) {
    case Function::round: {
      if (is_decimal(*e.args[0])) return rounded_decimal(*e.args[0], *e.args[1]->pinned);
      std::string_view name = e.type.base == SqlType::money ? "posto_round_money"
                              : is_float(e.type.base)       ? "posto_round_real"
                                                            : "posto_round_int";
      put("{}(", name);
      value_as(*e.args[0], e.type);
      put(", {})", *e.args[1]->pinned);
      return;
    }
    case Function::is_null:
      out_ += "coalesce(";
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
      whole_text(*e.args[0]);
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
      return is_float(e.type.base) ? aggregate("avg", e, e.type) : exact_average(e);
    case Function::sum:
      return aggregate("sum", e, is_float(first.base) ? value_type(SqlType::float64) : e.type);
    case Function::min:
      return aggregate("min", e, first);
    case Function::max:
      return aggregate("max", e, first);
    case Function::count:
      return aggregate("count", e, first);
  }
}

void ExpressionWriter::aggregate(std::string_view name, const Expr& e, const Type& type) {
  put("{}({}", name, e.distinct ? "DISTINCT " : "");
  value_as(*e.args[0], type);
  if (type.base == SqlType::text && !is_text_column(*e.args[0])) collate();
  out_ += ')';
}

}  // namespace posto::tsql
