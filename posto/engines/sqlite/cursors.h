// Rows of SQLite as cells.
#pragma once

#include <sqlite3.h>

#include <span>

#include "posto/engines/engine.h"

namespace posto::sqlite {

// Read the row on which `prepared` stands, or one cell of it. Raise 0x80040E57 for a value that the column's type
// cannot hold.
void read_row(sqlite3_stmt* prepared, const ResultShape& shape, std::span<Cell> row);
void read_cell(sqlite3_stmt* prepared, std::size_t place, const ResultColumn& column, Cell& cell);
// Only what was reckoned; a column of a table, whose values keep to its type, stays unread.
void read_reckoned(sqlite3_stmt* prepared, const ResultShape& shape, std::span<Cell> row);

}  // namespace posto::sqlite
