// Writes bound statements in PostgreSQL's SQL.
#pragma once

#include "posto/tsql/compiled.h"

namespace posto::tsql {

// Functions that PostgreSQL lacks or that answer otherwise are created with the database
// (engines/postgres/functions.h). An INSERT into a table with a generated column gives its value back.
CompiledStatement write_postgres(const Statement& statement);

}  // namespace posto::tsql
