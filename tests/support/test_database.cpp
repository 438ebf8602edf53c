#include "tests/support/test_database.h"

#include <fmt/format.h>
#include <libpq-fe.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <vector>

#include "posto/engines/odbc/connection_string.h"
#include "posto/engines/odbc/link.h"

namespace posto::testing {
namespace {

// What a server is told; "{0}" is a database's name.
struct Commands {
  std::string_view provider;
  std::string_view own_database;  // that is always there
  std::vector<std::string_view> make, take_away, disconnect;
  bool copies;  // a database is made once and copied for each test
};

constexpr const char* kTemplate = "posto_modelo";

const Commands kPostgres{
    .provider = "PostgreSQL",
    .own_database = "postgres",
    .make = {"CREATE DATABASE {0} TEMPLATE posto_modelo STRATEGY FILE_COPY"},  // eight times as fast
    .take_away = {"DROP DATABASE {0} WITH (FORCE)"},
    .disconnect = {"SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = '{0}'"},
    .copies = true};
const Commands kSqlServer{
    .provider = "SQL Server",
    .own_database = "master",
    .make = {"CREATE DATABASE {0}"},
    .take_away = {"ALTER DATABASE {0} SET SINGLE_USER WITH ROLLBACK IMMEDIATE", "DROP DATABASE {0}"},
    .disconnect = {"ALTER DATABASE {0} SET SINGLE_USER WITH ROLLBACK IMMEDIATE", "ALTER DATABASE {0} SET MULTI_USER"},
    .copies = false};

std::string server() {
  const char* address = std::getenv("POSTO_TEST_SERVER");
  return address == nullptr ? "" : address;
}

bool over_odbc() { return odbc::ConnectionString(server()).opens_odbc(); }

std::string address_on_server(std::string_view name) {
  if (!over_odbc()) return server() + "/" + std::string(name);
  odbc::ConnectionString address(server());
  address.set("Database", name);
  return address.text();
}

// The server itself, beside its databases.
class Server {
 public:
  virtual ~Server() = default;
  virtual const Commands& commands() const = 0;
  // True where rows came.
  virtual bool run(const std::string& command) = 0;
  void run_all(const std::vector<std::string_view>& all, const std::string& name) {
    for (std::string_view command : all) run(fmt::format(fmt::runtime(command), name));
  }
};

class OwnServer final : public Server {
 public:
  OwnServer() : connection_(PQconnectdb(address_on_server(kPostgres.own_database).c_str())) {
    if (PQstatus(connection_) != CONNECTION_OK) fail();
  }
  OwnServer(const OwnServer&) = delete;
  OwnServer& operator=(const OwnServer&) = delete;
  ~OwnServer() override { PQfinish(connection_); }

  const Commands& commands() const override { return kPostgres; }
  bool run(const std::string& command) override {
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

// Which server it is tells the driver once a connection stands; that of SQL Server opens without a database's name.
class OdbcServer final : public Server {
 public:
  const Commands& commands() const override { return commands_of(link_); }
  bool run(const std::string& command) override { return !link_.run(command).empty(); }

 private:
  static const Commands& commands_of(const odbc::Link& link) {
    return link.server().to_the_letter ? kSqlServer : kPostgres;
  }
  static std::string address() {
    odbc::ConnectionString own(server());
    if (own.find("Database") || own.text().find("ostgre") == std::string::npos) return own.text();
    return address_on_server(kPostgres.own_database);
  }
  odbc::Link link_{address(), 10};
};

std::unique_ptr<Server> open_server() {
  if (over_odbc()) return std::make_unique<OdbcServer>();
  return std::make_unique<OwnServer>();
}

void require_template(Server& here) {
  here.run("SELECT pg_advisory_lock(1)");  // tests run beside each other
  if (!here.run(fmt::format("SELECT 1 FROM pg_database WHERE datname = '{}'", kTemplate))) {
    here.run(fmt::format("CREATE DATABASE {}", kTemplate));
    create_database(address_on_server(kTemplate), 10);
  }
  here.run("SELECT pg_advisory_unlock(1)");
}

}  // namespace

std::string provider() {
  static const std::string name(server().empty() ? "SQLite" : open_server()->commands().provider);
  return name;
}

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
  address_ = address_on_server(name_);
  const auto here = open_server();
  if (here->commands().copies) require_template(*here);
  here->run_all(here->commands().make, name_);
  if (!here->commands().copies) create_database(address_, 30);
}

TestDatabase::~TestDatabase() {
  if (!embedded()) {
    const auto here = open_server();
    here->run_all(here->commands().take_away, name_);
  }
  if (!folder_.empty()) std::filesystem::remove_all(folder_);
}

void TestDatabase::disconnect_all() const {
  const auto here = open_server();
  here->run_all(here->commands().disconnect, name_);
}

bool TestDatabase::driver_reads_ahead() { return over_odbc() && provider() == kPostgres.provider; }

std::string TestDatabase::address_of(std::string_view name) { return address_on_server(name); }

std::shared_ptr<Engine> TestDatabase::open() {
  return address_ == ":memory:" ? create_database(address_, 5) : open_engine(address_, 5);
}

}  // namespace posto::testing
