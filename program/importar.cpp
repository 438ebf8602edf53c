#include <fmt/format.h>

#include <chrono>

#include "flows/import_readings.h"
#include "program/command.h"

namespace posto::program {

void add_importar(CLI::App& app, Session& session) {
  auto file = std::make_shared<std::string>();
  CLI::App* command =
      add_command(app, session, "importar", "Importa as leituras da automação das bombas", [&session, file] {
        flows::Station station = session.open();
        auto started = std::chrono::steady_clock::now();
        flows::ImportResult result;
        {
          ProgressLine progress("Importando");
          result = flows::import_readings(station, *file,
                                          [&](std::size_t done, std::size_t total) { progress.show(done, total); });
        }
        const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - started;
        fmt::print("{} leituras: {} gravadas, {} repetidas, {} rejeitadas, em {:.2f} s\n", result.read, result.stored,
                   result.repeated, result.rejected, spent.count());
        if (result.rejected == 0) return;
        fmt::print("As rejeitadas estão em {}\n", result.rejected_file);
        session.status = kRefused;
      });
  command->add_option("leituras", *file, "arquivo CSV das leituras")->required()->check(existing_file());
}

}  // namespace posto::program
