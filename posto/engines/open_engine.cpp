#include "posto/engines/engine.h"
#include "posto/engines/sqlite/sqlite_engine.h"

namespace posto {

std::string_view database_file(std::string_view connection_string) {
  constexpr std::string_view kScheme = "sqlite:";
  if (connection_string.starts_with(kScheme)) connection_string.remove_prefix(kScheme.size());
  return connection_string;
}

std::shared_ptr<Engine> open_engine(std::string_view connection_string, std::int32_t timeout_seconds, bool create) {
  return std::make_shared<sqlite::SqliteEngine>(std::string(database_file(connection_string)), timeout_seconds, create);
}

}  // namespace posto
