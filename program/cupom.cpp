#include <fmt/format.h>

#include "flows/sale.h"
#include "flows/sale_totals.h"
#include "posto/fiscal/DALCupomFiscal.h"
#include "posto/types/number_pattern.h"
#include "program/answer.h"
#include "program/command.h"

namespace posto::program {
namespace {

struct CupomOptions {
  flows::CouponKey key;
  std::uint8_t item = 0;
  bool cancel = false;
  Form form = Form::aligned;
};

std::string amount(Currency value) { return format_number(value, kMoney); }

void print_head(const VOCupomFiscal& head) {
  fmt::print("CUPOM {} DA IMPRESSORA {}, {} {}\n", head.No_CupomFiscal, head.No_Impressora,
             format_date(head.Dt_Emissao, "dd/mm/yyyy"), head.Hr_Emissao);
  if (!head.Cd_Veiculo.empty()) fmt::print("placa {}, {} km\n", head.Cd_Veiculo, head.No_Km);
  if (head.FL_Fechada == "N") fmt::print("a crédito, cliente {}\n", head.Cd_Cliente);
  if (head.FL_Fechada == "S") fmt::print("faturado na conta {}\n", head.Cd_ContaAReceber);
}

void print_lines(Recordset& lines, Form form) {
  Answer answer({{"Item", "No_Item"},
                 {"Produto", "Nm_Produto"},
                 {"Quantidade", "Qt_Unidade", "###,##0.000"},
                 {"Unitário", "Vl_UnitVenda", "###,##0.000"},
                 {"Total", "Vl_Total", "###,##0.00"},
                 {"Abastecimento", "Cd_Abastecimento"}});
  for (; !lines.EOF(); lines.MoveNext()) {
    VOItemCupomFiscal item;
    item.Qt_Unidade = lines["Qt_Unidade"].value_or(0.0);
    item.Vl_UnitVenda = lines["Vl_UnitVenda"].value_or(Currency());
    answer.add({lines["No_Item"].Value(), lines["Nm_Produto"].Value(), lines["Qt_Unidade"].Value(),
                lines["Vl_UnitVenda"].Value(), flows::amount_of(item), lines["Cd_Abastecimento"].Value()});
  }
  answer.print(form);
}

void print_foot(DALCupomFiscal& coupon) {
  const VOCupomFiscal& head = *coupon.ObVO;
  fmt::print("total {}", amount(head.Vl_Total));
  if (head.Vl_DescontoCF != Currency()) fmt::print(", desconto {}", amount(head.Vl_DescontoCF));
  fmt::print(", a pagar {}\n", amount(head.Vl_TotalLiquido));
  for (Recordset paid = coupon.adorsRecebimentos(); !paid.EOF(); paid.MoveNext()) {
    fmt::print("  {} {}\n", paid["Nm_TipoRecebimento"].value_or(std::string()),
               amount(paid["Vl_Recebimento"].value_or(Currency())));
  }
}

void show(const flows::Station& station, const CupomOptions& options) {
  DALCupomFiscal coupon(station.settings);
  coupon.ObVO->Cd_PessoaUsuaria = station.tenant();
  coupon.ObVO->No_Impressora = options.key.printer;
  coupon.ObVO->No_CupomFiscal = options.key.number;
  coupon.ObVO->Dt_Emissao = options.key.issued;
  coupon.Consultar();
  const bool aligned = options.form == Form::aligned;
  if (aligned) print_head(*coupon.ObVO);
  print_lines(coupon.Rs_ItensTodos(), options.form);
  if (aligned) print_foot(coupon);
}

void run(Session& session, const CupomOptions& options) {
  flows::Station station = session.open();
  if (!options.cancel) return show(station, options);
  if (options.item == 0) {
    flows::cancel_coupon(station, options.key);
    fmt::print("Cupom cancelado\n");
  } else {
    flows::cancel_line(station, options.key, options.item);
    fmt::print("Item cancelado\n");
  }
}

}  // namespace

void add_cupom(CLI::App& app, Session& session) {
  auto options = std::make_shared<CupomOptions>();
  CLI::App* command = add_command(app, session, "cupom", "Mostra um cupom fiscal, ou o cancela",
                                  [&session, options] { run(session, *options); });
  command->add_option("--impressora", options->key.printer, "número da impressora")
      ->required()
      ->check(whole_number(1, 255));
  command->add_option("--cupom", options->key.number, "número do cupom")->required()->check(whole_number());
  add_day(command, "--data", options->key.issued, "dia da emissão");
  command->get_option("--data")->required();
  auto* cancel = command->add_flag("--cancelar", options->cancel, "cancela o cupom, ou só o item de --item");
  command->add_option("--item", options->item, "número do item")->check(whole_number(1, 255))->needs(cancel);
  add_form(command, options->form);
}

}  // namespace posto::program
