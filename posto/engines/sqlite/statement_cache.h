// Keeps compiled batches and their prepared statements by shape.
#pragma once

#include <sqlite3.h>

#include <list>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "posto/engines/engine.h"
#include "posto/engines/sqlite/session.h"
#include "posto/tsql/compiled.h"

namespace posto::sqlite {

// One statement of a batch, prepared as often as it runs at the same time.
class KeptStatement {
 public:
  using Tables = std::vector<std::shared_ptr<tsql::TemporaryTable>>;

  // `temporary`: tables to which the statement and its results may point.
  KeptStatement(tsql::CompiledStatement compiled, const Tables& temporary, sqlite3* database);
  KeptStatement(KeptStatement&&) = default;

  const tsql::CompiledStatement& compiled() const { return compiled_; }
  const std::shared_ptr<const ResultShape>& shape() const { return shape_; }
  // A prepared statement that is not running; null, with the database's failure set, when it cannot be prepared.
  sqlite3_stmt* take();
  void give_back(sqlite3_stmt* statement);

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* s) const { sqlite3_finalize(s); }
  };
  tsql::CompiledStatement compiled_;
  std::shared_ptr<const ResultShape> shape_;
  sqlite3* database_;
  std::vector<std::unique_ptr<sqlite3_stmt, Finalize>> idle_;
};

struct KeptBatch {
  tsql::CompiledBatch compiled;  // without its statements, which stand below
  std::vector<KeptStatement> statements;
  KeptStatement::Tables temporary;  // the session's tables to which the statements may point
};

// The least recently used shapes are dropped first.
class StatementCache {
 public:
  explicit StatementCache(Session& session) : session_(session) {}
  void use(sqlite3* database) { database_ = database; }

  // The compiled form of a batch whose shape has just been read. Raises 0x80040E14 when it does not compile.
  std::shared_ptr<KeptBatch> find(std::string_view batch, const tsql::Shape& shape);
  void clear();

 private:
  static constexpr std::size_t kMostShapes = 500;
  static constexpr std::size_t kMostForms = 20;
  static constexpr std::size_t kLongestShape = 32 * 1024;  // longer ones are not kept
  struct Hash {
    std::size_t operator()(std::string_view text) const;
  };
  struct Entry {
    std::string shape;
    std::size_t literals;
    std::vector<std::shared_ptr<KeptBatch>> forms;  // one for each set of pinned literals
  };
  std::list<Entry>::iterator entry_of(std::string_view shape);
  void add(Entry entry);
  std::shared_ptr<KeptBatch> compile(std::string_view batch, const tsql::Shape& shape);

  sqlite3* database_ = nullptr;
  Session& session_;
  std::list<Entry> entries_;  // most recently used first
  std::unordered_map<std::string_view, std::list<Entry>::iterator, Hash> by_shape_;
};

}  // namespace posto::sqlite
