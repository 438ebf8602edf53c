// What a connection remembers beside its database, on every engine.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "posto/tsql/binder.h"
#include "posto/tsql/date_literal.h"
#include "posto/types/variant.h"

namespace posto {

struct EngineSession {
  tsql::DateOrder date_order;
  std::optional<std::int64_t> last_identity;
  std::vector<std::shared_ptr<tsql::TemporaryTable>> temporary_tables;
  std::int32_t command_timeout = 30;  // seconds, 0 for none

  // A temporary table before one of the catalogue.
  const Table* find_table(std::string_view name) const;
  Variant identity() const;
  // Notes the temporary tables that stand when a transaction begins; forgets those of one that was rolled back, and
  // tells whether there were any.
  void transaction_begins() { tables_at_begin_ = temporary_tables.size(); }
  void transaction_committed() { tables_at_begin_.reset(); }
  bool transaction_rolled_back();

 private:
  std::optional<std::size_t> tables_at_begin_;
};

}  // namespace posto
