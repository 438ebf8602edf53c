// Rows of SQLite as cells.
#pragma once

#include <sqlite3.h>

#include <span>

#include "posto/engines/engine.h"

namespace posto::sqlite {

// Reads the row on which `prepared` stands. Raises 0x80040E57 for a value that the column's type cannot hold.
void read_row(sqlite3_stmt* prepared, const ResultShape& shape, std::span<Cell> row);

}  // namespace posto::sqlite
