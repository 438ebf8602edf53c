#include "posto/engines/sqlite/failures.h"

#include <string>

namespace posto::sqlite {
namespace {

struct Failure {
  std::int32_t number;
  std::string description;
};

// What stands behind the first ": " of SQLite's message: the constraint's columns or name.
std::string constraint_of(const std::string& message) {
  std::size_t colon = message.find(": ");
  return colon == std::string::npos ? message : message.substr(colon + 2);
}

// "Table.a, Table.b" as "Table (a, b)".
std::string table_and_columns(const std::string& list) {
  std::size_t point = list.find('.');
  if (point == std::string::npos) return list;
  const std::string table = list.substr(0, point);
  std::string columns = list.substr(point + 1);
  const std::string prefix = table + ".";
  for (std::size_t at = columns.find(prefix); at != std::string::npos; at = columns.find(prefix))
    columns.erase(at, prefix.size());
  return table + " (" + columns + ")";
}

Failure constraint_failure(int code, const std::string& message) {
  const std::string what = constraint_of(message);
  switch (code) {
    case SQLITE_CONSTRAINT_NOTNULL:
      return {erro::kIntegrity, "Valor nulo não permitido em " + what};
    case SQLITE_CONSTRAINT_CHECK: {
      // The constraint's name is "Table.Column: limit".
      std::size_t colon = what.find(": ");
      if (colon == std::string::npos) return {erro::kIntegrity, "Restrição violada: " + what};
      return {erro::kDataOverflow,
              "O valor não cabe em " + what.substr(0, colon) + " (" + what.substr(colon + 2) + ")"};
    }
    case SQLITE_CONSTRAINT_DATATYPE: {
      std::size_t column = what.rfind(' ');
      return {erro::kDataOverflow, "O valor não cabe em " + what.substr(column + 1)};
    }
    default:
      return {erro::kIntegrity, "Chave duplicada em " + table_and_columns(what)};
  }
}

// What the compiler let pass and the database does not take.
Failure statement_failure(const std::string& message) {
  struct Known {
    std::string_view part;
    Failure failure;
  };
  static const Known kKnown[] = {{"integer overflow", {erro::kDataOverflow, "Estouro aritmético"}},
                                 {"parser stack overflow", {erro::kSyntax, "Expressão aninhada demais"}},
                                 {"Expression tree is too large", {erro::kSyntax, "Expressão longa demais"}},
                                 {"too many terms", {erro::kSyntax, "Comando com partes demais"}},
                                 {"too many columns", {erro::kSyntax, "Colunas demais"}},
                                 {"too many SQL variables", {erro::kSyntax, "Valores demais num comando"}},
                                 {"at most 64 tables in a join", {erro::kSyntax, "Tabelas demais numa junção"}}};
  for (const Known& known : kKnown) {
    if (message.find(known.part) != std::string::npos) return known.failure;
  }
  return {erro::kSyntax, message};
}

Failure failure_of(int code, const std::string& message) {
  switch (code & 0xFF) {
    case SQLITE_CONSTRAINT:
      return constraint_failure(code, message);
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return {erro::kTimeout, "O banco está ocupado por outro processo"};
    case SQLITE_INTERRUPT:
      return {erro::kTimeout, "Tempo esgotado"};
    case SQLITE_ERROR:
      return statement_failure(message);
    case SQLITE_TOOBIG:
      return {erro::kDataOverflow, message};
    case SQLITE_MISMATCH:
      return {erro::kConversion, message};
    case SQLITE_READONLY:
      return {erro::kProviderFailure, "O banco só pode ser lido"};
    case SQLITE_FULL:
      return {erro::kProviderFailure, "Não há mais espaço no disco"};
    case SQLITE_NOTADB:
      return {erro::kProviderFailure, "O arquivo não é um banco"};
    default:
      return {erro::kProviderFailure, message};
  }
}

bool ends_connection(int code) {
  switch (code & 0xFF) {
    case SQLITE_CORRUPT:
    case SQLITE_IOERR:
    case SQLITE_NOTADB:
    case SQLITE_CANTOPEN:
      return true;
    default:
      return false;
  }
}

}  // namespace

void raise_failure(sqlite3* database, Session& session, std::string_view statement) {
  int code = sqlite3_extended_errcode(database);
  ProviderDetail detail{
      .native_code = code, .statement = std::string(statement), .connection_good = !ends_connection(code)};
  if (session.function_failure) {
    Erro said = *session.function_failure;
    session.function_failure.reset();
    throw Erro(said.number(), "SQLite", said.description(), std::move(detail));
  }
  Failure failure = failure_of(code, sqlite3_errmsg(database));
  throw Erro(failure.number, "SQLite", failure.description, std::move(detail));
}

}  // namespace posto::sqlite
