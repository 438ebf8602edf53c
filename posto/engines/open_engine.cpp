#include <filesystem>

#include "posto/engines/engine.h"
#include "posto/engines/odbc/connection_string.h"
#include "posto/engines/odbc/odbc_engine.h"
#include "posto/engines/postgres/postgres_engine.h"
#include "posto/engines/sqlite/sqlite_engine.h"

namespace posto {
namespace {

constexpr std::string_view kFileScheme = "sqlite:";

std::string file_of(std::string_view connection_string) {
  if (connection_string.starts_with(kFileScheme)) connection_string.remove_prefix(kFileScheme.size());
  return std::string(connection_string);
}

// The engine of a server; null where the connection string names a file.
std::shared_ptr<Engine> server_engine(std::string_view connection_string, std::int32_t timeout_seconds, bool empty) {
  const std::string whole(connection_string);
  if (whole.starts_with(kFileScheme)) return nullptr;
  if (whole.starts_with("postgresql://") || whole.starts_with("postgres://")) {
    return std::make_shared<postgres::PostgresEngine>(whole, timeout_seconds, empty);
  }
  if (odbc::ConnectionString(whole).opens_odbc()) {
    return std::make_shared<odbc::OdbcEngine>(whole, timeout_seconds, empty);
  }
  return nullptr;
}

// The database is made under another name, so that a file that bears its name is always whole.
std::shared_ptr<Engine> create_file(const std::string& file, std::int32_t timeout_seconds) {
  namespace fs = std::filesystem;
  auto failed = [&](const std::string& why) { return Erro(erro::kProviderFailure, "SQLite", "O banco " + file + why); };
  if (fs::exists(file)) throw failed(" já existe");
  const std::string unfinished = file + ".criando";
  auto remove_unfinished = [&] {
    for (const char* part : {"", "-wal", "-shm"}) fs::remove(unfinished + part);
  };
  remove_unfinished();
  try {
    std::make_shared<sqlite::SqliteEngine>(unfinished, timeout_seconds, true)->create_schema();
  } catch (const Erro&) {
    remove_unfinished();
    throw;
  }
  // What SQLite could not move from its journal into the file would be lost with the name.
  if (fs::exists(unfinished + "-wal")) {
    remove_unfinished();
    throw failed(" não pôde ser criado: não há mais espaço no disco");
  }
  std::error_code error;
  fs::rename(unfinished, file, error);
  if (error) throw failed(" não pôde ser criado: " + error.message());
  return open_engine(file, timeout_seconds);
}

}  // namespace

std::shared_ptr<Engine> open_engine(std::string_view connection_string, std::int32_t timeout_seconds) {
  if (auto engine = server_engine(connection_string, timeout_seconds, false)) return engine;
  return std::make_shared<sqlite::SqliteEngine>(file_of(connection_string), timeout_seconds, false);
}

std::shared_ptr<Engine> create_database(std::string_view connection_string, std::int32_t timeout_seconds) {
  std::shared_ptr<Engine> engine = server_engine(connection_string, timeout_seconds, true);
  if (!engine) {
    const std::string file = file_of(connection_string);
    if (file != ":memory:") return create_file(file, timeout_seconds);
    engine = std::make_shared<sqlite::SqliteEngine>(file, timeout_seconds, true);
  }
  engine->create_schema();
  return engine;
}

}  // namespace posto
