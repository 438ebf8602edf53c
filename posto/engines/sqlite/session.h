// What a connection to SQLite remembers beside its database.
#pragma once

#include <chrono>
#include <optional>

#include "posto/engines/session.h"
#include "posto/types/erro.h"

namespace posto::sqlite {

struct Session : EngineSession {
  std::optional<std::chrono::steady_clock::time_point> running_since;  // of the statement under way, once it took long
  std::optional<Erro> function_failure;  // what a function of ours said before SQLite gave up the statement
};

}  // namespace posto::sqlite
