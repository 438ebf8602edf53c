#include <fmt/format.h>

#include "flows/registration.h"
#include "program/command.h"

namespace posto::program {

void add_cadastrar(CLI::App& app, Session& session) {
  auto folder = std::make_shared<std::string>();
  CLI::App* command =
      add_command(app, session, "cadastrar",
                  "Cadastra a empresa, produtos, bicos, compras, pessoas e tabelas a partir dos CSV de uma pasta",
                  [&session, folder] {
                    flows::Station station = session.open();
                    for (const flows::Registered& r : flows::register_station(station, *folder)) {
                      if (r.found) {
                        fmt::print("{:<22} {:6} novos {:6} já cadastrados\n", r.file, r.added, r.changed);
                      } else {
                        fmt::print("{:<22} não há\n", r.file);
                      }
                    }
                  });
  command
      ->add_option("pasta", *folder,
                   "pasta com empresa.csv, produtos.csv, ..., e os que têm o nome de uma tabela: Cliente.csv, UF.csv")
      ->required()
      ->check(existing_folder());
}

}  // namespace posto::program
