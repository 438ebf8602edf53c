// The engine on a PostgreSQL server: several computers, several stations.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "posto/engines/engine.h"
#include "posto/engines/postgres/kept_statement.h"
#include "posto/engines/postgres/link.h"
#include "posto/engines/session.h"

namespace posto::postgres {

// Only text that the dialect's compiler wrote reaches the server, prepared there once a shape. The rows of a select are
// read as they are asked for, until another statement runs. A statement that fails in a transaction changes nothing and
// the transaction goes on: a savepoint stands behind each that wrote.
class PostgresEngine final : public Engine, public std::enable_shared_from_this<PostgresEngine> {
 public:
  // Opens the database of a URI ("postgresql://user@host/database"); without `empty` it must hold a station's tables.
  // Raises 0x80004005.
  PostgresEngine(const std::string& uri, std::int32_t timeout_seconds, bool empty);

  std::string_view name() const override { return "PostgreSQL"; }
  Outcome execute(std::string_view batch) override;
  std::shared_ptr<PreparedStatement> prepare(std::string_view statement) override;
  std::string explain(std::string_view statement) override;
  Variant last_identity() const override { return session_.identity(); }
  void begin() override;
  void commit() override;
  void rollback() override;
  bool in_transaction() const override { return in_transaction_; }
  void set_command_timeout(std::int32_t seconds) override;
  void set_observer(StatementObserver observer) override { observer_ = std::move(observer); }
  void create_schema() override;

 private:
  using Batch = KeptBatch<KeptStatement>;
  class RunningCursor;
  class Prepared;

  std::shared_ptr<Batch> compile(std::string_view batch, const tsql::Shape& shape);
  std::shared_ptr<Batch> compiled(std::string_view batch);
  Outcome run(const std::shared_ptr<Batch>& batch, std::string_view text, std::span<const Variant* const> markers);
  std::int64_t run_writing(KeptStatement& statement, std::string_view text, std::span<const Variant* const> markers);
  void bind(const tsql::CompiledStatement& statement, std::string_view text, std::span<const Variant* const> markers,
            Values& values);
  // Queues a statement behind what the session owes the server. Returns how many commands that was.
  std::size_t send(KeptStatement& statement, Values& values);
  std::size_t send_owed();
  void run_own(std::initializer_list<const char*> commands);
  // Behind a failure: the transaction goes on where it stood before the statement.
  void recover();
  void require_transaction() const;
  bool holds_a_station();

  Link link_;
  EngineSession session_;
  StatementCache<KeptStatement> cache_;
  tsql::Shape shape_;  // of the text under way; keeps its memory
  Values values_;
  RunningCursor* streaming_ = nullptr;  // whose rows are still coming
  bool in_transaction_ = false;
  bool settings_sent_ = false;
  std::int64_t statements_ = 0;  // prepared so far
  std::shared_ptr<Discarded> discarded_ = std::make_shared<Discarded>();
  StatementObserver observer_;
};

}  // namespace posto::postgres
