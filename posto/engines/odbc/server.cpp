#include "posto/engines/odbc/server.h"

#include <fmt/format.h>

#include <algorithm>

#include "posto/engines/postgres/functions.h"
#include "posto/tsql/postgres_writer.h"
#include "posto/tsql/sqlserver_ddl.h"
#include "posto/tsql/sqlserver_writer.h"

namespace posto::odbc {
namespace {

std::string_view order_of(const EngineSession& session) { return {session.date_order.order, 3}; }

// --- PostgreSQL

std::string postgres_settings(const EngineSession& session) {
  return fmt::format("SELECT set_config('posto.date_order', '{}', false)", order_of(session));
}

std::vector<std::string> postgres_schema() { return {postgres::creating_script()}; }

// For whatever values: a statement that the server keeps itself, planned before it sees them.
Explaining postgres_explain(const tsql::CompiledStatement& statement, std::string_view) {
  std::string types, nulls;
  for (const tsql::Parameter& p : statement.parameters) {
    types += fmt::format("{}{}", types.empty() ? "(" : ", ", sent_type(p));
    nulls += nulls.empty() ? "(NULL" : ", NULL";
  }
  if (!types.empty()) types += ')';
  if (!nulls.empty()) nulls += ')';
  return {.before = {fmt::format("PREPARE posto_explained {} AS {}", types, statement.text),
                     "SET plan_cache_mode = force_generic_plan"},
          .ask = "EXPLAIN (COSTS off) EXECUTE posto_explained" + nulls,
          .behind = {"RESET plan_cache_mode", "DEALLOCATE posto_explained"}};
}

// --- SQL Server

std::string sqlserver_settings(const EngineSession& session) {
  return fmt::format("SET DATEFORMAT {}", order_of(session));
}

std::vector<std::string> sqlserver_schema() {
  std::vector<std::string> statements;
  for (const Table& table : all_tables()) {
    statements.push_back(tsql::sqlserver_create_table(table));
    for (std::string& index : tsql::sqlserver_create_indexes(table)) statements.push_back(std::move(index));
  }
  return statements;
}

Explaining sqlserver_explain(const tsql::CompiledStatement&, std::string_view text) {
  return {.before = {"SET SHOWPLAN_TEXT ON"}, .ask = std::string(text), .behind = {"SET SHOWPLAN_TEXT OFF"}};
}

constexpr Server kServers[] = {
    {.dbms = "Microsoft SQL Server",
     .name = "SQL Server",
     .write = tsql::write_sqlserver,
     .to_the_letter = true,
     // What the statements count on: a text that is too long and a division by zero are failures, "= Null" is never
     // true, a failure undoes its own statement only.
     .opening = "SET ANSI_NULLS ON SET ANSI_WARNINGS ON SET ANSI_PADDING ON SET ARITHABORT ON "
                "SET CONCAT_NULL_YIELDS_NULL ON SET QUOTED_IDENTIFIER ON SET XACT_ABORT OFF SET NOCOUNT OFF",
     .station = "SELECT 1 FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_NAME = 'EmpresaUsuaria'",
     .settings = sqlserver_settings,
     .transactions_open = "SELECT @@TRANCOUNT",
     .identity = "SELECT @@IDENTITY",
     .schema = sqlserver_schema,
     .explain = sqlserver_explain,
     .told = told_by_sql_server},
    {.dbms = "PostgreSQL",
     .name = "PostgreSQL",
     .write = tsql::write_postgres,
     .to_the_letter = false,
     .opening = "SELECT set_config('search_path', current_setting('search_path') || ', posto', false)",
     .station = "SELECT 1 FROM pg_namespace WHERE nspname = 'posto'",
     .settings = postgres_settings,
     .transactions_open = "",
     .identity = "",
     .schema = postgres_schema,
     .explain = postgres_explain,
     .told = told_by_postgres}};

}  // namespace

std::string_view sent_type(const tsql::Parameter& p) {
  switch (p.type) {
    case SqlType::money:
      return "numeric";
    case SqlType::float32:
      return "real";
    case SqlType::float64:
      return "float8";
    case SqlType::date:
      return "timestamp";
    case SqlType::text:
      return p.compared ? "bpchar" : "text";
    default:
      return p.compared ? "bigint" : "int";
  }
}

const Server* server_named(std::string_view dbms) {
  const auto found = std::ranges::find_if(kServers, [&](const Server& s) { return s.dbms == dbms; });
  return found == std::end(kServers) ? nullptr : found;
}

}  // namespace posto::odbc
