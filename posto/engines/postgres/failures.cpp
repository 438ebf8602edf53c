#include "posto/engines/postgres/failures.h"

#include <string>

#include "posto/types/text.h"

namespace posto::postgres {
namespace {

std::string field(const PGresult* result, int code) {
  const char* value = PQresultErrorField(result, code);
  return value == nullptr ? "" : value;
}

// "Table.Column", of a constraint that bears its column's name.
std::string place(const PGresult* result, int column_field) {
  return field(result, PG_DIAG_TABLE_NAME) + "." + field(result, column_field);
}

// "Table (a, b)", from the server's `Key ("a", "b")=(1, 2) already exists.`
std::string key_of(const PGresult* result) {
  const std::string detail = field(result, PG_DIAG_MESSAGE_DETAIL);
  const std::size_t open = detail.find('('), close = detail.find(")=");
  std::string columns;
  if (open != std::string::npos && close != std::string::npos) {
    for (char c : detail.substr(open, close - open + 1)) {
      if (c != '"') columns += c;
    }
  }
  return field(result, PG_DIAG_TABLE_NAME) + (columns.empty() ? "" : " " + columns);
}

struct Known {
  std::string_view state;  // a SQLSTATE, or the class that begins it
  std::int32_t number;
  std::string_view description;  // empty: the server's own words
};

// The first that fits is taken. PO1.. are the states of our own functions, with the words of our own.
constexpr Known kKnown[] = {{"PO107", erro::kConversion, ""},
                            {"PO114", erro::kSyntax, ""},
                            {"PO157", erro::kDataOverflow, ""},
                            {"22012", erro::kSyntax, "Divisão por zero"},
                            {"21000", erro::kSyntax, "A subconsulta deu mais de um valor"},
                            {"22003", erro::kDataOverflow, "Estouro aritmético"},
                            {"22008", erro::kConversion, ""},
                            {"22P02", erro::kConversion, ""},
                            {"22021", erro::kConversion, "Texto com caracteres que o banco não guarda"},
                            {"22", erro::kDataOverflow, ""},
                            {"23", erro::kIntegrity, ""},
                            {"57014", erro::kTimeout, "Tempo esgotado"},
                            {"55P03", erro::kTimeout, "O banco está ocupado por outro processo"},
                            {"40P01", erro::kTimeout, "Duas transações esperavam uma pela outra"},
                            {"40001", erro::kTimeout, "O registro foi alterado por outro processo"},
                            {"54", erro::kSyntax, ""},
                            {"42", erro::kSyntax, ""}};

struct Failure {
  std::int32_t number;
  std::string description;
};

Failure described(const std::string& state, const PGresult* result) {
  if (state == "23502") return {erro::kIntegrity, "Valor nulo não permitido em " + place(result, PG_DIAG_COLUMN_NAME)};
  if (state == "23505") return {erro::kIntegrity, "Chave duplicada em " + key_of(result)};
  if (state == "23514") return {erro::kDataOverflow, "O valor não cabe em " + place(result, PG_DIAG_CONSTRAINT_NAME)};
  const std::string message = field(result, PG_DIAG_MESSAGE_PRIMARY);
  for (const Known& known : kKnown) {
    if (state.starts_with(known.state)) {
      return {known.number, known.description.empty() ? message : std::string(known.description)};
    }
  }
  return {erro::kProviderFailure, message};
}

// The server stops, was told to end this connection, or cannot be reached.
bool ends_connection(std::string_view state) { return state.starts_with("57P") || state.starts_with("08"); }

}  // namespace

Erro failure_of(PGconn* connection, const PGresult* result, std::string_view statement) {
  ProviderDetail detail{.sqlstate = result == nullptr ? "" : field(result, PG_DIAG_SQLSTATE),
                        .statement = std::string(statement)};
  if (result == nullptr || PQstatus(connection) != CONNECTION_OK || ends_connection(detail.sqlstate)) {
    detail.connection_good = false;
    return {erro::kProviderFailure, "PostgreSQL",
            "A conexão com o servidor foi perdida: " + std::string(trim(PQerrorMessage(connection))), detail};
  }
  auto [number, description] = described(detail.sqlstate, result);
  return {number, "PostgreSQL", description, detail};
}

}  // namespace posto::postgres
