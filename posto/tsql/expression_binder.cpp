// The binder's other half: expressions, their types, and which of them a grouped select may give.
#include <algorithm>

#include "posto/tsql/binder.h"
#include "posto/tsql/types.h"
#include "posto/tsql/walk.h"

namespace posto::tsql {

void Binder::condition(Expr& e, Scope& scope) {
  any(e, scope);
  if (!e.type.predicate) fail("Esperada uma condição", e.position);
}

void Binder::value(Expr& e, Scope& scope) {
  any(e, scope);
  if (e.type.predicate) fail("Esperado um valor em lugar de uma condição", e.position);
}

void Binder::any(Expr& e, Scope& scope) {
  switch (e.kind) {
    case ExprKind::literal:
    case ExprKind::null:
    case ExprKind::marker:
      return;
    case ExprKind::column:
      return bind_column(e, scope);
    case ExprKind::now:
      e.type = value_type(SqlType::date);
      return;
    case ExprKind::last_identity:
      e.type = value_type(SqlType::int32);
      return;
    case ExprKind::negate:
      value(*e.args[0], scope);
      if (e.args[0]->type.known && !is_number(e.args[0]->type.base)) fail("O sinal pede um número", e.position);
      e.type = common_type(e.args[0]->type, value_type(SqlType::bit));
      if (is_integer(e.type.base)) e.type = value_type(SqlType::int32);
      return;
    case ExprKind::arithmetic: {
      for (auto& a : e.args) value(*a, scope);
      auto type = arithmetic_type(e.op, *e.args[0], *e.args[1]);
      if (!type)
        fail("A operação não existe entre " + std::string(type_name(e.args[0]->type.base)) + " e " +
                 type_name(e.args[1]->type.base),
             e.position);
      e.type = *type;
      return;
    }
    case ExprKind::logic:
    case ExprKind::negation:
      for (auto& a : e.args) condition(*a, scope);
      e.type.predicate = true;
      return;
    case ExprKind::compare:
    case ExprKind::between:
    case ExprKind::in_list:
      return bind_compared(e, scope);
    case ExprKind::like:
      for (auto& a : e.args) value(*a, scope);
      e.type.predicate = true;
      if (const Expr& pattern = *e.args[1]; pattern.kind == ExprKind::literal) {
        e.has_prefix = literals_[pattern.ordinal].kind == LiteralKind::text;
        pattern.same_as = pattern.ordinal + 1;  // it is written more than once
      }
      return;
    case ExprKind::is_null:
      for (auto& a : e.args) value(*a, scope);
      e.type.predicate = true;
      return;
    case ExprKind::in_select:
    case ExprKind::exists:
    case ExprKind::subquery:
      return bind_subquery(e, scope);
    case ExprKind::case_when:
      return bind_case(e, scope);
    case ExprKind::cast:
      return bind_cast(e, scope);
    case ExprKind::call:
      return is_aggregate(e.function) ? bind_aggregate(e, scope) : bind_call(e, scope);
  }
}

void Binder::require_comparable(const Expr& a, const Expr& b) {
  if (!a.type.known || !b.type.known) return;
  auto date_and_float = [](const Type& x, const Type& y) { return x.base == SqlType::date && is_number(y.base); };
  bool unlike = date_and_float(a.type, b.type) || date_and_float(b.type, a.type);
  bool literal = a.kind == ExprKind::literal || b.kind == ExprKind::literal;
  if (unlike && !literal) fail("Uma data não se compara com um número", b.position);
}

// What a bit is compared with, or a column whose zeros have an index, is part of the form: only then can the database
// use an index over the live, the pending or the empty rows.
void Binder::pin_compared(const Expr& a, Expr& b) {
  if (a.kind != ExprKind::column || !is_number_literal(b) || b.type.base != SqlType::int32) return;
  const Table* table = a.source->table;
  if (a.column->type == SqlType::bit || (table != nullptr && table->has_index_of_zeros(*a.column))) pin(b);
}

std::int64_t Binder::pin(Expr& literal) {
  std::int64_t number = 0;
  for (char c : literals_[literal.ordinal].raw) number = number * 10 + (c - '0');
  if (literal.inverted) number = -number;
  pinned_.push_back(literal.ordinal);
  literal.pinned = number;
  return number;
}

void Binder::bind_compared(Expr& e, Scope& scope) {
  for (auto& a : e.args) value(*a, scope);
  for (std::size_t i = 1; i < e.args.size(); ++i) {
    require_comparable(*e.args[0], *e.args[i]);
    pin_compared(*e.args[0], *e.args[i]);
    if (e.kind == ExprKind::compare) pin_compared(*e.args[i], *e.args[0]);
  }
  e.type.predicate = true;
}

void Binder::bind_case(Expr& e, Scope& scope) {
  Type type{};
  for (std::size_t i = 0; i < e.args.size(); ++i) {
    bool is_condition = i % 2 == 0 && i + 1 < e.args.size();
    if (is_condition) {
      condition(*e.args[i], scope);
    } else {
      value(*e.args[i], scope);
      type = common_type(type, e.args[i]->type);
    }
  }
  e.type = type.known ? type : value_type(SqlType::int32);
}

void Binder::bind_subquery(Expr& e, Scope& scope) {
  for (auto& a : e.args) value(*a, scope);
  bind_select(*e.select, &scope);
  if (e.kind == ExprKind::exists) {
    e.type.predicate = true;
    return;
  }
  if (e.select->types.size() != 1) fail("A subconsulta tem de ter uma só coluna", e.position);
  if (e.kind == ExprKind::in_select) {
    e.type.predicate = true;
  } else {
    e.type = e.select->types.front();
  }
}

void Binder::bind_cast(Expr& e, Scope& scope) {
  value(*e.args[0], scope);
  e.type = e.target;
  const Type& from = e.args[0]->type;
  if (!from.known) return;
  bool date_and_number = (from.base == SqlType::date && is_number(e.target.base)) ||
                         (e.target.base == SqlType::date && is_number(from.base));
  if (date_and_number) fail("Conversão não suportada entre data e número", e.position);
}

void Binder::bind_call(Expr& e, Scope& scope) {
  for (auto& a : e.args) value(*a, scope);
  const Type& first = e.args[0]->type;
  switch (e.function) {
    case Function::round:
      if (first.known && first.base == SqlType::date) fail("Round pede um número", e.position);
      if (!is_number_literal(*e.args[1]) || e.args[1]->type.base != SqlType::int32) {
        fail("Round pede a quantidade de decimais como número inteiro", e.args[1]->position);
      }
      pin(*e.args[1]);
      e.type = first.known && first.base != SqlType::text ? value_type(first.base) : value_type(SqlType::float64);
      if (is_integer(e.type.base)) e.type = value_type(SqlType::int32);
      return;
    case Function::is_null:
      e.type = first.known ? first : e.args[1]->type;
      return;
    case Function::substring:
      for (std::size_t i = 1; i < 3; ++i) {
        if (e.args[i]->type.known && !is_integer(e.args[i]->type.base))
          fail("Substring pede números inteiros", e.position);
      }
      e.type = value_type(SqlType::text, first.width);
      return;
    default:
      e.type = value_type(SqlType::text, first.width);
  }
}

void Binder::bind_aggregate(Expr& e, Scope& scope) {
  if (!scope.aggregates_allowed) fail("Função de agregação fora da lista de colunas e de HAVING", e.position);
  if (scope.in_aggregate) fail("Função de agregação dentro de outra", e.position);
  scope.has_aggregate = true;
  scope.in_aggregate = true;
  for (auto& a : e.args) value(*a, scope);
  scope.in_aggregate = false;
  if (e.function == Function::count || e.function == Function::count_rows) {
    e.type = value_type(SqlType::int32);
    return;
  }
  const Type& of = e.args[0]->type;
  if (of.known && of.base == SqlType::bit) fail("A função não aceita uma coluna bit", e.position);
  if (e.function == Function::min || e.function == Function::max) {
    e.type = of;
    return;
  }
  if (of.known && !is_number(of.base)) fail("A função pede um número", e.position);
  e.type = value_type(is_float(of.base) ? SqlType::float64 : of.base);
  if (is_integer(e.type.base)) e.type = value_type(SqlType::int32);
}

// --- grouping
// -----------------------------------------------------------------------------------------------------------

void Binder::check_grouping(const SelectCore& core, const Scope& scope) {
  for (const SelectItem& item : core.items) require_grouped(*item.expr, core, scope);
  if (core.having) require_grouped(*core.having, core, scope);
}

void Binder::require_grouped(const Expr& e, const SelectCore& core, const Scope& scope) {
  if (e.kind == ExprKind::call && is_aggregate(e.function)) return;
  for (const ExprPtr& g : core.group_by) {
    if (same(*g, e)) return;
  }
  if (e.kind == ExprKind::column) {
    bool own = std::find(scope.sources.begin(), scope.sources.end(), e.source) != scope.sources.end();
    if (own) fail("A coluna '" + e.name + "' não está em GROUP BY nem numa função de agregação", e.position);
  }
  for (const ExprPtr& a : e.args) require_grouped(*a, core, scope);
  if (e.select) each_expression(*e.select, [&](const Expr& inner) { require_grouped(inner, core, scope); });
}

bool Binder::same(const Expr& a, const Expr& b) {
  if (a.kind != b.kind || a.args.size() != b.args.size() || a.select || b.select) return false;
  switch (a.kind) {
    case ExprKind::column:
      return a.source == b.source && a.column == b.column;
    case ExprKind::literal:
      pinned_.insert(pinned_.end(), {a.ordinal, b.ordinal});
      if (a.inverted != b.inverted || literals_[a.ordinal].raw != literals_[b.ordinal].raw) return false;
      if (a.same_as == 0) a.same_as = b.same_as > 0 ? b.same_as : b.ordinal + 1;
      b.same_as = a.same_as;
      return true;
    case ExprKind::marker:
      return false;
    default:
      break;
  }
  if (a.op != b.op || a.function != b.function || a.inverted != b.inverted || a.distinct != b.distinct) return false;
  bool same_cast =
      a.target.base == b.target.base && a.target.width == b.target.width && a.padded == b.padded && a.style == b.style;
  if (!same_cast) return false;
  return std::equal(a.args.begin(), a.args.end(), b.args.begin(),
                    [this](const ExprPtr& x, const ExprPtr& y) { return same(*x, *y); });
}

}  // namespace posto::tsql
