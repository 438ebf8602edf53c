// The program: the flows from a shell.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <string>

#include "posto/core/error_vocabulary.h"
#include "posto/types/erro.h"
#include "program/command.h"
#include "program/wrong_use.h"

namespace {

using namespace posto::program;

// What was asked goes against a rule of the system, or names what is not there: nothing is broken.
bool is_refusal(const posto::Erro& failure) {
  return failure.number() == posto::erro::kRuleViolation || failure.number() == posto::erro::kRecordNotFound;
}

Status tell(const posto::Erro& failure) {
  const bool refused = is_refusal(failure);
  std::string told = failure.description();
  told.erase(told.find_last_not_of(" \r\n") + 1);  // a server's own words end a line
  fmt::print(stderr, "{}: {}\n", refused ? "Recusado" : posto::number_text(failure.number()), told);
  if (!failure.source().empty()) fmt::print(stderr, "caminho: {}\n", failure.source());
  return refused ? kRefused : kFailed;
}

// An answer that could not be written whole, to a full disk for one, is a failure.
int written(int status) {
  if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return status;
  fmt::print(stderr, "A resposta não pôde ser escrita por inteiro: {}\n", std::strerror(errno));
  return kFailed;
}

int run(int argc, char** argv) {
  CLI::App app(
      "posto: os fluxos de um posto de combustíveis.\n"
      "Termina com 0 (feito), 1 (recusado, com o que foi encontrado), 2 (uso errado) ou 3 (falha).");
  app.name("posto");
  Session session;
  speak_portuguese(app);
  app.require_subcommand(1);
  for (auto add : {add_criar,   add_cadastrar,  add_importar,         add_pendentes,  add_estoque, add_bicos,
                   add_buscar,  add_configurar, add_bloquear_credito, add_consolidar, add_entrada, add_nota,
                   add_reducao, add_caixa,      add_vender,           add_baixar,     add_cupom,   add_fechar,
                   add_aceitos, add_reabrir,    add_recalcular,       add_sql}) {
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
    return tell(failure);
  }
  return session.status;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return written(run(argc, argv));
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return kFailed;
  }
}
