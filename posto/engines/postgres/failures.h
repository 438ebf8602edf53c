// PostgreSQL's failures as failures of the provider.
#pragma once

#include <libpq-fe.h>

#include <string>
#include <string_view>

#include "posto/types/erro.h"

namespace posto::postgres {

// What the server says of a failure; empty where it does not say it.
struct ServerWords {
  std::string state, message, detail, table, column, constraint;
};

struct Failure {
  std::int32_t number;
  std::string description;
};
Failure described(const ServerWords& words);

// The server stops, was told to end this connection, or cannot be reached.
bool ends_connection(std::string_view state);

// The failure that a result tells of, met by `statement`; of the connection where `result` is null.
Erro failure_of(PGconn* connection, const PGresult* result, std::string_view statement);

}  // namespace posto::postgres
