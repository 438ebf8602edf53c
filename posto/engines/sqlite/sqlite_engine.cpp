#include "posto/engines/sqlite/sqlite_engine.h"

#include <algorithm>
#include <climits>
#include <filesystem>
#include <optional>
#include <utility>

#include "posto/engines/sqlite/cursors.h"
#include "posto/engines/sqlite/failures.h"
#include "posto/engines/sqlite/functions.h"
#include "posto/tsql/sqlite_ddl.h"
#include "posto/tsql/sqlite_writer.h"

namespace posto::sqlite {
namespace {

// Marks the file as a station's database, so that another program's file is told apart. "PSTO" in hexadecimal.
constexpr int kApplicationId = 0x5053544F;

// Called by SQLite now and then while a statement runs; not 0 ends it.
int still_in_time(void* user) {
  auto& session = *static_cast<Session*>(user);
  if (session.command_timeout == 0) return 0;
  auto now = std::chrono::steady_clock::now();
  if (!session.running_since) session.running_since = now;
  return now - *session.running_since > std::chrono::seconds(session.command_timeout);
}

// How long SQLite waits for another process; no seconds are for ever.
int milliseconds(std::int32_t seconds) { return seconds > 0 && seconds < INT_MAX / 1000 ? seconds * 1000 : INT_MAX; }

std::int64_t single_integer(sqlite3* database, const char* sql) {
  sqlite3_stmt* statement = nullptr;
  std::int64_t value = -1;
  if (sqlite3_prepare_v2(database, sql, -1, &statement, nullptr) == SQLITE_OK &&
      sqlite3_step(statement) == SQLITE_ROW) {
    value = sqlite3_column_int64(statement, 0);
  }
  sqlite3_finalize(statement);
  return value;
}

// SQLite's own words do not tell these apart.
std::string why_not_opened(const std::string& path, sqlite3* database) {
  namespace fs = std::filesystem;
  if (database == nullptr) return "sem memória";
  std::error_code unknown;
  if (fs::is_directory(path, unknown)) return "é uma pasta";
  if (sqlite3_errcode(database) == SQLITE_CANTOPEN && !fs::exists(path, unknown)) {
    const fs::path folder = fs::absolute(path, unknown).parent_path();
    return fs::exists(folder, unknown) ? "o arquivo não existe" : "não há a pasta " + folder.string();
  }
  return sqlite3_errmsg(database);
}

}  // namespace

SqliteEngine::SqliteEngine(const std::string& path, std::int32_t timeout_seconds, bool create) {
  int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | (create ? SQLITE_OPEN_CREATE : 0);
  int code = sqlite3_open_v2(path.c_str(), &database_, flags, nullptr);
  auto refuse = [&](const std::string& why) {
    sqlite3_close_v2(database_);
    throw Erro(erro::kProviderFailure, "SQLite", "Não foi possível abrir o banco " + path + ": " + why);
  };
  if (code != SQLITE_OK) refuse(why_not_opened(path, database_));
  sqlite3_extended_result_codes(database_, 1);
  sqlite3_busy_timeout(database_, milliseconds(timeout_seconds));
  std::int64_t id = single_integer(database_, "PRAGMA application_id");
  if (id == -1) refuse(sqlite3_errmsg(database_));
  if (!create && id != kApplicationId) refuse("o arquivo não é um banco do posto");
  register_functions(database_, session_);
  sqlite3_progress_handler(database_, 10'000, still_in_time, &session_);
  try {
    run_own(
        "PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL; PRAGMA temp_store = MEMORY; PRAGMA cache_size = "
        "-32000;");
  } catch (const Erro& e) {
    cache_.clear();
    refuse(e.description());
  }
  sqlite3_busy_timeout(database_, milliseconds(session_.command_timeout));
}

SqliteEngine::~SqliteEngine() {
  cache_.clear();
  sqlite3_close_v2(database_);
}

void SqliteEngine::run_own(const char* sql) {
  if (sqlite3_exec(database_, sql, nullptr, nullptr, nullptr) != SQLITE_OK) raise_failure(database_, session_, sql);
}

void SqliteEngine::create_schema() {
  std::string mark = "PRAGMA application_id = " + std::to_string(kApplicationId) + "; PRAGMA user_version = 1;";
  begin();
  try {
    for (const Table& table : all_tables()) {
      run_own(tsql::sqlite_create_table(table).c_str());
      for (const std::string& index : tsql::sqlite_create_indexes(table)) run_own(index.c_str());
    }
    run_own("ANALYZE");  // of an empty database: makes the table of the statistics
    for (const Table& table : all_tables()) {
      for (const std::string& row : tsql::sqlite_statistics(table)) run_own(row.c_str());
    }
    run_own(mark.c_str());
    commit();
  } catch (const Erro&) {
    if (in_transaction()) rollback();  // a full disk ends it
    throw;
  }
  run_own("ANALYZE sqlite_schema");  // reads them
}

// The rows of a prepared statement, read as they are asked for; the rest at once where a change of the database would
// come in between.
class SqliteEngine::RunningCursor final : public RowStream {
 public:
  RunningCursor(std::shared_ptr<SqliteEngine> engine, std::shared_ptr<Batch> batch, KeptStatement& statement,
                sqlite3_stmt* prepared, std::string_view text)
      : engine_(std::move(engine)),
        batch_(std::move(batch)),
        statement_(statement),
        prepared_(prepared),
        text_(std::move(engine_->spare_text_)) {
    text_.assign(text);
    engine_->running_.push_back(this);
  }
  ~RunningCursor() override {
    std::erase(engine_->running_, this);
    release();
    if (engine_->observer_) engine_->observer_({text_, statement_.compiled().text, spent_, rows_});
    engine_->spare_text_ = std::move(text_);
  }

  const ResultShape& shape() const override { return *statement_.shape(); }
  std::shared_ptr<const ResultShape> shared_shape() const override { return statement_.shape(); }

  // Whether a statement changes the table from which rows are still to come: a row that is written while the cursor
  // stands on it could be met again. SQLite drops no table while anything is read.
  bool disturbed_by(const tsql::CompiledStatement& writing) const {
    const auto& reads = statement_.compiled().reads;
    if (rows_ == 0 || prepared_ == nullptr) return false;
    return writing.kind == tsql::StatementKind::drop_table ||
           (writing.kind != tsql::StatementKind::remove &&
            std::find(reads.begin(), reads.end(), writing.target) != reads.end());
  }

  // Reads the rest where it has begun to read.
  void let_go() {
    if (rows_ > 0) read_rest();
  }

 private:
  void release() {
    if (prepared_ != nullptr) statement_.give_back(std::exchange(prepared_, nullptr));
  }

  bool step(std::span<Cell> row) override {
    return step_and([&] { read_row(prepared_, shape(), row); });
  }
  bool step_lazily(std::span<Cell> row) override {
    return step_and([&] { read_reckoned(prepared_, shape(), row); });
  }
  // A step that failed has let the row go.
  void read_cell(std::size_t column, Cell& cell) override {
    if (prepared_ == nullptr) throw Erro(erro::kNoCurrentRecord, "SQLite", "Não há registro corrente");
    sqlite::read_cell(prepared_, column, shape().columns()[column], cell);
  }

  template <class Read>
  bool step_and(Read read) {
    if (prepared_ == nullptr) return false;
    try {
      if (on_next_row()) {
        read();
        return true;
      }
    } catch (const Erro&) {
      release();
      throw;
    }
    release();
    return false;
  }

  bool on_next_row() {
    bool observed = engine_->observer_ != nullptr;
    auto started = observed ? std::chrono::steady_clock::now() : std::chrono::steady_clock::time_point();
    engine_->session_.running_since.reset();
    int code = sqlite3_step(prepared_);
    if (observed) spent_ += std::chrono::steady_clock::now() - started;
    if (code == SQLITE_DONE) return false;
    if (code != SQLITE_ROW) engine_->fail(text_);
    ++rows_;
    return true;
  }

  std::shared_ptr<SqliteEngine> engine_;
  std::shared_ptr<Batch> batch_;
  KeptStatement& statement_;
  sqlite3_stmt* prepared_;  // null behind the last row
  std::string text_;
  std::chrono::nanoseconds spent_{};
  std::int64_t rows_ = 0;
};

// --- running
// ------------------------------------------------------------------------------------------------------------

std::shared_ptr<SqliteEngine::Batch> SqliteEngine::compile(std::string_view batch, const tsql::Shape& shape) {
  return compile_batch<KeptStatement>(batch, shape, session_, tsql::write_sqlite,
                                      [this](tsql::CompiledStatement statement, const TemporaryTables& temporary) {
                                        return KeptStatement(std::move(statement), temporary, database_);
                                      });
}

void SqliteEngine::bind(sqlite3_stmt* prepared, const tsql::CompiledStatement& statement, std::string_view text,
                        Markers markers, bool at_once) {
  if (at_once && date_texts_.size() < statement.parameters.size()) date_texts_.resize(statement.parameters.size());
  int place = 0;
  told_with(text, [&] {
    each_value(statement, markers, [&](const tsql::Parameter& p, tsql::BoundValue& value) {
      bind_value(prepared, ++place, p, value, at_once);
    });
  });
}

void SqliteEngine::bind_value(sqlite3_stmt* prepared, int place, const tsql::Parameter& p, tsql::BoundValue& value,
                              bool at_once) {
  switch (value.kind) {
    case tsql::BoundValue::Kind::null:
      sqlite3_bind_null(prepared, place);
      return;
    case tsql::BoundValue::Kind::integer:
      sqlite3_bind_int64(prepared, place, value.integer);
      return;
    case tsql::BoundValue::Kind::real:
      sqlite3_bind_double(prepared, place, value.real);
      return;
    case tsql::BoundValue::Kind::text:
      if (at_once && !value.lasts && p.type == SqlType::date) {
        auto& kept = date_texts_[static_cast<std::size_t>(place) - 1];
        kept = value.date;
        value.text = {kept.data(), value.text.size()};
        value.lasts = true;
      }
      sqlite3_bind_text64(prepared, place, value.text.data(), value.text.size(),
                          at_once && value.lasts ? SQLITE_STATIC : SQLITE_TRANSIENT, SQLITE_UTF8);
  }
}

namespace {

// A prepared statement while it runs; given back when the lease ends.
class Lease {
 public:
  explicit Lease(KeptStatement& statement) : statement_(statement), prepared_(statement.take()) {}
  ~Lease() { end(); }
  Lease(const Lease&) = delete;
  Lease& operator=(const Lease&) = delete;
  sqlite3_stmt* get() const { return prepared_; }
  sqlite3_stmt* release() { return std::exchange(prepared_, nullptr); }
  void end() {
    if (prepared_ != nullptr) statement_.give_back(release());
  }

 private:
  KeptStatement& statement_;
  sqlite3_stmt* prepared_;
};

// Undoes a statement that fails when it has written some of its rows, inside a transaction that goes on.
class WholeOrNothing {
 public:
  WholeOrNothing(sqlite3* database, bool needed) : database_(needed ? database : nullptr) { run("SAVEPOINT posto"); }
  ~WholeOrNothing() {
    if (database_ != nullptr && sqlite3_get_autocommit(database_) == 0) run("ROLLBACK TO posto; RELEASE posto");
  }
  WholeOrNothing(const WholeOrNothing&) = delete;
  WholeOrNothing& operator=(const WholeOrNothing&) = delete;
  void keep() {
    run("RELEASE posto");
    database_ = nullptr;
  }

 private:
  // A savepoint fails only where the transaction itself is lost.
  void run(const char* sql) const {
    if (database_ != nullptr) sqlite3_exec(database_, sql, nullptr, nullptr, nullptr);
  }
  sqlite3* database_;
};

}  // namespace

std::int64_t SqliteEngine::run_writing(KeptStatement& statement, std::string_view text, Markers markers) {
  const tsql::CompiledStatement& compiled = statement.compiled();
  auto started = observer_ ? std::chrono::steady_clock::now() : std::chrono::steady_clock::time_point();
  session_.running_since.reset();
  Lease lease(statement);
  if (lease.get() == nullptr) fail(text);
  bind(lease.get(), compiled, text, markers, true);
  for (RunningCursor* cursor : running_) {
    if (cursor->disturbed_by(compiled)) cursor->read_rest();
  }
  WholeOrNothing whole(database_, compiled.may_fail_between_rows && in_transaction());
  int code = sqlite3_step(lease.get());
  if (code == SQLITE_BUSY_SNAPSHOT && !running_.empty()) {
    // Another process wrote since our cursors began to read: they hold an older state until they are done.
    for (RunningCursor* cursor : running_) cursor->let_go();
    sqlite3_reset(lease.get());
    code = sqlite3_step(lease.get());
  }
  if (code != SQLITE_DONE && code != SQLITE_ROW) {
    sqlite3_reset(lease.get());
    fail(text);
  }
  lease.end();
  whole.keep();
  std::int64_t rows = tsql::defines_table(compiled.kind) ? 0 : sqlite3_changes64(database_);
  if (compiled.kind == tsql::StatementKind::insert && compiled.target->identity() != nullptr && rows > 0) {
    session_.last_identity = sqlite3_last_insert_rowid(database_);
  } else if (compiled.kind == tsql::StatementKind::insert && rows > 0) {
    session_.last_identity.reset();
  }
  if (session_.drops_table(compiled)) cache_.clear();
  if (observer_) observer_({text, compiled.text, std::chrono::steady_clock::now() - started, rows});
  return rows;
}

std::unique_ptr<RowStream> SqliteEngine::start(const std::shared_ptr<Batch>& batch, KeptStatement& statement,
                                               std::string_view text, Markers markers) {
  Lease lease(statement);
  if (lease.get() == nullptr) fail(text);
  bind(lease.get(), statement.compiled(), text, markers, false);
  auto self = std::static_pointer_cast<SqliteEngine>(shared_from_this());
  return std::make_unique<RunningCursor>(std::move(self), batch, statement, lease.release(), text);
}

std::string SqliteEngine::explain(std::string_view statement) {
  std::string plan;
  auto batch = compiled(statement);
  for (KeptStatement& kept : batch->statements) {
    if (kept.compiled().text.empty()) continue;
    std::string sql = "EXPLAIN QUERY PLAN " + kept.compiled().text;
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(database_, sql.c_str(), -1, &prepared, nullptr) != SQLITE_OK) {
      raise_failure(database_, session_, statement);
    }
    while (sqlite3_step(prepared) == SQLITE_ROW) {
      plan += reinterpret_cast<const char*>(sqlite3_column_text(prepared, 3));
      plan += '\n';
    }
    sqlite3_finalize(prepared);
  }
  return plan;
}

void SqliteEngine::set_command_timeout(std::int32_t seconds) {
  if (seconds == session_.command_timeout) return;
  session_.command_timeout = seconds;
  sqlite3_busy_timeout(database_, milliseconds(seconds));
}

// --- transactions
// -------------------------------------------------------------------------------------------------------

void SqliteEngine::begin() {
  if (in_transaction()) throw Erro(erro::kTransactionOpen, "SQLite", "Já há uma transação aberta");
  run_own("BEGIN IMMEDIATE");
  session_.transaction_begins();
}

void SqliteEngine::require_transaction() const {
  if (!in_transaction()) throw Erro(erro::kNoTransaction, "SQLite", "Não há transação aberta");
}

void SqliteEngine::commit() {
  require_transaction();
  run_own("COMMIT");
  session_.transaction_committed();
}

void SqliteEngine::rollback() {
  require_transaction();
  run_own("ROLLBACK");
  forget_rolled_back_tables();
}

void SqliteEngine::fail(std::string_view statement) {
  try {
    raise_failure(database_, session_, statement);
  } catch (const Erro&) {
    if (!in_transaction()) forget_rolled_back_tables();  // SQLite may have ended the transaction itself
    throw;
  }
}

void SqliteEngine::forget_rolled_back_tables() {
  if (session_.transaction_rolled_back()) cache_.clear();
}

}  // namespace posto::sqlite
