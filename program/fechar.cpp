#include <fmt/format.h>

#include <cstdlib>

#include "flows/closing.h"
#include "program/answer.h"
#include "program/command.h"

namespace posto::program {
namespace {

struct Options {
  Date day;
  flows::ClosingOptions closing;
};

// The user of this computer, who closes the day where nobody else is named.
std::string user_of_computer() {
  for (const char* name : {"USER", "LOGNAME"}) {
    if (const char* value = std::getenv(name); value != nullptr && *value != '\0') return value;
  }
  return {};
}

void print_text(const std::string& text) {
  std::string line;
  auto end_line = [&line] {
    if (!line.empty()) fmt::print("  {}\n", line);
    line.clear();
  };
  for (const char c : text) {
    if (c == '\r' || c == '\n') {
      end_line();
    } else {
      line += c;
    }
  }
  end_line();
}

void print_finding(std::string_view mark, const flows::Finding& finding) {
  fmt::print("\n{} {} ({})\n{}\n", mark, finding.name, finding.count(), finding.meaning);
  print_text(finding.text);
  if (!finding.rows.empty()) {
    std::vector<AnswerColumn> columns;
    for (const std::string& column : finding.columns) columns.push_back({column, column});
    Answer answer(std::move(columns));
    for (const auto& row : finding.rows) answer.add(row);
    answer.print(Form::aligned);
  }
  if (!finding.advice.empty()) fmt::print("O que fazer: {}\n", finding.advice);
}

void print_closing(const flows::Closing& closing, const std::string& day) {
  for (const flows::Finding& finding : closing.mended) print_finding("CORRIGIDO", finding);
  for (const flows::Finding& finding : closing.accepted) print_finding("ACEITO", finding);
  for (const flows::Finding& finding : closing.refused) print_finding("RECUSADO", finding);
  if (!closing.closed) {
    fmt::print("\nO dia {} não foi fechado. O que não puder ser corrigido é aceito com --aceitar NOME.\n", day);
  } else if (closing.was_closed) {
    fmt::print("O dia {} já estava fechado.\n", day);
  } else {
    fmt::print("{} produtos recalculados. O dia {} está fechado.\n", closing.products.size(), day);
  }
}

void close(Session& session, Options& options) {
  flows::Station station = session.open();
  if (options.closing.user.empty()) options.closing.user = user_of_computer();
  flows::Closing closing;
  {
    ProgressLine line("Recalculando");
    options.closing.progress = [&](std::size_t done, std::size_t total, const std::string& name) {
      line.show(done, total, name);
    };
    closing = flows::close_day(station, options.day, options.closing);
  }
  print_closing(closing, format_date(options.day, "dd/mm/yyyy"));
  if (!closing.closed) session.status = kRefused;
}

}  // namespace

void add_fechar(CLI::App& app, Session& session) {
  auto options = std::make_shared<Options>();
  CLI::App* command = add_command(app, session, "fechar",
                                  "Fecha um dia: corrige, verifica, recalcula o estoque e marca o dia como fechado",
                                  [&session, options] { close(session, *options); });
  add_day(command, "--dia", options->day, "dia a fechar");
  command->get_option("--dia")->required();
  std::vector<std::string> names;
  for (std::string_view name : flows::finding_names()) names.emplace_back(name);
  command->add_option("--aceitar", options->closing.accepted, "fecha mesmo com o que esta verificação encontrou")
      ->type_name("NOME")
      ->expected(1)
      ->take_all()
      ->check(CLI::IsMember(names));
  command->add_option("--usuario", options->closing.user, "quem fecha o dia e aceita o que foi encontrado");
  command->add_option("--tentativas", options->closing.attempts, "recálculos de um produto, cada um mais tolerante")
      ->check(CLI::Range(1, 100));
}

}  // namespace posto::program
