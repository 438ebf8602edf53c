#include "posto/engines/sqlite/cursors.h"

#include <string>

#include "posto/engines/row_stream.h"
#include "posto/types/erro.h"

namespace posto::sqlite {
namespace {

constexpr std::string_view kProvider = "SQLite";

std::int64_t date_of(sqlite3_stmt* prepared, int i) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(prepared, i));
  auto date = Date::parse_iso({text, static_cast<std::size_t>(sqlite3_column_bytes(prepared, i))});
  if (!date) throw Erro(erro::kConversion, std::string(kProvider), "Data inválida no banco: " + std::string(text));
  return date->millis();
}

}  // namespace

void read_row(sqlite3_stmt* prepared, const ResultShape& shape, std::span<Cell> row) {
  int i = 0;
  for (const ResultColumn& column : shape.columns()) {
    Cell& cell = row[static_cast<std::size_t>(i)];
    int storage = sqlite3_column_type(prepared, i);
    cell.null = storage == SQLITE_NULL;
    if (!cell.null) {
      switch (column.type) {
        case SqlType::float32:
        case SqlType::float64:
          cell.real = require_finite(sqlite3_column_double(prepared, i), column, kProvider);
          break;
        case SqlType::text:
          cell.text = {reinterpret_cast<const char*>(sqlite3_column_text(prepared, i)),
                       static_cast<std::size_t>(sqlite3_column_bytes(prepared, i))};
          break;
        case SqlType::date:
          cell.integer = date_of(prepared, i);
          break;
        default:
          if (storage != SQLITE_INTEGER) raise_no_room(column, kProvider);
          cell.integer = sqlite3_column_int64(prepared, i);
          if (column.type != SqlType::money && cell.integer != static_cast<std::int32_t>(cell.integer))
            raise_no_room(column, kProvider);
      }
    }
    ++i;
  }
}

}  // namespace posto::sqlite
