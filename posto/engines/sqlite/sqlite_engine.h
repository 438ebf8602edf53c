// The embedded engine: one file, one computer.
#pragma once

#include <sqlite3.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "posto/engines/dialect_engine.h"
#include "posto/engines/sqlite/kept_statement.h"
#include "posto/engines/sqlite/session.h"

namespace posto::sqlite {

// Every commit is on the disk before it returns (write-ahead log, full synchronisation), and other processes may read
// and write the same file. Only text that the dialect's compiler wrote reaches SQLite.
class SqliteEngine final : public DialectEngine<KeptStatement> {
 public:
  // Opens a file; with `create` makes it when it does not stand there. ":memory:" is a database of its own.
  // Raises 0x80004005.
  SqliteEngine(const std::string& path, std::int32_t timeout_seconds, bool create);
  ~SqliteEngine() override;

  std::string_view name() const override { return "SQLite"; }
  std::string explain(std::string_view statement) override;
  void begin() override;
  void commit() override;
  void rollback() override;
  bool in_transaction() const override { return sqlite3_get_autocommit(database_) == 0; }
  void set_command_timeout(std::int32_t seconds) override;
  void create_schema() override;

 private:
  class RunningCursor;

  const EngineSession& session() const override { return session_; }
  std::shared_ptr<Batch> compile(std::string_view batch, const tsql::Shape& shape) override;
  std::int64_t run_writing(KeptStatement& statement, std::string_view text, Markers markers) override;
  std::unique_ptr<RowStream> start(const std::shared_ptr<Batch>& batch, KeptStatement& statement, std::string_view text,
                                   Markers markers) override;
  void set_date_order(tsql::DateOrder order) override { session_.date_order = order; }
  // `at_once`: the statement is over before the texts of the batch and of the markers go.
  void bind(sqlite3_stmt* prepared, const tsql::CompiledStatement& statement, std::string_view text, Markers markers,
            bool at_once);
  void bind_value(sqlite3_stmt* prepared, int place, const tsql::Parameter& parameter, tsql::BoundValue& value,
                  bool at_once);
  void run_own(const char* sql);
  void require_transaction() const;
  // Raises SQLite's last failure, met by `statement`.
  [[noreturn]] void fail(std::string_view statement);
  void forget_rolled_back_tables();

  sqlite3* database_ = nullptr;
  Session session_;
  std::vector<RunningCursor*> running_;
  std::string spare_text_;                        // memory for the text of the next cursor
  std::vector<std::array<char, 24>> date_texts_;  // dates of the statement under way, by their place
};

}  // namespace posto::sqlite
