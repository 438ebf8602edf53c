#include <gtest/gtest.h>
// behind the test framework, whose macros it uses
#include <rapidcheck/gtest.h>

#include <cmath>

#include "posto/stock/DALProduto.h"
#include "posto/types/number_pattern.h"
#include "tests/closing/closing_test.h"

namespace posto {
namespace {

struct Movement {
  int of_month, type;
  double quantity, unit_cost;
};

// The ledger as a person would keep it: everything in double, nothing rounded.
struct Model {
  double quantity, cost;
  void take(const Movement& m) {
    const bool bought = m.type == 10;
    if (bought && quantity > 0) cost = (quantity * cost + m.quantity * m.unit_cost) / (quantity + m.quantity);
    if (bought && quantity <= 0 && quantity + m.quantity > 0) cost = m.unit_cost;
    quantity += m.type < 20 ? m.quantity : -m.quantity;
  }
};

class RecalculationTest : public ClosingTest {
 protected:
  // The chain's first two steps for product 1; the statements that rewrote a movement.
  int recalculate(Date since, bool update_product = true) {
    DALProduto product(settings_);
    product.ObVO->Cd_PessoaUsuaria = kTenant;
    product.ObVO->Cd_Produto = 1;
    product.UltimoEstoqueDeKardexAtualizado(since, quantity_, cost_, credit_);
    const auto statements = statements_of(
        [&] { EXPECT_TRUE(closing_.AtualizaEstoqueCardex(since, 1, quantity_, cost_, credit_, update_product)); });
    return static_cast<int>(
        std::ranges::count_if(statements, [](const std::string& s) { return s.starts_with("UPDATE Cardex"); }));
  }
  bool prove(std::int16_t attempt, Date since = day(1)) {
    said_.clear();
    return closing_.ConferirCalculoEstoque(since, 1, said_, attempt);
  }

  float quantity_ = 0, cost_ = 0, credit_ = 0;
  std::string said_;
};

TEST_F(RecalculationTest, TheOpeningPosition) {
  DALProduto product(settings_);
  product.ObVO->Cd_PessoaUsuaria = kTenant;
  product.ObVO->Cd_Produto = 1;
  auto opening = [&](int of_month) {
    product.UltimoEstoqueDeKardexAtualizado(day(of_month), quantity_, cost_, credit_);
    return fmt::format("{} {} {}", quantity_, cost_, credit_);
  };
  expect_failure(erro::kMissingKey,
                 " -> DALProduto.UltimoEstoqueDeKardexAtualizado,  -> DALProduto.UltimoEstoqueDeKardexAtualizado",
                 [&] { opening(5); });
  add_product("7, 1.5, Null");
  add_movement(2, 5, "20, 1, 0, 0", "40, 4, 0.4");
  add_movement(1, 5, "20, 1, 0, 0", "50, 5, 0.5");  // of one day the higher code counts
  add_movement(3, 6, "20, 1, 0, 0", "60, Null, 0.6");
  add_movement(4, 4, "20, 1, 0, 0", "99, 9, 9", 2);
  EXPECT_EQ(opening(5), "7 1.5 0");
  EXPECT_EQ(opening(6), "40 4 0.4");
  EXPECT_EQ(opening(7), "60 0 0.6");
}

TEST_F(RecalculationTest, TheLedgerIsWalkedInItsOrderAndTheProductGetsTheEnd) {
  add_product("10, 2, 0");
  add_movement(9, 2, "20, 5, 0, 0");
  add_movement(3, 1, "10, 10, 4, 18");
  add_movement(5, 2, "11, 1.5, 9, 9");
  add_movement(7, 2, "0, 1, 9, 9", "21.5, 3, 0.36");  // of no known type; right already
  add_movement(1, 3, "20, 1000, 0, 0", "0, 0, 0", 2);
  EXPECT_EQ(recalculate(day(1)), 3);
  // 20 at (20 + 40) / 20 with 7.2 / 20 of credit; a surplus, nothing, a sale
  EXPECT_EQ(ledger(), "20,3,0.36\n21.5,3,0.36\n21.5,3,0.36\n16.5,3,0.36\n0,0,0\n");
  EXPECT_EQ(product_figures(), "16.5,3,0.36\n");
  EXPECT_EQ(quantity_, 16.5f);
  EXPECT_EQ(cost_, 3.f);
}

TEST_F(RecalculationTest, AThousandAndMoreIsWrittenWithoutGrouping) {
  add_product("0, 0, 0");
  add_movement(1, 1, "10, 1234567.25, 1000.55555, 0");
  auto statements = statements_of([&] { closing_.AtualizaEstoqueCardex(day(1), 1, quantity_, cost_, credit_); });
  std::erase_if(statements, [](const std::string& s) { return s.starts_with("SELECT"); });
  ASSERT_EQ(statements.size(), 2u);
  EXPECT_EQ(statements[0],
            "UPDATE Cardex|SET    Qt_Estoque = 1234567.2500,|       Vl_CustoMedio = 1000.5556,|       "
            "Vl_CredIcmsMedio = 0.0000|WHERE  Cd_PessoaUsuaria = 1 And|       Cd_LancamentoCardex = 1");
  EXPECT_EQ(statements[1].substr(0, 50), "UPDATE Produto|SET    Produto.Qt_Estoque = 1234567");
  EXPECT_EQ(ledger(), "1234567.25,1000.5556,0\n");
}

// More movements than are held to be rewritten at once, so that the walk begins again in the middle of a day.
TEST_F(RecalculationTest, ALongLedgerIsWalkedInPieces) {
  add_product("0, 0, 0");
  add_movement(1, 1, "11, 1, 0, 0");
  int count = 1;
  for (; count < 16'384; count *= 2) {
    run(
        fmt::format("INSERT INTO Cardex (Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, Cd_Produto, No_Tipo, "
                    "Qt_Unidade) SELECT Cd_PessoaUsuaria, Cd_LancamentoCardex + {}, '2026-11-{:02}', Cd_Produto, "
                    "No_Tipo, Qt_Unidade FROM Cardex",
                    count, count > 4000 ? 2 : 1));
  }
  Transaction transaction(settings_->ObConnection);
  EXPECT_EQ(recalculate(day(1)), count);
  transaction.commit();
  EXPECT_EQ(
      rows("SELECT Qt_Estoque FROM Cardex WHERE Cd_LancamentoCardex In (1, 9999, 10000, 10001, 16384) ORDER BY 1"),
      "1\n9999\n10000\n10001\n16384\n");
  EXPECT_EQ(rows("SELECT Qt_Estoque FROM Produto"), "16384\n");
  EXPECT_EQ(recalculate(day(2), false), 0);
}

TEST_F(RecalculationTest, WhatAWalkLeavesAlone) {
  add_product("10, 2, 0");
  add_movement(1, 1, "20, 1, 0, 0", "9.0001, 2.0001, 7");  // close enough, whatever its credit
  add_movement(2, 2, "20, 9, 0, 0", "Null, Null, Null");   // nulls count as 0
  add_movement(3, 2, "20, 1, 0, 0", "5, 5, 5");
  add_movement(4, 3, "20, 1, 0, 0", "5, 5, 5");
  const std::string before = product_figures();
  EXPECT_EQ(recalculate(day(2), false), 2);  // one day, and not the product
  EXPECT_EQ(ledger(), "9.0001,2.0001,7\n0.0001,2.0001,7\n-0.9999,2.0001,7\n5,5,5\n");
  EXPECT_EQ(product_figures(), before);
}

TEST_F(RecalculationTest, TheProductAloneWhereNothingMoved) {
  add_product("0.009, 2.456, 0.0009");
  EXPECT_EQ(recalculate(day(1)), 0);
  EXPECT_EQ(product_figures(), "0,2.46,0\n");
}

TEST_F(RecalculationTest, ASaleOfEverythingLeavesNothing) {
  add_product("0.3, 1, 0");
  add_movement(1, 1, "10, 0.1, 1, 0");
  add_movement(2, 1, "20, 0.391, 0, 0");
  recalculate(day(1));
  EXPECT_EQ(product_figures(), "0,1,0\n");
  EXPECT_EQ(ledger(), "0.4,1,0\n0.009,1,0\n");  // the movement keeps what is left
}

// The difference, and from which tries on it passes: 0 always, -1 never.
TEST_F(RecalculationTest, TheProofIsOneSided) {
  const struct {
    const char* name;
    double stock;  // of the product, where 100 is what the ledger explains
    bool fuel;
    int passes_from;
  } cases[] = {{"equal", 100, false, 0},
               {"more than explained", 900, false, 0},
               {"a unit short", 99, false, 0},
               {"a little more", 98.9, false, 2},
               {"two short", 98, false, 3},
               {"a fuel, nearly five short", 95.1, true, 0},
               {"a fuel, five short", 95, true, 1},
               {"a fuel, fifteen short", 85, true, 3}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    run("DELETE FROM Cardex DELETE FROM Produto");
    add_product("60, 1, 0", 1, c.fuel);
    run(fmt::format("UPDATE Produto SET Qt_Estoque = {}", c.stock));
    const auto code = connection().Execute("SELECT Cd_Produto FROM Produto")[0].as<std::int32_t>();
    add_movement(1, 1, "10, 55, 0, 0", "0, 0, 0", code);
    add_movement(2, 1, "20, 15, 0, 0", "0, 0, 0", code);
    add_movement(3, 1, "5, 99, 0, 0", "0, 0, 0", code);  // neither in nor out
    for (std::int16_t attempt = 0; attempt < 4; ++attempt) {
      std::string said = "antes";
      EXPECT_EQ(closing_.ConferirCalculoEstoque(day(1), code, said, attempt), attempt >= c.passes_from) << attempt;
      if (attempt < c.passes_from) {
        EXPECT_EQ(said, fmt::format("antes\r\nErro na conferencia do cálculo do estoque, econtrada diferença de:{} no "
                                    "produto:{}",
                                    format_number(100 - c.stock, "0.0"), code));
      } else {
        EXPECT_EQ(said, "antes");
      }
    }
  }
}

TEST_F(RecalculationTest, TheLastMovementMustHaveTheStock) {
  EXPECT_TRUE(prove(0));  // no such product
  add_product("10, 1, 0");
  run("UPDATE Produto SET Qt_Estoque = 10");
  add_movement(1, 2, "0, 0, 0, 0", "12, 1, 0");
  add_movement(2, 3, "0, 0, 0, 0", "13, 1, 0");
  EXPECT_FALSE(prove(0, day(2)));  // 13 against 10
  EXPECT_EQ(said_, "");            // without a word
  EXPECT_TRUE(prove(0, day(3)));   // nothing behind the third
  run("UPDATE Cardex SET Qt_Estoque = 12 WHERE Cd_LancamentoCardex = 2");
  EXPECT_TRUE(prove(0, day(2)));
  run("UPDATE Cardex SET Qt_Estoque = Null");
  EXPECT_TRUE(prove(0, day(1)));
}

TEST_F(RecalculationTest, NullsSkipWhatTheyAreIn) {
  add_product("Null, 1, 0");
  EXPECT_TRUE(prove(0));  // neither stock nor ledger
  add_movement(1, 1, "10, 5, 0, 0", "Null, 0, 0");
  add_movement(2, 1, "20, Null, 0, 0", "Null, 0, 0");
  EXPECT_FALSE(prove(0));  // a null product's stock leaves the difference at the ledger's 5
  run("UPDATE Produto SET Qt_Estoque = 5");
  EXPECT_TRUE(prove(0));
}

RC_GTEST_FIXTURE_PROP(RecalculationTest, AgreesWithAModelAndIsSettledAfterOneRun, ()) {
  static int cases = 0;  // a server takes a second for each
  if (!database_.embedded() && ++cases > 10) return;
  const auto movement = rc::gen::build<Movement>(
      rc::gen::set(&Movement::of_month, rc::gen::inRange(1, 29)),
      rc::gen::set(&Movement::type, rc::gen::element(10, 11, 14, 20, 21, 24)),
      rc::gen::set(&Movement::quantity, rc::gen::map(rc::gen::inRange(1, 500'000), [](int n) { return n / 1000.0; })),
      rc::gen::set(&Movement::unit_cost, rc::gen::map(rc::gen::inRange(1, 9'000), [](int n) { return n / 1000.0; })));
  auto movements = *rc::gen::resize(30, rc::gen::container<std::vector<Movement>>(movement));
  std::ranges::stable_sort(movements, {}, &Movement::of_month);
  if (rows("SELECT Cd_Produto FROM Produto").empty()) add_product("100, 2, 0");
  const Transaction case_by_case(settings_->ObConnection);  // rolled back
  Model model{100, 2};
  int code = 0;
  for (const Movement& m : movements) {
    model.take(m);
    add_movement(++code, m.of_month, fmt::format("{}, {}, {}, 0", m.type, m.quantity, m.unit_cost));
  }
  recalculate(day(1));
  // 32-bit figures: a millionth of what moved, and what an average loses on the way
  RC_ASSERT(std::abs(quantity_ - model.quantity) <= 0.01);
  if (model.quantity > 1) RC_ASSERT(std::abs(cost_ - model.cost) <= 0.01 * (1 + model.cost));
  const std::string figures = product_figures();
  const float end = quantity_;
  RC_ASSERT(recalculate(day(1)) == 0);
  RC_ASSERT(product_figures() == figures);
  // from any later day the end is the same, but for the four decimals at which it starts
  const int start = *rc::gen::inRange(1, 30);
  recalculate(day(start));
  RC_ASSERT(std::abs(quantity_ - end) <= 0.01);
  // all that is left is sold
  if (end > 0) {
    add_movement(++code, 30, fmt::format("20, {:.3f}, 0, 0", end));
    recalculate(day(30));
    RC_ASSERT(rows("SELECT Qt_Estoque FROM Produto") == "0\n");
  }
}

}  // namespace
}  // namespace posto
