// Visits the parts of a select: its own, not those of the selects inside its expressions.
#pragma once

#include "posto/tsql/ast.h"

namespace posto::tsql {

// Calls `visit(const Source&)` for each table, `visit_on(const Expr&)` for each condition of a join.
template <class Visit, class VisitOn>
void each_source(const From& from, const Visit& visit, const VisitOn& visit_on) {
  if (from.source) return visit(*from.source);
  each_source(*from.left, visit, visit_on);
  each_source(*from.right, visit, visit_on);
  if (from.on) visit_on(*from.on);
}

template <class Visit>
void each_source(const Select& select, const Visit& visit) {
  for (const SelectCore& core : select.parts) {
    for (const auto& from : core.from) each_source(*from, visit, [](const Expr&) {});
  }
}

// Calls `visit(const Expr&)` for each expression of a bound select.
template <class Visit>
void each_expression(const Select& select, const Visit& visit) {
  for (const SelectCore& core : select.parts) {
    for (const SelectItem& item : core.items) visit(*item.expr);
    for (const auto& from : core.from)
      each_source(
          *from, [](const Source&) {}, visit);
    if (core.where) visit(*core.where);
    for (const ExprPtr& e : core.group_by) visit(*e);
    if (core.having) visit(*core.having);
  }
  for (const OrderItem& item : select.order_by) {
    if (item.expr) visit(*item.expr);
  }
}

}  // namespace posto::tsql
