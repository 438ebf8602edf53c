// A compiled statement and its prepared forms.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <vector>

#include "posto/engines/statement_cache.h"

namespace posto::sqlite {

// One statement of a batch, prepared as often as it runs at the same time.
class KeptStatement {
 public:
  // `temporary`: tables to which the statement and its results may point.
  KeptStatement(tsql::CompiledStatement compiled, const TemporaryTables& temporary, sqlite3* database);
  KeptStatement(KeptStatement&&) = default;

  const tsql::CompiledStatement& compiled() const { return compiled_; }
  const std::shared_ptr<const ResultShape>& shape() const { return shape_; }
  // A prepared statement that is not running; null, with the database's failure set, when it cannot be prepared.
  sqlite3_stmt* take();
  void give_back(sqlite3_stmt* statement);

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* s) const { sqlite3_finalize(s); }
  };
  tsql::CompiledStatement compiled_;
  std::shared_ptr<const ResultShape> shape_;
  sqlite3* database_;
  std::vector<std::unique_ptr<sqlite3_stmt, Finalize>> idle_;
};

}  // namespace posto::sqlite
