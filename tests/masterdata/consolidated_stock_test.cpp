#include "posto/masterdata/DALEmpresaUsuaria.h"
#include "posto/services/memory_progress.h"
#include "tests/masterdata/masterdata_test.h"

namespace posto {
namespace {

// Four products and their ledger up to the end of October.
class ConsolidatedStockTest : public MasterdataTest {
 protected:
  static constexpr std::int32_t kAll = 2'000'000'000;
  const Date day_ = Date::of_day(2026, 10, 31);

  ConsolidatedStockTest() {
    run("INSERT INTO GrupoProduto (Cd_GrupoProduto, Nm_GrupoProduto) Values (1, 'Lubrificantes')\r"
        "INSERT INTO GrupoProduto (Cd_GrupoProduto, Nm_GrupoProduto) Values (2, 'Combustíveis')");
    add(1, "Gasolina", 2, "100, 2, 0.1");
    add(2, "Aditivo", 1, "0.5, 0.25, 0");  // no movement
    add(3, "Óleo 1 L", 1, "Null, Null, Null");
    add(4, "Filtro", 1, "5, 9.5, 0.3");
    add(5, "Lavagem", 1, "1, 1, 1", 2);  // a service
    run("INSERT INTO Produto (Cd_PessoaUsuaria, Cd_Produto, No_Tipo) Values (2, 6, 1)");
    movement(1, "2026-10-01", 1, "110, 2.05, 0.11");
    movement(2, "2026-10-31", 1, "90, 2.05, 0.11");
    movement(3, "2026-10-31", 1, "95.5, 2.1234567, 0.12");  // the last of the day
    movement(4, "2026-11-01", 1, "1, 1, 1");
    movement(5, "2026-10-30", 1, "2, 2, 2");  // entered later, of an earlier day
    movement(6, "2026-10-15", 4, "4, Null, 0.25");
    movement(7, "2026-10-15", 5, "4, 4, 4");
    run("INSERT INTO Cardex (Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, No_Tipo, Cd_Produto, Qt_Estoque) "
        "Values (2, 8, '2026-10-31', 20, 1, 77)");
  }

  void add(int code, std::string_view name, int group, std::string_view opening, int type = 1) {
    run(
        fmt::format("INSERT INTO Produto (Cd_PessoaUsuaria, Cd_Produto, Nm_Produto, Cd_GrupoProduto, Vl_Preco, "
                    "No_Tipo, Qt_EstoqueInicial, Vl_CustoMedioInicial, Vl_CredIcmsMedioInicial) "
                    "Values (1, {}, '{}', {}, 7.99, {}, {})",
                    code, name, group, type, opening));
  }
  void movement(int code, std::string_view day, int product, std::string_view position) {
    run(
        fmt::format("INSERT INTO Cardex (Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, No_Tipo, Cd_Produto, "
                    "Qt_Estoque, Vl_CustoMedio, Vl_CredIcmsMedio) Values (1, {}, '{}', 20, {}, {})",
                    code, day, product, position));
  }
  void fix_products(std::int32_t last_movement) {
    for (Recordset rs = company_.rsProdutosComVendaNoCardexAtePeriodo(day_); !rs.EOF(); rs.MoveNext()) {
      company_.BuscaEGravaEstoqueConsolidado(day_, rs["Cd_Produto"].as<std::int32_t>(), last_movement);
    }
  }
  std::string consolidated() {
    return rows(
        "SELECT Cd_PessoaUsuaria, Dt_Referencia, Cd_Produto, Qt_Estoque, Vl_CustoMedio, Vl_IcmsRecuperar "
        "FROM EstoqueConsolidado ORDER BY Cd_PessoaUsuaria, Dt_Referencia, Cd_Produto");
  }

  DALEmpresaUsuaria company_{settings_};
  MemoryProgress form_;
};

TEST_F(ConsolidatedStockTest, BothRoadsTakeTheLastMovementUpToTheDay) {
  company_.PreparaEstoqueConsolidadoFechado(day_, form_);
  EXPECT_EQ(consolidated(),
            "1,2026-10-31 00:00:00,1,95.5,2.123457,0.12\n"
            "1,2026-10-31 00:00:00,2,0.5,0.25,0\n"
            "1,2026-10-31 00:00:00,3,0,0,0\n"
            "1,2026-10-31 00:00:00,4,4,9.5,0.25\n");
  fix_products(kAll);
  EXPECT_EQ(consolidated(),
            "1,2026-10-31 00:00:00,1,95.5,2.123457,0.12\n"
            "1,2026-10-31 00:00:00,2,0.5,0.25,0\n"
            "1,2026-10-31 00:00:00,3,-,-,-\n"
            "1,2026-10-31 00:00:00,4,4,9.5,0.25\n");
}

TEST_F(ConsolidatedStockTest, ACutInTheLedgerLeavesOutWhatWasEnteredAfterwards) {
  fix_products(2);
  EXPECT_EQ(rows("SELECT Cd_Produto, Qt_Estoque, Vl_CustoMedio FROM EstoqueConsolidado ORDER BY Cd_Produto"),
            "1,90,2.05\n2,0.5,0.25\n3,-,-\n4,5,9.5\n");  // 4: no movement within the cut, so its opening figures
}

TEST_F(ConsolidatedStockTest, ADayIsReplacedAndOtherDaysAndCompaniesStay) {
  run("INSERT INTO EstoqueConsolidado (Cd_PessoaUsuaria, Dt_Referencia, Cd_Produto, Qt_Estoque) "
      "Values (1, '2026-09-30', 1, 0)\r"
      "INSERT INTO EstoqueConsolidado (Cd_PessoaUsuaria, Dt_Referencia, Cd_Produto, Qt_Estoque) "
      "Values (2, '2026-10-31', 1, 0)\r"
      "INSERT INTO EstoqueConsolidado (Cd_PessoaUsuaria, Dt_Referencia, Cd_Produto, Qt_Estoque) "
      "Values (1, '2026-10-31', 99, 0)");
  const char* kKept = "1,2026-09-30 00:00:00,1,0,-,-\n";
  const char* kOthers = "2,2026-10-31 00:00:00,1,0,-,-\n";
  company_.PreparaEstoqueConsolidadoFechado(day_.plus_millis(3'600'000), form_);  // the time does not count
  const std::string once = consolidated();
  EXPECT_TRUE(once.starts_with(kKept) && once.ends_with(kOthers)) << once;
  EXPECT_EQ(once.find(",99,"), std::string::npos);
  company_.PreparaEstoqueConsolidadoFechado(day_, form_);
  EXPECT_EQ(consolidated(), once);
  company_.ApagaEstoqueConsolidadoIgualZero(day_);
  EXPECT_EQ(rows("SELECT Cd_Produto FROM EstoqueConsolidado WHERE Cd_PessoaUsuaria = 1 And "
                 "Dt_Referencia = '2026-10-31' ORDER BY Cd_Produto"),
            "1\n2\n4\n");
  company_.ApagaEstoqueConsolidado(day_);
  EXPECT_EQ(consolidated(), std::string(kKept) + kOthers);
}

// 95.5 * 2.123457 = 202.7901..; 0.5 * 0.25 = 0.125, a tie that the server rounds up; 4 * 9.5 = 38
TEST_F(ConsolidatedStockTest, TheRowsReadByGroupOrByCode) {
  company_.PreparaEstoqueConsolidadoFechado(day_, form_);
  company_.ApagaEstoqueConsolidadoIgualZero(day_);
  EXPECT_EQ(text_of(company_.rsEstoqueConsolidado(day_, orderByEstoqueConsolidadoNm_GrupoENm_Produto)),
            "2,Combustíveis,1,Gasolina,7.99,95.5,2.123457,202.79\n"
            "1,Lubrificantes,2,Aditivo,7.99,0.5,0.25,0.13\n"
            "1,Lubrificantes,4,Filtro,7.99,4,9.5,38\n");
  Recordset by_code = company_.rsEstoqueConsolidado(day_, orderByEstoqueConsolidadoCd_Produto);
  EXPECT_EQ(by_code["Cd_Produto"].as<std::int32_t>(), 1);
  by_code.MoveNext();
  EXPECT_EQ(by_code["Cd_Produto"].as<std::int32_t>(), 2);
}

TEST_F(ConsolidatedStockTest, TheFormShowsHowFarItIs) {
  std::string shown;
  form_.on_refresh = [&](const MemoryProgress& form) {
    shown += fmt::format("{}/{} {} {}\n", form.value, form.max, form.percentage, form.action);
  };
  company_.PreparaEstoqueConsolidadoFechado(day_, form_);
  EXPECT_EQ(form_.caption, "Atualizando Kardex 31/10/2026");
  EXPECT_TRUE(form_.shown);
  EXPECT_EQ(shown, "1/4 25 Gasolina\n2/4 50 Aditivo\n3/4 75 Óleo 1 L\n4/4 100 Filtro\n");
}

TEST_F(ConsolidatedStockTest, AFormWithoutAControlIsAFailure) {
  MemoryList no_form;
  expect_failure(erro::kUnknownMember, "MemoryList -> DALEmpresaUsuaria.PreparaEstoqueConsolidadoFechado",
                 [&] { company_.PreparaEstoqueConsolidadoFechado(day_, no_form); });
  EXPECT_THROW(form_.let("Progresso", {{std::int32_t{1}}}), Erro);
  EXPECT_THROW(form_.call("Hide", {}), Erro);
  form_.let("PROGRESSO.MAX", {{"12"}});
  EXPECT_EQ(form_.get("progresso.max", {}), Variant(std::int32_t{12}));
}

// The work grows with the products, not with the ledger: two statements a product, and its last movement is the first
// row of an index.
TEST_F(ConsolidatedStockTest, AProductsQuestionIsAnsweredByAnIndex) {
  if (!database_.embedded()) GTEST_SKIP() << "an empty server would rather read its tables";
  std::vector<std::string> statements = statements_of([&] {
    company_.PreparaEstoqueConsolidadoFechado(day_, form_);
    company_.BuscaEGravaEstoqueConsolidado(day_, 1, kAll);
  });
  ASSERT_EQ(statements.size(), 2u + 2 * 4 + 2);
  for (std::string& statement : statements) {
    std::ranges::replace(statement, '|', '\r');
    const std::string plan = connection().engine().explain(statement);
    if (statement.find("Cardex") == std::string::npos) continue;
    EXPECT_NE(plan.find("SEARCH Cardex USING INDEX"), std::string::npos) << plan;
    EXPECT_EQ(plan.find("TEMP B-TREE"), std::string::npos) << plan;
  }
}

}  // namespace
}  // namespace posto
