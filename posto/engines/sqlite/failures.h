// SQLite's failures as the provider's.
#pragma once

#include <sqlite3.h>

#include <string_view>

#include "posto/engines/sqlite/session.h"

namespace posto::sqlite {

// Raises the last failure of `database` while `statement` ran, with the provider's number and a message that names
// table and column.
[[noreturn]] void raise_failure(sqlite3* database, Session& session, std::string_view statement);

}  // namespace posto::sqlite
