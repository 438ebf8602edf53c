#include "flows/sale_terms.h"

#include "flows/lookup.h"
#include "flows/sale_steps.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/fiscal/DALTipoRecebimento.h"
#include "posto/fiscal/catalogue.h"
#include "posto/masterdata/DALCartao.h"
#include "posto/masterdata/DALCliente.h"
#include "posto/treasury/DALCaixa.h"
#include "posto/types/number_pattern.h"

namespace posto::flows {
namespace {

constexpr std::int32_t kCreditBlocked = 3;  // of No_SituacaoCredito: from here on nothing is sold on credit

Date last_day_of_month(Date day) {
  const Date::Parts p = day.parts();
  const Date next = p.month == 12 ? Date::of_day(p.year + 1, 1, 1) : Date::of_day(p.year, p.month + 1, 1);
  return next.plus_days(-1);
}

bool by_card(const Sale& sale) { return sale.card.number != 0; }

void require_kind_of_receipt(Station& station, std::int32_t code) {
  DALTipoRecebimento kind(station.settings);
  kind.ObVO->Cd_TipoRecebimento = code;
  if (code != 0 && stands([&] { kind.Consultar(); })) return;
  refuse_sale("tipo de recebimento desconhecido: " + std::to_string(code));
}

// Gives the card's client.
std::int32_t client_of_card(Station& station, const Sale& sale) {
  DALCartao card(station.settings);
  card.ObVO->Cd_PessoaUsuaria = station.tenant();
  card.ObVO->Cd_TipoCartao = sale.card.kind;
  card.ObVO->Cd_Cartao = sale.card.number;
  const VOCartao& vo = card.Consultar();
  const std::string name = "o cartão " + std::to_string(vo.Cd_Cartao);
  if (vo.Ic_Bloqueado) refuse_sale(name + " está bloqueado");
  if (!vo.Dt_Validade.empty() && vo.Dt_Validade < sale.moment.day()) {
    refuse_sale(name + " venceu em " + format_date(vo.Dt_Validade, "dd/mm/yyyy"));
  }
  if (sale.client != 0 && sale.client != vo.Cd_Cliente) refuse_sale(name + " é de outro cliente");
  return vo.Cd_Cliente;
}

}  // namespace

std::string in_reais(Currency value) { return format_number(value, "###,###,##0.00"); }

std::vector<Payment> agreed_payments(Station& station, const Sale& sale, Currency net_total) {
  std::vector<Payment> payments = sale.payments;
  if (payments.empty()) {
    if (sale.client == 0 && !by_card(sale)) refuse_sale("nem recebimentos nem cliente a quem vender a crédito");
    return payments;
  }
  if (by_card(sale)) refuse_sale("o cartão de um cliente vende a crédito, sem recebimentos");
  Currency paid;
  for (Payment& payment : payments) {
    require_kind_of_receipt(station, payment.kind);
    if (!payment.value) payment.value = net_total - paid;
    if (*payment.value <= Currency()) refuse_sale("recebimento não positivo: " + in_reais(*payment.value));
    paid += *payment.value;
  }
  if (paid == net_total) return payments;
  refuse_sale("recebimentos não conferem: " + in_reais(paid) + " em lugar de " + in_reais(net_total));
}

bool refuse_checked_shift(Station& station, std::int32_t shift) {
  DALCaixa record(station.settings);
  record.ObVO->Cd_PessoaUsuaria = station.tenant();
  record.ObVO->Cd_Caixa = shift;
  if (shift == 0 || !stands([&] { record.Consultar(); })) return false;
  if (record.ObVO->Cd_Situacao == Cd_SituacaoConferido) {
    refuse_sale("o caixa " + std::to_string(shift) + " já foi conferido");
  }
  return true;
}

void require_open_shift(Station& station, std::int32_t shift) {
  if (shift != 0 && !refuse_checked_shift(station, shift)) refuse_sale("não há o caixa " + std::to_string(shift));
}

void fill_kind_of_sale(Station& station, const Sale& sale, VOCupomFiscal& coupon) {
  if (!sale.payments.empty()) {
    coupon.Tp_Venda = Tp_VendaAcertadaSemEmissaoNF;
    coupon.FL_Fechada = "-";
    return;
  }
  if (by_card(sale)) coupon.Cd_Cliente = client_of_card(station, sale);
  DALCliente client(station.settings);
  client.ObVO->Cd_PessoaUsuaria = station.tenant();
  client.ObVO->Cd_Cliente = coupon.Cd_Cliente;
  if (client.Consultar().No_SituacaoCredito >= kCreditBlocked) {
    throw table_erro(erro::kSaleNotReleasedToClient, "flows", "sale");
  }
  const Tp_VendaEnum without_card = sale.vehicle.empty() ? Tp_VendaACreditoRequisicao : Tp_VendaACreditoPlaca;
  coupon.Tp_Venda = static_cast<std::uint8_t>(by_card(sale) ? Tp_VendaACreditoCartao : without_card);
  coupon.FL_Fechada = "N";
  coupon.Dt_Fechamento = last_day_of_month(coupon.Dt_Emissao);
}

void write_card_sale(Station& station, const Sale& sale, const VOCupomFiscal& coupon) {
  if (!by_card(sale)) return;
  DALVendaCartaoPorCupomFiscal record(station.settings);
  VOVendaCartaoPorCupomFiscal& vo = *record.ObVO;
  vo.Cd_PessoaUsuaria = coupon.Cd_PessoaUsuaria;
  vo.No_Impressora = coupon.No_Impressora;
  vo.No_CupomFiscal = coupon.No_CupomFiscal;
  vo.Dt_Emissao = coupon.Dt_Emissao;
  vo.Cd_TipoCartao = sale.card.kind;
  vo.Cd_Cartao = sale.card.number;
  vo.Vl_Venda = coupon.Vl_TotalLiquido;
  record.Incluir();
}

void revalue_card_sale(Station& station, const VOCupomFiscal& coupon) {
  const std::string key = sql(R"(
      WHERE  Cd_PessoaUsuaria = {} And
             No_Impressora = {} And
             No_CupomFiscal = {} And
             Dt_Emissao = {})",
                              coupon.Cd_PessoaUsuaria, coupon.No_Impressora, coupon.No_CupomFiscal,
                              DateSemHoraToSql(coupon.Dt_Emissao, *station.settings));
  if (coupon.Vl_TotalLiquido == Currency()) {
    station.connection().Execute("DELETE FROM VendaCartaoPorCupomFiscal\r" + key);
  } else {
    station.connection().Execute(sql(R"(
        UPDATE VendaCartaoPorCupomFiscal
        SET    Vl_Venda = {}
        {})",
                                     MoneyToSql(coupon.Vl_TotalLiquido, 2), key));
  }
}

}  // namespace posto::flows
