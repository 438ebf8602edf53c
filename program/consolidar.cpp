#include "flows/consolidar.h"

#include "posto/services/memory_progress.h"
#include "program/answer.h"
#include "program/command.h"

namespace posto::program {
namespace {

struct ConsolidarOptions {
  Date day;
  bool without_zero = false;
  Form form = Form::aligned;
};

flows::ConsolidatedStock consolidated(flows::Station& station, const ConsolidarOptions& options) {
  ProgressLine line("Consolidando");
  MemoryProgress form;
  form.on_refresh = [&](const MemoryProgress& f) {
    line.show(static_cast<std::size_t>(f.value), static_cast<std::size_t>(f.max));
  };
  return flows::consolidar(station, options.day, form, options.without_zero);
}

void consolidate(const Session& session, const ConsolidarOptions& options) {
  flows::Station station = session.open();
  const flows::ConsolidatedStock stock = consolidated(station, options);
  Answer answer({{"Grupo", "Nm_GrupoProduto"},
                 {"Código", "Cd_Produto"},
                 {"Produto", "Nm_Produto"},
                 {"Quantidade", "Qt_Estoque", kQuantity},
                 {"Custo médio", "Vl_CustoMedio", "###,##0.000000"},
                 {"Total", "Vl_Total", kMoney}});
  for (const flows::ConsolidatedProduct& p : stock.products) {
    answer.add({p.group, p.code, p.name, p.quantity, p.cost, p.total});
  }
  // A program adds the rows up itself.
  if (options.form == Form::aligned) answer.add({"TOTAL", Null{}, Null{}, Null{}, Null{}, stock.total});
  answer.print(options.form);
}

}  // namespace

void add_consolidar(CLI::App& app, Session& session) {
  auto options = std::make_shared<ConsolidarOptions>();
  CLI::App* command = add_command(app, session, "consolidar", "Grava o estoque consolidado no fim de um dia e o mostra",
                                  [&session, options] { consolidate(session, *options); });
  add_day(command, "--data", options->day, "dia de referência");
  command->get_option("--data")->required();
  command->add_flag("--sem-zerados", options->without_zero, "não guarda os produtos sem estoque");
  add_form(command, options->form);
}

}  // namespace posto::program
