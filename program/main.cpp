// The program: the flows from a shell.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>

#include "posto/types/erro.h"
#include "program/command.h"
#include "program/wrong_use.h"

namespace {

using namespace posto::program;

void print_failure(const posto::Erro& failure) {
  fmt::print(stderr, "{}: {}\n", posto::number_text(failure.number()), failure.description());
  if (!failure.source().empty()) fmt::print(stderr, "caminho: {}\n", failure.source());
}

int run(int argc, char** argv) {
  CLI::App app(
      "posto: os fluxos de um posto de combustíveis.\n"
      "Termina com 0 (feito), 1 (recusado, com o que foi encontrado), 2 (uso errado) ou 3 (falha).");
  Session session;
  speak_portuguese(app);
  app.require_subcommand(1);
  for (auto add :
       {add_criar,      add_cadastrar,        add_importar,   add_pendentes, add_estoque, add_bicos,      add_buscar,
        add_configurar, add_bloquear_credito, add_consolidar, add_entrada,   add_nota,    add_reducao,    add_caixa,
        add_vender,     add_baixar,           add_cupom,      add_fechar,    add_reabrir, add_recalcular, add_sql}) {
    add(app, session);
  }
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
  }
  return session.status;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return kFailed;
  }
}
