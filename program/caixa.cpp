#include <fmt/format.h>

#include "posto/services/clock.h"
#include "posto/services/files.h"
#include "program/answer.h"
#include "program/caixa_commands.h"
#include "program/caixa_text.h"
#include "program/summary_page.h"

namespace posto::program {
namespace {

const std::pair kAllDays = {Date::of_day(1900, 1, 1), Date::of_day(9999, 12, 31)};

struct CaixaOptions {
  std::int32_t shift = 0;  // 0: the list of all
  bool summary = false;
  std::string page;  // the HTML file; none is written where it is empty
  Form form = Form::aligned;
};

Variant shown(const std::optional<Currency>& amount) { return amount ? Variant(*amount) : Variant(Null{}); }

// Every column of the record, for a program.
void print_record(const VOCaixa& shift, Form form) {
  std::vector<AnswerColumn> columns;
  std::vector<Variant> values;
  for (const Property& property : layout_of<VOCaixa>().properties()) {
    columns.push_back({std::string(property.name), std::string(property.name)});
    const Variant value = shift.get(property.name);
    const bool no_date = value.kind() == VariantKind::Date && value.held<Date>().empty();
    values.push_back(no_date ? Variant(Null{}) : value);
  }
  Answer answer(std::move(columns));
  answer.add(std::move(values));
  answer.print(form);
}

void print_summary_rows(const std::vector<flows::SummaryGroup>& summary, Form form) {
  std::vector<AnswerColumn> columns;
  for (const char* name : {"Label1", "Label2", "Label3", "Label4", "Cd_Grupo", "Nm_Grupo", "Cd_Item", "Nm_Item",
                           "Valor1", "Valor2", "Valor3"}) {
    columns.push_back({name, name});
  }
  Answer answer(std::move(columns));
  for (const flows::SummaryGroup& group : summary) {
    for (const flows::SummaryRow& row : group.rows) {
      std::vector<Variant> values(group.heads.begin(), group.heads.end());
      values.insert(values.end(), {group.code, group.name, row.item, row.name});
      for (const auto& value : row.values) values.push_back(shown(value));
      answer.add(std::move(values));
    }
  }
  answer.print(form);
}

void print_group(const flows::SummaryGroup& group) {
  fmt::print("\n{}\n", group.name);
  std::vector<AnswerColumn> columns = {{group.heads[0], {}}};
  for (std::size_t i = 0; i < 3; ++i) {
    if (is_shown(group, i)) columns.push_back({group.heads[i + 1], {}, std::string(value_pattern(group, i))});
  }
  Answer answer(std::move(columns));
  for (const flows::SummaryRow& row : group.rows) {
    std::vector<Variant> cells = {row.name};
    for (std::size_t i = 0; i < row.values.size(); ++i) {
      if (is_shown(group, i)) cells.push_back(shown(row.values[i]));
    }
    answer.add(std::move(cells));
  }
  answer.print(Form::aligned);
}

void print_for_program(const ShiftPapers& papers, const CaixaOptions& options) {
  options.summary ? print_summary_rows(papers.summary, options.form) : print_record(papers.shift, options.form);
}

void show(const Session& session, const CaixaOptions& options) {
  flows::Station station = session.open();
  if (options.shift == 0) {
    return print_shifts(flows::shifts_between(station, kAllDays.first, kAllDays.second), options.form);
  }
  const VOCaixa settled = flows::settle_shift(station, options.shift);
  ShiftPapers papers = papers_of(station, settled);
  if (options.summary || !options.page.empty()) papers.summary = flows::shift_summary(station, settled);
  if (!options.page.empty()) replace_file(options.page, summary_page(papers, clock_now()));
  if (options.form != Form::aligned) return print_for_program(papers, options);
  print_settlement(papers);
  if (options.summary) {
    for (const flows::SummaryGroup& group : papers.summary) print_group(group);
  }
  if (!options.page.empty()) fmt::print("\nResumo gravado em {}\n", options.page);
}

}  // namespace

ShiftPapers papers_of(flows::Station& station, const VOCaixa& shift) {
  return {.company = flows::person_name(station, station.tenant()),
          .employee = flows::person_name(station, shift.Cd_Funcionario),
          .checker = flows::person_name(station, shift.Cd_FuncionarioConferencia),
          .shift = shift,
          .summary = {}};
}

void print_settlement(const ShiftPapers& papers) {
  fmt::print("{}\n{}\n\n", shift_title(papers), shift_history(papers));
  Answer answer({{"Acerto", {}}, {"Débitos", {}, kMoney}, {"Créditos", {}, kMoney}});
  for (const SettlementLine& line : settlement_lines(papers.shift)) {
    answer.add({line.name, shown(line.debit), shown(line.credit)});
  }
  answer.print(Form::aligned);
  fmt::print("{}\n", difference_text(papers.shift.Vl_Diferenca));
}

namespace {

// For what is entered behind its time: the command then runs as if it were that moment.
void add_moment(CLI::App* command) {
  const auto parsed = [](const std::string& text) {
    return text.size() == 19 ? Date::parse_iso(text) : std::optional<Date>();
  };
  const auto clock = std::make_shared<std::optional<ClockOverride>>();
  command
      ->add_option_function<std::string>(
          "--em", [clock, parsed](const std::string& text) { clock->emplace(parsed(text).value()); },
          "quando foi, se não é agora")
      ->check([parsed](const std::string& text) {
        return parsed(text) ? std::string() : "'" + text + "' não é um momento (aaaa-mm-dd hh:mm:ss)";
      })
      ->type_name("MOMENTO");
}

}  // namespace

void add_caixa(CLI::App& app, Session& session) {
  auto options = std::make_shared<CaixaOptions>();
  CLI::App* command =
      add_command(app, session, "caixa",
                  "Mostra o acerto de um caixa, calculado de novo enquanto não foi conferido; sem --caixa, lista todos",
                  [&session, options] { show(session, *options); });
  CLI::Option* shift = add_shift(command, options->shift)->required(false);
  command->add_flag("--resumo", options->summary, "mostra também o resumo, item por item")->needs(shift);
  command->add_option("--html", options->page, "grava acerto e resumo em uma página para papel A4")
      ->type_name("ARQUIVO")
      ->needs(shift);
  add_form(command, options->form);
  add_shift_operations(app, session);
  for (const char* name : {"abrir-caixa", "fechar-caixa", "conferir-caixa", "assumir-bico", "deixar-bico"}) {
    add_moment(app.get_subcommand(name));
  }
}

}  // namespace posto::program
