#include "posto/tsql/expression_parser.h"

#include <algorithm>

#include "posto/types/text.h"

namespace posto::tsql {
namespace {

struct NamedFunction {
  std::string_view name;
  Function function;
  std::size_t arguments;
};

constexpr NamedFunction kFunctions[] = {
    {"Round", Function::round, 2}, {"IsNull", Function::is_null, 2}, {"Substring", Function::substring, 3},
    {"RTrim", Function::rtrim, 1}, {"Sum", Function::sum, 1},        {"Count", Function::count, 1},
    {"Min", Function::min, 1},     {"Max", Function::max, 1},        {"Avg", Function::avg, 1}};

struct NamedType {
  std::string_view name;
  SqlType type;
  std::uint16_t width;  // of text without a width of its own in CAST and CONVERT
  bool padded;
};

constexpr NamedType kTypes[] = {{"bit", SqlType::bit, 0, false},        {"tinyint", SqlType::byte, 0, false},
                                {"smallint", SqlType::int16, 0, false}, {"int", SqlType::int32, 0, false},
                                {"integer", SqlType::int32, 0, false},  {"money", SqlType::money, 0, false},
                                {"real", SqlType::float32, 0, false},   {"float", SqlType::float64, 0, false},
                                {"datetime", SqlType::date, 0, false},  {"char", SqlType::text, 30, true},
                                {"varchar", SqlType::text, 30, false},  {"nvarchar", SqlType::text, 30, false}};

struct Comparison {
  std::string_view symbol;
  Op op;
};

constexpr Comparison kComparisons[] = {{"=", Op::equal},   {"<>", Op::not_equal},     {"!=", Op::not_equal},
                                       {"<", Op::less},    {"<=", Op::less_equal},    {"!>", Op::less_equal},
                                       {">", Op::greater}, {">=", Op::greater_equal}, {"!<", Op::greater_equal}};

}  // namespace

ExprPtr ExpressionParser::make(ExprKind kind) const {
  auto e = std::make_unique<Expr>();
  e->kind = kind;
  e->position = peek().position;
  return e;
}

void ExpressionParser::adopt(Expr& parent, ExprPtr child) const {
  static constexpr int kMaxTreeDepth = 1000;
  parent.depth = std::max(parent.depth, child->depth + 1);
  if (parent.depth > kMaxTreeDepth) fail("Expressão longa demais", child->position);
  parent.args.push_back(std::move(child));
}

// The operator's token is next; `right` parses what stands behind it.
ExprPtr ExpressionParser::infix(ExprKind kind, Op op, ExprPtr left, ExprPtr (ExpressionParser::*right)()) {
  ExprPtr e = make(kind);
  advance();
  e->op = op;
  adopt(*e, std::move(left));
  adopt(*e, (this->*right)());
  return e;
}

ExprPtr ExpressionParser::expression() {
  Nesting nesting(*this);
  ExprPtr left = and_terms();
  while (at_word("OR")) left = infix(ExprKind::logic, Op::or_, std::move(left), &ExpressionParser::and_terms);
  return left;
}

ExprPtr ExpressionParser::and_terms() {
  ExprPtr left = not_term();
  while (at_word("AND")) left = infix(ExprKind::logic, Op::and_, std::move(left), &ExpressionParser::not_term);
  return left;
}

ExprPtr ExpressionParser::not_term() {
  if (!at_word("NOT")) return predicate();
  Nesting nesting(*this);
  ExprPtr e = make(ExprKind::negation);
  advance();
  adopt(*e, not_term());
  return e;
}

ExprPtr ExpressionParser::predicate() {
  if (at_word("EXISTS")) {
    ExprPtr e = make(ExprKind::exists);
    advance();
    if (!at_select()) fail_here();
    advance();
    e->select = select();
    expect_symbol(")");
    return e;
  }
  ExprPtr left = sum();
  if (peek().kind == TokenKind::symbol) {
    auto found = std::find_if(std::begin(kComparisons), std::end(kComparisons),
                              [&](const Comparison& c) { return c.symbol == peek().text; });
    if (found == std::end(kComparisons)) return left;
    return infix(ExprKind::compare, found->op, std::move(left), &ExpressionParser::sum);
  }
  if (at_word("IS")) {
    ExprPtr e = make(ExprKind::is_null);
    advance();
    e->inverted = accept_word("NOT");
    expect_word("NULL");
    adopt(*e, std::move(left));
    return e;
  }
  bool inverted = accept_word("NOT");
  if (at_word("BETWEEN")) return between_tail(std::move(left), inverted);
  if (at_word("IN")) return in_tail(std::move(left), inverted);
  if (at_word("LIKE")) {
    ExprPtr e = infix(ExprKind::like, Op::equal, std::move(left), &ExpressionParser::sum);
    e->inverted = inverted;
    return e;
  }
  if (inverted) fail_here();
  return left;
}

ExprPtr ExpressionParser::between_tail(ExprPtr left, bool inverted) {
  ExprPtr e = make(ExprKind::between);
  advance();
  e->inverted = inverted;
  adopt(*e, std::move(left));
  adopt(*e, sum());
  expect_word("AND");
  adopt(*e, sum());
  return e;
}

ExprPtr ExpressionParser::in_tail(ExprPtr left, bool inverted) {
  advance();
  bool from_select = at_select();
  ExprPtr e = make(from_select ? ExprKind::in_select : ExprKind::in_list);
  e->inverted = inverted;
  adopt(*e, std::move(left));
  expect_symbol("(");
  if (from_select) {
    e->select = select();
  } else {
    do {
      adopt(*e, sum());
    } while (accept_symbol(","));
  }
  expect_symbol(")");
  return e;
}

ExprPtr ExpressionParser::sum() {
  ExprPtr left = product();
  while (at_symbol("+") || at_symbol("-")) {
    Op op = at_symbol("+") ? Op::add : Op::subtract;
    left = infix(ExprKind::arithmetic, op, std::move(left), &ExpressionParser::product);
  }
  return left;
}

ExprPtr ExpressionParser::product() {
  ExprPtr left = unary();
  while (at_symbol("*") || at_symbol("/")) {
    Op op = at_symbol("*") ? Op::multiply : Op::divide;
    left = infix(ExprKind::arithmetic, op, std::move(left), &ExpressionParser::unary);
  }
  return left;
}

ExprPtr ExpressionParser::unary() {
  if (accept_symbol("+")) {
    Nesting nesting(*this);
    return unary();
  }
  if (!at_symbol("-")) return primary();
  Nesting nesting(*this);
  ExprPtr e = make(ExprKind::negate);
  advance();
  ExprPtr operand = unary();
  bool number = operand->kind == ExprKind::literal && operand->type.base != SqlType::text;
  if (number) {  // a minus in front of a number is part of it
    operand->inverted = !operand->inverted;
    return operand;
  }
  adopt(*e, std::move(operand));
  return e;
}

ExprPtr ExpressionParser::primary() {
  switch (peek().kind) {
    case TokenKind::literal:
      return literal_value();
    case TokenKind::marker: {
      ExprPtr e = make(ExprKind::marker);
      e->ordinal = advance().literal;
      return e;
    }
    case TokenKind::identifier:
      return word();
    default:
      if (at_symbol("(")) return parenthesised();
      fail_here();
  }
}

ExprPtr ExpressionParser::parenthesised() {
  Nesting nesting(*this);
  if (at_select()) {
    ExprPtr e = make(ExprKind::subquery);
    advance();
    e->select = select();
    expect_symbol(")");
    return e;
  }
  expect_symbol("(");
  ExprPtr e = expression();
  expect_symbol(")");
  return e;
}

ExprPtr ExpressionParser::literal_value() {
  ExprPtr e = make(ExprKind::literal);
  const Token& token = advance();
  e->ordinal = token.literal;
  e->type.known = true;
  switch (literal(token).kind) {
    case LiteralKind::integer:
      e->type.base = SqlType::int32;
      break;
    case LiteralKind::decimal:
      e->type.base = SqlType::money;
      break;
    case LiteralKind::long_decimal:
    case LiteralKind::floating:
      e->type.base = SqlType::float64;
      break;
    case LiteralKind::text:
    case LiteralKind::wild_text:
      e->type.base = SqlType::text;
      break;
  }
  return e;
}

ExprPtr ExpressionParser::word() {
  if (!peek().quoted) {
    if (at_word("NULL")) {
      ExprPtr e = make(ExprKind::null);
      advance();
      return e;
    }
    if (at_word("CASE")) return case_when();
    if (at_word("CAST")) return cast();
    if (at_word("CONVERT")) return convert();
    if (at_word("@@IDENTITY")) {
      ExprPtr e = make(ExprKind::last_identity);
      advance();
      return e;
    }
    if (at_word("GETDATE")) {
      ExprPtr e = make(ExprKind::now);
      advance();
      expect_symbol("(");
      expect_symbol(")");
      return e;
    }
    bool called = peek(1).kind == TokenKind::symbol && peek(1).text == "(";
    if (called) {
      auto found = std::find_if(std::begin(kFunctions), std::end(kFunctions),
                                [&](const NamedFunction& f) { return equal_names(f.name, peek().text); });
      if (found == std::end(kFunctions)) fail("Função desconhecida '" + std::string(peek().text) + "'");
      return call(found->function);
    }
  }
  return column();
}

ExprPtr ExpressionParser::column() {
  ExprPtr e = make(ExprKind::column);
  e->name = expect_name("um nome de coluna");
  while (accept_symbol(".")) {  // database and owner in front of the table do not matter
    e->qualifier = std::move(e->name);
    e->name = expect_name("um nome de coluna");
  }
  return e;
}

ExprPtr ExpressionParser::case_when() {
  Nesting nesting(*this);
  ExprPtr e = make(ExprKind::case_when);
  advance();
  if (!at_word("WHEN")) fail_here();
  while (accept_word("WHEN")) {
    adopt(*e, expression());
    expect_word("THEN");
    adopt(*e, sum());
  }
  if (accept_word("ELSE")) {
    adopt(*e, sum());
  } else {
    adopt(*e, make(ExprKind::null));
  }
  expect_word("END");
  return e;
}

Type ExpressionParser::data_type(bool* padded) {
  const Token& token = peek();
  auto found =
      std::find_if(std::begin(kTypes), std::end(kTypes), [&](const NamedType& t) { return is_word(token, t.name); });
  if (found == std::end(kTypes)) fail("Tipo desconhecido '" + std::string(token.text) + "'");
  advance();
  Type type{.base = found->type, .width = found->width, .known = true};
  if (padded != nullptr) *padded = found->padded;
  if (type.base == SqlType::text && accept_symbol("(")) {
    std::int64_t width = expect_pinned_integer("o tamanho do texto");
    if (width < 1 || width > 8000) fail("Tamanho de texto inválido");
    type.width = static_cast<std::uint16_t>(width);
    expect_symbol(")");
  }
  return type;
}

ExprPtr ExpressionParser::cast() {
  ExprPtr e = make(ExprKind::cast);
  advance();
  expect_symbol("(");
  adopt(*e, expression());
  expect_word("AS");
  e->target = data_type(&e->padded);
  expect_symbol(")");
  return e;
}

ExprPtr ExpressionParser::convert() {
  ExprPtr e = make(ExprKind::cast);
  advance();
  expect_symbol("(");
  e->target = data_type(&e->padded);
  expect_symbol(",");
  adopt(*e, expression());
  if (accept_symbol(",")) e->style = static_cast<int>(expect_pinned_integer("o estilo da conversão"));
  expect_symbol(")");
  return e;
}

ExprPtr ExpressionParser::call(Function function) {
  ExprPtr e = make(ExprKind::call);
  e->function = function;
  std::string name(advance().text);
  expect_symbol("(");
  if (function == Function::count && accept_symbol("*")) {
    e->function = Function::count_rows;
    expect_symbol(")");
    return e;
  }
  if (is_aggregate(function)) e->distinct = accept_word("DISTINCT");
  do {
    adopt(*e, expression());
  } while (accept_symbol(","));
  expect_symbol(")");
  auto known = std::find_if(std::begin(kFunctions), std::end(kFunctions),
                            [&](const NamedFunction& f) { return f.function == function; });
  if (e->args.size() != known->arguments) {
    fail("A função " + name + " pede " + std::to_string(known->arguments) + " argumento(s)", e->position);
  }
  return e;
}

}  // namespace posto::tsql
