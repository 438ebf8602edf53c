#include "posto/engines/sqlite/kept_statement.h"

namespace posto::sqlite {

KeptStatement::KeptStatement(tsql::CompiledStatement compiled, const TemporaryTables& temporary, sqlite3* database)
    : compiled_(std::move(compiled)), database_(database) {
  if (compiled_.kind == tsql::StatementKind::select) shape_ = shape_of(compiled_, temporary);
}

sqlite3_stmt* KeptStatement::take() {
  if (!idle_.empty()) {
    sqlite3_stmt* statement = idle_.back().release();
    idle_.pop_back();
    return statement;
  }
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v3(database_, compiled_.text.data(), static_cast<int>(compiled_.text.size()),
                     SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
  return statement;
}

void KeptStatement::give_back(sqlite3_stmt* statement) {
  sqlite3_reset(statement);
  idle_.emplace_back(statement);
}

}  // namespace posto::sqlite
