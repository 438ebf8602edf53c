// Sums that a statement gives in parts: one row a group.
#pragma once

#include <string_view>

#include "posto/ado/recordset.h"
#include "posto/types/currency.h"

namespace posto {

// A column of all rows added up; a null counts for nothing, no row gives 0.
inline Currency sum_of_rows(Recordset rows, std::string_view column) {
  Currency sum;
  for (; !rows.EOF(); rows.MoveNext()) sum += rows[column].value_or(Currency());
  return sum;
}

}  // namespace posto
