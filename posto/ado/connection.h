// The open database that all classes share.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "posto/engines/engine.h"

namespace posto {

class Recordset;

// A connection to one database. The caller opens, keeps and closes it; entities only use it. One caller at a time.
class Connection : public std::enable_shared_from_this<Connection> {
 public:
  static std::shared_ptr<Connection> create() { return std::make_shared<Connection>(); }

  std::int32_t ConnectionTimeout = 15;  // seconds that Open waits for a busy database
  std::int32_t CommandTimeout = 30;  // seconds until a statement is given up; read at each statement; 0 waits for ever

  // Opens "sqlite:FILE" or a plain path. Raises 3705 when it is open already, 0x80004005 when it cannot be opened.
  void Open(std::string_view connection_string);
  // The same for a database that does not exist yet: creates the file with all tables and indexes.
  void Create(std::string_view connection_string);
  // Works on an engine that the caller brings (tests wrap one).
  void Use(std::shared_ptr<Engine> engine);
  void Close();
  std::int32_t State() const { return engine_ ? 1 : 0; }  // 1 open, 0 closed

  // Runs a batch. The record set of its last statement that gives rows, read forward as rows are asked for; a closed
  // one when none does. Raises 3709 on a closed connection and the provider's failures.
  Recordset Execute(std::string_view statements);
  // The same, telling how many rows the last writing statement touched.
  Recordset Execute(std::string_view statements, std::int64_t& affected);

  // Transactions of the caller; the library's operations neither begin nor end one.
  void BeginTrans();
  void CommitTrans();
  void RollbackTrans();
  bool in_transaction() const { return engine_ && engine_->in_transaction(); }

  // Calls `observer` behind every statement, with its text, what the database got, how long it took and how many rows.
  void observe(StatementObserver observer);
  // The engine, ready for a statement under the present CommandTimeout. Raises 3709 when closed.
  Engine& engine();

  // An INSERT or UPDATE of a record set, kept by what makes it the same one: the shape, which `key` names by its
  // address and which stays alive with it, and the columns that are written. Empty when it is new.
  struct KeptWrite {
    std::shared_ptr<const ResultShape> shape;
    std::shared_ptr<PreparedStatement> statement;
  };
  KeptWrite& kept_write(const std::string& key);

 private:
  friend class Recordset;
  std::vector<Cell> spare_row_;  // the memory of a row that no record set needs
  std::shared_ptr<Engine> engine_;
  StatementObserver observer_;
  std::unordered_map<std::string, KeptWrite> writes_;
};

// A transaction of a flow: rolled back unless it was committed.
class Transaction {
 public:
  explicit Transaction(std::shared_ptr<Connection> connection);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  void commit();

 private:
  std::shared_ptr<Connection> connection_;
  bool open_ = true;
};

}  // namespace posto
