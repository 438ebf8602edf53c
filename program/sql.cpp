#include <fmt/format.h>

#include <iostream>
#include <iterator>

#include "program/answer.h"
#include "program/command.h"

namespace posto::program {

void add_sql(CLI::App& app, Session& session) {
  struct SqlOptions {
    std::string batch;
    Form form = Form::aligned;
  };
  auto options = std::make_shared<SqlOptions>();
  CLI::App* command = add_command(app, session, "sql", "Executa comandos no dialeto do sistema", [&session, options] {
    if (options->batch == "-") options->batch.assign(std::istreambuf_iterator<char>(std::cin), {});
    auto connection = Connection::create();
    connection->observe(session.observer());
    connection->Open(session.database);
    std::int64_t affected = 0;
    Recordset rows = connection->Execute(options->batch, affected);
    if (rows.State() != 0) return print_rows(rows, options->form);
    if (options->form == Form::aligned) fmt::print("{} linhas alteradas\n", affected);
  });
  command->add_option("comandos", options->batch, "os comandos, ou - para a entrada padrão")->required();
  add_form(command, options->form);
}

}  // namespace posto::program
