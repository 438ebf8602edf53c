// The functions and the collation by which SQLite answers as the dialect asks.
#pragma once

#include <sqlite3.h>

#include "posto/engines/sqlite/session.h"

namespace posto::sqlite {

// Registers them on an open database; `session` must outlive it. A function that fails leaves the failure in
// Session::function_failure.
void register_functions(sqlite3* database, Session& session);

}  // namespace posto::sqlite
