// The peer: the same work on SQLite's own interface, with kept prepared statements and nothing in between.
#pragma once

#include <sqlite3.h>

#include <string>

#include "posto/engines/sqlite/session.h"
#include "posto/schema/value_object.h"

namespace posto::bench {

// A database file in the same mode as the library's: write-ahead log, full synchronisation, the collation registered.
class RawDatabase {
 public:
  explicit RawDatabase(const std::string& path);
  ~RawDatabase();
  RawDatabase(const RawDatabase&) = delete;
  RawDatabase& operator=(const RawDatabase&) = delete;

  sqlite3* get() const { return database_; }
  void run(const char* sql);                      // aborts the program when it fails
  sqlite3_stmt* prepare(const std::string& sql);  // finalized with the database

 private:
  sqlite3* database_ = nullptr;
  sqlite::Session session_;
};

// One row into the members of a value object whose properties are the columns in their order, null leaving a member
// alone.
void read_row(sqlite3_stmt* statement, const ValueObject& vo);
// The members as parameters 1, 2, ... in the order of the properties; a zero date or an empty text as null.
void bind_row(sqlite3_stmt* statement, const ValueObject& vo);
// Steps a statement that gives no rows, and resets it.
void step(sqlite3_stmt* statement);
void bind_text(sqlite3_stmt* statement, int place, std::string_view text);
void bind_date(sqlite3_stmt* statement, int place, Date date);

// "INSERT INTO T VALUES (?, ...)", "a, b, c" of a table.
std::string insert_of(const Table& table);
std::string columns_of(const Table& table);

}  // namespace posto::bench
