// Writes bound statements in the SQL that the engines have in common.
#pragma once

#include <string>
#include <vector>

#include "posto/tsql/expression_writer.h"

namespace posto::tsql {

// Of one statement.
class StatementWriter : protected ExpressionWriter {
 public:
  CompiledStatement run(const Statement& s);

 protected:
  // --- what engines say differently ---

  // What a term of ORDER BY ends with, so that nulls come first in ascending order.
  virtual std::string_view null_order(bool descending) const = 0;
  // Whether a text is made comparable where it is put out; otherwise where it is ordered by its position.
  virtual bool outputs_compare() const = 0;
  virtual std::string create_temporary(const Table& table) const = 0;
  virtual void update(const Statement& s);
  // Behind an INSERT: gives the generated key back.
  virtual void returning(const Statement&) {}
  void single_value(const Select& s, const std::vector<Type>& wanted) override { select(s, wanted, false); }

  void select(const Select& s, const std::vector<Type>& wanted, bool one_row) override;
  void assigned(const Expr& e, const Table& table, const Column& column);
  void where(const ExprPtr& e);

 private:
  void core(const SelectCore& core, const std::vector<Type>& wanted, bool comparable, bool one_row);
  void conditions(std::string_view word, const std::vector<const Expr*>& terms);
  // A value by which rows are told apart or ordered.
  void sorted(const Expr& e);
  void order_by(const Select& s, const std::vector<Type>& wanted);
  void order_item(const Select& s, const std::vector<Type>& wanted, const OrderItem& item);
  void from(const From& f, bool right_side);
  void source(const Source& s);
  void insert(const Statement& s);
  void remove(const Statement& s);

  std::vector<const Table*> reads_;
};

}  // namespace posto::tsql
