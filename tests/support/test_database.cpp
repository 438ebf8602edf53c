#include "tests/support/test_database.h"

#include <libpq-fe.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace posto::testing {
namespace {

// Made once on the server, and copied for each test.
constexpr const char* kTemplate = "posto_modelo";

std::string server() {
  const char* address = std::getenv("POSTO_TEST_SERVER");
  return address == nullptr ? "" : address;
}

// The server itself, beside its databases.
class Server {
 public:
  Server() : connection_(PQconnectdb((server() + "/postgres").c_str())) {
    if (PQstatus(connection_) != CONNECTION_OK) fail();
  }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;
  ~Server() { PQfinish(connection_); }

  // True where rows came.
  bool run(const std::string& command) {
    PGresult* result = PQexec(connection_, command.c_str());
    const ExecStatusType status = PQresultStatus(result);
    const bool rows = PQntuples(result) > 0;
    PQclear(result);
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK) fail();
    return rows;
  }

 private:
  [[noreturn]] void fail() const { throw std::runtime_error(PQerrorMessage(connection_)); }
  PGconn* connection_;
};

void require_template(Server& server_) {
  server_.run("SELECT pg_advisory_lock(1)");  // tests run beside each other
  if (!server_.run(std::string("SELECT 1 FROM pg_database WHERE datname = '") + kTemplate + "'")) {
    server_.run(std::string("CREATE DATABASE ") + kTemplate);
    create_database(server() + "/" + kTemplate, 10);
  }
  server_.run("SELECT pg_advisory_unlock(1)");
}

}  // namespace

std::string provider() { return server().empty() ? "SQLite" : "PostgreSQL"; }

TestDatabase::TestDatabase(bool shared) {
  static int number = 0;
  if (server().empty() && shared) {
    std::string name = (std::filesystem::temp_directory_path() / "posto-XXXXXX").string();
    folder_ = mkdtemp(name.data());
    address_ = folder_ + "/posto.db";
    create_database(address_, 5);
  }
  if (server().empty()) return;
  name_ = "posto_" + std::to_string(getpid()) + "_" + std::to_string(++number);
  Server here;
  require_template(here);
  here.run("CREATE DATABASE " + name_ + " TEMPLATE " + kTemplate + " STRATEGY FILE_COPY");  // eight times as fast
  address_ = server() + "/" + name_;
}

TestDatabase::~TestDatabase() {
  if (!embedded()) Server().run("DROP DATABASE " + name_ + " WITH (FORCE)");
  if (!folder_.empty()) std::filesystem::remove_all(folder_);
}

void TestDatabase::disconnect_all() const {
  Server().run("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = '" + name_ + "'");
}

std::shared_ptr<Engine> TestDatabase::open() {
  return address_ == ":memory:" ? create_database(address_, 5) : open_engine(address_, 5);
}

}  // namespace posto::testing
