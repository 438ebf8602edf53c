#include "posto/engines/sqlite/cursors.h"

#include <string>

#include "posto/engines/row_stream.h"
#include "posto/types/erro.h"

namespace posto::sqlite {
namespace {

constexpr std::string_view kProvider = "SQLite";

std::string_view stored_text(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

std::int64_t date_of(sqlite3_value* value) {
  const std::string_view text = stored_text(value);
  auto date = Date::parse_iso(text);
  if (!date) throw Erro(erro::kConversion, std::string(kProvider), "Data inválida no banco: " + std::string(text));
  return date->millis();
}

std::int64_t integer_of(sqlite3_value* value, const ResultColumn& column) {
  if (sqlite3_value_type(value) != SQLITE_INTEGER) raise_no_room(column, kProvider);
  const std::int64_t integer = sqlite3_value_int64(value);
  if (column.type != SqlType::money && integer != static_cast<std::int32_t>(integer)) raise_no_room(column, kProvider);
  return integer;
}

}  // namespace

// The value is looked at where it stands, which is safe because a connection has one caller at a time.
void read_cell(sqlite3_stmt* prepared, std::size_t place, const ResultColumn& column, Cell& cell) {
  sqlite3_value* value = sqlite3_column_value(prepared, static_cast<int>(place));
  cell.null = sqlite3_value_type(value) == SQLITE_NULL;
  if (cell.null) return;
  switch (column.type) {
    case SqlType::float32:
    case SqlType::float64:
      cell.real = require_finite(sqlite3_value_double(value), column, kProvider);
      break;
    case SqlType::text:
      cell.text = stored_text(value);
      break;
    case SqlType::date:
      cell.integer = date_of(value);
      break;
    default:
      cell.integer = integer_of(value, column);
  }
}

void read_row(sqlite3_stmt* prepared, const ResultShape& shape, std::span<Cell> row) {
  for (std::size_t i = 0; i < row.size(); ++i) read_cell(prepared, i, shape.columns()[i], row[i]);
}

void read_reckoned(sqlite3_stmt* prepared, const ResultShape& shape, std::span<Cell> row) {
  for (std::size_t i = 0; i < row.size(); ++i) {
    const ResultColumn& column = shape.columns()[i];
    row[i].unread = column.column != nullptr;
    if (!row[i].unread) read_cell(prepared, i, column, row[i]);
  }
}

}  // namespace posto::sqlite
