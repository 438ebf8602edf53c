// The engine on a PostgreSQL server: several computers, several stations.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "posto/engines/dialect_engine.h"
#include "posto/engines/postgres/kept_statement.h"
#include "posto/engines/postgres/link.h"

namespace posto::postgres {

// Only text that the dialect's compiler wrote reaches the server, prepared there once a shape. The rows of a select are
// read as they are asked for, until another statement runs. A statement that fails in a transaction changes nothing and
// the transaction goes on: a savepoint stands behind each that wrote.
class PostgresEngine final : public DialectEngine<KeptStatement> {
 public:
  // Opens the database of a URI ("postgresql://user@host/database"); without `empty` it must hold a station's tables.
  // Raises 0x80004005.
  PostgresEngine(const std::string& uri, std::int32_t timeout_seconds, bool empty);

  std::string_view name() const override { return "PostgreSQL"; }
  std::string explain(std::string_view statement) override;
  void begin() override;
  void commit() override;
  void rollback() override;
  bool in_transaction() const override { return in_transaction_; }
  void set_command_timeout(std::int32_t seconds) override;
  void create_schema() override;

 private:
  class RunningCursor;

  const EngineSession& session() const override { return session_; }
  std::shared_ptr<Batch> compile(std::string_view batch, const tsql::Shape& shape) override;
  std::int64_t run_writing(KeptStatement& statement, std::string_view text, Markers markers) override;
  std::unique_ptr<RowStream> start(const std::shared_ptr<Batch>& batch, KeptStatement& statement, std::string_view text,
                                   Markers markers) override;
  void set_date_order(tsql::DateOrder order) override;
  void bind(const tsql::CompiledStatement& statement, std::string_view text, Markers markers, Values& values);
  // Queues a statement behind what the session owes the server. Returns how many commands that was.
  std::size_t send(KeptStatement& statement, Values& values, std::string_view text);
  void require_prepared(KeptStatement& statement, std::string_view text);
  std::size_t send_owed();
  // The rows of the cursor that is under way, so that the connection is free.
  void take_rows_in();
  std::vector<Result> run_own(std::initializer_list<const char*> commands);
  // The answers to what is queued; recovers from a failure and raises it.
  std::vector<Result> finish(std::string_view text);
  // Behind a failure: the transaction goes on where it stood before the statement, or has ended with the connection.
  void recover(bool connection_good);
  void recover(const Erro& failure) { recover(!failure.provider() || failure.provider()->connection_good); }
  void require_transaction() const;
  void forget_transaction();  // that was rolled back
  bool holds_a_station();

  Link link_;
  EngineSession session_;
  Values values_;
  RunningCursor* streaming_ = nullptr;  // whose rows are still coming
  bool in_transaction_ = false;
  bool settings_sent_ = false;
  std::int64_t statements_ = 0;  // prepared so far
  std::shared_ptr<Discarded> discarded_ = std::make_shared<Discarded>();
};

}  // namespace posto::postgres
