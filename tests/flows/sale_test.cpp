#include "flows/sale.h"

#include <functional>

#include "flows/sales_file.h"
#include "posto/core/criptografia.h"
#include "posto/core/error_vocabulary.h"
#include "posto/masterdata/DALCartao.h"
#include "posto/services/clock.h"
#include "tests/core/failures.h"
#include "tests/flows/sale_station.h"

namespace posto::flows {
namespace {

const Date kNow = Date::of_moment(2026, 11, 23, 11, 0, 0);

// Gasoline 20 x 6.199 = 123.98, oil 2 x 45.00 = 90.00, a wash 45.00: 258.98, less 3.98.
Sale mixed_sale() {
  Sale sale = cash_sale(100, {of_fuelling(kTakenIn), of_product(kOil, 2, "45"), of_product(kWash, 1)});
  sale.discount = Currency::parse("3.98");
  sale.payments = {{.kind = 3, .value = Currency(100)}, {.kind = kCash}};
  return sale;
}

// An oil and a wash: 91.90.
Sale card_sale(std::int32_t card) {
  Sale sale = cash_sale(100, {of_product(kOil, 1), of_product(kWash, 1)});
  sale.payments.clear();
  sale.card = {.kind = 2, .number = card};
  return sale;
}

TEST_F(SaleTest, WritesEverythingThatTheSaleMeans) {
  sell(station_, mixed_sale());
  EXPECT_EQ(
      rows("SELECT Vl_TotProd, Vl_TotSer, Vl_Total, Vl_DescontoCF, Vl_TotalLiquido, Vl_SubTrib, Vl_BasCalIcms, "
           "Vl_Icms, Vl_BasCalIss, Vl_Iss, Tx_Iss, Vl_GTotal, Vl_Cancelamentos, Qt_ContReducoes FROM CupomFiscal"),
      "213.98,45,258.98,3.98,255,123.98,90,16.2,45,2.25,5,258.98,0,1\n");
  EXPECT_EQ(rows("SELECT No_CupomFiscal FROM CupomFiscal WHERE Dt_Movimento = '2026-11-23' And Hr_Emissao = '10:15:42' "
                 "And Ic_CupomConcluido <> 0 And Ic_Excluido = 0 And Tp_Venda = 21 And FL_Fechada = '-'"),
            "100\n");
  EXPECT_EQ(rows("SELECT No_Item, Cd_Produto, Qt_Unidade, Vl_UnitTabela, Vl_UnitVenda, Vl_AltDig, Cd_Abastecimento, "
                 "Cd_LancamentoCardex, Cd_Bomba, Cd_CFOP, Fl_Tipo FROM ItemCupomFiscal ORDER BY No_Item"),
            "1,1,20,6.199,6.199,0,71,1,4,5656,-\n2,2,2,46.9,45,-1.9,-,2,-,5102,-\n3,3,1,45,45,0,-,-,-,5933,SERVIcO\n");
  EXPECT_EQ(rows("SELECT Nm_Doc, No_Tipo, Qt_Unidade, Vl_Unitario, Qt_Estoque, Vl_CustoMedio FROM Cardex "
                 "WHERE Cd_LancamentoCardex = 2"),
            "CF 100,20,2,45,1,20\n");
  EXPECT_EQ(rows("SELECT Cd_Produto, Qt_Estoque FROM Produto ORDER BY Cd_Produto"), "1,980\n2,1\n3,0\n");
  EXPECT_EQ(rows("SELECT Cd_Abastecimento FROM Abastecimento WHERE Ic_Baixado <> 0"), "71\n");
  EXPECT_EQ(rows("SELECT A.No_Recebimento, A.Cd_TipoRecebimento, A.Vl_Recebimento, A.Tp_DocDebito, A.Cd_Caixa, "
                 "B.No_CupomFiscal FROM Recebimento A INNER JOIN RecebimentoCupom B On A.No_Recebimento = "
                 "B.No_Recebimento ORDER BY A.No_Recebimento"),
            "1,3,100,20,1,100\n2,5,155,20,1,100\n");
  EXPECT_EQ(rows("SELECT No_COO, Ds_TipoDocumento, Vl_Documento FROM LogDocumentoEmitidoECF"), "100,RV,255\n");
  const std::string kept = rows("SELECT Ds_GTotalCriptografado FROM ECF WHERE No_Impressora = 1");
  EXPECT_EQ(Criptografia::Desencriptar(kept.substr(0, kept.size() - 1)), "258.98");
}

TEST_F(SaleTest, GoesOnFromThePrintersLastCoupon) {
  sell(station_, mixed_sale());
  // A fuelling without a movement of its own makes one; 6.199 less 2 per cent is 6.075. An oil was taken back.
  const VOCupomFiscal next = sell(station_, cash_sale(0, {of_fuelling(kTyped), of_product(kOil, 1, nullptr, true)}));
  EXPECT_EQ(next.No_CupomFiscal, 101);
  EXPECT_EQ(rows("SELECT Vl_Total, Vl_GTotal, Vl_Cancelamentos FROM CupomFiscal WHERE No_CupomFiscal = 101"),
            "60.75,366.63,46.9\n");  // 258.98 + 60.75 + 46.90
  EXPECT_EQ(rows("SELECT No_Item, Vl_AltAut, Cd_LancamentoCardex, Ic_Excluido FROM ItemCupomFiscal "
                 "WHERE No_CupomFiscal = 101 ORDER BY No_Item"),
            "1,-0.124,3,False\n2,0,-,True\n");
  EXPECT_EQ(rows("SELECT Cd_Produto, Qt_Estoque FROM Produto ORDER BY Cd_Produto"), "1,970\n2,1\n3,0\n");
}

TEST_F(SaleTest, APrinterWithoutCouponsBeginsAtItsRegisteredGrandTotal) {
  station_.connection().Execute("UPDATE ECF SET Ds_GTotalCriptografado = '" + Criptografia::Encriptar("1000.5") + "'");
  EXPECT_EQ(sell(station_, cash_sale(1, {of_product(kWash, 1)})).Vl_GTotal, Currency::parse("1045.5"));
}

TEST_F(SaleTest, OnCreditItIsToBeBilledAtTheEndOfTheMonth) {
  Sale sale = cash_sale(100, {of_product(kOil, 1)});
  sale.payments.clear();
  sale.client = 9;
  sale.vehicle = "ABC1D23";
  sale.odometer = 1000;
  sell(station_, sale);
  EXPECT_EQ(
      rows("SELECT No_CupomFiscal FROM CupomFiscal WHERE Tp_Venda = 12 And FL_Fechada = 'N' And Cd_Cliente = 9 And "
           "Cd_Veiculo = 'ABC1D23' And No_Km = 1000 And Dt_Fechamento = '2026-11-30'"),
      "100\n");
  EXPECT_EQ(rows("SELECT * FROM Recebimento"), "");
}

TEST_F(SaleTest, ByACardItWaitsForApprovalAsLongAsItStands) {
  sell(station_, card_sale(77));
  const std::string rows_of_card =
      "SELECT A.Cd_TipoCartao, A.Cd_Cartao, A.Ic_Aprovado, A.Vl_Venda FROM VendaCartaoPorCupomFiscal A INNER JOIN "
      "CupomFiscal B On A.No_CupomFiscal = B.No_CupomFiscal WHERE B.Tp_Venda = 11 And B.FL_Fechada = 'N' And "
      "B.Cd_Cliente = 9";
  EXPECT_EQ(rows(rows_of_card), "2,77,False,91.9\n");
  DALCartao card(station_.settings);
  card.ObVO->Cd_PessoaUsuaria = 1;
  card.ObVO->Cd_TipoCartao = 2;
  card.ObVO->Cd_Cartao = 77;
  EXPECT_EQ(card.QuantidadeDePendencias(), 1);
  cancel_line(station_, {1, 100, Date::of_day(2026, 11, 23)}, 1);
  EXPECT_EQ(rows(rows_of_card), "2,77,False,45\n");
  cancel_coupon(station_, {1, 100, Date::of_day(2026, 11, 23)});
  EXPECT_EQ(card.QuantidadeDePendencias(), 0);
}

TEST_F(SaleTest, IsRefusedWhole) {
  insert(station_, "ItemCupomFiscal",
         "Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Item, Cd_Abastecimento",
         {"1, 2, 5, '2026-11-23', 1, 72"});  // which is not marked as posted
  sell(station_, cash_sale(50, {of_fuelling(kTakenIn)}));
  const std::string before = state();
  Sale too_much_paid = cash_sale(100, {of_product(kWash, 1)});
  too_much_paid.payments.front().value = Currency(46);
  Sale blocked = cash_sale(100, {of_product(kWash, 1)});
  blocked.payments.clear();
  blocked.client = 10;
  Sale nobody = blocked;
  nobody.client = 0;
  Sale discounted = cash_sale(100, {of_product(kWash, 1)});
  discounted.discount = Currency(46);
  Sale of_no_kind = cash_sale(100, {of_product(kWash, 1)});
  of_no_kind.payments.front().kind = 99;
  Sale of_no_shift = cash_sale(100, {of_product(kWash, 1)});
  of_no_shift.shift = 9;
  Sale of_no_printer = cash_sale(100, {of_product(kWash, 1)});
  of_no_printer.printer = 9;
  Sale of_checked_shift = of_no_shift;
  of_checked_shift.shift = 2;
  Sale settled = cash_sale(100, {of_product(kWash, 1)});
  settled.business_day = Date::of_day(2026, 11, 20);
  Sale card_and_cash = card_sale(77);
  card_and_cash.payments.push_back({.kind = kCash});
  Sale anothers_card = card_sale(77);
  anothers_card.client = 10;
  const struct {
    Sale sale;
    std::int32_t number;
    std::string_view message;
  } kRefused[] = {
      {cash_sale(100, {of_product(kWash, 1), of_product(kOil, 4)}), erro::kInsufficientStock,
       "Estoque insuficiente, quantidade disponível: 3,0"},
      {cash_sale(100, {of_product(kOil, 2), of_product(kOil, 2)}), erro::kInsufficientStock,
       "Estoque insuficiente, quantidade disponível: 1,0"},
      {cash_sale(100, {of_product(kOil, 1), of_fuelling(kTakenIn)}), erro::kFuellingAlreadyPosted,
       "Abastecimento baixado anteriormente"},
      {cash_sale(100, {of_product(kOil, 1), of_fuelling(kTyped)}), erro::kFuellingAlreadyPosted, "Erro na conferencia"},
      {cash_sale(100, {of_fuelling(kMeasured)}), erro::kRuleViolation, "o abastecimento 73 é uma aferição"},
      {cash_sale(100, {of_product(99, 1)}), erro::kRecordNotFound, "Registro nao encontrado(Produto)"},
      {cash_sale(100, {of_product(kOil, 0)}), erro::kRuleViolation, "quantidade não positiva na linha 1"},
      {cash_sale(100, {}), erro::kRuleViolation, "um cupom tem de 1 a 255 linhas"},
      {cash_sale(50, {of_product(kOil, 1)}), erro::kIntegrity, ""},
      {too_much_paid, erro::kRuleViolation, "recebimentos não conferem: 46,00 em lugar de 45,00"},
      {blocked, erro::kSaleNotReleasedToClient, "Venda nao liberado ao cliente"},
      {nobody, erro::kRuleViolation, "nem recebimentos nem cliente a quem vender a crédito"},
      {discounted, erro::kRuleViolation, "desconto maior que o total: 46,00"},
      {of_no_kind, erro::kRuleViolation, "tipo de recebimento desconhecido: 99"},
      {of_no_printer, erro::kRuleViolation, "não há a impressora 9"},
      {of_no_shift, erro::kRuleViolation, "não há o caixa 9"},
      {of_checked_shift, erro::kRuleViolation, "o caixa 2 já foi conferido"},
      {settled, erro::kRuleViolation, "o movimento do cupom está fechado"},
      {card_sale(78), erro::kRuleViolation, "o cartão 78 está bloqueado"},
      {card_sale(79), erro::kRuleViolation, "o cartão 79 venceu em 22/11/2026"},
      {card_sale(80), erro::kRecordNotFound, "Registro nao encontrado(Cartao)"},
      {card_and_cash, erro::kRuleViolation, "o cartão de um cliente vende a crédito, sem recebimentos"},
      {anothers_card, erro::kRuleViolation, "o cartão 77 é de outro cliente"},
  };
  for (const auto& [sale, number, message] : kRefused) {
    SCOPED_TRACE(message);
    const auto failure = failure_of([&, &refused = sale] { sell(station_, refused); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), number) << failure->description();
    EXPECT_TRUE(failure->description().starts_with(message)) << failure->description();
    ASSERT_TRUE(state() == before);
  }
}

TEST_F(SaleTest, ALineIsTakenBack) {
  const ClockOverride clock(kNow);
  sell(station_, mixed_sale());
  sell(station_, cash_sale(101, {of_product(kWash, 1)}));
  const CouponKey key{1, 100, Date::of_day(2026, 11, 23)};
  cancel_line(station_, key, 2);  // oil: 90.00; 168.98 less 3.98 is left, and 65.00 of the cash
  EXPECT_EQ(rows("SELECT No_CupomFiscal, Vl_Total, Vl_TotalLiquido, Vl_BasCalIcms, Vl_SubTrib, Vl_Cancelamentos, "
                 "Vl_GTotal FROM CupomFiscal ORDER BY No_CupomFiscal"),
            "100,168.98,165,0,123.98,90,258.98\n101,45,45,0,0,90,303.98\n");
  EXPECT_EQ(rows("SELECT Cd_TipoRecebimento, Vl_Recebimento FROM Recebimento ORDER BY No_Recebimento"),
            "3,100\n5,65\n5,45\n");
  EXPECT_EQ(rows("SELECT Cd_LancamentoCardex FROM Cardex"), "1\n");
  EXPECT_EQ(rows("SELECT Qt_Estoque FROM Produto WHERE Cd_Produto = 2"), "3\n");
  cancel_line(station_, key, 1);  // gasoline: 41.02 is left; the cash goes, and 58.98 of the card
  EXPECT_EQ(rows("SELECT Cd_TipoRecebimento, Vl_Recebimento FROM Recebimento ORDER BY No_Recebimento"),
            "3,41.02\n5,45\n");
  EXPECT_EQ(rows("SELECT No_Recebimento FROM RecebimentoCupom ORDER BY No_Recebimento"), "1\n3\n");
  EXPECT_EQ(rows("SELECT Cd_Abastecimento FROM Abastecimento WHERE Ic_Baixado <> 0"), "");
  EXPECT_EQ(rows("SELECT Nm_Doc FROM Cardex"), "AB 71\n");  // the fuel is gone all the same
  for (auto [item, number] : {std::pair{3, erro::kRuleViolation}, std::pair{1, erro::kRecordNotFound}}) {
    const auto failure = failure_of([&, line = item] { cancel_line(station_, key, static_cast<std::uint8_t>(line)); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), number);
  }
  sell(station_, cash_sale(102, {of_fuelling(kTakenIn)}));  // it can be sold again
}

TEST_F(SaleTest, ACouponIsTakenBack) {
  const ClockOverride clock(kNow);
  const CouponKey key{1, 100, Date::of_day(2026, 11, 23)};
  sell(station_, mixed_sale());
  cancel_coupon(station_, key);
  EXPECT_EQ(rows("SELECT Vl_Total, Vl_TotalLiquido, Vl_DescontoCF, Vl_SubTrib, Vl_TotSer, Vl_Cancelamentos, Vl_GTotal, "
                 "Ic_Excluido FROM CupomFiscal"),
            "258.98,0,0,0,0,258.98,258.98,True\n");
  EXPECT_EQ(rows("SELECT No_Item FROM ItemCupomFiscal WHERE Ic_Excluido = 0"), "");
  EXPECT_EQ(rows("SELECT No_Recebimento FROM Recebimento"), "");
  EXPECT_EQ(rows("SELECT Nm_Doc FROM Cardex"), "AB 71\n");
  EXPECT_EQ(rows("SELECT Cd_Produto, Qt_Estoque FROM Produto ORDER BY Cd_Produto"), "1,980\n2,3\n3,0\n");
  EXPECT_EQ(rows("SELECT Ds_TipoDocumento, Vl_Documento FROM LogDocumentoEmitidoECF ORDER BY Vl_Documento"),
            "RV,255\nCA,258.98\n");
  EXPECT_EQ(failure_of([&] { cancel_coupon(station_, key); })->number(), erro::kRecordNotFound);
}

TEST_F(SaleTest, WhatIsSettledIsNotTakenBack) {
  sell(station_, cash_sale(100, {of_product(kWash, 1)}));
  const CouponKey key{1, 100, Date::of_day(2026, 11, 23)};
  for (const char* settled : {"FL_Fechada = 'S'", "No_NF = 77", "Dt_Movimento = '2026-11-20'", "Cd_Caixa = 2"}) {
    station_.connection().Execute("UPDATE CupomFiscal SET FL_Fechada = '-', No_NF = 0, Dt_Movimento = '2026-11-23'");
    station_.connection().Execute(std::string("UPDATE CupomFiscal SET ") + settled);
    const auto failure = failure_of([&] { cancel_coupon(station_, key); });
    ASSERT_TRUE(failure) << settled;
    EXPECT_EQ(failure->number(), erro::kRuleViolation);
  }
}

// Cut at each of its statements the work leaves everything as it was; then it runs.
void expect_all_or_nothing(StationDatabase& database, const std::function<void(Station&)>& work) {
  Station seen = database.open();
  const std::string before = state_of_sales(seen.connection());
  int cuts = 0;
  for (bool done = false; !done; ++cuts) {
    SCOPED_TRACE("cut at statement " + std::to_string(cuts + 1));
    FailingStation cut(database, cuts + 1);
    done = !failure_of([&] { work(cut.station); });
    ASSERT_EQ(state_of_sales(seen.connection()) == before, !done);
  }
  EXPECT_GT(cuts, 20);
}

TEST_F(SaleTest, CutAnywhereLeavesNothingHalfDone) {
  expect_all_or_nothing(database_, [](Station& station) { sell(station, mixed_sale()); });
  EXPECT_EQ(rows("SELECT Vl_TotalLiquido, Vl_GTotal FROM CupomFiscal"), "255,258.98\n");
}

TEST_F(SaleTest, ACancellingThatIsCutLeavesNothingHalfDone) {
  const ClockOverride clock(kNow);
  sell(station_, mixed_sale());
  expect_all_or_nothing(database_, [](Station& station) {
    cancel_coupon(station, {1, 100, Date::of_day(2026, 11, 23)});
  });
  EXPECT_EQ(rows("SELECT Vl_TotalLiquido, Vl_GTotal FROM CupomFiscal"), "0,258.98\n");
}

class SalesFileTest : public SaleTest {
 protected:
  SalesResult take(const std::string& content) { return sell_from(station_, folder_.write("vendas.csv", content)); }
  TemporaryFolder folder_;
};

TEST_F(SalesFileTest, GoodCouponsAreSoldAndBadOnesTold) {
  const std::string file =
      "impressora,cupom,data,hora,produto,quantidade,abastecimento,preco,caixa,desconto,pagamentos,cliente,cancelado,"
      "cartao\n"
      "1,100,2026-11-23,10:00:00,,,71,,1,3.98,3=100.00 5,,,\n"
      "1,100,2026-11-23,,790,1,,,,,,,item,\n"
      "1,101,2026-11-23,10:05:00,791,1,,,1,,,111,,\n"
      "1,102,2026-11-23,10:10:00,790,9,,,1,,5,,,\n"
      "1,103,2026-11-23,10:15:00,790,1,,,1,,,,cupom,\n"
      "1,104,2026-11-23,10:20:00,795,1,,,1,,5,,,\n"
      "1,104,2026-11-23,,790,1,,,,,,,,\n"
      "1,105,2026-11-23,25:00:00,790,1,,,1,,5,,,\n"
      "1,106,2026-11-23,10:30:00,791,1,,,1,,5=40.00,,,\n"
      "1,107,2026-11-23,10:35:00,791,1,,,1,,5,,,\n"
      "1,107,2026-11-23,10:35:00\n"
      "1,108,2026-11-23,10:40:00,791,2,,40,1,,5,,,\n"
      "1,108,2026-11-23,10:41:00,791,2,,40,1,,5,,,\n"
      "1,109,2026-11-23,10:45:00,791,1,,,1,,,,,2/77\n"
      "1,110,2026-11-23,10:50:00,791,1,,,1,,,,,2-77\n"
      "1,111,2026-11-23,10:55:00,791,1,,1000000.01,1,,5,,,\n"
      "1,112,2026-11-23,10:55:00,791,1000001,,,1,,5,,,\n"
      "1,113,2026-11-23,10:55:00,791,1,,,1,,5=9999999999999.00,,,\n"
      "2,1,2026-11-24,00:10:00,791,2,,40,1,,5,,,\n";
  const SalesResult result = take(file);
  EXPECT_EQ(result.sold, 5u);
  EXPECT_EQ(result.cancelled, 1u);
  EXPECT_EQ(
      rows("SELECT No_Impressora, No_CupomFiscal, Vl_TotalLiquido, Vl_Cancelamentos, Ic_Excluido FROM CupomFiscal "
           "ORDER BY No_Impressora, No_CupomFiscal"),
      "1,100,120,46.9,False\n1,101,45,46.9,False\n1,103,0,93.8,True\n1,109,45,93.8,False\n2,1,80,0,False\n");
  std::string refused;
  for (const RefusedSale& sale : result.refused) refused += sale.coupon + ": " + sale.reason + "\n";
  EXPECT_EQ(refused,
            "impressora 1, cupom 102, 2026-11-23: Estoque insuficiente, quantidade disponível: 3,0\n"
            "impressora 1, cupom 104, 2026-11-23: vendas.csv, linha 7: produto desconhecido: 795\n"
            "impressora 1, cupom 105, 2026-11-23: vendas.csv, linha 9: data e hora não são aaaa-mm-dd e hh:mm:ss: "
            "'2026-11-23 25:00:00'\n"
            "impressora 1, cupom 106, 2026-11-23: recebimentos não conferem: 40,00 em lugar de 45,00\n"
            "impressora 1, cupom 107, 2026-11-23: vendas.csv, linha 12: 4 campos em lugar de 14\n"
            "impressora 1, cupom 108, 2026-11-23: vendas.csv, linha 14: hora diferente da primeira linha do cupom\n"
            "impressora 1, cupom 110, 2026-11-23: vendas.csv, linha 16: cartao não é tipo/código: '2-77'\n"
            "impressora 1, cupom 111, 2026-11-23: vendas.csv, linha 17: preco acima de 1000000: 1000000.01\n"
            "impressora 1, cupom 112, 2026-11-23: vendas.csv, linha 18: quantidade acima de 1000000: 1000001\n"
            "impressora 1, cupom 113, 2026-11-23: vendas.csv, linha 19: pagamento inválido: '5=9999999999999.00'\n");
  const std::string before = state();
  const SalesResult again = take(file);
  EXPECT_EQ(again.sold, 0u);
  EXPECT_EQ(again.repeated, 5u);
  EXPECT_TRUE(state() == before);
}

TEST_F(SalesFileTest, LinesAreSoldSomewhere) {
  const std::string header = "impressora,cupom,data,hora,produto,quantidade,ponto,caixa,pagamentos\n";
  const std::string places =
      "SELECT No_CupomFiscal, No_Item, Cd_PonVen FROM ItemCupomFiscal ORDER BY No_CupomFiscal, No_Item";
  EXPECT_EQ(take(header + "1,100,2026-11-23,10:00:00,791,1,7,1,5\n").refused.at(0).reason, "não há o ponto de venda 7");
  EXPECT_EQ(rows("SELECT * FROM PonVen"), "");
  take(header + "1,100,2026-11-23,10:00:00,791,1,,1,5\n");
  EXPECT_EQ(rows("SELECT Cd_PonVen, Nm_PonVen FROM PonVen"), "1,PRINCIPAL\n");
  insert(station_, "PonVen", "Cd_PessoaUsuaria, Cd_PonVen, Nm_PonVen", {"1, 7, 'LOJA'", "2, 0, 'OUTRA'"});
  take(header + "1,101,2026-11-23,10:00:00,791,1,7,1,5\n1,101,2026-11-23,,791,1,,,\n");
  EXPECT_EQ(rows(places), "100,1,1\n101,1,7\n101,2,1\n");
}

TEST_F(SalesFileTest, AnotherHeaderIsNotRead) {
  for (const char* header :
       {"impressora,cupom,data,hora,produto", "impressora,cupom,data,hora,produto,quantidade,cor"}) {
    const auto failure = failure_of([&] { take(std::string(header) + "\n"); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), erro::kRuleViolation);
  }
}

}  // namespace
}  // namespace posto::flows
