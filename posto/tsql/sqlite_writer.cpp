#include "posto/tsql/sqlite_writer.h"

#include <algorithm>

#include "posto/tsql/sqlite_ddl.h"
#include "posto/tsql/statement_writer.h"
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

class SqliteWriter final : public StatementWriter {
 private:
  void place(std::size_t number) override {
    constexpr std::size_t kMostNumbered = 999;  // SQLite is slow with thousands of numbers
    out_ += '?';
    if (number <= kMostNumbered) put("{}", number);
  }
  std::string_view collation() const override { return " COLLATE posto"; }
  std::string_view null_order(bool) const override { return {}; }
  bool outputs_compare() const override { return false; }
  std::string create_temporary(const Table& table) const override { return sqlite_create_table(table, true); }

  // Money is written as its count of ten-thousandths, a bit as 0 or 1.
  void met_by_few(const Inner& inner) override { wrapped("likelihood(", inner, ", 0.01)"); }
  void to_bit(const Inner& inner) override { wrapped("(", inner, " <> 0)"); }
  void integer_to_money(const Inner& inner) override { wrapped("(", inner, " * 10000)"); }
  void money_to_float(const Inner& inner) override { wrapped("(", inner, " / 10000.0)"); }
  void text_of(const Type& from, std::uint16_t width, bool padded, int style, const Inner& inner) override {
    out_ += "posto_text(";
    inner();
    put(", {}, {}, {}, {})", static_cast<int>(from.base), width, padded ? 1 : 0, style);
  }
  void exact_average(const Expr& e) override {
    aggregate("(sum", e, e.type);
    aggregate(" / count", e, e.type);
    out_ += ')';
  }

  // A second row is a failure; SQLite would take the first.
  void single_value(const Select& s, const std::vector<Type>& wanted) override {
    const SelectCore& core = s.parts.front();
    bool one_at_most = s.parts.size() == 1 && ((core.grouped && core.group_by.empty()) || core.top.value_or(2) <= 1);
    bool plain_rows = s.parts.size() == 1 && !core.grouped && !core.top;
    if (one_at_most || plain_rows) return select(s, wanted, !one_at_most);
    out_ += "SELECT posto_single(v) FROM (SELECT NULL AS v WHERE 0 UNION ALL SELECT * FROM (";
    select(s, wanted, false);
    out_ += "))";
  }

  void update(const Statement& s) override {
    const Table& table = *s.target->table;
    bool reads_itself = std::any_of(s.assignments.begin(), s.assignments.end(),
                                    [&](const Assignment& a) { return reads(*a.value, table); });
    reads_itself ? update_from_snapshot(s) : StatementWriter::update(s);
  }

  // The new values are all worked out before the first row changes.
  void update_from_snapshot(const Statement& s) {
    const Table& table = *s.target->table;
    std::vector<std::string> keys;
    for (const Column& c : table.columns) {
      if (c.key) keys.push_back(quoted_name(c.name));
    }
    if (keys.empty()) keys.emplace_back("rowid");
    const std::string name = quoted_name(table.name);
    out_ += "UPDATE " + name + " SET ";
    std::size_t n = 0;
    list(s.assignments, ", ", [&](const Assignment& a) { put("{} = \"$new\".v{}", quoted_name(a.column->name), ++n); });
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
};

}  // namespace

CompiledStatement write_sqlite(const Statement& statement) { return SqliteWriter().run(statement); }

}  // namespace posto::tsql
