// Writes bound statements in SQLite's SQL.
#pragma once

#include "posto/tsql/compiled.h"

namespace posto::tsql {

// Money is written as its count of ten-thousandths, dates as text; functions that SQLite lacks or that answer otherwise
// are the engine's own (engines/sqlite/functions.h).
CompiledStatement write_sqlite(const Statement& statement);

}  // namespace posto::tsql
