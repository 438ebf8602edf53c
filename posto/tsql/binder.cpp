#include "posto/tsql/binder.h"

#include <algorithm>

#include "posto/tsql/types.h"
#include "posto/tsql/walk.h"
#include "posto/types/text.h"

namespace posto::tsql {

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
    case StatementKind::drop_table:
      statement.target->table = table_of(*statement.target);
      return;
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

}  // namespace posto::tsql
