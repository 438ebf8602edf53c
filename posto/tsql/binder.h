// Gives the names of a parsed statement their meaning in the catalogue, and every expression its type.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "posto/tsql/ast.h"
#include "posto/tsql/lexer.h"

namespace posto::tsql {

// A table that a statement creates: a Table that owns its names and columns.
class TemporaryTable {
 public:
  TemporaryTable(std::string name, const std::vector<ColumnSpec>& specs);
  const Table& table() const { return table_; }

 private:
  std::string name_;
  std::deque<std::string> column_names_;
  std::vector<Column> columns_;
  Table table_;
};

// Finds a table of the session by its name; null when there is none.
using Catalogue = std::function<const Table*(std::string_view name)>;

class Binder {
 public:
  // `pinned`: literals whose value the compiled form depends on are added to it.
  Binder(std::string_view batch, const std::vector<Literal>& literals, std::vector<std::size_t>& pinned,
         Catalogue catalogue);

  // Raises 0x80040E14 with the position for a name that does not exist or is ambiguous, for types that do not meet, and
  // for a column that is neither grouped nor aggregated.
  void bind(Statement& statement);
  // The tables that the statements bound so far create, in order.
  const std::vector<std::shared_ptr<TemporaryTable>>& created() const { return created_; }

 private:
  // The tables that an expression may name: those of its own FROM, then those around it.
  struct Scope {
    std::vector<Source*> sources;
    Scope* outer = nullptr;
    bool aggregates_allowed = false;
    bool in_aggregate = false;
    bool has_aggregate = false;
  };

  void bind_select(Select& select, Scope* outer);
  void bind_core(SelectCore& core, Scope& scope);
  void bind_from(From& from, Scope& scope);
  void bind_on(From& from, Scope& scope);
  void bind_order(Select& select, Scope& scope);
  void bind_order_name(OrderItem& order, const Select& select) const;
  void require_given(const OrderItem& order, const SelectCore& core);
  void expand_stars(SelectCore& core, const Scope& scope);
  void bind_insert(Statement& statement);
  void bind_update(Statement& statement);
  void bind_remove(Statement& statement);
  void bind_create(Statement& statement);

  void condition(Expr& e, Scope& scope);
  void value(Expr& e, Scope& scope);
  void any(Expr& e, Scope& scope);
  void bind_column(Expr& e, Scope& scope);
  void bind_call(Expr& e, Scope& scope);
  void bind_aggregate(Expr& e, Scope& scope);
  void bind_compared(Expr& e, Scope& scope);
  void bind_case(Expr& e, Scope& scope);
  void bind_subquery(Expr& e, Scope& scope);
  void bind_cast(Expr& e, Scope& scope);
  void require_comparable(const Expr& a, const Expr& b);
  void pin_compared(const Expr& a, Expr& b);
  std::int64_t pin(Expr& literal);

  void check_grouping(const SelectCore& core, const Scope& scope);
  void require_grouped(const Expr& e, const SelectCore& core, const Scope& scope);
  // Whether two expressions always have one value; literals whose value this depends on are pinned.
  bool same(const Expr& a, const Expr& b);

  void add_source(Source& source, Scope& scope);
  const Table* table_of(const Source& source);
  const Column* column_of(const Table& table, const std::string& name, std::size_t position);
  [[noreturn]] void fail(const std::string& what, std::size_t position) const { raise_syntax(batch_, position, what); }

  std::string_view batch_;
  const std::vector<Literal>& literals_;
  std::vector<std::size_t>& pinned_;
  Catalogue catalogue_;
  std::vector<std::shared_ptr<TemporaryTable>> created_;
  std::unordered_set<std::string> written_names_;  // of the statement under way, in lower case
};

}  // namespace posto::tsql
