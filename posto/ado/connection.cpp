#include "posto/ado/connection.h"

#include "posto/ado/recordset.h"
#include "posto/types/erro.h"

namespace posto {
namespace {

constexpr const char* kSource = "ADODB.Connection";

}  // namespace

void Connection::Open(std::string_view connection_string) {
  if (engine_) throw Erro(erro::kObjectOpen, kSource, "A conexão já está aberta");
  Use(open_engine(connection_string, ConnectionTimeout));
}

void Connection::Create(std::string_view connection_string) {
  if (engine_) throw Erro(erro::kObjectOpen, kSource, "A conexão já está aberta");
  Use(create_database(connection_string, ConnectionTimeout));
}

void Connection::Use(std::shared_ptr<Engine> engine) {
  writes_.clear();
  engine_ = std::move(engine);
  engine_->set_observer(observer_);
}

void Connection::Close() {
  writes_.clear();
  engine_.reset();
}

Recordset Connection::Execute(std::string_view statements) {
  std::int64_t affected = 0;
  return Execute(statements, affected);
}

Recordset Connection::Execute(std::string_view statements, std::int64_t& affected) {
  Outcome outcome = engine().execute(statements);
  affected = outcome.affected;
  Recordset rows;
  if (outcome.cursor) rows.begin_on(std::move(outcome.cursor), shared_from_this());
  return rows;
}

void Connection::BeginTrans() { engine().begin(); }
void Connection::CommitTrans() { engine().commit(); }
void Connection::RollbackTrans() { engine().rollback(); }

void Connection::observe(StatementObserver observer) {
  observer_ = std::move(observer);
  if (engine_) engine_->set_observer(observer_);
}

Engine& Connection::engine() {
  if (!engine_) throw Erro(erro::kConnectionInvalid, kSource, "A conexão está fechada");
  engine_->set_command_timeout(CommandTimeout);
  return *engine_;
}

Connection::KeptWrite& Connection::kept_write(const std::string& key) {
  constexpr std::size_t kMostWrites = 300;
  if (writes_.size() >= kMostWrites) writes_.clear();
  return writes_[key];
}

Transaction::Transaction(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {
  connection_->BeginTrans();
}

Transaction::~Transaction() {
  if (!open_ || !connection_->in_transaction()) return;
  try {
    connection_->RollbackTrans();
  } catch (const Erro&) {
    // The connection is lost, and with it the transaction: the failure that ended it is already under way.
  }
}

void Transaction::commit() {
  connection_->CommitTrans();
  open_ = false;
}

}  // namespace posto
