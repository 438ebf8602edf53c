#include "posto/engines/odbc/odbc_engine.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <utility>

namespace posto::odbc {
namespace {

using Clock = std::chrono::steady_clock;

}  // namespace

OdbcEngine::OdbcEngine(const std::string& connection_string, std::int32_t timeout_seconds, bool empty)
    : link_(connection_string, timeout_seconds) {
  link_.run(link_.server().opening);
  if (link_.run(link_.server().station).empty() == empty) return;
  throw Erro(erro::kProviderFailure, std::string(name()),
             "O banco " + link_.database() + (empty ? " já existe" : " não é um banco do posto"));
}

void OdbcEngine::create_schema() {
  link_.begin_transaction();
  try {
    for (const std::string& statement : link_.server().schema()) link_.run(statement);
  } catch (const Erro&) {
    link_.end_transaction(false);
    throw;
  }
  link_.end_transaction(true);
}

// --- rows
// ---------------------------------------------------------------------------------------------------------------

// The rows of a select: from the driver as they are asked for; the rest at once where another statement is to run.
class OdbcEngine::RunningCursor final : public RowStream {
 public:
  RunningCursor(std::shared_ptr<OdbcEngine> engine, std::shared_ptr<Batch> batch, KeptStatement& statement,
                Values values, std::string_view text)
      : engine_(std::move(engine)),
        batch_(std::move(batch)),
        statement_(statement),
        values_(std::move(values)),
        text_(text) {}
  ~RunningCursor() override {
    if (running_ != nullptr) running_->command.close();
    leave();
    if (engine_->observer_) engine_->observer_({text_, engine_text(), spent_, rows_});
  }

  const ResultShape& shape() const override { return *statement_.shape(); }
  std::shared_ptr<const ResultShape> shared_shape() const override { return statement_.shape(); }

 private:
  std::string_view engine_text() const {
    return engine_->link_.server().to_the_letter ? std::string_view(text_) : statement_.compiled().text;
  }

  // Nothing is sent before the first row is asked for: a table that is opened to add to it is not read.
  void start() {
    started_ = true;
    engine_->make_ready();
    KeptStatement::Running& running = statement_.run(text_, values_, engine_->session_.command_timeout);
    if (!running.command.to_rows(text_)) return;
    running_ = &running;
    running_->rows->restart();
    engine_->streaming_ = this;
  }

  bool step(std::span<Cell> row) override {
    if (done_) return false;
    const auto began = Clock::now();
    try {
      if (!started_) start();
      const bool came = running_ != nullptr && running_->rows->next(row, text_);
      if (!came && running_ != nullptr) running_->command.finish(text_);
      spent_ += Clock::now() - began;
      if (came) {
        ++rows_;
        return true;
      }
    } catch (const Erro& e) {
      if (running_ != nullptr) running_->command.close();
      leave();
      engine_->fail(e, text_);
    }
    leave();
    return false;
  }

  void leave() {
    done_ = true;
    running_ = nullptr;
    if (engine_->streaming_ == this) engine_->streaming_ = nullptr;
  }

  std::shared_ptr<OdbcEngine> engine_;
  std::shared_ptr<Batch> batch_;
  KeptStatement& statement_;
  KeptStatement::Running* running_ = nullptr;  // while rows come
  Values values_;
  std::string text_;
  bool started_ = false, done_ = false;
  std::chrono::nanoseconds spent_{};
  std::int64_t rows_ = 0;
};

// --- running
// ------------------------------------------------------------------------------------------------------------

std::shared_ptr<OdbcEngine::Batch> OdbcEngine::compile(std::string_view batch, const tsql::Shape& shape) {
  return compile_batch<KeptStatement>(batch, shape, session_, link_.server().write,
                                      [this](tsql::CompiledStatement statement, const TemporaryTables& temporary) {
                                        return KeptStatement(std::move(statement), temporary, link_);
                                      });
}

void OdbcEngine::set_date_order(tsql::DateOrder order) {
  session_.date_order = order;
  settings_sent_ = false;
}

void OdbcEngine::bind(const tsql::CompiledStatement& statement, std::string_view text, Markers markers,
                      Values& values) {
  values.clear();
  told_with(text, [&] {
    each_value(statement, markers,
               [&](const tsql::Parameter& p, const tsql::BoundValue& value) { values.add(p, value); });
  });
}

void OdbcEngine::make_ready() {
  if (streaming_ != nullptr) std::exchange(streaming_, nullptr)->read_rest();
  if (settings_sent_) return;
  link_.run(link_.server().settings(session_));
  settings_sent_ = true;
}

std::unique_ptr<RowStream> OdbcEngine::start(const std::shared_ptr<Batch>& batch, KeptStatement& statement,
                                             std::string_view text, Markers markers) {
  Values values;
  bind(statement.compiled(), text, markers, values);
  auto self = std::static_pointer_cast<OdbcEngine>(shared_from_this());
  return std::make_unique<RunningCursor>(std::move(self), batch, statement, std::move(values), text);
}

std::int64_t OdbcEngine::rows_touched(KeptStatement& statement, KeptStatement::Running& running,
                                      std::string_view text) {
  const tsql::CompiledStatement& compiled = statement.compiled();
  Command& command = running.command;
  const bool inserts = compiled.kind == tsql::StatementKind::insert;
  std::int64_t given = 0;  // rows of an INSERT that gives its generated numbers
  std::optional<std::int64_t> identity;
  if (command.to_rows(text)) {
    for (;; ++given) {
      const SQLRETURN fetched = SQLFetch(command.handle());
      command.check(fetched, text);
      if (fetched == SQL_NO_DATA) break;
      std::int64_t number = 0;
      SQLLEN length = 0;
      command.check(SQLGetData(command.handle(), 1, SQL_C_SBIGINT, &number, 0, &length), text);
      identity = number;
    }
  }
  command.finish(text);
  const std::int64_t rows = std::max(given, command.row_count());
  if (tsql::defines_table(compiled.kind)) return 0;
  if (!inserts || rows <= 0) return std::max<std::int64_t>(rows, 0);
  session_.last_identity = identity;
  const std::string_view ask = link_.server().identity;
  if (!ask.empty() && compiled.target->identity() != nullptr) {
    for (const std::string& number : link_.run(ask)) session_.last_identity = std::atoll(number.c_str());
  }
  return rows;
}

std::int64_t OdbcEngine::run_writing(KeptStatement& statement, std::string_view text, Markers markers) {
  const tsql::CompiledStatement& compiled = statement.compiled();
  bind(compiled, text, markers, values_);
  make_ready();
  const auto started = Clock::now();
  std::int64_t rows = 0;
  try {
    rows = rows_touched(statement, statement.run(text, values_, session_.command_timeout), text);
  } catch (const Erro& failure) {
    fail(failure, text);
  }
  if (session_.drops_table(compiled)) cache_.clear();
  if (observer_) {
    observer_(
        {text, link_.server().to_the_letter ? text : std::string_view(compiled.text), Clock::now() - started, rows});
  }
  return rows;
}

std::string OdbcEngine::explain(std::string_view statement) {
  std::string plan;
  const auto batch = compiled(statement);
  make_ready();
  for (KeptStatement& kept : batch->statements) {
    const tsql::CompiledStatement& compiled = kept.compiled();
    if (tsql::defines_table(compiled.kind) || compiled.kind == tsql::StatementKind::set_date_format) {
      continue;
    }
    const Explaining steps = link_.server().explain(
        compiled, batch->statements.size() == 1 ? statement : own_part(statement, compiled, shape_.literals));
    for (const std::string& step : steps.before) link_.run(step);
    for (const std::string& line : link_.run(steps.ask)) plan += line + '\n';
    for (const std::string& step : steps.behind) link_.run(step);
  }
  return plan;
}

// --- transactions
// -------------------------------------------------------------------------------------------------------

void OdbcEngine::fail(const Erro& failure, std::string_view text) {
  recover(failure);
  if (failure.provider()) throw failure;
  throw Erro(failure.number(), std::string(name()), failure.description(), {.statement = std::string(text)});
}

void OdbcEngine::recover(const Erro& failure) {
  if (!in_transaction_) return;
  if (failure.provider() && !failure.provider()->connection_good) {
    in_transaction_ = false;
    return;
  }
  const std::string_view ask = link_.server().transactions_open;
  if (ask.empty()) return;
  for (const std::string& open : link_.run(ask)) {
    if (open == "0") end_transaction(false);
  }
}

void OdbcEngine::begin() {
  if (in_transaction_) throw Erro(erro::kTransactionOpen, std::string(name()), "Já há uma transação aberta");
  make_ready();
  link_.begin_transaction();
  in_transaction_ = true;
  session_.transaction_begins();
}

void OdbcEngine::require_transaction() const {
  if (!in_transaction_) throw Erro(erro::kNoTransaction, std::string(name()), "Não há transação aberta");
}

void OdbcEngine::end_transaction(bool commit) {
  require_transaction();
  if (streaming_ != nullptr) std::exchange(streaming_, nullptr)->read_rest();
  in_transaction_ = false;
  try {
    link_.end_transaction(commit);
    if (commit) return session_.transaction_committed();
  } catch (const Erro&) {
    forget_transaction();
    throw;
  }
  forget_transaction();
}

void OdbcEngine::forget_transaction() {
  settings_sent_ = false;
  if (session_.transaction_rolled_back()) cache_.clear();
}

void OdbcEngine::commit() { end_transaction(true); }
void OdbcEngine::rollback() { end_transaction(false); }

}  // namespace posto::odbc
