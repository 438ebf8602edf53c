#include "posto/engines/postgres/partitions.h"

#include "posto/engines/postgres/functions.h"
#include "posto/engines/postgres/link.h"

namespace posto::postgres {

void create_partitioned(const std::string& uri, std::int32_t timeout_seconds) {
  if (!uri.starts_with("postgresql://") && !uri.starts_with("postgres://")) {
    throw Erro(erro::kProviderFailure, "PostgreSQL", "Só um servidor PostgreSQL guarda as empresas em partições");
  }
  Link link(uri, timeout_seconds);
  link.send("SELECT 1 FROM pg_namespace WHERE nspname = 'posto'");
  link.flush();
  if (PQntuples(link.finish({}).back().get()) > 0) {
    throw Erro(erro::kProviderFailure, "PostgreSQL", std::string("O banco ") + PQdb(link.connection()) + " já existe");
  }
  link.script(creating_script(true).c_str());
}

}  // namespace posto::postgres
