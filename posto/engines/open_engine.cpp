#include <filesystem>

#include "posto/engines/engine.h"
#include "posto/engines/postgres/postgres_engine.h"
#include "posto/engines/sqlite/sqlite_engine.h"

namespace posto {
namespace {

bool is_postgres(std::string_view connection_string) {
  return connection_string.starts_with("postgresql://") || connection_string.starts_with("postgres://");
}

std::string file_of(std::string_view connection_string) {
  constexpr std::string_view kScheme = "sqlite:";
  if (connection_string.starts_with(kScheme)) connection_string.remove_prefix(kScheme.size());
  return std::string(connection_string);
}

// The database is made under another name, so that a file that bears its name is always whole.
std::shared_ptr<Engine> create_file(const std::string& file, std::int32_t timeout_seconds) {
  namespace fs = std::filesystem;
  auto failed = [&](const std::string& why) { return Erro(erro::kProviderFailure, "SQLite", "O banco " + file + why); };
  if (fs::exists(file)) throw failed(" já existe");
  const std::string unfinished = file + ".criando";
  for (const char* part : {"", "-wal", "-shm"}) fs::remove(unfinished + part);
  std::make_shared<sqlite::SqliteEngine>(unfinished, timeout_seconds, true)->create_schema();
  std::error_code error;
  fs::rename(unfinished, file, error);
  if (error) throw failed(" não pôde ser criado: " + error.message());
  return open_engine(file, timeout_seconds);
}

}  // namespace

std::shared_ptr<Engine> open_engine(std::string_view connection_string, std::int32_t timeout_seconds) {
  if (is_postgres(connection_string)) {
    return std::make_shared<postgres::PostgresEngine>(std::string(connection_string), timeout_seconds, false);
  }
  return std::make_shared<sqlite::SqliteEngine>(file_of(connection_string), timeout_seconds, false);
}

std::shared_ptr<Engine> create_database(std::string_view connection_string, std::int32_t timeout_seconds) {
  const std::string file = file_of(connection_string);
  if (!is_postgres(connection_string) && file != ":memory:") return create_file(file, timeout_seconds);
  std::shared_ptr<Engine> engine;
  if (is_postgres(connection_string)) {
    engine = std::make_shared<postgres::PostgresEngine>(std::string(connection_string), timeout_seconds, true);
  } else {
    engine = std::make_shared<sqlite::SqliteEngine>(file, timeout_seconds, true);
  }
  engine->create_schema();
  return engine;
}

}  // namespace posto
