#include "raw.h"

#include <fmt/format.h>

#include <cstdlib>

#include "posto/engines/sqlite/functions.h"

namespace posto::bench {
namespace {

void require(sqlite3* database, bool good) {
  if (good) return;
  fmt::print(stderr, "{}\n", sqlite3_errmsg(database));
  std::abort();
}

}  // namespace

RawDatabase::RawDatabase(const std::string& path) {
  require(database_,
          sqlite3_open_v2(path.c_str(), &database_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) == SQLITE_OK);
  sqlite::register_functions(database_, session_);
  run("PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL; PRAGMA temp_store = MEMORY; PRAGMA cache_size = -32000;");
}

RawDatabase::~RawDatabase() {
  while (sqlite3_stmt* statement = sqlite3_next_stmt(database_, nullptr)) sqlite3_finalize(statement);
  sqlite3_close(database_);
}

void RawDatabase::run(const char* sql) {
  require(database_, sqlite3_exec(database_, sql, nullptr, nullptr, nullptr) == SQLITE_OK);
}

sqlite3_stmt* RawDatabase::prepare(const std::string& sql) {
  sqlite3_stmt* statement = nullptr;
  require(database_,
          sqlite3_prepare_v3(database_, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) == SQLITE_OK);
  return statement;
}

void read_row(sqlite3_stmt* statement, const ValueObject& vo) {
  int i = -1;
  for (const Property& p : vo.layout().properties()) {
    if (sqlite3_column_type(statement, ++i) == SQLITE_NULL) continue;
    switch (p.type) {
      case SqlType::bit:
        vo.member<bool>(p) = sqlite3_column_int(statement, i) != 0;
        break;
      case SqlType::byte:
        vo.member<std::uint8_t>(p) = static_cast<std::uint8_t>(sqlite3_column_int(statement, i));
        break;
      case SqlType::int16:
        vo.member<std::int16_t>(p) = static_cast<std::int16_t>(sqlite3_column_int(statement, i));
        break;
      case SqlType::int32:
        vo.member<std::int32_t>(p) = sqlite3_column_int(statement, i);
        break;
      case SqlType::float32:
        vo.member<float>(p) = static_cast<float>(sqlite3_column_double(statement, i));
        break;
      case SqlType::float64:
        vo.member<double>(p) = sqlite3_column_double(statement, i);
        break;
      case SqlType::money:
        vo.member<Currency>(p) = Currency::of_scaled(sqlite3_column_int64(statement, i));
        break;
      case SqlType::date: {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
        vo.member<Date>(p) = *Date::parse_iso({text, static_cast<std::size_t>(sqlite3_column_bytes(statement, i))});
        break;
      }
      case SqlType::text: {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
        vo.member<std::string>(p).assign(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, i)));
        break;
      }
    }
  }
}

void bind_row(sqlite3_stmt* statement, const ValueObject& vo) {
  int place = 0;
  for (const Property& p : vo.layout().properties()) {
    ++place;
    switch (p.type) {
      case SqlType::bit:
        sqlite3_bind_int(statement, place, vo.member<bool>(p));
        break;
      case SqlType::byte:
        sqlite3_bind_int(statement, place, vo.member<std::uint8_t>(p));
        break;
      case SqlType::int16:
        sqlite3_bind_int(statement, place, vo.member<std::int16_t>(p));
        break;
      case SqlType::int32:
        sqlite3_bind_int(statement, place, vo.member<std::int32_t>(p));
        break;
      case SqlType::float32:
        sqlite3_bind_double(statement, place, static_cast<double>(vo.member<float>(p)));
        break;
      case SqlType::float64:
        sqlite3_bind_double(statement, place, vo.member<double>(p));
        break;
      case SqlType::money:
        sqlite3_bind_int64(statement, place, vo.member<Currency>(p).scaled());
        break;
      case SqlType::date:
        bind_date(statement, place, vo.member<Date>(p));
        break;
      case SqlType::text:
        bind_text(statement, place, vo.member<std::string>(p));
        break;
    }
  }
}

void bind_text(sqlite3_stmt* statement, int place, std::string_view text) {
  if (text.empty()) {
    sqlite3_bind_null(statement, place);
  } else {
    sqlite3_bind_text(statement, place, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
  }
}

void bind_date(sqlite3_stmt* statement, int place, Date date) {
  if (date.empty()) {
    sqlite3_bind_null(statement, place);
    return;
  }
  char text[24];
  std::size_t length = date.write_iso(text);
  sqlite3_bind_text(statement, place, text, static_cast<int>(length), SQLITE_TRANSIENT);
}

void step(sqlite3_stmt* statement) {
  require(sqlite3_db_handle(statement), sqlite3_step(statement) == SQLITE_DONE);
  sqlite3_reset(statement);
}

std::string columns_of(const Table& table) {
  std::string list;
  for (const Column& column : table.columns) list += (list.empty() ? "" : ", ") + std::string(column.name);
  return list;
}

std::string insert_of(const Table& table) {
  std::string marks;
  for (std::size_t i = 0; i < table.columns.size(); ++i) marks += i > 0 ? ", ?" : "?";
  return fmt::format("INSERT INTO {} ({}) VALUES ({})", table.name, columns_of(table), marks);
}

}  // namespace posto::bench
