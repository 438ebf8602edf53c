#include "posto/tsql/binder.h"

#include <algorithm>

#include "posto/tsql/types.h"
#include "posto/tsql/walk.h"
#include "posto/types/text.h"

namespace posto::tsql {

// The tables that an expression may name: those of its own FROM, then those around it.
struct Binder::Scope {
  std::vector<Source*> sources;
  Scope* outer = nullptr;
  bool aggregates_allowed = false;
  bool in_aggregate = false;
  bool has_aggregate = false;
};

TemporaryTable::TemporaryTable(std::string name, const std::vector<ColumnSpec>& specs) : name_(std::move(name)) {
  for (const ColumnSpec& spec : specs) {
    const std::string& column = column_names_.emplace_back(spec.name);
    columns_.push_back({.name = column,
                        .type = spec.type.base,
                        .width = spec.type.width,
                        .key = spec.key,
                        .identity = spec.identity,
                        .nullable = spec.nullable});
  }
  table_ = {.name = name_, .columns = columns_, .indexes = {}};
}

Binder::Binder(std::string_view batch, const std::vector<Literal>& literals, std::vector<std::size_t>& pinned,
               Catalogue catalogue)
    : batch_(batch), literals_(literals), pinned_(pinned), catalogue_(std::move(catalogue)) {}

void Binder::bind(Statement& statement) {
  written_names_.clear();
  switch (statement.kind) {
    case StatementKind::select:
      return bind_select(*statement.select, nullptr);
    case StatementKind::insert:
      return bind_insert(statement);
    case StatementKind::update:
      return bind_update(statement);
    case StatementKind::remove:
      return bind_remove(statement);
    case StatementKind::create_table:
      return bind_create(statement);
    case StatementKind::set_date_format:
      return;
  }
}

// --- tables and columns
// -------------------------------------------------------------------------------------------------

const Table* Binder::table_of(const Source& source) {
  for (const auto& temporary : created_) {
    if (equal_names(temporary->table().name, source.name)) return &temporary->table();
  }
  const Table* table = catalogue_(source.name);
  if (table == nullptr) fail("Nome de objeto inválido '" + source.name + "'", source.position);
  return table;
}

const Column* Binder::column_of(const Table& table, const std::string& name, std::size_t position) {
  const Column* column = table.find(name);
  if (column == nullptr) fail("Nome de coluna inválido '" + name + "'", position);
  return column;
}

void Binder::add_source(Source& source, Scope& scope) {
  source.table = table_of(source);
  const std::string shown = source.alias.empty() ? std::string(source.table->name) : source.alias;
  for (const Source* other : scope.sources) {
    if (equal_names(other->alias.empty() ? other->table->name : other->alias, shown)) {
      fail("O nome '" + shown + "' está repetido na cláusula FROM", source.position);
    }
  }
  source.written = shown;
  for (int n = 2; !written_names_.insert(ascii_lower(source.written)).second; ++n) {
    source.written = shown + "_" + std::to_string(n);
  }
  scope.sources.push_back(&source);
}

void Binder::bind_column(Expr& e, Scope& scope) {
  for (Scope* s = &scope; s != nullptr; s = s->outer) {
    for (Source* source : s->sources) {
      if (!e.qualifier.empty()) {
        std::string_view shown = source->alias.empty() ? source->table->name : std::string_view(source->alias);
        if (!equal_names(shown, e.qualifier)) continue;
        e.source = source;
        e.column = column_of(*source->table, e.name, e.position);
        break;
      }
      const Column* column = source->table->find(e.name);
      if (column == nullptr) continue;
      if (e.source != nullptr) fail("Nome de coluna ambíguo '" + e.name + "'", e.position);
      e.source = source;
      e.column = column;
    }
    if (e.source != nullptr) {
      e.type = value_type(e.column->type, e.column->width);
      return;
    }
  }
  if (!e.qualifier.empty()) fail("O prefixo '" + e.qualifier + "' não é uma tabela do comando", e.position);
  fail("Nome de coluna inválido '" + e.name + "'", e.position);
}

// --- statements
// ---------------------------------------------------------------------------------------------------------

void Binder::bind_select(Select& select, Scope* outer) {
  Scope first;
  for (std::size_t i = 0; i < select.parts.size(); ++i) {
    Scope scope{.sources = {}, .outer = outer};
    bind_core(select.parts[i], scope);
    const auto& items = select.parts[i].items;
    if (i == 0) {
      for (const SelectItem& item : items) select.types.push_back(item.expr->type);
      first = std::move(scope);
      continue;
    }
    if (items.size() != select.types.size()) {
      fail("Os comandos unidos por UNION têm quantidades diferentes de colunas", items.front().position);
    }
    for (std::size_t c = 0; c < items.size(); ++c) select.types[c] = common_type(select.types[c], items[c].expr->type);
  }
  for (Type& type : select.types) {
    if (!type.known) type = value_type(SqlType::int32);  // a column of nothing but NULL
  }
  bind_order(select, first);
}

void Binder::bind_core(SelectCore& core, Scope& scope) {
  for (auto& from : core.from) bind_from(*from, scope);
  for (auto& from : core.from) bind_on(*from, scope);
  if (core.where) condition(*core.where, scope);
  for (auto& e : core.group_by) value(*e, scope);
  expand_stars(core, scope);
  scope.aggregates_allowed = true;
  for (SelectItem& item : core.items) value(*item.expr, scope);
  if (core.having) condition(*core.having, scope);
  core.grouped = scope.has_aggregate || core.having || !core.group_by.empty();
  if (core.grouped) check_grouping(core, scope);
}

void Binder::bind_from(From& from, Scope& scope) {
  if (from.source) return add_source(*from.source, scope);
  bind_from(*from.left, scope);
  bind_from(*from.right, scope);
}

void Binder::bind_on(From& from, Scope& scope) {
  if (from.source) return;
  bind_on(*from.left, scope);
  bind_on(*from.right, scope);
  if (from.on) condition(*from.on, scope);
}

void Binder::expand_stars(SelectCore& core, const Scope& scope) {
  std::vector<SelectItem> expanded;
  for (SelectItem& item : core.items) {
    if (item.expr) {
      expanded.push_back(std::move(item));
      continue;
    }
    bool found = false;
    for (Source* source : scope.sources) {
      std::string_view shown = source->alias.empty() ? source->table->name : std::string_view(source->alias);
      if (!item.star_of.empty() && !equal_names(shown, item.star_of)) continue;
      found = true;
      for (const Column& column : source->table->columns) {
        SelectItem one;
        one.position = item.position;
        one.expr = std::make_unique<Expr>();
        one.expr->kind = ExprKind::column;
        one.expr->position = item.position;
        one.expr->qualifier = shown;
        one.expr->name = column.name;
        expanded.push_back(std::move(one));
      }
    }
    if (!found) {
      fail(item.star_of.empty() ? "Falta a cláusula FROM"
                                : "O prefixo '" + item.star_of + "' não é uma tabela do comando",
           item.position);
    }
  }
  core.items = std::move(expanded);
}

void Binder::bind_order(Select& select, Scope& scope) {
  const SelectCore& core = select.parts.front();
  for (OrderItem& order : select.order_by) {
    if (order.output == 0) bind_order_name(order, select);
    if (order.output > core.items.size()) {
      fail("A posição de ordenação está fora da lista de colunas", core.items.front().position);
    }
    if (order.output > 0) continue;
    if (select.parts.size() > 1) fail("Com UNION ordena-se por colunas do resultado", order.expr->position);
    value(*order.expr, scope);
    if (core.grouped || scope.has_aggregate) require_grouped(*order.expr, core, scope);
    if (core.distinct) require_given(order, core);
  }
}

// A bare name is an output column before it is a column of a table.
void Binder::bind_order_name(OrderItem& order, const Select& select) const {
  Expr& name = *order.expr;
  if (name.kind != ExprKind::column || !name.qualifier.empty()) return;
  const auto& items = select.parts.front().items;
  for (std::size_t i = 0; i < items.size(); ++i) {
    const Expr& given = *items[i].expr;
    bool own_name = items[i].alias.empty() && given.kind == ExprKind::column && equal_names(given.name, name.name);
    if (own_name && select.parts.size() == 1) {
      name.qualifier = given.source->alias.empty() ? given.source->table->name : std::string_view(given.source->alias);
      return;
    }
    if (own_name || equal_names(items[i].alias, name.name)) {
      order.output = i + 1;
      return;
    }
  }
}

void Binder::require_given(const OrderItem& order, const SelectCore& core) {
  for (const SelectItem& item : core.items) {
    if (same(*item.expr, *order.expr)) return;
  }
  fail("Com DISTINCT ordena-se por colunas do resultado", order.expr->position);
}

void Binder::bind_insert(Statement& s) {
  Scope none;
  s.target->table = table_of(*s.target);
  const Table& table = *s.target->table;
  if (s.columns.empty()) {
    for (const Column& c : table.columns) {
      if (!c.identity) s.target_columns.push_back(&c);
    }
  }
  for (std::size_t i = 0; i < s.columns.size(); ++i) {
    const Column* column = column_of(table, s.columns[i], s.column_positions[i]);
    if (std::find(s.target_columns.begin(), s.target_columns.end(), column) != s.target_columns.end()) {
      fail("A coluna '" + s.columns[i] + "' está repetida", s.column_positions[i]);
    }
    s.target_columns.push_back(column);
  }
  if (s.select) bind_select(*s.select, nullptr);
  for (auto& v : s.values) value(*v, none);
  std::size_t given = s.select ? s.select->types.size() : s.values.size();
  if (given != s.target_columns.size()) {
    fail("O comando INSERT tem " + std::to_string(s.target_columns.size()) + " colunas e " + std::to_string(given) +
             " valores",
         s.position);
  }
}

void Binder::bind_update(Statement& s) {
  Scope scope;
  add_source(*s.target, scope);
  for (Assignment& a : s.assignments) {
    if (!a.qualifier.empty() && !equal_names(a.qualifier, s.target->table->name)) {
      fail("O prefixo '" + a.qualifier + "' não é a tabela do comando", a.position);
    }
    a.column = column_of(*s.target->table, a.name, a.position);
    if (a.column->identity) fail("A coluna '" + a.name + "' é gerada e não pode ser alterada", a.position);
    value(*a.value, scope);
  }
  if (s.where) condition(*s.where, scope);
}

void Binder::bind_remove(Statement& s) {
  Scope scope;
  add_source(*s.target, scope);
  if (s.where) condition(*s.where, scope);
}

void Binder::bind_create(Statement& s) {
  int identities = 0;
  for (const ColumnSpec& spec : s.specs) {
    identities += spec.identity;
    auto same_name = [&](const ColumnSpec& other) { return equal_names(other.name, spec.name); };
    if (std::count_if(s.specs.begin(), s.specs.end(), same_name) > 1) {
      fail("A coluna '" + spec.name + "' está repetida", s.target->position);
    }
    if (spec.identity && spec.type.base != SqlType::int32) {
      fail("A coluna gerada '" + spec.name + "' tem de ser int", s.target->position);
    }
  }
  if (identities > 1) fail("Só uma coluna da tabela pode ser gerada", s.target->position);
  auto temporary = std::make_shared<TemporaryTable>(s.target->name, s.specs);
  s.target->table = &temporary->table();
  created_.push_back(std::move(temporary));
}

// --- expressions
// --------------------------------------------------------------------------------------------------------

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

// What a bit is compared with is part of the form: the database can then use an index over the live or pending rows.
void Binder::pin_bit_comparison(Expr& a, Expr& b) {
  if (a.kind == ExprKind::column && a.column->type == SqlType::bit && is_number_literal(b) &&
      b.type.base == SqlType::int32) {
    pin(b);
  }
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
    pin_bit_comparison(*e.args[0], *e.args[i]);
    if (e.kind == ExprKind::compare) pin_bit_comparison(*e.args[i], *e.args[0]);
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
