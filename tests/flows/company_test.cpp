#include <fmt/format.h>
#include <gtest/gtest.h>

#include <functional>

#include "flows/bloquear_credito.h"
#include "flows/consolidar.h"
#include "posto/masterdata/DALEmpresaUsuaria.h"
#include "posto/services/clock.h"
#include "posto/services/memory_progress.h"
#include "tests/flows/cut.h"

namespace posto::flows {
namespace {

const Date kToday = Date::of_day(2026, 11, 24);

// Customers and products of a company whose work can be cut.
class CompanyFlowTest : public ::testing::Test {
 protected:
  static void fill(Station& station) {
    auto add = [&](std::string_view table, std::string_view columns, std::initializer_list<std::string_view> list) {
      for (auto values : list)
        station.connection().Execute(fmt::format("INSERT INTO {} ({}) Values ({})", table, columns, values));
    };
    add("EmpresaUsuaria", "Cd_PessoaUsuaria, Qt_DiasCancelamentoCredito", {"1, 30"});
    add("Pessoa", "Cd_Pessoa, Nm_Pessoa",
        {"7, 'Ana'", "8, 'Bruno'", "9, 'Carla'", "10, 'Davi'", "11, 'Eva'", "12, 'Frota'"});
    add("Cliente", "Cd_PessoaUsuaria, Cd_Cliente, No_SituacaoCredito, Fl_BloqAutCredito, Fl_CanCredito",
        {"1, 7, 2, 1, 1", "1, 8, 2, 0, 0", "1, 9, 2, 1, 0", "1, 10, 5, 1, 1", "1, 11, 2, 1, 1", "1, 12, 3, 1, 1"});
    add("ContaAReceber",
        "Cd_PessoaUsuaria, Cd_ContaAReceber, Cd_Pessoa, Cd_PessoaAvalista, Dt_BloqueioCredito, Dt_VencPro, Vl_Saldo, "
        "No_SituacaoPagamento",
        {"1, 1, 7, 8, '2026-11-20', '2026-11-10', 100.5, 1", "1, 2, 7, 9, '2026-11-20', '2026-11-12', 50, 1",
         "1, 3, 7, Null, '2026-12-20', '2026-12-10', 500, 1", "1, 4, 9, 8, '2026-11-24', '2026-11-23', 30, 1",
         "1, 5, 12, 10, '2026-10-01', '2026-09-20', 70, 1", "1, 6, 11, Null, '2026-10-01', '2026-09-20', 70, 3"});
    add("GrupoProduto", "Cd_GrupoProduto, Nm_GrupoProduto", {"1, 'Óleos'"});
    add("Produto",
        "Cd_PessoaUsuaria, Cd_Produto, Nm_Produto, Cd_GrupoProduto, No_Tipo, Qt_EstoqueInicial, Vl_CustoMedioInicial",
        {"1, 1, 'Óleo A', 1, 1, 10, 5", "1, 2, 'Óleo B', 1, 1, 0, 0", "1, 3, 'Óleo C', 1, 1, 3, 20.125"});
    add("Cardex", "Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, No_Tipo, Cd_Produto, Qt_Estoque, Vl_CustoMedio",
        {"1, 1, '2026-11-20', 20, 1, 8.5, 5"});
    add("EstoqueConsolidado", "Cd_PessoaUsuaria, Dt_Referencia, Cd_Produto, Qt_Estoque", {"1, '2026-11-23', 1, 99"});
  }

  Station filled_station() {
    {
      Station empty = database_.open();
      fill(empty);
    }
    return database_.open();
  }
  static std::string state(Connection& connection) {
    return rows_of(connection, "SELECT Cd_Cliente, No_SituacaoCredito FROM Cliente ORDER BY Cd_Cliente") +
           rows_of(connection, "SELECT * FROM EstoqueConsolidado ORDER BY Cd_Produto") +
           rows_of(connection, "SELECT * FROM ResumoContaAReceber ORDER BY Cd_Pessoa");
  }

  // What stands behind a cut is what stood before the work, where it is one transaction.
  void cut(const std::function<void(Station&)>& work, bool one_transaction) {
    CutFlow flow{.fill = fill, .work = work, .state = state};
    if (one_transaction) {
      const std::string before = state(filled_station().connection());
      flow.check_cut = [before](Connection& connection) { EXPECT_EQ(state(connection), before); };
    }
    cut_everywhere(flow);
  }

  StationDatabase database_;
  ClockOverride clock_{kToday.plus_millis(15 * 3'600'000)};
  MemoryProgress form_;
};

// 7 owes 150.50 since the 10th. 8 guarantees 100.50 of it and the 30 of 9; 9 owes 30 and guarantees 50 of 7, due on the
// 12th. 12's bill is overdue by more than 30 days; its guarantor 10 is insolvent and stays. 11 has paid.
TEST_F(CompanyFlowTest, WhoseCreditWasTakenAwayAndWhy) {
  Station station = filled_station();
  std::string told;
  for (const CreditChange& c : bloquear_credito(station)) {
    told += fmt::format("{} {} {} {} {}\n", c.code, c.name, c.cancelled ? "cancelled" : "blocked", c.overdue.text(),
                        format_date(c.oldest_due, "dd/mm/yyyy"));
  }
  EXPECT_EQ(told,
            "7 Ana blocked 150.5000 10/11/2026\n"
            "8 Bruno blocked 130.5000 10/11/2026\n"
            "9 Carla blocked 80.0000 12/11/2026\n"
            "12 Frota cancelled 70.0000 20/09/2026\n");
  EXPECT_TRUE(bloquear_credito(station).empty());
}

TEST_F(CompanyFlowTest, ACutBlockRunAgainEndsLikeAnUncutOne) {
  cut([](Station& station) { bloquear_credito(station); }, true);
}

// 8.5 at 5 is 42.50; 3 at 20.125 is 60.375, which the server rounds up
TEST_F(CompanyFlowTest, ConsolidatedStockWithItsTotal) {
  Station station = filled_station();
  const ConsolidatedStock stock = consolidar(station, kFirstDay, form_, true);
  ASSERT_EQ(stock.products.size(), 2u);
  EXPECT_EQ(stock.products[0].name, "Óleo A");
  EXPECT_EQ(stock.products[0].quantity, 8.5);
  EXPECT_EQ(stock.products[1].total.text(), "60.3800");
  EXPECT_EQ(stock.total.text(), "102.8800");
  EXPECT_EQ(consolidar(station, kFirstDay, form_).products.size(), 3u);
}

TEST_F(CompanyFlowTest, ACutConsolidationRunAgainEndsLikeAnUncutOne) {
  cut([this](Station& station) { consolidar(station, kFirstDay, form_, true); }, true);
}

// The class's own sequences, without a transaction around them: each begins by taking away what it is about to write.
TEST_F(CompanyFlowTest, CutSequencesWithoutATransactionCanRunAgain) {
  cut([this](
          Station& station) { DALEmpresaUsuaria(station.settings).PreparaEstoqueConsolidadoFechado(kFirstDay, form_); },
      false);
  cut(
      [](Station& station) {
        DALEmpresaUsuaria company(station.settings);
        for (auto rs = company.rsProdutosComVendaNoCardexAtePeriodo(kFirstDay); !rs.EOF(); rs.MoveNext()) {
          company.BuscaEGravaEstoqueConsolidado(kFirstDay, rs["Cd_Produto"].as<std::int32_t>(), 1000);
        }
      },
      false);
  // the two statements of the summary, and one more behind them
  cut(
      [](Station& station) {
        DALEmpresaUsuaria company(station.settings);
        company.GerarResumoContaAReceber(Date::of_day(2026, 11, 1), Date::of_day(2026, 11, 30));
        company.ObterDataUltimoLmc();
      },
      false);
}

}  // namespace
}  // namespace posto::flows
