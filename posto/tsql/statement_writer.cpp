#include "posto/tsql/statement_writer.h"

#include <algorithm>

#include "posto/tsql/types.h"

namespace posto::tsql {
namespace {

// Whether a written statement works out values: a function of ours may refuse one, a figure may outgrow its column.
bool calculates(std::string_view text) {
  static constexpr std::string_view kMarks[] = {"posto_", " + ", " - ", " * ", "(-", "sum("};
  return std::any_of(std::begin(kMarks), std::end(kMarks),
                     [&](auto m) { return text.find(m) != std::string_view::npos; });
}

// Whether a term holds an aggregate, or a subquery, which stays where it was written.
bool aggregates(const Expr& e) {
  if (e.select || (e.kind == ExprKind::call && is_aggregate(e.function))) return true;
  return std::any_of(e.args.begin(), e.args.end(), [](const ExprPtr& a) { return aggregates(*a); });
}

// A term of HAVING that names only grouped columns holds for a whole group or for none of its rows: told of the rows,
// it can use an index.
void split_having(const Expr& e, const SelectCore& core, std::vector<const Expr*>& rows,
                  std::vector<const Expr*>& groups) {
  if (e.kind == ExprKind::logic && e.op == Op::and_) {
    for (const ExprPtr& term : e.args) split_having(*term, core, rows, groups);
  } else {
    (core.group_by.empty() || aggregates(e) ? groups : rows).push_back(&e);
  }
}

}  // namespace

CompiledStatement StatementWriter::run(const Statement& s) {
  CompiledStatement c;
  c.kind = s.kind;
  if (s.target) c.target = s.target->table;
  switch (s.kind) {
    case StatementKind::select:
      select(*s.select, s.select->types, false);
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
      out_ = create_temporary(*s.target->table);
      break;
    case StatementKind::drop_table:
      put("DROP TABLE {}", quoted_name(s.target->table->name));
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

// --- selects ---

void StatementWriter::select(const Select& s, const std::vector<Type>& wanted, bool one_row) {
  const bool compound = s.parts.size() > 1;
  const bool ordered = std::any_of(s.order_by.begin(), s.order_by.end(), [](const auto& i) { return i.output > 0; });
  list(s.parts, s.unique ? " UNION " : " UNION ALL ", [&](const SelectCore& core) {
    bool wrapped = compound && core.top;
    if (wrapped) out_ += "SELECT * FROM (";
    this->core(core, wanted, core.distinct || s.unique || (ordered && outputs_compare()), one_row);
    if (wrapped) put(" LIMIT {}) AS \"$part\"", *core.top);
  });
  order_by(s, wanted);
  if (!compound && s.parts.front().top) put(" LIMIT {}", *s.parts.front().top);
}

void StatementWriter::core(const SelectCore& core, const std::vector<Type>& wanted, bool comparable, bool one_row) {
  out_ += "SELECT ";
  if (core.distinct && !one_row) out_ += "DISTINCT ";
  std::size_t i = 0;
  list(core.items, ", ", [&](const SelectItem& item) {
    if (one_row) out_ += core.distinct ? "posto_single(DISTINCT " : "posto_single(";
    value_as(*item.expr, wanted[i]);
    if (one_row) out_ += ')';
    if (comparable && wanted[i].base == SqlType::text && !is_text_column(*item.expr)) collate();
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

void StatementWriter::conditions(std::string_view word, const std::vector<const Expr*>& terms) {
  if (terms.empty()) return;
  out_ += word;
  list(terms, " AND ", [&](const Expr* term) { condition(*term); });
}

void StatementWriter::sorted(const Expr& e) {
  value(e);
  if (e.type.known && e.type.base == SqlType::text && !is_text_column(e)) collate();
}

void StatementWriter::order_by(const Select& s, const std::vector<Type>& wanted) {
  if (s.order_by.empty()) return;
  out_ += " ORDER BY ";
  list(s.order_by, ", ", [&](const OrderItem& item) {
    order_item(s, wanted, item);
    if (item.descending) out_ += " DESC";
    out_ += null_order(item.descending);
  });
}

void StatementWriter::order_item(const Select& s, const std::vector<Type>& wanted, const OrderItem& item) {
  const bool becomes_another = item.output > 0 && wanted[item.output - 1].base != s.types[item.output - 1].base;
  if (becomes_another && s.parts.size() == 1) {
    sorted(*s.parts.front().items[item.output - 1].expr);
  } else if (item.output > 0) {
    put("{}", item.output);
    if (s.types[item.output - 1].base == SqlType::text && !outputs_compare()) collate();
  } else if (item.expr->kind == ExprKind::literal) {
    out_ += "NULL";  // a constant orders nothing, and a number here would be a position
  } else {
    sorted(*item.expr);
  }
}

void StatementWriter::from(const From& f, bool right_side) {
  if (f.source) return source(*f.source);
  static constexpr std::string_view kWords[] = {" INNER JOIN ", " LEFT JOIN ", " RIGHT JOIN ", " FULL JOIN ",
                                                " CROSS JOIN "};
  if (right_side) out_ += '(';
  // Turned round it is a left join, which a database makes an inner one where a condition allows it.
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

void StatementWriter::source(const Source& s) {
  reads_.push_back(s.table);
  put_name(s.table->name);
  if (s.written != s.table->name) {
    out_ += " AS ";
    put_name(s.written);
  }
}

// --- writing statements ---

void StatementWriter::insert(const Statement& s) {
  const Table& table = *s.target->table;
  out_ += "INSERT INTO ";
  put_name(table.name);
  out_ += " (";
  list(s.target_columns, ", ", [&](const Column* c) { put_name(c->name); });
  out_ += ") ";
  if (s.select) {
    std::vector<Type> wanted;
    for (const Column* c : s.target_columns) wanted.push_back(value_type(c->type, c->width));
    select(*s.select, wanted, false);
  } else {
    out_ += "VALUES (";
    std::size_t i = 0;
    list(s.values, ", ", [&](const ExprPtr& e) { assigned(*e, table, *s.target_columns[i++]); });
    out_ += ')';
  }
  returning(s);
}

void StatementWriter::assigned(const Expr& e, const Table& table, const Column& column) {
  std::size_t before = parameters_.size();
  value_as(e, value_type(column.type, column.width));
  for (std::size_t i = before; i < parameters_.size() && e.kind == ExprKind::literal; ++i) {
    parameters_[i].table = &table;
    parameters_[i].column = &column;
  }
}

void StatementWriter::update(const Statement& s) {
  const Table& table = *s.target->table;
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

void StatementWriter::remove(const Statement& s) {
  out_ += "DELETE FROM ";
  put_name(s.target->table->name);
  where(s.where);
}

void StatementWriter::where(const ExprPtr& e) {
  if (!e) return;
  out_ += " WHERE ";
  condition(*e);
}

}  // namespace posto::tsql
