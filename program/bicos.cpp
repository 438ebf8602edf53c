#include <cmath>

#include "flows/position.h"
#include "posto/services/clock.h"
#include "program/answer.h"
#include "program/command.h"

namespace posto::program {
namespace {

struct BicosOptions {
  Date first, last;
  Form form = Form::aligned;
};

constexpr double kHalfMillilitre = 0.0005;

void show(Session& session, const BicosOptions& options) {
  require_period(options.first, options.last);
  flows::Station station = session.open();
  Answer answer({{"Bico", "De_EnderecoLogicoBico"},
                 {"Descrição", "Ds_Bico"},
                 {"Abertura", "No_EncerranteAbertura", kQuantity},
                 {"Fechamento", "No_EncerranteFechamento", kQuantity},
                 {"Litros", "Qt_Litros", "###,##0.000"},
                 {"Diferença", "Qt_Diferenca", "###,##0.000"},
                 {"Vendas", "Vl_Total", "###,##0.00"},
                 {"Abastecimentos", "Qt_Abastecimentos"}});
  const Date today = clock_now().day();
  const Date last = options.last.empty() ? (options.first.empty() ? today : options.first) : options.last;
  for (const auto& p : flows::nozzle_positions(station, options.first.empty() ? last : options.first, last)) {
    const double difference = std::abs(p.difference()) < kHalfMillilitre ? 0.0 : p.difference();
    if (difference != 0) session.status = kRefused;
    answer.add({p.address, p.description, p.opening, p.closing, p.litres, difference, p.sales, p.deliveries});
  }
  answer.print(options.form);
}

}  // namespace

void add_bicos(CLI::App& app, Session& session) {
  auto options = std::make_shared<BicosOptions>();
  CLI::App* command = add_command(app, session, "bicos",
                                  "Confere os encerrantes com os litros de cada bico num período (sem datas, hoje); "
                                  "termina com 1 quando há diferença",
                                  [&session, options] { show(session, *options); });
  add_day(command, "--de", options->first, "primeiro dia");
  add_day(command, "--ate", options->last, "último dia");
  add_form(command, options->form);
}

}  // namespace posto::program
