// The program: the flows from a shell.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <exception>

#include "posto/types/erro.h"
#include "program/command.h"

namespace {

using namespace posto::program;

void print_failure(const posto::Erro& failure) {
  fmt::print(stderr, "{}: {}\n", posto::number_text(failure.number()), failure.description());
  if (!failure.source().empty()) fmt::print(stderr, "caminho: {}\n", failure.source());
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app(
      "posto: os fluxos de um posto de combustíveis.\n"
      "Termina com 0 (feito), 1 (recusado, com o que foi encontrado), 2 (uso errado) ou 3 (falha).");
  Session session;
  app.require_subcommand(1);
  add_criar(app, session);
  add_cadastrar(app, session);
  add_importar(app, session);
  add_pendentes(app, session);
  add_estoque(app, session);
  add_bicos(app, session);
  add_sql(app, session);
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& shown) {
    return app.exit(shown);
  } catch (const CLI::ParseError& wrong) {
    app.exit(wrong);
    return kWrongUse;
  } catch (const posto::Erro& failure) {
    print_failure(failure);
    return kFailed;
  } catch (const std::exception& failure) {
    fmt::print(stderr, "{}\n", failure.what());
    return kFailed;
  }
  return session.status;
}
