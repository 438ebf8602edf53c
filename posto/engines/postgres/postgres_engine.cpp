#include "posto/engines/postgres/postgres_engine.h"

#include <fmt/format.h>

#include <optional>
#include <utility>

#include "posto/engines/buffered_rows.h"
#include "posto/engines/postgres/failures.h"
#include "posto/engines/postgres/functions.h"
#include "posto/services/clock.h"
#include "posto/tsql/postgres_ddl.h"
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

[[noreturn]] void raise_with_statement(const Erro& e, std::string_view statement) {
  throw Erro(e.number(), "PostgreSQL", e.description(), {.statement = std::string(statement)});
}

}  // namespace

PostgresEngine::PostgresEngine(const std::string& uri, std::int32_t timeout_seconds, bool empty)
    : link_(uri, timeout_seconds),
      cache_([this](std::string_view batch, const tsql::Shape& shape) { return compile(batch, shape); }) {
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

void PostgresEngine::create_schema() {
  std::string script = "BEGIN;";
  script += create_functions();
  script += "SET LOCAL search_path = public, posto;\n";
  for (const Table& table : all_tables()) {
    script += tsql::postgres_create_table(table) + ";\n";
    for (const std::string& index : tsql::postgres_create_indexes(table)) script += index + ";\n";
  }
  script += "COMMIT;";
  link_.script(script.c_str());
}

// --- rows
// ---------------------------------------------------------------------------------------------------------------

// The rows of a select: from the server as they are asked for; the rest at once where another statement is to run.
class PostgresEngine::RunningCursor final : public Cursor {
 public:
  RunningCursor(std::shared_ptr<PostgresEngine> engine, std::shared_ptr<Batch> batch, KeptStatement& statement,
                Values values, std::string_view text)
      : engine_(std::move(engine)),
        batch_(std::move(batch)),
        statement_(statement),
        values_(std::move(values)),
        text_(text) {}
  ~RunningCursor() override {
    if (engine_->streaming_ == this) {
      engine_->streaming_ = nullptr;
      engine_->link_.abandon();
      engine_->recover();
    }
    if (engine_->observer_) engine_->observer_({text_, statement_.compiled().text, spent_, rows_});
  }

  const ResultShape& shape() const override { return *statement_.shape(); }
  std::shared_ptr<const ResultShape> shared_shape() const override { return statement_.shape(); }

  bool next(std::span<Cell> row) override {
    if (rest_) {
      if (rest_->rows.next(row)) return true;
      if (rest_->failure) throw *std::exchange(rest_->failure, std::nullopt);
      return false;
    }
    row_ = row;
    return step(row);
  }

  // Reads all the rows that are left, so that the connection is free.
  void read_rest() {
    auto rest = std::make_unique<Rest>();
    for (Cell& cell : row_) rest->rows.keep_text(cell);  // the caller still looks at this row
    std::vector<Cell> row(shape().columns().size());
    try {
      while (step(row)) rest->rows.add(row);
    } catch (const Erro& e) {
      rest->failure = e;
    }
    rest_ = std::move(rest);
  }
  // The same within its batch, which a failure ends.
  void finish() {
    read_rest();
    if (rest_->failure) throw *rest_->failure;
  }

 private:
  struct Rest {
    BufferedRows rows;
    std::optional<Erro> failure;  // met behind them
  };

  // Nothing is sent before the first row is asked for: a table that is opened to add to it is not read.
  void start() {
    started_ = true;
    if (engine_->streaming_ != nullptr) std::exchange(engine_->streaming_, nullptr)->read_rest();
    engine_->send(statement_, values_);
    engine_->link_.flush();
    engine_->link_.stream(text_);
    statement_.prepared = statement_.prepared || values_.usual();
    engine_->streaming_ = this;
  }

  bool step(std::span<Cell> row) {
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
      engine_->recover();
      if (e.provider()) throw;
      raise_with_statement(e, text_);
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
  std::span<Cell> row_;  // of the caller, while the cursor stands on it
  std::unique_ptr<Rest> rest_;
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

std::shared_ptr<PostgresEngine::Batch> PostgresEngine::compiled(std::string_view batch) {
  shape_.read(batch);
  try {
    return cache_.find(batch, shape_);
  } catch (const Erro& e) {
    raise_with_statement(e, batch);
  }
}

Outcome PostgresEngine::execute(std::string_view batch) { return run(compiled(batch), batch, {}); }

Outcome PostgresEngine::run(const std::shared_ptr<Batch>& batch, std::string_view text,
                            std::span<const Variant* const> markers) {
  Outcome outcome;
  auto& statements = batch->statements;
  for (std::size_t i = 0; i < statements.size(); ++i) {
    KeptStatement& statement = statements[i];
    const tsql::CompiledStatement& compiled = statement.compiled();
    const std::string_view own_text = statements.size() == 1 ? text : own_part(text, compiled, shape_.literals);
    if (compiled.kind == tsql::StatementKind::set_date_format) {
      session_.date_order = tsql::DateOrder::of(compiled.date_format);
      settings_sent_ = false;
    } else if (compiled.kind != tsql::StatementKind::select) {
      outcome.affected = run_writing(statement, own_text, markers);
    } else {
      Values values;
      bind(compiled, own_text, markers, values);
      auto cursor = std::make_unique<RunningCursor>(shared_from_this(), batch, statement, std::move(values), own_text);
      if (i + 1 < statements.size()) cursor->finish();
      outcome.cursor = std::move(cursor);
    }
  }
  return outcome;
}

void PostgresEngine::bind(const tsql::CompiledStatement& statement, std::string_view text,
                          std::span<const Variant* const> markers, Values& values) {
  values.clear();
  tsql::BoundValue value;
  try {
    for (const tsql::Parameter& p : statement.parameters) {
      switch (p.from) {
        case tsql::Parameter::From::literal:
          bind_literal(shape_.literals[p.ordinal], p, session_.date_order, value);
          break;
        case tsql::Parameter::From::marker:
          if (p.ordinal >= markers.size()) throw Erro(erro::kSyntax, "tsql", "Falta o valor de um parâmetro (?)");
          bind_variant(*markers[p.ordinal], p, session_.date_order, value);
          break;
        case tsql::Parameter::From::now:
          bind_date(clock_now(), value);
          break;
        case tsql::Parameter::From::last_identity:
          bind_variant(session_.identity(), p, session_.date_order, value);
          break;
      }
      values.add(p, value);
    }
  } catch (const Erro& e) {
    raise_with_statement(e, text);
  }
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

std::size_t PostgresEngine::send(KeptStatement& statement, Values& values) {
  std::size_t commands = send_owed();
  if (!values.usual()) {
    link_.send_once(statement.compiled().text, values);
    return commands + 1;
  }
  if (!statement.prepared) {
    link_.send_prepare(statement.name(), statement.compiled().text, types_of(statement.compiled()));
    ++commands;
  }
  link_.send_run(statement.name(), values);
  return commands + 1;
}

std::int64_t PostgresEngine::run_writing(KeptStatement& statement, std::string_view text,
                                         std::span<const Variant* const> markers) {
  const tsql::CompiledStatement& compiled = statement.compiled();
  bind(compiled, text, markers, values_);
  if (streaming_ != nullptr) std::exchange(streaming_, nullptr)->read_rest();
  const auto started = Clock::now();
  const std::size_t own = send(statement, values_) - 1;
  if (in_transaction_) {
    link_.send("RELEASE SAVEPOINT posto");
    link_.send(kSetSavepoint);
  }
  link_.flush();
  std::int64_t rows = 0;
  try {
    const std::vector<Result> results = link_.finish(text);
    const PGresult* result = results[own].get();
    statement.prepared = statement.prepared || values_.usual();
    if (compiled.kind != tsql::StatementKind::create_table)
      rows = std::atoll(PQcmdTuples(const_cast<PGresult*>(result)));
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
  } catch (const Erro&) {
    recover();
    throw;
  }
  if (compiled.creates) session_.temporary_tables.push_back(compiled.creates);
  if (observer_) observer_({text, compiled.text, Clock::now() - started, rows});
  return rows;
}

class PostgresEngine::Prepared final : public PreparedStatement {
 public:
  Prepared(std::shared_ptr<PostgresEngine> engine, std::shared_ptr<Batch> batch, std::string_view text)
      : engine_(std::move(engine)), batch_(std::move(batch)), text_(text) {
    literals_.read(text_);
  }
  Outcome run(std::span<const Variant* const> values) override {
    std::swap(engine_->shape_, literals_);
    struct Back {
      Prepared& self;
      ~Back() { std::swap(self.engine_->shape_, self.literals_); }
    } back{*this};
    return engine_->run(batch_, text_, values);
  }

 private:
  std::shared_ptr<PostgresEngine> engine_;
  std::shared_ptr<Batch> batch_;
  std::string text_;
  tsql::Shape literals_;
};

std::shared_ptr<PreparedStatement> PostgresEngine::prepare(std::string_view statement) {
  return std::make_shared<Prepared>(shared_from_this(), compiled(statement), statement);
}

// The plan for whatever values.
std::string PostgresEngine::explain(std::string_view statement) {
  std::string plan;
  const auto batch = compiled(statement);
  if (streaming_ != nullptr) std::exchange(streaming_, nullptr)->read_rest();
  for (KeptStatement& kept : batch->statements) {
    const tsql::CompiledStatement& compiled = kept.compiled();
    if (compiled.text.empty() || compiled.kind == tsql::StatementKind::create_table) continue;
    std::size_t commands = send_owed();
    link_.send("SELECT set_config('plan_cache_mode', 'force_generic_plan', false)");
    if (!kept.prepared) {
      link_.send_prepare(kept.name(), compiled.text, types_of(compiled));
      ++commands;
    }
    std::string nulls;
    for (std::size_t i = 0; i < compiled.parameters.size(); ++i) nulls += i == 0 ? "(NULL" : ", NULL";
    link_.send(("EXPLAIN (COSTS off) EXECUTE " + kept.name() + (nulls.empty() ? "" : nulls + ")")).c_str());
    link_.send("SELECT set_config('plan_cache_mode', 'auto', false)");
    link_.flush();
    const std::vector<Result> results = link_.finish(statement);
    kept.prepared = true;
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

void PostgresEngine::run_own(std::initializer_list<const char*> commands) {
  if (streaming_ != nullptr) std::exchange(streaming_, nullptr)->read_rest();
  for (const char* command : commands) link_.send(command);
  link_.flush();
  link_.finish(*commands.begin());
}

void PostgresEngine::recover() {
  settings_sent_ = false;  // those of a statement that failed are taken back with it
  if (!in_transaction_) return;
  if (PQstatus(link_.connection()) != CONNECTION_OK) {
    in_transaction_ = false;
    return;
  }
  run_own({"ROLLBACK TO SAVEPOINT posto"});
}

void PostgresEngine::begin() {
  if (in_transaction_) throw Erro(erro::kTransactionOpen, "PostgreSQL", "Já há uma transação aberta");
  run_own({"BEGIN", kSetSavepoint});
  in_transaction_ = true;
  session_.transaction_begins();
}

void PostgresEngine::require_transaction() const {
  if (!in_transaction_) throw Erro(erro::kNoTransaction, "PostgreSQL", "Não há transação aberta");
}

void PostgresEngine::commit() {
  require_transaction();
  in_transaction_ = false;
  run_own({"COMMIT"});
  session_.transaction_committed();
}

void PostgresEngine::rollback() {
  require_transaction();
  in_transaction_ = false;
  settings_sent_ = false;
  run_own({"ROLLBACK"});
  if (session_.transaction_rolled_back()) cache_.clear();
}

}  // namespace posto::postgres
