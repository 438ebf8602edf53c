#include "posto/engines/postgres/failures.h"

#include <string>

#include "posto/types/text.h"

namespace posto::postgres {
namespace {

std::string field(const PGresult* result, int code) {
  const char* value = PQresultErrorField(result, code);
  return value == nullptr ? "" : value;
}

// "Table (a, b)", from the server's `Key ("a", "b")=(1, 2) already exists.`
std::string key_of(const ServerWords& words) {
  const std::size_t open = words.detail.find('('), close = words.detail.find(")=");
  std::string columns;
  if (open != std::string::npos && close != std::string::npos) {
    for (char c : words.detail.substr(open, close - open + 1)) {
      if (c != '"') columns += c;
    }
  }
  return words.table + (columns.empty() ? "" : " " + columns);
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

}  // namespace

Failure described(const ServerWords& words) {
  const std::string& state = words.state;
  // A constraint bears its column's name.
  if (state == "23502") return {erro::kIntegrity, "Valor nulo não permitido em " + words.table + "." + words.column};
  if (state == "23505") return {erro::kIntegrity, "Chave duplicada em " + key_of(words)};
  if (state == "23514") return {erro::kDataOverflow, "O valor não cabe em " + words.table + "." + words.constraint};
  for (const Known& known : kKnown) {
    if (state.starts_with(known.state)) {
      return {known.number, known.description.empty() ? words.message : std::string(known.description)};
    }
  }
  return {erro::kProviderFailure, words.message};
}

bool ends_connection(std::string_view state) { return state.starts_with("57P") || state.starts_with("08"); }

Erro failure_of(PGconn* connection, const PGresult* result, std::string_view statement) {
  ProviderDetail detail{.sqlstate = result == nullptr ? "" : field(result, PG_DIAG_SQLSTATE),
                        .statement = std::string(statement)};
  if (result == nullptr || PQstatus(connection) != CONNECTION_OK || ends_connection(detail.sqlstate)) {
    detail.connection_good = false;
    return {erro::kProviderFailure, "PostgreSQL",
            "A conexão com o servidor foi perdida: " + std::string(trim(PQerrorMessage(connection))), detail};
  }
  auto [number, description] = described({.state = detail.sqlstate,
                                          .message = field(result, PG_DIAG_MESSAGE_PRIMARY),
                                          .detail = field(result, PG_DIAG_MESSAGE_DETAIL),
                                          .table = field(result, PG_DIAG_TABLE_NAME),
                                          .column = field(result, PG_DIAG_COLUMN_NAME),
                                          .constraint = field(result, PG_DIAG_CONSTRAINT_NAME)});
  return {number, "PostgreSQL", description, detail};
}

}  // namespace posto::postgres
