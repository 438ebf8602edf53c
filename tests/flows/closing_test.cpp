#include "flows/closing.h"

#include <gtest/gtest.h>

#include "posto/fiscal/DALItemCupomFiscal.h"
#include "posto/fiscal/DALRecebimento.h"
#include "posto/services/clock.h"
#include "posto/treasury/DALCaixa.h"
#include "tests/flows/cut.h"

namespace posto::flows {
namespace {

void run(Station& station, std::initializer_list<const char*> statements) {
  for (const char* statement : statements) station.connection().Execute(statement);
}

// Coupon 102 of the day below, with its lines, their movements and its receipt.
void add_coupon_102(Station& station) {
  run(station,
      {"INSERT INTO CupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, Hr_Emissao, "
       "Dt_Movimento, "
       "Qt_ContReducoes, Vl_TotalLiquido, Vl_GTotal, Tp_Venda, Cd_Caixa) "
       "Values (1, 1, 102, '2026-11-23', '09:01:00', '2026-11-23', 7, 65, 1185, 21, 1)",
       "INSERT INTO ItemCupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Item, Cd_Produto, "
       "Qt_Unidade, Vl_UnitVenda, Cd_Abastecimento, Cd_LancamentoCardex) "
       "Values (1, 1, 102, '2026-11-23', 1, 1, 10, 6, 2, 2)",
       "INSERT INTO ItemCupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Item, Cd_Produto, "
       "Qt_Unidade, Vl_UnitVenda, Cd_LancamentoCardex) Values (1, 1, 102, '2026-11-23', 2, 2, 2, 2.5, 3)",
       "INSERT INTO Cardex (Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, No_Tipo, Qt_Unidade, Cd_Produto) "
       "Values (1, 2, '2026-11-23', 20, 10, 1)",
       "INSERT INTO Cardex (Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, No_Tipo, Qt_Unidade, Cd_Produto) "
       "Values (1, 3, '2026-11-23', 20, 2, 2)",
       "INSERT INTO Recebimento (Cd_PessoaUsuaria, No_Recebimento, Tp_DocDebito, Dt_Lancamento, Vl_Recebimento) "
       "Values (1, 2, 20, '2026-11-23 09:01:00', 65)",
       "INSERT INTO RecebimentoCupom (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Recebimento) "
       "Values (1, 1, 102, '2026-11-23', 2)"});
}

// A line of fuel in a coupon of its own, its movement and its receipt.
void add_fuel_coupon(Station& station, int coupon, int fuelling, double litres, double grand_total) {
  const std::string key = "1, 1, " + std::to_string(coupon) + ", '2026-11-23'";
  const std::string total = std::to_string(6 * litres), number = std::to_string(fuelling);
  const std::string hour = fuelling == 1 ? "'08:01:00'" : "'10:01:00'";
  const std::string ledger = std::to_string(fuelling == 1 ? 1 : 4);
  Connection& connection = station.connection();
  connection.Execute(
      "INSERT INTO CupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, Hr_Emissao, Dt_Movimento, "
      "Qt_ContReducoes, Vl_TotalLiquido, Vl_GTotal, Tp_Venda, Cd_Caixa) Values (" +
      key + ", " + hour + ", '2026-11-23', 7, " + total + ", " + std::to_string(grand_total) + ", 21, 1)");
  connection.Execute(
      "INSERT INTO ItemCupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Item, Cd_Produto, "
      "Qt_Unidade, Vl_UnitVenda, Cd_Abastecimento, Cd_LancamentoCardex) Values (" +
      key + ", 1, 1, " + std::to_string(litres) + ", 6, " + number + ", " + ledger + ")");
  connection.Execute(
      "INSERT INTO Cardex (Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, No_Tipo, Qt_Unidade, Cd_Produto) Values "
      "(1, " +
      ledger + ", '2026-11-23', 20, " + std::to_string(litres) + ", 1)");
  connection.Execute(
      "INSERT INTO Recebimento (Cd_PessoaUsuaria, No_Recebimento, Tp_DocDebito, Dt_Lancamento, Vl_Recebimento) Values "
      "(1, " +
      number + ", 20, '2026-11-23 08:00:00', " + total + ")");
  connection.Execute(
      "INSERT INTO RecebimentoCupom (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Recebimento) "
      "Values (" +
      key + ", " + number + ")");
}

// A day in which everything holds: three fuellings of one nozzle, two of them typed, sold on three coupons.
void fill_day(Station& station) {
  run(station,
      {"INSERT INTO EmpresaUsuaria (Cd_PessoaUsuaria) Values (1)",
       "INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto, No_Tipo, Fl_VendBomba, Qt_EstoqueInicial, "
       "Vl_CustoMedioInicial) Values (1, 'GASOLINA', 1, -1, 1000, 5)",
       "INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto, No_Tipo, Qt_EstoqueInicial, Vl_CustoMedioInicial) "
       "Values (1, 'AGUA', 1, 50, 1)",
       "INSERT INTO Bomba (Cd_PessoaUsuaria, Cd_Bomba, De_EnderecoLogicoBico, Cd_Produto, "
       "No_EncerranteInicial) Values (1, 1, '04', 1, 100000)",
       "INSERT INTO Caixa (Cd_PessoaUsuaria, Cd_Funcionario, No_Sequencial, Dt_Abertura, Cd_Situacao) "
       "Values (1, 1, 1, '2026-11-23', 3)",
       "INSERT INTO MapaResumoECF (Cd_PessoaUsuaria, Dt_Movimento, No_Impressora, Qt_ContReducoes, "
       "No_CupomFiscalInicial, Vl_GTotalInicial, Vl_GTotalFinal) Values (1, '2026-11-23', 1, 7, 101, 1000, 1215)"});
  const char* fuellings[] = {"1, 1, 1, '2026-11-23 08:00:00', 20, 100020", "1, 2, 3, '2026-11-23 09:00:00', 10, 100030",
                             "1, 3, 3, '2026-11-23 10:00:00', 5, 100035"};
  for (const std::string fuelling : fuellings) {
    station.connection().Execute(
        "INSERT INTO Abastecimento (Cd_PessoaUsuaria, Cd_Abastecimento, Tp_OrigemRegistro, Dt_Termino, Qt_Litros, "
        "No_EncerranteFechamento, De_EnderecoLogicoBico) Values (" +
        fuelling + ", '04')");
  }
  add_fuel_coupon(station, 101, 1, 20, 1120);
  add_coupon_102(station);
  add_fuel_coupon(station, 103, 3, 5, 1215);
}

// The faults, each with the finding that it must give and no other, and its correction.
struct Fault {
  const char* finding;
  void (*plant)(Station&);
  void (*correct)(Station&);
};

void set_line(Station& station, int coupon, int fuelling, int movement) {
  DALItemCupomFiscal line(station.settings);
  line.ObVO->Cd_PessoaUsuaria = 1;
  line.ObVO->No_Impressora = 1;
  line.ObVO->No_CupomFiscal = coupon;
  line.ObVO->Dt_Emissao = kFirstDay;
  line.ObVO->No_Item = 1;
  line.Consultar();
  line.ObVO->Cd_Abastecimento = fuelling;
  line.ObVO->Cd_LancamentoCardex = movement;
  line.Alterar();
}

const Fault kFaults[] = {
    {"VerificarSequenciaDeVendasComGtEcf",
     [](Station& s) {
       run(s, {"DELETE FROM CupomFiscal WHERE No_CupomFiscal = 102",
               "DELETE FROM ItemCupomFiscal WHERE No_CupomFiscal = 102",
               "DELETE FROM Cardex WHERE Cd_LancamentoCardex In (2, 3)",
               "DELETE FROM Recebimento WHERE No_Recebimento = 2",
               "DELETE FROM RecebimentoCupom WHERE No_Recebimento = 2"});
     },
     add_coupon_102},
    {"RsItemCupomFiscalSemCardex",
     [](Station& s) {
       set_line(s, 101, 1, 0);
       run(s, {"DELETE FROM Cardex WHERE Cd_LancamentoCardex = 1"});
     },
     [](Station& s) {
       run(s,
           {"INSERT INTO Cardex (Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, No_Tipo, Qt_Unidade, Cd_Produto) "
            "Values (1, 1, '2026-11-23', 20, 20, 1)"});
       set_line(s, 101, 1, 1);
     }},
    {"Rs_BaixaAbastecimentoDuplicidade", [](Station& s) { set_line(s, 103, 1, 4); },
     [](Station& s) { set_line(s, 103, 3, 4); }},
    {"Rs_RecebimentoSemCupom",
     [](Station& s) {
       run(s,
           {"INSERT INTO Recebimento (Cd_PessoaUsuaria, No_Recebimento, Tp_DocDebito, Dt_Lancamento, Vl_Recebimento) "
            "Values (1, 9, 20, '2026-11-23 23:59:59', 10)"});
     },
     [](Station& s) {
       DALRecebimento receipt(s.settings);
       receipt.ObVO->Cd_PessoaUsuaria = 1;
       receipt.ObVO->No_Recebimento = 9;
       receipt.Excluir();
     }},
    {"Rs_CaixaNaoFechado", [](Station& s) { run(s, {"UPDATE Caixa SET Cd_Situacao = 1"}); },
     [](Station& s) {
       DALCaixa shift(s.settings);
       shift.ObVO->Cd_PessoaUsuaria = 1;
       shift.ObVO->Cd_Caixa = 1;
       shift.Consultar();
       shift.ObVO->Cd_Situacao = 3;
       shift.Alterar();
     }},
    // nothing found: a gap between automation and typed fuellings is mended
    {"",
     [](Station& s) {
       run(s, {"UPDATE Abastecimento SET No_EncerranteFechamento = 100099 WHERE Cd_Abastecimento = 3"});
     },
     [](Station&) {}},
};

std::string names(const std::vector<Finding>& findings) {
  std::string text;
  for (const Finding& finding : findings)
    text += std::string(finding.name) + "(" + std::to_string(finding.count()) + ") ";
  return text;
}

std::string closing_state(Connection& connection) {
  return rows_of(connection, "SELECT * FROM Abastecimento ORDER BY Cd_Abastecimento") +
         rows_of(connection, "SELECT * FROM Cardex ORDER BY Cd_LancamentoCardex") +
         rows_of(connection, "SELECT * FROM Produto ORDER BY Cd_Produto") +
         rows_of(connection, "SELECT * FROM Bomba ORDER BY Cd_Bomba") +
         rows_of(connection, "SELECT * FROM ItemCupomFiscal ORDER BY No_CupomFiscal, No_Item") +
         rows_of(connection, "SELECT * FROM FecDiario") +
         rows_of(connection,
                 "SELECT Dt_FecDiario, Nm_Verificacao, Qt_Ocorrencias, Nm_Usuario, Dt_Aceite FROM AceiteFecDiario "
                 "ORDER BY Nm_Verificacao");
}

class ClosingFlowTest : public ::testing::Test {
 protected:
  ClosingFlowTest() {
    fill_day(station_);
    read_company(*station_.settings, 0);
  }
  std::string rows(const std::string& query) { return rows_of(station_.connection(), query); }

  StationDatabase database_;
  Station station_ = database_.open();
  ClockOverride clock_{Date::parse_iso("2026-11-24 01:02:03").value()};
};

TEST_F(ClosingFlowTest, ADayInWhichEverythingHoldsIsClosed) {
  std::string progress;
  const Closing closing =
      close_day(station_, kFirstDay,
                {.user = "ANA", .progress = [&](std::size_t done, std::size_t total, const std::string& name) {
                   progress += std::to_string(done) + "/" + std::to_string(total) + " " + name + ";";
                 }});
  EXPECT_TRUE(closing.closed);
  EXPECT_EQ(names(closing.refused) + names(closing.mended) + names(closing.accepted), "");
  EXPECT_EQ(progress, "0/2 GASOLINA;1/2 AGUA;");
  EXPECT_EQ(rows("SELECT Qt_Estoque, Vl_CustoMedio FROM Produto ORDER BY Cd_Produto"), "965,5\n48,1\n");
  EXPECT_EQ(rows("SELECT * FROM FecDiario"), "1,2026-11-23 00:00:00,2026-11-24 01:02:03,ANA\n");

  const std::string closed = closing_state(station_.connection());
  const Closing again = close_day(station_, kFirstDay, {.user = "RUI"});
  EXPECT_TRUE(again.closed && again.was_closed);
  EXPECT_EQ(closing_state(station_.connection()), closed);

  EXPECT_TRUE(reopen_day(station_, kFirstDay));
  EXPECT_FALSE(reopen_day(station_, kFirstDay));
  EXPECT_EQ(rows("SELECT Count(*) FROM FecDiario"), "0\n");
  EXPECT_TRUE(close_day(station_, kFirstDay, {.user = "RUI"}).closed);
}

TEST_F(ClosingFlowTest, EachFaultIsNamedAloneAndItsCorrectionClosesTheDay) {
  for (const Fault& fault : kFaults) {
    SCOPED_TRACE(fault.finding);
    reopen_day(station_, kFirstDay);
    fault.plant(station_);
    Closing closing = close_day(station_, kFirstDay);
    if (*fault.finding == '\0') {
      EXPECT_TRUE(closing.closed);
      EXPECT_EQ(names(closing.mended), "CorrigeProblemaIntervaloNosAbastecimentosDigitados(1) ");
      EXPECT_EQ(rows("SELECT No_EncerranteFechamento FROM Abastecimento ORDER BY 1"), "100020\n100030\n100035\n");
      EXPECT_EQ(rows("SELECT No_UltEncerrante FROM Bomba"), "100035\n");
      continue;
    }
    EXPECT_FALSE(closing.closed);
    EXPECT_EQ(names(closing.refused), std::string(fault.finding) + "(1) ");
    EXPECT_EQ(rows("SELECT Count(*) FROM FecDiario"), "0\n");
    fault.correct(station_);
    closing = close_day(station_, kFirstDay);
    EXPECT_TRUE(closing.closed) << names(closing.refused);
  }
}

TEST_F(ClosingFlowTest, AllFaultsAtOnceAreNamedAndNothingElse) {
  for (const Fault& fault : kFaults) fault.plant(station_);
  Closing closing = close_day(station_, kFirstDay);
  EXPECT_FALSE(closing.closed);
  EXPECT_EQ(names(closing.refused),
            "VerificarSequenciaDeVendasComGtEcf(1) RsItemCupomFiscalSemCardex(1) Rs_BaixaAbastecimentoDuplicidade(1) "
            "Rs_RecebimentoSemCupom(1) Rs_CaixaNaoFechado(1) ");
  EXPECT_EQ(names(closing.mended), "CorrigeProblemaIntervaloNosAbastecimentosDigitados(1) ");
  EXPECT_TRUE(closing.products.empty());
  EXPECT_NE(closing.refused[0].text.find("Diferença de: -65,00 entre os cupons fiscais 101 e 103 da impressora 1."),
            std::string::npos);
  for (const Fault& fault : kFaults) fault.correct(station_);
  EXPECT_TRUE(close_day(station_, kFirstDay).closed);
}

TEST_F(ClosingFlowTest, WhatIsAcceptedByNameIsKeptWithWhoAcceptedIt) {
  run(station_,
      {"UPDATE Caixa SET Cd_Situacao = 1", "UPDATE CupomFiscal SET Vl_TotalLiquido = 66 WHERE No_CupomFiscal = 102"});
  Closing closing = close_day(station_, kFirstDay, {.accepted = {"Rs_CaixaNaoFechado"}, .user = "ANA"});
  EXPECT_FALSE(closing.closed);
  EXPECT_EQ(names(closing.accepted), "Rs_CaixaNaoFechado(1) ");
  const std::string others = "VerificarSequenciaDeVendasComGtEcf(1) RsSomaDeCupomEItens(1) Rs_RecebimentosETroco(1) ";
  EXPECT_EQ(names(closing.refused), others);
  EXPECT_EQ(rows("SELECT Count(*) FROM AceiteFecDiario"), "0\n");
  EXPECT_THROW(close_day(station_, kFirstDay, {.accepted = {"Rs_Nenhuma"}, .user = "ANA"}), Erro);
  EXPECT_THROW(close_day(station_, kFirstDay, {.accepted = {"Rs_CaixaNaoFechado"}}), Erro);

  closing = close_day(station_, kFirstDay,
                      {.accepted = {"Rs_CaixaNaoFechado", "VerificarSequenciaDeVendasComGtEcf", "RsSomaDeCupomEItens",
                                    "Rs_RecebimentosETroco", "RsCardexSemVenda"},
                       .user = "ANA"});
  EXPECT_TRUE(closing.closed) << names(closing.refused);
  reopen_day(station_, kFirstDay);  // what was accepted stays on record; what was not there was not accepted
  EXPECT_EQ(
      rows("SELECT Nm_Verificacao, Qt_Ocorrencias, Nm_Usuario, Dt_Aceite FROM AceiteFecDiario ORDER BY No_Aceite"),
      "VerificarSequenciaDeVendasComGtEcf,1,ANA,2026-11-24 01:02:03\n"
      "RsSomaDeCupomEItens,1,ANA,2026-11-24 01:02:03\n"
      "Rs_RecebimentosETroco,1,ANA,2026-11-24 01:02:03\n"
      "Rs_CaixaNaoFechado,1,ANA,2026-11-24 01:02:03\n");
}

TEST_F(ClosingFlowTest, DeletedCouponsAndLinesAreNobodysBusiness) {
  run(station_,
      {"INSERT INTO CupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, Vl_TotalLiquido, "
       "Tp_Venda, "
       "Ic_Excluido) Values (1, 1, 99, '2026-11-23', 10, 21, -1)",
       "INSERT INTO CupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, Vl_TotalLiquido, "
       "Tp_Venda) "
       "Values (2, 1, 98, '2026-11-23', 10, 21)",  // another company's
       "INSERT INTO ItemCupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Item, Cd_Produto, "
       "Qt_Unidade, Vl_UnitVenda, Ic_Excluido) Values (1, 1, 101, '2026-11-23', 2, 1, 10, 6, -1)"});
  const Closing closing = close_day(station_, kFirstDay);
  EXPECT_TRUE(closing.closed) << names(closing.refused);
}

TEST_F(ClosingFlowTest, OtherFindingsOfTheCaller) {
  run(station_,
      {// a settled coupon without receipts, which differs from none
       "DELETE FROM RecebimentoCupom WHERE No_CupomFiscal = 103", "DELETE FROM Recebimento WHERE No_Recebimento = 3",
       // a movement that no document explains, and one of another day
       "INSERT INTO Cardex (Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, No_Tipo, Qt_Unidade, Cd_Produto) "
       "Values (1, 8, '2026-11-23', 20, 1, 2)",
       "INSERT INTO Cardex (Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, No_Tipo, Qt_Unidade, Cd_Produto) "
       "Values (1, 9, '2026-11-22', 20, 1, 2)",
       // the first fuelling does not go on from the day before; the automation's readings are not mended
       "INSERT INTO Abastecimento (Cd_PessoaUsuaria, Cd_Abastecimento, Tp_OrigemRegistro, Dt_Termino, Qt_Litros, "
       "No_EncerranteFechamento, De_EnderecoLogicoBico) Values (1, 4, 1, '2026-11-22 23:00:00', 5, 99995, '04')"});
  EXPECT_EQ(names(close_day(station_, kFirstDay).refused),
            "Rs_SomaDeRecebimentoPorCupom(1) RsCardexSemVenda(1) VerificarSequenciaDeAbastecimentos(1) ");
}

TEST_F(ClosingFlowTest, AProductThatCannotBeProvedRefusesTheDay) {
  // the day before left 90 litres less in the ledger than it explains
  run(station_,
      {"INSERT INTO Cardex (Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, No_Tipo, Qt_Unidade, Cd_Produto, "
       "Qt_Estoque, Vl_CustoMedio) Values (1, 9, '2026-11-22', 21, 10, 1, 900, 5)"});
  Closing closing = close_day(station_, kFirstDay);
  EXPECT_FALSE(closing.closed);
  EXPECT_EQ(names(closing.refused), "ConferirCalculoEstoque(1) ");
  EXPECT_EQ(closing.products.at(0).attempts, 3);
  EXPECT_EQ(closing.products.at(1).attempts, 1);
  // the tolerance of a fuel is wide enough from the nineteenth attempt on
  EXPECT_EQ(recalculate(station_, kFirstDay, {.product = 1, .attempts = 30}).at(0).attempts, 19);
  EXPECT_TRUE(recalculate(station_, Date::of_day(2026, 11, 22)).at(0).proved);
  EXPECT_TRUE(close_day(station_, kFirstDay).closed);
  EXPECT_EQ(rows("SELECT Qt_Estoque FROM Produto WHERE Cd_Produto = 1"), "955\n");
}

TEST(ClosingCut, ACutClosingRunAgainEndsLikeAnUncutOne) {
  ClockOverride clock{Date::parse_iso("2026-11-24 01:02:03").value()};
  cut_everywhere({.fill =
                      [](Station& station) {
                        fill_day(station);
                        kFaults[4].plant(station);                       // an open shift
                        kFaults[std::size(kFaults) - 1].plant(station);  // a gap
                        run(station, {"UPDATE Abastecimento SET Qt_Litros = 0 WHERE Cd_Abastecimento = 1"});
                      },
                  .work =
                      [](Station& station) {
                        const Closing closing =
                            close_day(station, kFirstDay, {.accepted = {"Rs_CaixaNaoFechado"}, .user = "ANA"});
                        EXPECT_TRUE(closing.closed) << names(closing.refused);
                      },
                  .state = closing_state});
}

}  // namespace
}  // namespace posto::flows
