#include "posto/tsql/types.h"

#include <algorithm>

namespace posto::tsql {
namespace {

int rank(SqlType t) {
  switch (t) {
    case SqlType::text:
      return 0;
    case SqlType::bit:
      return 1;
    case SqlType::byte:
      return 2;
    case SqlType::int16:
      return 3;
    case SqlType::int32:
      return 4;
    case SqlType::money:
      return 5;
    case SqlType::float32:
      return 6;
    case SqlType::float64:
      return 7;
    case SqlType::date:
      return 8;
  }
  return 0;
}

bool is_decimal_literal(const Expr& e) { return e.kind == ExprKind::literal && e.type.base == SqlType::money; }

}  // namespace

Type common_type(const Type& a, const Type& b) {
  if (!a.known) return b;
  if (!b.known) return a;
  if (a.base == b.base) return value_type(a.base, std::max(a.width, b.width));
  return rank(a.base) > rank(b.base) ? a : b;
}

Type comparison_type(const Expr& a, const Expr& b) {
  if (a.kind == ExprKind::marker) return b.type;
  if (b.kind == ExprKind::marker) return a.type;
  bool literal_a = is_number_literal(a), literal_b = is_number_literal(b);
  if (literal_a != literal_b) {
    const Expr& other = literal_a ? b : a;
    if (other.type.known && other.type.base == SqlType::bit) return value_type(SqlType::int32);
    if (other.type.known && is_exact(other.type.base)) return other.type;
    if (other.type.known && other.type.base == SqlType::float32) return other.type;
  }
  return common_type(a.type, b.type);
}

bool is_decimal(const Expr& e) {
  if (!e.type.known || e.type.base != SqlType::float64) return false;
  if (e.kind != ExprKind::arithmetic || e.op != Op::multiply) return e.kind == ExprKind::literal;
  return std::ranges::all_of(e.args, [](const ExprPtr& a) { return is_exact(a->type.base) || is_decimal(*a); });
}

std::optional<Type> arithmetic_type(Op op, const Expr& a, const Expr& b) {
  Type t = common_type(a.type, b.type);
  if (!t.known) return value_type(SqlType::int32);
  if (t.base == SqlType::date) return std::nullopt;
  if (t.base == SqlType::text) {
    if (op != Op::add) return std::nullopt;
    std::size_t width = a.type.width > 0 && b.type.width > 0 ? std::size_t{a.type.width} + b.type.width : 0;
    return value_type(SqlType::text, static_cast<std::uint16_t>(std::min<std::size_t>(width, 8000)));
  }
  if (is_integer(t.base)) return value_type(SqlType::int32);
  // A decimal factor may have more digits than money keeps.
  bool scales = op == Op::multiply || op == Op::divide;
  if (t.base == SqlType::money && scales && (is_decimal_literal(a) || is_decimal_literal(b))) {
    return value_type(SqlType::float64);
  }
  return value_type(t.base);
}

}  // namespace posto::tsql
