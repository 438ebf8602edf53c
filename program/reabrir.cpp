#include <fmt/format.h>

#include "flows/closing.h"
#include "program/command.h"

namespace posto::program {

void add_reabrir(CLI::App& app, Session& session) {
  auto day = std::make_shared<Date>();
  CLI::App* command = add_command(app, session, "reabrir", "Reabre um dia que foi fechado", [&session, day] {
    flows::Station station = session.open();
    const bool was_closed = flows::reopen_day(station, *day);
    fmt::print("O dia {} {}.\n", format_date(*day, "dd/mm/yyyy"), was_closed ? "está reaberto" : "não estava fechado");
    if (!was_closed) session.status = kRefused;
  });
  add_day(command, "--dia", *day, "dia a reabrir");
  command->get_option("--dia")->required();
}

}  // namespace posto::program
