#include "posto/tsql/sqlite_writer.h"

#include <algorithm>

#include "posto/tsql/sqlite_expression_writer.h"
#include "posto/tsql/types.h"
#include "posto/tsql/walk.h"

namespace posto::tsql {
namespace {

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

class Writer final : private SqliteExpressionWriter {
 public:
  CompiledStatement run(const Statement& s) {
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
  // --- selects ---

  // `wanted`: the types that the columns become.
  void select(const Select& s, const std::vector<Type>& wanted, bool one_row) override {
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
  void single_value(const Select& s, const std::vector<Type>& wanted) override {
    const SelectCore& core = s.parts.front();
    bool one_at_most = s.parts.size() == 1 && ((core.grouped && core.group_by.empty()) || core.top.value_or(2) <= 1);
    bool plain_rows = s.parts.size() == 1 && !core.grouped && !core.top;
    if (one_at_most || plain_rows) return select(s, wanted, !one_at_most);
    out_ += "SELECT posto_single(v) FROM (SELECT NULL AS v WHERE 0 UNION ALL SELECT * FROM (";
    select(s, wanted, false);
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
      return select(*s.select, wanted, false);
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

  std::vector<const Table*> reads_;
};

}  // namespace

CompiledStatement write_sqlite(const Statement& statement) { return Writer().run(statement); }

}  // namespace posto::tsql
