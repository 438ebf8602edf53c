#include "posto/engines/postgres/postgres_engine.h"

#include <fmt/format.h>

#include <utility>

#include "posto/engines/postgres/failures.h"
#include "posto/engines/postgres/functions.h"
#include "posto/tsql/postgres_writer.h"

namespace posto::postgres {
namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* kSetSavepoint = "SAVEPOINT posto";

std::vector<Oid> types_of(const tsql::CompiledStatement& statement) {
  std::vector<Oid> types;
  for (const tsql::Parameter& p : statement.parameters) types.push_back(type_of(p));
  return types;
}

}  // namespace

PostgresEngine::PostgresEngine(const std::string& uri, std::int32_t timeout_seconds, bool empty)
    : link_(uri, timeout_seconds) {
  run_own({"SELECT set_config('search_path', current_setting('search_path') || ', posto', false)"});
  if (holds_a_station() != empty) return;
  throw Erro(erro::kProviderFailure, "PostgreSQL",
             std::string("O banco ") + PQdb(link_.connection()) + (empty ? " já existe" : " não é um banco do posto"));
}

bool PostgresEngine::holds_a_station() {
  link_.send("SELECT 1 FROM pg_namespace WHERE nspname = 'posto'");
  link_.flush();
  return PQntuples(link_.finish({}).back().get()) > 0;
}

void PostgresEngine::create_schema() { link_.script(creating_script().c_str()); }

// --- rows
// ---------------------------------------------------------------------------------------------------------------

// The rows of a select: from the server as they are asked for; the rest at once where another statement is to run.
class PostgresEngine::RunningCursor final : public RowStream {
 public:
  RunningCursor(std::shared_ptr<PostgresEngine> engine, std::shared_ptr<Batch> batch, KeptStatement& statement,
                Values values, std::string_view text)
      : engine_(std::move(engine)),
        batch_(std::move(batch)),
        statement_(statement),
        values_(std::move(values)),
        text_(text) {}
  ~RunningCursor() override {
    if (engine_->streaming_ == this) give_up();
    if (engine_->observer_) engine_->observer_({text_, statement_.compiled().text, spent_, rows_});
  }

  const ResultShape& shape() const override { return *statement_.shape(); }
  std::shared_ptr<const ResultShape> shared_shape() const override { return statement_.shape(); }

 private:
  void give_up() {
    engine_->streaming_ = nullptr;
    engine_->link_.abandon();
    try {
      engine_->recover(PQstatus(engine_->link_.connection()) == CONNECTION_OK);
    } catch (const Erro&) {
      // The connection is lost: the next statement tells.
    }
  }

  // Nothing is sent before the first row is asked for: a table that is opened to add to it is not read.
  void start() {
    started_ = true;
    engine_->take_rows_in();
    engine_->send(statement_, values_, text_);
    engine_->link_.flush();
    engine_->link_.stream(text_);
    engine_->streaming_ = this;
  }

  bool step(std::span<Cell> row) override {
    if (done_) return false;
    const auto began = Clock::now();
    try {
      if (!started_) start();
      current_ = engine_->link_.next_row(text_);
      spent_ += Clock::now() - began;
      if (current_) {
        ++rows_;
        read_row(current_.get(), 0, shape(), row);
        return true;
      }
    } catch (const Erro& e) {
      // A value that has no room here is a failure behind which rows still come.
      if (engine_->link_.streaming()) engine_->link_.abandon();
      leave();
      engine_->recover(e);
      if (e.provider()) throw;
      throw Erro(e.number(), e.source(), e.description(), {.statement = text_});
    }
    leave();
    return false;
  }

  void leave() {
    done_ = true;
    if (engine_->streaming_ == this) engine_->streaming_ = nullptr;
  }

  std::shared_ptr<PostgresEngine> engine_;
  std::shared_ptr<Batch> batch_;
  KeptStatement& statement_;
  Values values_;
  std::string text_;
  bool started_ = false, done_ = false;
  Result current_;
  std::chrono::nanoseconds spent_{};
  std::int64_t rows_ = 0;
};

// --- running
// ------------------------------------------------------------------------------------------------------------

std::shared_ptr<PostgresEngine::Batch> PostgresEngine::compile(std::string_view batch, const tsql::Shape& shape) {
  return compile_batch<KeptStatement>(batch, shape, session_, tsql::write_postgres,
                                      [this](tsql::CompiledStatement statement, const TemporaryTables& temporary) {
                                        return KeptStatement(std::move(statement), temporary, ++statements_,
                                                             discarded_);
                                      });
}

void PostgresEngine::set_date_order(tsql::DateOrder order) {
  session_.date_order = order;
  settings_sent_ = false;
}

void PostgresEngine::bind(const tsql::CompiledStatement& statement, std::string_view text, Markers markers,
                          Values& values) {
  values.clear();
  told_with(text, [&] {
    each_value(statement, markers,
               [&](const tsql::Parameter& p, const tsql::BoundValue& value) { values.add(p, value); });
  });
}

std::unique_ptr<RowStream> PostgresEngine::start(const std::shared_ptr<Batch>& batch, KeptStatement& statement,
                                                 std::string_view text, Markers markers) {
  Values values;
  bind(statement.compiled(), text, markers, values);
  auto self = std::static_pointer_cast<PostgresEngine>(shared_from_this());
  return std::make_unique<RunningCursor>(std::move(self), batch, statement, std::move(values), text);
}

std::size_t PostgresEngine::send_owed() {
  std::size_t commands = 0;
  if (!settings_sent_) {
    const std::string settings = fmt::format(
        "SELECT set_config('statement_timeout', '{}', false), set_config('posto.date_order', '{}', false)",
        static_cast<std::int64_t>(session_.command_timeout) * 1000, std::string_view(session_.date_order.order, 3));
    link_.send(settings.c_str());
    settings_sent_ = true;
    ++commands;
  }
  for (const std::string& name : *discarded_) {
    link_.send(("DEALLOCATE " + name).c_str());
    ++commands;
  }
  discarded_->clear();
  return commands;
}

// In an exchange of its own, so that a statement that fails is known to be prepared all the same.
void PostgresEngine::require_prepared(KeptStatement& statement, std::string_view text) {
  if (statement.prepared) return;
  link_.send_prepare(statement.name(), statement.compiled().text, types_of(statement.compiled()));
  link_.flush();
  finish(text);
  statement.prepared = true;
}

std::vector<Result> PostgresEngine::finish(std::string_view text) {
  try {
    return link_.finish(text);
  } catch (const Erro& failure) {
    recover(failure);
    throw;
  }
}

std::size_t PostgresEngine::send(KeptStatement& statement, Values& values, std::string_view text) {
  if (values.usual()) require_prepared(statement, text);
  const std::size_t commands = send_owed() + 1;
  values.usual() ? link_.send_run(statement.name(), values) : link_.send_once(statement.compiled().text, values);
  return commands;
}

std::int64_t PostgresEngine::run_writing(KeptStatement& statement, std::string_view text, Markers markers) {
  const tsql::CompiledStatement& compiled = statement.compiled();
  bind(compiled, text, markers, values_);
  take_rows_in();
  const auto started = Clock::now();
  const std::size_t own = send(statement, values_, text) - 1;
  if (in_transaction_) {
    link_.send("RELEASE SAVEPOINT posto");
    link_.send(kSetSavepoint);
  }
  link_.flush();
  std::int64_t rows = 0;
  const std::vector<Result> results = finish(text);
  const PGresult* result = results[own].get();
  if (!tsql::defines_table(compiled.kind)) rows = std::atoll(PQcmdTuples(const_cast<PGresult*>(result)));
  if (compiled.kind == tsql::StatementKind::insert && rows > 0) {
    session_.last_identity.reset();
    const int last = PQntuples(result) - 1;
    if (last >= 0) {
      Cell cell;
      static const ResultShape kNumber({{.name = "identity"}}, nullptr);
      read_row(result, last, kNumber, {&cell, 1});
      session_.last_identity = cell.integer;
    }
  }
  if (session_.drops_table(compiled)) cache_.clear();
  if (observer_) observer_({text, compiled.text, Clock::now() - started, rows});
  return rows;
}

// The plan for whatever values.
std::string PostgresEngine::explain(std::string_view statement) {
  std::string plan;
  const auto batch = compiled(statement);
  take_rows_in();
  for (KeptStatement& kept : batch->statements) {
    const tsql::CompiledStatement& compiled = kept.compiled();
    if (compiled.text.empty() || tsql::defines_table(compiled.kind)) continue;
    require_prepared(kept, statement);
    const std::size_t commands = send_owed();
    link_.send("SELECT set_config('plan_cache_mode', 'force_generic_plan', false)");
    std::string nulls;
    for (std::size_t i = 0; i < compiled.parameters.size(); ++i) nulls += i == 0 ? "(NULL" : ", NULL";
    link_.send(("EXPLAIN (COSTS off) EXECUTE " + kept.name() + (nulls.empty() ? "" : nulls + ")")).c_str());
    link_.send("SELECT set_config('plan_cache_mode', 'auto', false)");
    link_.flush();
    const std::vector<Result> results = finish(statement);
    const PGresult* lines = results[commands + 1].get();
    for (int i = 0; i < PQntuples(lines); ++i) plan += std::string(PQgetvalue(lines, i, 0)) + '\n';
  }
  return plan;
}

void PostgresEngine::set_command_timeout(std::int32_t seconds) {
  if (seconds == session_.command_timeout) return;
  session_.command_timeout = seconds;
  settings_sent_ = false;
}

// --- transactions
// -------------------------------------------------------------------------------------------------------

void PostgresEngine::take_rows_in() {
  if (streaming_ != nullptr) std::exchange(streaming_, nullptr)->read_rest();
}

std::vector<Result> PostgresEngine::run_own(std::initializer_list<const char*> commands) {
  take_rows_in();
  for (const char* command : commands) link_.send(command);
  link_.flush();
  return link_.finish(*commands.begin());
}

void PostgresEngine::recover(bool connection_good) {
  settings_sent_ = false;  // those of a statement that failed are taken back with it
  if (!connection_good) in_transaction_ = false;
  if (in_transaction_) run_own({"ROLLBACK TO SAVEPOINT posto"});
}

// A transaction sees one state of the database, and fails where it would write over what another one wrote since.
void PostgresEngine::begin() {
  if (in_transaction_) throw Erro(erro::kTransactionOpen, "PostgreSQL", "Já há uma transação aberta");
  run_own({"BEGIN ISOLATION LEVEL REPEATABLE READ", kSetSavepoint});
  in_transaction_ = true;
  session_.transaction_begins();
}

void PostgresEngine::require_transaction() const {
  if (!in_transaction_) throw Erro(erro::kNoTransaction, "PostgreSQL", "Não há transação aberta");
}

void PostgresEngine::commit() {
  require_transaction();
  take_rows_in();  // while a failure of theirs does not end the transaction
  in_transaction_ = false;
  std::string done;
  try {
    done = PQcmdStatus(run_own({"COMMIT"}).back().get());
  } catch (const Erro&) {
    forget_transaction();
    throw;
  }
  if (done == "COMMIT") return session_.transaction_committed();
  forget_transaction();  // the server rolls a transaction back that has failed, and calls that no failure
  throw Erro(erro::kProviderFailure, "PostgreSQL", "A transação foi desfeita pelo servidor");
}

void PostgresEngine::rollback() {
  require_transaction();
  in_transaction_ = false;
  forget_transaction();
  run_own({"ROLLBACK"});
}

void PostgresEngine::forget_transaction() {
  settings_sent_ = false;
  if (session_.transaction_rolled_back()) cache_.clear();
}

}  // namespace posto::postgres
