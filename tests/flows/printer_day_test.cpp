#include "flows/printer_day.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "flows/sale.h"
#include "posto/services/clock.h"
#include "tests/flows/cut.h"

namespace posto::flows {
namespace {

// Printer 2 with totalisers of 17, 12 and (services) 3 per cent, at 1,000.00 and 411 reductions on the evening before.
// Its day, by hand:
//   10: gasoline 10 x 5.999 = 59.99 and oil 2 x 20.005 = 40.01, less 10.00: a factor of 0.1, net 53.99 and 36.01
//   11: wash 25.00, book 3 x 3.333 = 10.00, water 2.50, less 5.00: a factor of 0.1333, net 21.67, 8.67 and 2.17, a cent
//       more than the coupon's 32.50; oil 20.01 was cancelled
//   12: filter 30.00, cancelled whole
//   13: filter 15.55 and gasoline 6.00
class PrinterDayTest : public ::testing::Test {
 protected:
  static void fill(Station& station) {
    auto add = [&](std::string_view table, std::string_view columns, std::initializer_list<std::string_view> list) {
      for (auto values : list)
        station.connection().Execute(fmt::format("INSERT INTO {} ({}) Values ({})", table, columns, values));
    };
    add("EmpresaUsuaria", "Cd_PessoaUsuaria", {"1"});
    add("Produto", "Cd_PessoaUsuaria, Nm_Produto, No_Tipo",
        {"1, 'GASOLINA', 1", "1, 'OLEO', 1", "1, 'LAVAGEM', 2", "1, 'LIVRO', 1", "1, 'AGUA', 1", "1, 'FILTRO', 1"});
    add("TipoRecebimento", "Cd_TipoRecebimento", {"5"});
    add("ECF", "Cd_PessoaUsuaria, No_Impressora, No_OrdemUsuario, Tp_T01, Al_T01, Tp_T02, Al_T02, Tp_T03, Al_T03",
        {"1, 2, 4, 0, 17, 0, 12, 1, 3"});
    add("MapaResumoECF", "Cd_PessoaUsuaria, Dt_Movimento, No_Impressora, Qt_ContReducoes, Vl_GTotalFinal",
        {"1, '2026-11-22', 2, 411, 1000", "1, '2026-11-22', 3, 97, 9000"});
    add("CupomFiscal",
        "Cd_PessoaUsuaria, No_Impressora, Dt_Emissao, Dt_Movimento, Qt_ContReducoes, No_CupomFiscal, Vl_TotalLiquido, "
        "Vl_DescontoCF, Vl_GTotal, Vl_Cancelamentos, Ic_Excluido",
        {"1, 2, '2026-11-23', '2026-11-23', 412, 10, 90.00, 10.00, 1100.00, 0, 0",
         "1, 2, '2026-11-23', '2026-11-23', 412, 11, 32.50, 5.00, 1157.51, 20.01, 0",
         "1, 2, '2026-11-23', '2026-11-23', 412, 12, 0, 0, 1187.51, 50.01, -1",
         "1, 2, '2026-11-24', '2026-11-23', 412, 13, 21.55, 0, 1209.06, 50.01, 0"});
    add("ItemCupomFiscal",
        "Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, No_Item, Dt_Emissao, Cd_Produto, Qt_Unidade, Vl_UnitVenda, "
        "Tx_Icms, No_SitTributaria, No_TribIcms, Ic_Excluido",
        {"1, 2, 10, 1, '2026-11-23', 1, 10, 5.999, 17, '060', '6', 0",
         "1, 2, 10, 2, '2026-11-23', 2, 2, 20.005, 17, '000', '0', 0",
         "1, 2, 11, 1, '2026-11-23', 3, 1, 25, 0, '000', '0', 0",
         "1, 2, 11, 2, '2026-11-23', 4, 3, 3.333, 0, '040', '4', 0",
         "1, 2, 11, 3, '2026-11-23', 5, 1, 2.50, 0, '041', '4', 0",
         "1, 2, 11, 4, '2026-11-23', 2, 1, 20.005, 17, '000', '0', -1",
         "1, 2, 12, 1, '2026-11-23', 6, 1, 30, 12, '000', '0', -1",
         "1, 2, 13, 1, '2026-11-24', 6, 1, 15.55, 12, '000', '0', 0",
         "1, 2, 13, 2, '2026-11-24', 1, 1, 6, 0, '060', '6', 0"});
    add("LogDocumentoEmitidoECF",
        "Cd_PessoaUsuaria, No_Impressora, Dt_Emissao, No_COO, Ic_Sangria, Ic_Suprimento, Vl_Documento",
        {"1, 2, '2026-11-23', 10, 0, 0, 90", "1, 2, '2026-11-23', 25, -1, 0, 200", "1, 2, '2026-11-23', 9, 0, -1, 50"});
  }
  // The company is read where it stands already.
  static Station filled(const StationDatabase& database) {
    Station empty = database.open();
    fill(empty);
    empty.connection().Close();
    return database.open();
  }

  static std::string state(Connection& connection) {
    return rows_of(connection, "SELECT * FROM MapaResumoECF ORDER BY Dt_Movimento, No_Impressora") +
           rows_of(connection, "SELECT * FROM ReducaoZ ORDER BY Dt_Movimento, No_Impressora") +
           rows_of(connection,
                   "SELECT Round(Vl_AltFinalCupom, 9) FROM ItemCupomFiscal ORDER BY No_CupomFiscal, No_Item");
  }
  std::string rows(const std::string& query) { return rows_of(station_.connection(), query); }
  static std::string joined(const std::vector<std::string>& findings) {
    std::string text;
    for (const std::string& finding : findings) text += finding + "\n";
    return text;
  }

  StationDatabase database_;
  Station station_ = filled(database_);
  ClockOverride clock_{Date::of_moment(2026, 11, 24, 0, 31, 7)};
};

TEST_F(PrinterDayTest, TheDayByHand) {
  const PrinterDay day = reduce_printer_day(station_, 2, kFirstDay);
  EXPECT_EQ(joined(day.findings), "");
  EXPECT_EQ(day.figures.coupons, 4);
  EXPECT_EQ(day.figures.cancelled, 1);
  EXPECT_EQ(shown(day.figures.gross), "209,06");
  EXPECT_EQ(shown(day.figures.discounts), "15,00");
  EXPECT_EQ(shown(day.figures.cancellations), "50,01");
  EXPECT_EQ(shown(day.figures.net), "144,05");
  EXPECT_EQ(rows("SELECT No_CupomFiscalInicial, No_CupomFiscalFinal, Qt_ContReducoes, Qt_ContOperacoes, "
                 "Vl_GTotalInicial, Vl_GTotalFinal, Vl_SubTrib, Vl_Isentas, Vl_NaoIncidencia, Vl_Cancelamentos, "
                 "Vl_Descontos, Vl_Servicos FROM MapaResumoECF WHERE Dt_Movimento = '2026-11-23'"),
            "10,13,412,25,1000,1209.06,59.99,8.67,2.17,50.01,15,21.67\n");
  const std::string totalisers = "0,17,36.01,0,12,15.55,1,3,21.67,0,0,0\n";
  for (const char* table : {"MapaResumoECF", "ReducaoZ"}) {
    EXPECT_EQ(rows(fmt::format("SELECT Tp_T01, Al_T01, Vl_T01, Tp_T02, Al_T02, Vl_T02, Tp_T03, Al_T03, Vl_T03, Tp_T04, "
                               "Al_T04, Vl_T04 FROM {} WHERE Dt_Movimento = '2026-11-23'",
                               table)),
              totalisers);
  }
  EXPECT_EQ(rows("SELECT No_OrdemUsuario, Qt_ContReducoes, Qt_ContOperacoes, Dt_EmissaoReducaoZ, Vl_GTotalFinal, "
                 "Vl_SubTribICMS, Vl_IsentasICMS, Vl_NaoIncidenciaICMS, Vl_TotalizadoresNaoFiscais, Vl_DescontosICMS, "
                 "Vl_DescontosISS, Vl_AcrescimosICMS, Vl_CancelamentosICMS, Vl_CancelamentosISS FROM ReducaoZ"),
            "4,412,25,2026-11-24 00:31:07,1209.06,59.99,8.67,2.17,250,11.67,3.33,0,50.01,0\n");
  EXPECT_EQ(rows("SELECT Round(Vl_AltFinalCupom, 9) FROM ItemCupomFiscal ORDER BY No_CupomFiscal, No_Item"),
            "0.5999\n2.0005\n3.3325\n0.4442889\n0.33325\n2.6666665\n0\n0\n0\n");
}

TEST_F(PrinterDayTest, ASecondRunWritesTheSameAtAnotherTime) {
  reduce_printer_day(station_, 2, kFirstDay);
  const std::string once = state(station_.connection());
  ClockOverride later(Date::of_moment(2026, 11, 25, 9, 0, 0));
  EXPECT_EQ(joined(reduce_printer_day(station_, 2, kFirstDay).findings), "");
  EXPECT_EQ(state(station_.connection()), once);
}

TEST_F(PrinterDayTest, ACutRunAgainEndsLikeAnUncutOne) {
  cut_everywhere({.fill = fill,
                  .work = [](Station& station) { reduce_printer_day(station, 2, kFirstDay); },
                  .state = state,
                  .check_cut =
                      [](Connection& connection) {
                        EXPECT_EQ(rows_of(connection, "SELECT Count(*), Sum(Vl_AltFinalCupom) FROM ItemCupomFiscal"),
                                  "9,-\n");
                        EXPECT_EQ(rows_of(connection, "SELECT Count(*) FROM ReducaoZ"), "0\n");
                      }});
}

TEST_F(PrinterDayTest, WhatDoesNotAgreeIsFound) {
  struct {
    const char *statement, *findings;
  } cases[] = {
      {"UPDATE CupomFiscal SET Vl_TotalLiquido = 20.55 WHERE No_CupomFiscal = 13",
       "cupom 13: as linhas somam 21,55, o total antes do desconto é 20,55\n"
       "venda bruta: no mapa 209,06, nos cupons 208,06, diferença 1,00\n"
       "venda líquida: no mapa 144,05, nos cupons 143,05, diferença 1,00\n"
       "totalizadores: somam 144,06, os cupons 143,05, e o rateio dos descontos só explica 0,04\n"},
      {"UPDATE CupomFiscal SET Vl_GTotal = 1214.06 WHERE No_CupomFiscal = 13",  // a coupon was printed and not kept
       "venda bruta: no mapa 214,06, nos cupons 209,06, diferença 5,00\n"
       "venda líquida: no mapa 149,05, nos cupons 144,05, diferença 5,00\n"},
      {"UPDATE CupomFiscal SET Vl_Cancelamentos = 20.01 WHERE No_CupomFiscal > 11",
       "cancelamentos: no mapa 20,01, nos cupons 50,01, diferença -30,00\n"
       "venda líquida: no mapa 174,05, nos cupons 144,05, diferença 30,00\n"},
      {"UPDATE ItemCupomFiscal SET Tx_Icms = 7.1 WHERE No_CupomFiscal = 13 And No_Item = 1",
       "a impressora não tem totalizador da alíquota 7,10%\n"},
      {"UPDATE ItemCupomFiscal SET Tx_Icms = 0 WHERE No_CupomFiscal = 13 And No_Item = 1",
       "vendas tributadas a 0,00% não cabem em nenhum totalizador\n"
       "alíquotas: no mapa 36,01, nos cupons 51,56, diferença -15,55\n"},
      {"UPDATE CupomFiscal SET Vl_DesAcr = 1.55, Vl_TotalLiquido = 20 WHERE No_CupomFiscal = 13", ""},
      {"UPDATE CupomFiscal SET Vl_DesAcr = -1.45, Vl_TotalLiquido = 23 WHERE No_CupomFiscal = 13", ""},
      {"UPDATE ECF SET Tp_T03 = 0, Al_T03 = 0", "a impressora não tem totalizador de serviços\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.statement);
    StationDatabase database;
    Station station = filled(database);
    station.connection().Execute(c.statement);
    EXPECT_EQ(joined(reduce_printer_day(station, 2, kFirstDay).findings), c.findings);
  }
}

TEST_F(PrinterDayTest, AMapThatTheCouponsLeftBehindIsFound) {
  EXPECT_EQ(joined(printer_day(station_, 2, kFirstDay).findings), "não há mapa resumo: a redução não foi feita\n");
  reduce_printer_day(station_, 2, kFirstDay);
  EXPECT_EQ(joined(printer_day(station_, 2, kFirstDay).findings), "");
  station_.connection().Execute(
      "UPDATE CupomFiscal SET Ic_Excluido = -1, Vl_TotalLiquido = 0 WHERE No_CupomFiscal = 13");
  EXPECT_EQ(joined(printer_day(station_, 2, kFirstDay).findings),
            "cancelamentos: no mapa 50,01, nos cupons 71,56, diferença -21,55\n"
            "venda líquida: no mapa 144,05, nos cupons 122,50, diferença 21,55\n"
            "substituição tributária: no mapa 59,99, nos cupons 53,99, diferença 6,00\n"
            "alíquotas: no mapa 51,56, nos cupons 36,01, diferença 15,55\n");
}

TEST_F(PrinterDayTest, NothingComesOfADayWithoutCoupons) {
  const std::string before = state(station_.connection());
  EXPECT_EQ(joined(reduce_printer_day(station_, 3, kFirstDay).findings), "não há cupons da impressora neste dia\n");
  EXPECT_EQ(rows("SELECT * FROM ReducaoZ"), "");
  EXPECT_EQ(rows("SELECT Count(*) FROM MapaResumoECF"), "2\n");
}

TEST_F(PrinterDayTest, APrintersFirstDayBeginsWhereItsCouponsDo) {
  station_.connection().Execute("DELETE FROM MapaResumoECF WHERE No_Impressora = 2");
  station_.connection().Execute("DELETE FROM ECF WHERE No_Impressora = 2");
  station_.connection().Execute("UPDATE CupomFiscal SET Qt_ContReducoes = Null, Vl_GTotal = Vl_GTotal - 700");
  const PrinterDay day = reduce_printer_day(station_, 2, kFirstDay);
  EXPECT_EQ(joined(day.findings), "a impressora não tem totalizador de serviços\n");
  EXPECT_EQ(shown(day.map->Vl_GTotalInicial), "300,00");
  EXPECT_EQ(day.map->Qt_ContReducoes, 1);
  EXPECT_EQ(shown(day.map->Al_T01) + " " + shown(day.map->Vl_T01), "12,00 15,55");  // the rates themselves, ascending
  EXPECT_EQ(shown(day.map->Al_T02) + " " + shown(day.map->Vl_T02), "17,00 36,01");
}

TEST_F(PrinterDayTest, DaysThatWereSoldAndCancelledHereAgree) {
  for (int day : {24, 25}) {
    auto sale = [&](std::int32_t number, std::vector<SaleLine> lines, const char* discount, const char* paid) {
      Sale sold{};
      sold.printer = 2;
      sold.number = number;
      sold.moment = Date::of_moment(2026, 11, day, 10, 0, 0);
      sold.discount = Currency::parse(discount);
      sold.lines = std::move(lines);
      sold.payments = {{.kind = 5, .value = Currency::parse(paid)}};
      sell(station_, sold);
    };
    const std::int32_t first = day * 100;
    station_.connection().Execute("UPDATE Produto SET Qt_Estoque = 1000, No_TribIcms = '0', Tx_Icms = 17");
    const Currency price = Currency::parse("3.339");
    sale(first, {{.product = 1, .quantity = 3, .price = price}, {.product = 2, .quantity = 1, .price = price}}, "3.36",
         "10.00");
    sale(first + 1,
         {{.product = 2, .quantity = 1, .price = price},
          {.product = 1, .quantity = 7, .price = price, .cancelled = true}},
         "0", "3.34");
    sale(first + 2, {{.product = 1, .quantity = 2, .price = price}}, "1.68", "5.00");
    cancel_coupon(station_, {.printer = 2, .number = first + 2, .issued = Date::of_day(2026, 11, day)});
    cancel_line(station_, {.printer = 2, .number = first, .issued = Date::of_day(2026, 11, day)}, 2);
  }
  reduce_printer_day(station_, 2, kFirstDay);
  for (int day : {24, 25}) {
    SCOPED_TRACE(day);
    const PrinterDay reduced = reduce_printer_day(station_, 2, Date::of_day(2026, 11, day));
    EXPECT_EQ(joined(reduced.findings), "");
    EXPECT_EQ(reduced.map->Qt_ContReducoes, 412 + day - 23);
    EXPECT_EQ(shown(reduced.figures.net), "10,00");
    EXPECT_EQ(shown(reduced.figures.gross), "46,75");
  }
}

}  // namespace
}  // namespace posto::flows
