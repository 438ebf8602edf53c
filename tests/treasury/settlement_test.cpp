#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cstdlib>

#include "tests/flows/failing_engine.h"
#include "tests/treasury/treasury_test.h"

namespace posto {
namespace {

class SettlementTest : public TreasuryTest {
 protected:
  std::string figures() const {
    std::string text;
    for (const char* name :
         {"Vl_VendaCombustiveis", "Vl_VendaProdutos", "Vl_VendaServicos", "Vl_DescontoCupons", "Vl_Suprimento",
          "Vl_ContasRecebidas", "Vl_Recebimentos", "Vl_VendaACredito", "Vl_AbastecimentosPendentes", "Vl_OutrosDebitos",
          "Vl_OutrosCreditos", "Vl_SomaDebitos", "Vl_SomaCreditos", "Vl_Diferenca"}) {
      text += shift_.ObVO->get(name).as<Currency>().text() + " ";
    }
    return text;
  }
  // Whole settlements of shifts that sold goods of one line each.
  Currency sold(double quantity, std::string_view price) {
    run("DELETE FROM ItemCupomFiscal");
    run(
        fmt::format("INSERT INTO ItemCupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, "
                    "No_Item, Cd_Produto, Qt_Unidade, Vl_UnitVenda) Values (1, 1, 1, '2026-11-24', 1, 2, {}, {})",
                    quantity, price));
    shift_.CalcularCaixa();
    return shift_.ObVO->Vl_VendaProdutos;
  }
  Currency sold_as_summed_up() {
    shift_.GerarDadosParaResumoDeCaixa();
    return connection()
        .Execute("SELECT Valor3 FROM TempRelCaixa14 WHERE Cd_Grupo = 0.1 And Cd_Item = 2")[0]
        .as<Currency>();
  }
  void add_coupon_of_goods() {
    add_products();
    add("CupomFiscal", "Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, Cd_Caixa",
        {"1, 1, 1, '2026-11-24', 87"});
  }
};

TEST_F(SettlementTest, ComposesItsStatementsInTheirOrder) {
  expect_statements({"VerificarEExcluirRecebimentoSemCupomCorrespondente", "CalcularVendas",
                     "CalcularVendas (discounts of the coupons)", "CalcularSuprimento", "CalcularContasRecebidas",
                     "CalcularRecebimentos", "CalcularVendaACredito", "CalcularAbastecimentoPendentes",
                     "CalcularOutrosDebitos", "CalcularOutrosCreditos"},
                    [&] { shift_.CalcularCaixa(); });
  expect_statements({"ValorRecebimentosEmDinheiro"}, [&] { shift_.ValorRecebimentosEmDinheiro(); });
  expect_statements({"ValorOutrosRecebimentosEmDinheiro"}, [&] { shift_.ValorOutrosRecebimentosEmDinheiro(); });
}

// debits  80.50 + 25 + 51.60 + 15.50 + 12.34 + 50 - 1.10 + 7.25 = 241.09
// credits 129.50 + 85 + 5 = 219.50; 219.50 - 241.09 + 2 - 0.41 = -20
TEST_F(SettlementTest, OfAShiftWorkedOutByHand) {
  add_busy_shift();
  constexpr const char* kFigures =
      "51.6000 80.5000 25.0000 1.1000 50.0000 15.5000 129.5000 85.0000 12.3400 7.2500 5.0000 241.0900 219.5000 "
      "-20.0000 ";
  shift_.CalcularCaixa();
  EXPECT_EQ(figures(), kFigures);
  EXPECT_EQ(rows("SELECT No_Recebimento FROM Recebimento ORDER BY No_Recebimento"), "1\n2\n4\n5\n6\n");
  shift_.CalcularCaixa();
  EXPECT_EQ(figures(), kFigures);
  EXPECT_EQ(shift_.ValorRecebimentosEmDinheiro(), money("114"));
  EXPECT_EQ(shift_.ValorOutrosRecebimentosEmDinheiro(), money("2"));
  // the figures are kept by Alterar alone
  EXPECT_EQ(rows("SELECT Vl_Diferenca FROM Caixa WHERE Cd_Caixa = 87"), "-\n");
}

TEST_F(SettlementTest, OfAShiftWithNothingLeavesNoFormerFigure) {
  for (const Property& p : layout_of<VOCaixa>().properties()) {
    if (p.type == SqlType::money) shift_.ObVO->let(p.name, Variant(money("5.5")));
  }
  shift_.ObVO->Vl_FaltaSangrias = money("7");
  shift_.CalcularCaixa();
  std::string zeros;
  for (int i = 0; i < 13; ++i) zeros += "0.0000 ";
  EXPECT_EQ(figures(), zeros + "-1.5000 ");
  EXPECT_EQ(shift_.ValorRecebimentosEmDinheiro(), Currency());
  EXPECT_EQ(shift_.ValorOutrosRecebimentosEmDinheiro(), Currency());
}

TEST_F(SettlementTest, EachLineIsRoundedByItselfAndATieIsACentOffTheSummary) {
  add_coupon_of_goods();
  struct {
    double quantity;
    const char *price, *settled, *summed_up;
  } cases[] = {{0.333, "1.115", "0.37", "0.37"}, {1, "0.125", "0.12", "0.13"},   {3, "0.125", "0.38", "0.38"},
               {1, "0.375", "0.38", "0.38"},     {1, "0.005", "0", "0.01"},      {7, "0.025", "0.18", "0.18"},
               {-1, "0.125", "-0.12", "-0.13"},  {1000, "4.997", "4997", "4997"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(fmt::format("{} at {}", c.quantity, c.price));
    EXPECT_EQ(sold(c.quantity, c.price), money(c.settled));
    EXPECT_EQ(sold_as_summed_up(), money(c.summed_up));
  }
}

// Thousandths by ten-thousandths are whole numbers of a hundred-thousandth of a cent: no float is near.
TEST_F(SettlementTest, IsTheSumOfLinesRoundedOnExactDecimals) {
  using Sold = std::pair<std::int64_t, std::int64_t>;  // thousandths at ten-thousandths
  add_coupon_of_goods();
  const auto settles = [&](const std::vector<Sold>& lines) {
    constexpr std::int64_t kCent = 100'000;
    std::int64_t cents = 0, ties = 0;
    std::string items = "DELETE FROM ItemCupomFiscal\r";
    for (std::size_t i = 0; i < std::min<std::size_t>(lines.size(), 40); ++i) {
      const auto [quantity, price] = lines[i];
      const std::int64_t whole = quantity * price / kCent, rest = quantity * price % kCent;
      ties += rest == kCent / 2;
      cents += whole + (rest > kCent / 2 || (rest == kCent / 2 && whole % 2 == 1));
      items += fmt::format(
          "INSERT INTO ItemCupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Item, "
          "Cd_Produto, Qt_Unidade, Vl_UnitVenda) Values (1, 1, 1, '2026-11-24', {}, 2, {}.{:03}, {}.{:04})\r",
          i + 1, quantity / 1000, quantity % 1000, price / 10'000, price % 10'000);
    }
    run(items);
    shift_.CalcularCaixa();
    const std::int64_t settled = shift_.ObVO->Vl_VendaProdutos.scaled() / 100;
    const std::int64_t summed_up = sold_as_summed_up().scaled() / 100;
    RC_ASSERT(std::abs(settled - cents) <= ties);
    RC_ASSERT(std::abs(summed_up - settled) <= ties);
  };
  const auto whole_numbers = [](std::int64_t end) { return rc::gen::inRange<std::int64_t>(1, end); };
  EXPECT_TRUE(rc::check("a settlement is its lines on exact decimals, but for ties", [&] {
    settles(*rc::gen::container<std::vector<Sold>>(rc::gen::pair(whole_numbers(90'000), whole_numbers(80'000))));
  }));
}

TEST_F(SettlementTest, AFailureNamesItsStepAndKeepsTheFiguresBeforeIt) {
  add_busy_shift();
  constexpr const char* kSteps[] = {"VerificarEExcluirRecebimentoSemCupomCorrespondente",
                                    "CalcularVendas",
                                    "CalcularVendas",
                                    "CalcularSuprimento",
                                    "CalcularContasRecebidas",
                                    "CalcularRecebimentos",
                                    "CalcularVendaACredito",
                                    "CalcularAbastecimentoPendentes",
                                    "CalcularOutrosDebitos",
                                    "CalcularOutrosCreditos"};
  auto whole = settings_->ObConnection;
  auto engine = std::shared_ptr<Engine>(whole, &whole->engine());
  for (int cut = 1; cut <= 10; ++cut) {
    settings_->ObConnection = Connection::create();
    settings_->ObConnection->Use(std::make_shared<FailingEngine>(engine, cut));
    routines_.clear();
    const std::string step = kSteps[cut - 1];
    expect_failure(erro::kProviderFailure, "FailingEngine -> DALCaixa." + step + " -> DALCaixa.CalcularCaixa",
                   [&] { shift_.CalcularCaixa(); });
    EXPECT_EQ(routines_, (std::vector<std::string>{"-DALCaixa." + step, "-DALCaixa.CalcularCaixa"}));
  }
  EXPECT_EQ(shift_.ObVO->Vl_AbastecimentosPendentes, money("12.34"));
  EXPECT_EQ(shift_.ObVO->Vl_SomaDebitos, Currency());
  settings_->ObConnection = whole;
  EXPECT_EQ(rows("SELECT No_Recebimento FROM Recebimento WHERE No_Recebimento = 3"), "");
}

TEST_F(SettlementTest, AFigureThatDoesNotFitNamesTheSumThatItIsIn) {
  add_busy_shift();
  constexpr const char* kHuge = "900000000000000";
  struct {
    const char *change, *step;
  } cases[] = {{"UPDATE DivergenciaCaixa SET Vl_Divergencia = {} WHERE Cd_Caixa = 87 And Cd_TipoDivergenciaCaixa = 3\r"
                "UPDATE Abastecimento SET Vl_Total = {} WHERE Cd_Abastecimento = 1",
                "AtualizaSomaDebitos"},
               {"UPDATE Recebimento SET Vl_Recebimento = {} WHERE No_Recebimento = 1\r"
                "UPDATE CupomFiscal SET Vl_TotalLiquido = {} WHERE No_CupomFiscal = 101",
                "AtualizaSomaCreditos"},
               {"", "CalcularDiferenca"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.step);
    connection().BeginTrans();
    shift_.ObVO->Vl_SobraSangrias = Currency();
    if (*c.change != '\0') {
      run(fmt::format(fmt::runtime(c.change), kHuge, kHuge));
    } else {
      run(fmt::format("UPDATE Recebimento SET Vl_Recebimento = {} WHERE No_Recebimento = 1", kHuge));
      shift_.ObVO->Vl_SobraSangrias = money(kHuge);
    }
    expect_failure(6, std::string(" -> DALCaixa.") + c.step + " -> DALCaixa.CalcularCaixa",
                   [&] { shift_.CalcularCaixa(); });
    connection().RollbackTrans();
  }
}

}  // namespace
}  // namespace posto
