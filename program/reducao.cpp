#include <fmt/format.h>

#include "flows/printer_day.h"
#include "program/answer.h"
#include "program/command.h"

namespace posto::program {
namespace {

struct ReducaoOptions {
  Date first, last;
  std::int32_t printer = 0;
  bool only_list = false;
  bool by_rate = false;
  Form form = Form::aligned;
};

constexpr const char* kDay = "dd/mm/yyyy";

Answer totals_of(const std::vector<flows::PrinterDay>& days) {
  Answer answer({{"Dia", "Dt_Movimento", kDay},
                 {"Impressora", "No_Impressora"},
                 {"Redução", "Qt_ContReducoes"},
                 {"Cupons", "Qt_Cupons"},
                 {"Cancelados", "Qt_Cancelados"},
                 {"Bruto", "Vl_Bruto", kMoney},
                 {"Descontos", "Vl_Descontos", kMoney},
                 {"Acréscimos", "Vl_Acrescimos", kMoney},
                 {"Cancelamentos", "Vl_Cancelamentos", kMoney},
                 {"Líquido", "Vl_Liquido", kMoney},
                 {"Mapa", "Ds_Mapa"}});
  for (const flows::PrinterDay& d : days) {
    const flows::PrinterDayFigures& f = d.figures;
    const char* agrees = !d.map ? "sem mapa" : d.findings.empty() ? "confere" : "diverge";
    answer.add({f.day, f.printer, d.map ? Variant(d.map->Qt_ContReducoes) : Variant(Null{}), f.coupons, f.cancelled,
                f.gross, f.discounts, f.surcharges, f.cancellations, f.net, agrees});
  }
  return answer;
}

Answer rates_of(const std::vector<flows::PrinterDay>& days) {
  Answer answer({{"Dia", "Dt_Movimento", kDay},
                 {"Impressora", "No_Impressora"},
                 {"Tributação", "Ds_Tributacao"},
                 {"Alíquota", "Al_Icms", "#0.00"},
                 {"Venda", "Vl_Venda", kMoney}});
  for (const flows::PrinterDay& d : days) {
    const flows::PrinterDayFigures& f = d.figures;
    auto add = [&](const char* taxation, const Variant& rate, Currency amount) {
      if (amount != Currency()) answer.add({f.day, f.printer, taxation, rate, amount});
    };
    for (const auto& [rate, amount] : f.by_rate) add("tributada", rate, amount);
    add("substituição", Null{}, f.substitution);
    add("isenta", Null{}, f.exempt);
    add("não incidência", Null{}, f.not_liable);
    add("serviços", Null{}, f.services);
  }
  return answer;
}

std::vector<flows::PrinterDay> work(flows::Station& station, const ReducaoOptions& options) {
  const Date last = options.last.empty() ? options.first : options.last;
  std::vector<flows::PrinterDayKey> keys = flows::printer_days(station, options.first, last, options.printer);
  if (keys.empty() && options.printer != 0) keys = {{options.printer, options.first}};
  std::vector<flows::PrinterDay> days;
  days.reserve(keys.size());
  for (const auto& key : keys) {
    days.push_back(options.only_list ? flows::printer_day(station, key.printer, key.day)
                                     : flows::reduce_printer_day(station, key.printer, key.day));
  }
  return days;
}

void reduce(Session& session, const ReducaoOptions& options) {
  require_period(options.first, options.last);
  flows::Station station = session.open();
  const std::vector<flows::PrinterDay> days = work(station, options);
  if (days.empty()) {
    fmt::print(stderr, "não há cupons no período\n");
    session.status = kRefused;
    return;
  }
  if (options.form == Form::aligned) {
    totals_of(days).print(options.form);
    fmt::print("\n");
    rates_of(days).print(options.form);
  } else {
    (options.by_rate ? rates_of(days) : totals_of(days)).print(options.form);
  }
  for (const flows::PrinterDay& d : days) {
    for (const std::string& finding : d.findings) {
      fmt::print(stderr, "{}, impressora {}: {}\n", format_date(d.figures.day, kDay), d.figures.printer, finding);
      session.status = kRefused;
    }
  }
}

}  // namespace

void add_reducao(CLI::App& app, Session& session) {
  auto options = std::make_shared<ReducaoOptions>();
  CLI::App* command =
      add_command(app, session, "reducao",
                  "Rateia os descontos dos cupons, grava redução Z e mapa resumo de um dia, e os confere com os cupons",
                  [&session, options] { reduce(session, *options); });
  add_day(command, "--dia", options->first, "dia do movimento");
  command->get_option("--dia")->required();
  add_day(command, "--ate", options->last, "último dia, quando são vários");
  command->add_option("--impressora", options->printer, "uma impressora só (todas as que venderam)")
      ->check(whole_number(1, 255));
  command->add_flag("--listar", options->only_list, "mostra e confere, sem gravar");
  command->add_flag("--aliquotas", options->by_rate, "as vendas por alíquota, com --csv ou --json");
  add_form(command, options->form);
}

}  // namespace posto::program
