// What a database engine offers. Everything above speaks SQL Server 2000's dialect; an engine makes its database answer
// it.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "posto/schema/table.h"
#include "posto/schema/value_object.h"
#include "posto/types/erro.h"
#include "posto/types/variant.h"

namespace posto {

// One column of a result.
struct ResultColumn {
  std::string name;
  SqlType type = SqlType::int32;
  std::uint16_t width = 0;       // of text: characters, 0 when not known
  const Table* table = nullptr;  // the table that the column is read from as it stands; null for an expression
  const Column* column = nullptr;
};

// What all results of one statement shape have in common; kept with the shape.
class ResultShape {
 public:
  // `rows_of`: the one table whose rows the statement gives as they stand, or null.
  ResultShape(std::vector<ResultColumn> columns, const Table* rows_of);
  ResultShape(const ResultShape&) = delete;
  ResultShape& operator=(const ResultShape&) = delete;

  const std::vector<ResultColumn>& columns() const { return columns_; }
  // The position of the first column of this name, blind to case; -1 when there is none.
  int find(std::string_view name) const;
  // For each column the same-named property of a value object type, or null; resolved once.
  std::span<const Property* const> properties_of(const VoLayout& layout) const;
  // The table that an updatable result writes to: its rows as they stand, with the key among the columns. Null
  // otherwise.
  const Table* updatable_table() const { return updatable_; }

 private:
  std::vector<ResultColumn> columns_;
  // The columns that were asked for last, by where the name stands in memory: a loop over rows asks with the same
  // literals.
  static constexpr std::size_t kRecent = 16;
  mutable std::array<int, kRecent> recent_{};
  std::vector<bool> is_first_;                       // of its name
  std::unordered_map<std::string_view, int> exact_;  // by name as spelt
  std::unordered_map<std::string, int> folded_;      // by name in lower case
  const Table* updatable_ = nullptr;
  mutable std::vector<std::pair<const VoLayout*, std::vector<const Property*>>> resolved_;
};

// One value of a row, in the form of its column's type: bit, integers, money (ten-thousandths) and date (milliseconds)
// in `integer`, floats in `real`, text in `text`, which lives as long as its cursor stands on the row.
struct Cell {
  bool null = true;
  bool unread = false;  // its cursor has it still: only after next_lazily
  union {
    std::int64_t integer = 0;
    double real;
  };
  std::string_view text{};
};
Variant cell_value(const Cell& cell, SqlType type);

// Rows of a running statement, first to last.
class Cursor {
 public:
  virtual ~Cursor() = default;
  virtual const ResultShape& shape() const = 0;
  virtual std::shared_ptr<const ResultShape> shared_shape() const = 0;
  // Reads the next row into `row`, which has a cell for each column and stays in place while the cursor stands on it.
  // False when there is none left.
  virtual bool next(std::span<Cell> row) = 0;
  // The same, but stored values may stay with the cursor until `read` is asked for them.
  virtual bool next_lazily(std::span<Cell> row) { return next(row); }
  // Reads a cell of the row on which the cursor stands that was left unread.
  virtual void read([[maybe_unused]] std::size_t column, [[maybe_unused]] Cell& cell) {}
};

struct Outcome {
  std::unique_ptr<Cursor> cursor;  // of the last statement that gives rows; null when none does
  std::int64_t affected = 0;       // rows that the last writing statement touched
};

// A statement with "?" for its values, kept ready.
class PreparedStatement {
 public:
  virtual ~PreparedStatement() = default;
  virtual Outcome run(std::span<const Variant* const> values) = 0;
};

namespace erro {
inline constexpr std::int32_t kTransactionOpen = erro_number(0x8004D013);
inline constexpr std::int32_t kNoTransaction = erro_number(0x8004D00E);
}  // namespace erro

// What an observer is told about each statement that ran.
struct StatementReport {
  std::string_view statement;    // as the library composed it
  std::string_view engine_text;  // as the database got it
  std::chrono::nanoseconds duration{};
  std::int64_t rows = 0;  // read or touched
};
// An observer neither raises nor uses the connection.
using StatementObserver = std::function<void(const StatementReport&)>;

// An open database. Failures are Erro with the provider's number and the database's own words. One caller at a time.
class Engine {
 public:
  virtual ~Engine() = default;
  virtual std::string_view name() const = 0;

  // Runs a batch of statements whose values stand in the text. Nothing runs when one of them has a syntax error;
  // the first that fails ends the batch, and has changed nothing itself.
  virtual Outcome execute(std::string_view batch) = 0;
  // Keeps one statement with "?" in place of values.
  virtual std::shared_ptr<PreparedStatement> prepare(std::string_view statement) = 0;
  // The database's plan for a statement, for a person and for tests: one step a line.
  virtual std::string explain(std::string_view statement) = 0;
  // The last generated key of this connection; null when there was none.
  virtual Variant last_identity() const = 0;

  // begin raises 0x8004D013 in a transaction, the others 0x8004D00E outside one. A writing statement that runs out of
  // time may end its transaction, rolled back: in_transaction tells.
  virtual void begin() = 0;
  virtual void commit() = 0;
  virtual void rollback() = 0;
  virtual bool in_transaction() const = 0;

  // Seconds until a statement is given up with 0x80040E31; 0 waits for ever.
  virtual void set_command_timeout(std::int32_t seconds) = 0;
  virtual void set_observer(StatementObserver observer) = 0;

  // Creates every table and index of the catalogue in an empty database.
  virtual void create_schema() = 0;
};

// Opens what a connection string names: "sqlite:FILE" or a plain path, "postgresql://user@host/database", "DSN=...",
// "Driver=...". Seconds: the wait for a server, or for a file that another process holds. Raises 0x80004005.
std::shared_ptr<Engine> open_engine(std::string_view connection_string, std::int32_t timeout_seconds);
// The connection string as a message may show it: "***" in place of a password.
std::string shown_address(std::string_view connection_string);
// Makes a new database with all tables: a file that does not exist, or the tables in an empty database of a server.
// Raises 0x80004005, and leaves what stood there as it was.
std::shared_ptr<Engine> create_database(std::string_view connection_string, std::int32_t timeout_seconds);

}  // namespace posto
