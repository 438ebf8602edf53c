// The types of expressions: which of two types both become, and what an operation gives.
#pragma once

#include "posto/tsql/ast.h"

namespace posto::tsql {

constexpr bool is_integer(SqlType t) {
  return t == SqlType::bit || t == SqlType::byte || t == SqlType::int16 || t == SqlType::int32;
}
constexpr bool is_float(SqlType t) { return t == SqlType::float32 || t == SqlType::float64; }
constexpr bool is_exact(SqlType t) { return is_integer(t) || t == SqlType::money; }
constexpr bool is_number(SqlType t) { return is_exact(t) || is_float(t); }

inline bool is_number_literal(const Expr& e) { return e.kind == ExprKind::literal && is_number(e.type.base); }

inline Type value_type(SqlType base, std::uint16_t width = 0) { return {.base = base, .width = width, .known = true}; }

// The type that both become where they meet: the server's order is date, float, real, money, the integers, bit, text.
Type common_type(const Type& a, const Type& b);

// The type in which two operands are compared. A number written in the statement becomes the other side's type when
// that is exact, so that a column is never converted to meet a literal.
Type comparison_type(const Expr& a, const Expr& b);

// Whether a value is an exact number with more decimals than money, carried in the double nearest to it: one written
// so, or a product with a number that is written with decimals.
bool is_decimal(const Expr& e);

// The type of `a op b`; nothing when the operation does not exist for them.
std::optional<Type> arithmetic_type(Op op, const Expr& a, const Expr& b);

}  // namespace posto::tsql
