#include <fmt/format.h>

#include "program/command.h"

namespace posto::program {

void add_criar(CLI::App& app, Session& session) {
  add_command(app, session, "criar", "Cria um banco novo, com todas as tabelas e índices", [&session] {
    auto connection = Connection::create();
    connection->observe(session.observer());
    connection->Create(session.database);
    fmt::print("Banco {} criado com {} tabelas.\n", shown_address(session.database), all_tables().size());
  });
}

}  // namespace posto::program
