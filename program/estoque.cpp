#include "flows/position.h"
#include "posto/services/clock.h"
#include "posto/stock/DALProduto.h"
#include "program/answer.h"
#include "program/command.h"

namespace posto::program {
namespace {

struct EstoqueOptions {
  Date day, first, last;
  std::int32_t product = 0;
  bool ledger = false;
  Form form = Form::aligned;
};

constexpr const char* kUnitCost = "###,##0.000000";

// The present position of each product with the movements of a period.
Answer position(const flows::Station& station, Date first, Date last) {
  Answer answer({{"Produto", "Cd_Produto"},
                 {"Código de barras", "Cd_CodBarras"},
                 {"Nome", "Nm_Produto"},
                 {"Entradas", "Qt_Entrada", kQuantity},
                 {"Saídas", "Qt_Saida", kQuantity},
                 {"Estoque", "Qt_Estoque", kQuantity},
                 {"Custo médio", "Vl_CustoMedio", kUnitCost},
                 {"Crédito ICMS", "Vl_CredIcmsMedio", kUnitCost}});
  for (const auto& p : flows::product_positions(station, first, last)) {
    answer.add({p.code, p.bar_code, p.name, p.in, p.out, p.stock, p.cost, p.icms_credit});
  }
  return answer;
}

// The stock of each product as it stood at the end of a day.
Answer stock_at(const flows::Station& station, Date day) {
  DALProduto product(station.settings);
  product.ObVO->Cd_PessoaUsuaria = station.tenant();
  Answer answer({{"Grupo", "Nm_GrupoProduto"},
                 {"Produto", "Cd_Produto"},
                 {"Nome", "Nm_Produto"},
                 {"Estoque", "Qt_Estoque", kQuantity}});
  for (Recordset rows = product.rsEstoque(day); !rows.EOF(); rows.MoveNext()) {
    answer.add({rows["Nm_GrupoProduto"].Value(), rows["Cd_Produto"].Value(), rows["Nm_Produto"].Value(),
                rows["Qt_Estoque"].Value()});
  }
  return answer;
}

// The ledger of a product over a period.
Answer ledger_of(const flows::Station& station, std::int32_t code, Date first, Date last) {
  DALProduto product(station.settings);
  product.ObVO->Cd_PessoaUsuaria = station.tenant();
  product.ObVO->Cd_Produto = code;
  product.Consultar(false, false);  // an unknown product is a failure, not an empty ledger
  Answer answer({{"Lançamento", "Cd_LancamentoCardex"},
                 {"Data", "Dt_Emissao", "dd/mm/yyyy"},
                 {"Documento", "Nm_Doc"},
                 {"Tipo", "No_Tipo"},
                 {"Quantidade", "Qt_Unidade", kQuantity},
                 {"Unitário", "Vl_Unitario", kUnitCost},
                 {"Estoque", "Qt_Estoque", kQuantity},
                 {"Custo médio", "Vl_CustoMedio", kUnitCost},
                 {"Crédito ICMS", "Vl_CredIcmsMedio", kUnitCost}});
  for (Recordset rows = product.rsKardex(first, last); !rows.EOF(); rows.MoveNext()) {
    answer.add({rows["Cd_LancamentoCardex"].Value(), rows["Dt_Emissao"].Value(), rows["Nm_Doc"].Value(),
                rows["No_Tipo"].Value(), rows["Qt_Unidade"].Value(), rows["Vl_Unitario"].Value(),
                rows["Qt_Estoque"].Value(), rows["Vl_CustoMedio"].Value(), rows["Vl_CredIcmsMedio"].Value()});
  }
  return answer;
}

void show(const Session& session, const EstoqueOptions& options) {
  require_period(options.first, options.last);
  flows::Station station = session.open();
  const Date first = options.first.empty() ? Date::of_day(1900, 1, 1) : options.first;
  const Date last = !options.last.empty()  ? options.last
                    : !options.day.empty() ? options.day
                                           : Date::of_day(9998, 12, 31);
  Answer answer = options.ledger         ? ledger_of(station, options.product, first, last)
                  : !options.day.empty() ? stock_at(station, options.day)
                                         : position(station, first, last);
  answer.print(options.form);
}

}  // namespace

void add_estoque(CLI::App& app, Session& session) {
  auto options = std::make_shared<EstoqueOptions>();
  CLI::App* command =
      add_command(app, session, "estoque",
                  "Mostra o estoque atual com os movimentos, o estoque de um dia, ou o kardex de um produto",
                  [&session, options] { show(session, *options); });
  add_day(command, "--data", options->day, "estoque no fim deste dia");
  add_day(command, "--de", options->first, "primeiro dia dos movimentos");
  add_day(command, "--ate", options->last, "último dia dos movimentos");
  for (const char* period : {"--de", "--ate"}) command->get_option(period)->excludes(command->get_option("--data"));
  auto* product = command->add_option("--produto", options->product, "código do produto")->check(whole_number());
  auto* ledger = command->add_flag("--kardex", options->ledger, "os lançamentos do produto")->needs(product);
  product->needs(ledger);
  add_form(command, options->form);
}

}  // namespace posto::program
