// PostgreSQL's failures as failures of the provider.
#pragma once

#include <libpq-fe.h>

#include <string_view>

#include "posto/types/erro.h"

namespace posto::postgres {

// The failure that a result tells of, met by `statement`; of the connection where `result` is null.
Erro failure_of(PGconn* connection, const PGresult* result, std::string_view statement);

}  // namespace posto::postgres
