#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>

#include "flows/closing.h"
#include "program/answer.h"
#include "program/command.h"

namespace posto::program {
namespace {

struct FecharOptions {
  Date day;
  bool all_rows = false;
  Form form = Form::aligned;
  flows::ClosingOptions closing;
};

constexpr std::size_t kMostRows = 20;  // of a finding, unless all are asked for

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

void print_rows_of(const flows::Finding& finding, bool all_rows) {
  if (finding.rows.empty()) return;
  std::vector<AnswerColumn> columns;
  for (const std::string& column : finding.columns) columns.push_back({column, column});
  Answer answer(std::move(columns));
  const std::size_t shown = all_rows ? finding.rows.size() : std::min(finding.rows.size(), kMostRows);
  for (std::size_t i = 0; i < shown; ++i) answer.add(finding.rows[i]);
  answer.print(Form::aligned);
  const std::size_t more = finding.rows.size() - shown;
  if (more > 0) fmt::print("... e mais {} (--tudo mostra {})\n", more, more == 1 ? "também este" : "também estes");
}

void print_finding(std::string_view mark, const flows::Finding& finding, bool all_rows) {
  fmt::print("\n{} {} ({})\n{}\n", mark, finding.name, finding.count(), finding.meaning);
  print_text(finding.text);
  print_rows_of(finding, all_rows);
  if (!finding.advice.empty()) fmt::print("O que fazer: {}\n", finding.advice);
}

void print_closing(const flows::Closing& closing, const std::string& day, bool all_rows) {
  for (const flows::Finding& finding : closing.mended) print_finding("CORRIGIDO", finding, all_rows);
  for (const flows::Finding& finding : closing.accepted) print_finding("ACEITO", finding, all_rows);
  for (const flows::Finding& finding : closing.refused) print_finding("RECUSADO", finding, all_rows);
  if (!closing.closed) {
    fmt::print("\nO dia {} não foi fechado. O que não puder ser corrigido é aceito com --aceitar NOME.\n", day);
  } else if (closing.was_closed) {
    fmt::print("O dia {} já estava fechado.\n", day);
  } else {
    fmt::print("{} produtos recalculados. O dia {} está fechado.\n", closing.products.size(), day);
  }
}

// A finding for a program: findings have columns of their own, so each value is a row.
void add_values(Answer& answer, const char* mark, const flows::Finding& finding) {
  const std::string name(finding.name);
  if (!finding.text.empty()) answer.add({mark, name, std::int32_t{1}, "Ds_Resultado", finding.text});
  for (std::size_t row = 0; row < finding.rows.size(); ++row) {
    for (std::size_t i = 0; i < finding.columns.size(); ++i) {
      answer.add({mark, name, static_cast<std::int32_t>(row + 1), finding.columns[i], finding.rows[row][i]});
    }
  }
}

void print_values(const flows::Closing& closing, Form form) {
  Answer answer({{"Situação", "Ds_Situacao"},
                 {"Verificação", "Nm_Verificacao"},
                 {"Linha", "No_Linha"},
                 {"Coluna", "Nm_Coluna"},
                 {"Valor", "Ds_Valor"}});
  for (const flows::Finding& finding : closing.mended) add_values(answer, "CORRIGIDO", finding);
  for (const flows::Finding& finding : closing.accepted) add_values(answer, "ACEITO", finding);
  for (const flows::Finding& finding : closing.refused) add_values(answer, "RECUSADO", finding);
  answer.print(form);
}

std::string check_name(const std::string& name) {
  std::string list;
  for (const std::string_view known : flows::finding_names()) {
    if (known == name) return {};
    list += "\n  " + std::string(known);
  }
  return "'" + name + "' não é uma verificação; são estas:" + list;
}

void close(Session& session, FecharOptions& options) {
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
  if (options.form == Form::aligned) {
    print_closing(closing, format_date(options.day, "dd/mm/yyyy"), options.all_rows);
  } else {
    print_values(closing, options.form);
  }
  if (!closing.closed) session.status = kRefused;
}

}  // namespace

void add_fechar(CLI::App& app, Session& session) {
  auto options = std::make_shared<FecharOptions>();
  CLI::App* command = add_command(app, session, "fechar",
                                  "Fecha um dia: corrige, verifica, recalcula o estoque e marca o dia como fechado",
                                  [&session, options] { close(session, *options); });
  add_day(command, "--dia", options->day, "dia a fechar");
  command->get_option("--dia")->required();
  command->add_option("--aceitar", options->closing.accepted, "fecha mesmo com o que esta verificação encontrou")
      ->type_name("NOME")
      ->expected(1)
      ->take_all()
      ->check(check_name);
  command->add_option("--usuario", options->closing.user, "quem fecha o dia e aceita o que foi encontrado");
  command->add_option("--tentativas", options->closing.attempts, "recálculos de um produto, cada um mais tolerante")
      ->check(whole_number(1, 100));
  command->add_flag("--tudo", options->all_rows,
                    "mostra todas as linhas do que foi encontrado, não só as primeiras 20");
  add_form(command, options->form);
}

}  // namespace posto::program
