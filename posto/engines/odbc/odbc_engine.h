// The engine on a server behind an ODBC driver: SQL Server, which gets the library's statements to the letter, and
// PostgreSQL, which gets them as its own engine writes them.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "posto/engines/dialect_engine.h"
#include "posto/engines/odbc/kept_statement.h"
#include "posto/engines/odbc/link.h"

namespace posto::odbc {

// No statement reaches the server that the dialect's compiler does not know. The rows of a select are read in blocks as
// they are asked for, until another statement runs. A statement that fails in a transaction changes nothing, and the
// transaction goes on unless the server has ended it.
class OdbcEngine final : public DialectEngine<KeptStatement> {
 public:
  // Opens the database of a connection string ("Driver=...;Server=...;Database=..."); without `empty` it must hold a
  // station's tables. Raises 0x80004005.
  OdbcEngine(const std::string& connection_string, std::int32_t timeout_seconds, bool empty);
  ~OdbcEngine() override { cache_.clear(); }  // before the connection

  std::string_view name() const override { return link_.server().name; }
  std::string explain(std::string_view statement) override;
  void begin() override;
  void commit() override;
  void rollback() override;
  bool in_transaction() const override { return in_transaction_; }
  void set_command_timeout(std::int32_t seconds) override { session_.command_timeout = seconds; }
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
  // Takes in the rows that are still to come, and tells the server what it must know of the session.
  void make_ready();
  std::int64_t rows_touched(KeptStatement& statement, KeptStatement::Running& running, std::string_view text);
  // Raises a failure of a statement again, told as the server's, once it is known whether the transaction still stands.
  [[noreturn]] void fail(const Erro& failure, std::string_view text);
  void recover(const Erro& failure);
  void end_transaction(bool commit);
  void forget_transaction();  // that was rolled back
  void require_transaction() const;

  Link link_;
  EngineSession session_;
  Values values_;
  RunningCursor* streaming_ = nullptr;  // whose rows are still coming
  bool in_transaction_ = false;
  bool settings_sent_ = false;
};

}  // namespace posto::odbc
