#include "flows/recalculation.h"
#include "program/answer.h"
#include "program/command.h"

namespace posto::program {
namespace {

struct RecalcularOptions {
  Date since;
  flows::RecalculationOptions recalculation;
  Form form = Form::aligned;
};

std::vector<flows::RecalculatedProduct> recalculated(flows::Station& station, RecalcularOptions& options) {
  ProgressLine line("Recalculando");
  options.recalculation.progress = [&](std::size_t done, std::size_t total, const std::string& name) {
    line.show(done, total, name);
  };
  return flows::recalculate(station, options.since, options.recalculation);
}

void recalculate(Session& session, RecalcularOptions& options) {
  flows::Station station = session.open();
  Answer answer({{"Código", "Cd_Produto"},
                 {"Produto", "Nm_Produto"},
                 {"Quantidade", "Qt_Estoque", kQuantity},
                 {"Custo médio", "Vl_CustoMedio", "###,##0.000000"},
                 {"Crédito de ICMS", "Vl_CredIcmsMedio", "###,##0.000000"},
                 {"Conferido", "Ds_Conferencia"}});
  for (const flows::RecalculatedProduct& p : recalculated(station, options)) {
    answer.add({p.code, p.name, p.quantity, p.cost, p.icms_credit, p.proved ? "SIM" : p.reason});
    if (!p.proved) session.status = kRefused;
  }
  answer.print(options.form);
}

}  // namespace

void add_recalcular(CLI::App& app, Session& session) {
  auto options = std::make_shared<RecalcularOptions>();
  CLI::App* command =
      add_command(app, session, "recalcular", "Recalcula o cardex e o estoque dos produtos movimentados desde um dia",
                  [&session, options] { recalculate(session, *options); });
  add_day(command, "--desde", options->since, "primeiro dia recalculado");
  command->get_option("--desde")->required();
  command->add_option("--produto", options->recalculation.product, "só este produto")->check(whole_number());
  command
      ->add_option("--tentativas", options->recalculation.attempts, "recálculos de um produto, cada um mais tolerante")
      ->check(whole_number(1, 100));
  add_form(command, options->form);
}

}  // namespace posto::program
