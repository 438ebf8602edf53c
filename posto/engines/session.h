// What a connection remembers beside its database, on every engine.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "posto/tsql/compiled.h"
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
  // Keeps up with the temporary tables behind a statement that ran. True where one is gone: what was compiled before
  // may point to it.
  bool drops_table(const tsql::CompiledStatement& ran);
  // Notes the temporary tables that stand when a transaction begins; goes back to them when it was rolled back, and
  // tells whether there were others.
  void transaction_begins() { tables_at_begin_ = temporary_tables; }
  void transaction_committed() { tables_at_begin_.reset(); }
  bool transaction_rolled_back();

 private:
  std::optional<std::vector<std::shared_ptr<tsql::TemporaryTable>>> tables_at_begin_;
};

}  // namespace posto
