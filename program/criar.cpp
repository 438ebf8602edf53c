#include <fmt/format.h>

#include "posto/engines/postgres/partitions.h"
#include "program/command.h"

namespace posto::program {

void add_criar(CLI::App& app, Session& session) {
  auto partitioned = std::make_shared<bool>(false);
  CLI::App* command =
      add_command(app, session, "criar", "Cria um banco novo, com todas as tabelas e índices", [&session, partitioned] {
        auto connection = Connection::create();
        if (*partitioned) {
          postgres::create_partitioned(session.database, connection->ConnectionTimeout);
        } else {
          connection->observe(session.observer());
          connection->Create(session.database);
        }
        fmt::print("Banco {} criado com {} tabelas.\n", shown_address(session.database), all_tables().size());
      });
  command->add_flag("--particionar", *partitioned,
                    "em PostgreSQL: as tabelas grandes em partições, uma para cada empresa");
}

}  // namespace posto::program
