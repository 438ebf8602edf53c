// What a connection remembers beside its database.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "posto/tsql/binder.h"
#include "posto/tsql/date_literal.h"
#include "posto/types/erro.h"

namespace posto::sqlite {

struct Session {
  tsql::DateOrder date_order;
  std::optional<std::int64_t> last_identity;
  std::vector<std::shared_ptr<tsql::TemporaryTable>> temporary_tables;
  std::int32_t command_timeout = 30;                                   // seconds, 0 for none
  std::optional<std::chrono::steady_clock::time_point> running_since;  // of the statement under way, once it took long
  std::optional<Erro> function_failure;  // what a function of ours said before SQLite gave up the statement

  const Table* find_table(std::string_view name) const;
};

}  // namespace posto::sqlite
