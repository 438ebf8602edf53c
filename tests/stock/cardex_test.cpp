#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>

#include "posto/stock/DALCardex.h"
#include "tests/core/failures.h"
#include "tests/stock/stock_test.h"

namespace posto {
namespace {

class CardexTest : public StockTest {
 protected:
  VOCardex movement(int type, double quantity, double unit = 0, double rate = 0) {
    VOCardex v;
    v.Cd_PessoaUsuaria = kTenant;
    v.Cd_LancamentoCardex = 1;
    v.Dt_Emissao = day(24);
    v.Nm_Doc = "NF 1";
    v.No_Tipo = static_cast<std::uint8_t>(type);
    v.Qt_Unidade = quantity;
    v.Vl_Unitario = unit;
    v.Tx_Icms = Currency(rate);
    v.Cd_Produto = 1;
    return v;
  }
  float post(VOCardex& v, Tp_EdicaoEnum edit = Tp_EdicaoInclusao) {
    return cardex_.AtualizarEstoqueProduto(v, edit, false);
  }

  DALCardex cardex_{settings_};
};

struct Figures {
  double quantity, cost, credit;
};

struct PositionCase {
  const char* what;
  const char* product;  // quantity, cost, credit before
  int type;
  Tp_EdicaoEnum edit;
  double quantity, unit, rate;
  Figures expected;    // in the movement
  const char* stored;  // in the product
};

constexpr Figures kOwn = {7, 2.5, 0.3};  // what the movement bears beforehand

const PositionCase kPositions[] = {
    // 18 % of 4.123456789 is 0.74222222202; the product gets six decimals
    {"first purchase: its own cost, not rounded",
     "0, 0, 0",
     10,
     Tp_EdicaoInclusao,
     10,
     4.123456789,
     18,
     {10, 4.123456789, 0.74222222202},
     "10,4.123457,0.742222\n"},
    // (10 * 2 + 10 * 4) / 20; (10 * 0.5 + 10 * 4 * 25 %) / 20 = 15 / 20
    {"purchase into stock", "10, 2, 0.5", 10, Tp_EdicaoInclusao, 10, 4, 25, {20, 3, 0.75}, "20,3,0.75\n"},
    // (2 * 1 + 1 * 2) / 3 = 1.3333...; (2 * 0.1 + 1 * 2 * 10 %) / 3 = 0.4 / 3
    {"averages have six decimals",
     "2, 1, 0.1",
     12,
     Tp_EdicaoInclusao,
     1,
     2,
     10,
     {3, 1.333333, 0.133333},
     "3,1.333333,0.133333\n"},
    {"a surplus moves the average too", "10, 2, 0.5", 11, Tp_EdicaoInclusao, 10, 4, 0, {20, 3, 0.25}, "20,3,0.25\n"},
    {"the last kind of entry", "10, 2, 0.5", 19, Tp_EdicaoInclusao, 10, 4, 0, {20, 3, 0.25}, "20,3,0.25\n"},
    {"purchase that lifts a negative stock", "-4, 9, 9", 10, Tp_EdicaoInclusao, 10, 5, 12, {6, 5, 0.6}, "6,5,0.6\n"},
    {"purchase up to nothing", "-10, 9, 9", 10, Tp_EdicaoInclusao, 10, 5, 12, {0, 0, 0}, "0,0,0\n"},
    {"purchase that stays below nothing", "-20, 9, 9", 10, Tp_EdicaoInclusao, 10, 5, 12, {-10, 0, 0}, "-10,0,0\n"},
    {"an entry of nothing brings its cost", "10, 2, 0.5", 10, Tp_EdicaoInclusao, 0, 4, 25, {10, 4, 1}, "10,4,1\n"},
    {"figures that are null are nothing", "Null, Null, Null", 10, Tp_EdicaoInclusao, 1, 4, 25, {1, 4, 1}, "1,4,1\n"},
    {"sale", "10, 1.2345678, 0.00000049", 20, Tp_EdicaoInclusao, 3, 99, 99, {7, 1.234568, 0}, "7,1.234568,0\n"},
    {"the last kind of exit, below nothing", "1, 2, 0.5", 29, Tp_EdicaoInclusao, 3, 0, 0, {-2, 2, 0.5}, "-2,2,0.5\n"},
    // near 100,000 a 32-bit float has steps of 1/128: 0.15 is 19.2 of them, 19 are 0.1484375
    {"the quantity is narrowed",
     "100000.15, 1, 0",
     20,
     Tp_EdicaoInclusao,
     50000,
     0,
     0,
     {50000.1484375, 1, 0},
     "50000.148438,1,0\n"},
    // 1000 * 100000.15 / 200000.15 = 1000 * (0.5 + 0.075 / 200000.15); from the narrowed quantity it would be
    // 500.000371
    {"the averages take it as it is",
     "100000.15, 1000, 0",
     10,
     Tp_EdicaoInclusao,
     100000,
     0,
     0,
     {200000.1484375, 500.000375, 0},
     "200000.148438,500.000375,0\n"},
    // 2^24 + 1 is the first whole number that 32 bits do not hold
    {"a stock of more than 2^24", "16777217, 1, 0", 20, Tp_EdicaoInclusao, 1, 0, 0, {16777215, 1, 0}, "16777215,1,0\n"},
    {"deleted entry: the movement's own averages",
     "20, 9, 9",
     10,
     Tp_EdicaoExclusao,
     10,
     4,
     25,
     {10, 2.5, 0.3},
     "10,2.5,0.3\n"},
    {"deleted exit", "5, 9, 9", 21, Tp_EdicaoExclusao, 3, 4, 25, {8, 2.5, 0.3}, "8,2.5,0.3\n"},
    // the stored movement has 10
    {"changed entry", "20, 9, 9", 10, Tp_EdicaoAlteracao, 12, 4, 25, {22, 2.5, 0.3}, "22,2.5,0.3\n"},
    {"changed exit", "20, 9, 9", 23, Tp_EdicaoAlteracao, 12, 4, 25, {18, 2.5, 0.3}, "18,2.5,0.3\n"},
    {"no movement below 10", "20, 9, 9", 9, Tp_EdicaoInclusao, 12, 4, 25, kOwn, "7,2.5,0.3\n"},
    {"nor from 30 on", "20, 9, 9", 30, Tp_EdicaoExclusao, 12, 4, 25, kOwn, "7,2.5,0.3\n"},
    {"nor for a consultation", "20, 9, 9", 10, Tp_EdicaoConsulta, 12, 4, 25, kOwn, "7,2.5,0.3\n"},
};

TEST_F(CardexTest, TheRunningPosition) {
  run("INSERT INTO Cardex (Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, No_Tipo, Qt_Unidade) "
      "Values (1, 1, '2026-11-20', 10, 10)");
  for (const PositionCase& c : kPositions) {
    SCOPED_TRACE(c.what);
    const std::int32_t product = add_product(c.product);
    VOCardex v = movement(c.type, c.quantity, c.unit, c.rate);
    v.Cd_Produto = product;
    v.Qt_Estoque = kOwn.quantity;
    v.Vl_CustoMedio = kOwn.cost;
    v.Vl_CredIcmsMedio = kOwn.credit;
    EXPECT_EQ(post(v, c.edit), static_cast<float>(c.expected.quantity));
    EXPECT_DOUBLE_EQ(v.Qt_Estoque, c.expected.quantity);
    EXPECT_DOUBLE_EQ(v.Vl_CustoMedio, c.expected.cost);
    EXPECT_DOUBLE_EQ(v.Vl_CredIcmsMedio, c.expected.credit);
    EXPECT_EQ(figures_of(product), c.stored);
  }
}

TEST_F(CardexTest, WhatWouldLeaveLessThanNothingIsBlocked) {
  run("INSERT INTO Cardex (Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, No_Tipo, Qt_Unidade) "
      "Values (1, 1, '2026-11-20', 20, 1)");
  struct {
    const char* stock;
    int type;
    Tp_EdicaoEnum edit;
    double quantity, after;
    const char* available;  // null: not blocked
  } const cases[] = {
      {"3", 20, Tp_EdicaoInclusao, 4, -1, "3,0"},
      {"3", 20, Tp_EdicaoInclusao, 3, 0, nullptr},
      {"1234.56", 20, Tp_EdicaoInclusao, 1235.56, -1, "1.234,6"},
      {"3", 21, Tp_EdicaoAlteracao, 5, -1, "3,0"},    // one of the five is out already
      {"-5", 10, Tp_EdicaoInclusao, 1, -4, "-5,0"},   // entries alike
      {"3", 10, Tp_EdicaoExclusao, 10, -7, nullptr},  // a deletion never is
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(fmt::format("{} {} {}", c.stock, c.type, c.quantity));
    const std::int32_t product = add_product(std::string(c.stock) + ", 2, 0.5");
    VOCardex v = movement(c.type, c.quantity, 1, 10);
    v.Cd_Produto = product;
    const auto failure = failure_of([&] { cardex_.AtualizarEstoqueProduto(v, c.edit); });
    EXPECT_NEAR(v.Qt_Estoque, c.after, 0.0001);  // kept in the movement either way
    ASSERT_EQ(failure.has_value(), c.available != nullptr);
    if (!failure) continue;
    EXPECT_EQ(failure->number(), erro::kInsufficientStock);
    EXPECT_EQ(failure->description(), std::string("Estoque insuficiente, quantidade disponível: ") + c.available);
    EXPECT_EQ(failure->source(), " -> DALCardex.AtualizarEstoqueProduto,  -> DALCardex.AtualizarEstoqueProduto");
    EXPECT_EQ(figures_of(product), std::string(c.stock) + ",2,0.5\n");
  }
}

TEST_F(CardexTest, AServiceHasNoStock) {
  const std::int32_t wash = add_product("Null, Null, Null", "Lavagem", 2);
  VOCardex v = movement(20, 5, 10, 18);
  v.Cd_Produto = wash;
  const VOCardex before = v;
  const auto statements =
      statements_of([&] { EXPECT_EQ(cardex_.AtualizarEstoqueProduto(v, Tp_EdicaoInclusao), 0.0f); });
  EXPECT_EQ(statements.size(), 1u);  // the product was read, nothing else
  EXPECT_EQ(v, before);
  EXPECT_EQ(figures_of(wash), "-,-,-\n");
}

TEST_F(CardexTest, WhatIsNotThereIsTheProvidersFailure) {
  const char* source = "ADODB.Recordset -> DALCardex.AtualizarEstoqueProduto";
  VOCardex v = movement(10, 5, 10);
  const VOCardex before = v;
  expect_failure(erro::kNoCurrentRecord, source, [&] { post(v); });
  add_product("3, 2, 1");
  expect_failure(erro::kNoCurrentRecord, source, [&] { post(v, Tp_EdicaoAlteracao); });  // no such movement
  v.Cd_PessoaUsuaria = 2;
  expect_failure(erro::kNoCurrentRecord, source, [&] { post(v); });  // the product of another company
  v.Cd_PessoaUsuaria = kTenant;
  EXPECT_EQ(v, before);
  EXPECT_EQ(figures_of(1), "3,2,1\n");
}

TEST_F(CardexTest, APostedMovementIsThreeStatements) {
  add_product("8200.5, 2.1, 0");
  VOCardex v = movement(10, 5000, 2.1055, 12.345);
  v.Nm_Doc = "NF 0047110000000";  // cut at 13
  cardex_.ObVO = std::make_shared<VOCardex>(v);
  const auto statements = statements_of([&] {
    post(*cardex_.ObVO);
    cardex_.Incluir();
  });
  // (8200.5 * 2.1 + 5000 * 2.1055) / 13200.5 = 27748.55 / 13200.5; 5000 * 2.1055 * 12.345 % / 13200.5 = 1299.619875 /
  // 13200.5
  EXPECT_EQ(
      statements,
      (std::vector<std::string>{
          "SELECT    * |FROM     Produto |WHERE    Cd_PessoaUsuaria = 1 and |         Cd_Produto = 1  |",
          "UPDATE Produto|SET    Produto.Qt_Estoque = 13200.5,|       Produto.Vl_CustoMedio = 2.102083,|"
          "       Produto.Vl_CredIcmsMedio = 0.098452|WHERE  Produto.Cd_Produto = 1",
          "INSERT INTO Cardex (Cd_PessoaUsuaria,Cd_LancamentoCardex,Dt_Emissao,Nm_Doc,No_Tipo,Qt_Unidade,Vl_Unitario,"
          "Tx_Icms,Qt_Estoque,Vl_CustoMedio,Vl_CredIcmsMedio,Cd_SisTubulacao,Cd_Produto) Values "
          "(1,1,'2026-11-24','NF 0047110000',10,5000.00000000,2.10550000,12.345,13200.50000000,2.10208300,0.09845200,"
          "Null,1)"}));
}

TEST_F(CardexTest, AChangeWritesTheRateWithTwoDecimals) {
  add_product("0, 0, 0");
  *cardex_.ObVO = movement(10, 10, 2, 12.345);
  post(*cardex_.ObVO);
  cardex_.Incluir();
  EXPECT_EQ(rows("SELECT Tx_Icms FROM Cardex"), "12.345\n");

  cardex_.ObVO->Qt_Unidade = 12;
  cardex_.ObVO->Cd_SisTubulacao = 3;
  post(*cardex_.ObVO, Tp_EdicaoAlteracao);
  const auto statements = statements_of([&] { cardex_.Alterar(); });
  EXPECT_EQ(statements,
            std::vector<std::string>{
                "UPDATE Cardex|SET   Cd_PessoaUsuaria = 1|,Cd_LancamentoCardex = 1|,Dt_Emissao = '2026-11-24'|"
                ",Nm_Doc = 'NF 1'|,No_Tipo = 10|,Qt_Unidade = 12.00000000|,Vl_Unitario = 2.00000000|"
                ",Tx_Icms = 12.35|,Qt_Estoque = 12.00000000|,Vl_CustoMedio = 2.00000000|"
                ",Vl_CredIcmsMedio = 0.24690000|,Cd_SisTubulacao = 3|,Cd_Produto = 1|"
                "WHERE Cd_PessoaUsuaria = 1 And Cd_LancamentoCardex = 1"});
  EXPECT_EQ(rows("SELECT Qt_Unidade, Tx_Icms, Qt_Estoque FROM Cardex"), "12,12.35,12\n");
  EXPECT_EQ(figures_of(1), "12,2,0.2469\n");  // by the difference; the averages stay
}

TEST_F(CardexTest, ADeletionTakesTheMovementBack) {
  add_product("10, 2, 0");
  *cardex_.ObVO = movement(10, 10, 4);
  post(*cardex_.ObVO);
  cardex_.Incluir();
  EXPECT_EQ(figures_of(1), "20,3,0\n");
  *cardex_.ObVO = {.Cd_PessoaUsuaria = kTenant, .Cd_LancamentoCardex = 1, .Nm_Doc = ""};
  cardex_.Excluir();
  EXPECT_EQ(figures_of(1), "10,3,0\n");  // the averages of the deleted row stand
  EXPECT_EQ(rows("SELECT * FROM Cardex"), "");

  expect_failure(erro::kRecordNotFound, " -> DALCardex.Consultar,  -> DALCardex.Consultar -> DALCardex.Excluir", [&] {
    *cardex_.ObVO = movement(10, 10);
    cardex_.Excluir();
  });
  EXPECT_EQ(*cardex_.ObVO, VOCardex{});
  EXPECT_EQ(figures_of(1), "10,3,0\n");
}

TEST_F(CardexTest, BothKeysAreNeeded) {
  for (std::string_view missing : {"Cd_PessoaUsuaria", "Cd_LancamentoCardex"}) {
    SCOPED_TRACE(missing);
    *cardex_.ObVO = movement(10, 10);
    cardex_.ObVO->let(missing, std::int32_t{0});
    const VOCardex before = *cardex_.ObVO;
    EXPECT_EQ(failure_of([&] { cardex_.Consultar(); }).value().number(), erro::kMissingKey);
    EXPECT_EQ(failure_of([&] { cardex_.Alterar(true); }).value().number(), erro::kMissingKey);
    EXPECT_EQ(*cardex_.ObVO, before);
    EXPECT_EQ(failure_of([&] { cardex_.Excluir(); }).value().number(), erro::kMissingKey);
    EXPECT_EQ(*cardex_.ObVO, VOCardex{});
  }
}

// After any entries and exits the product holds their sum and stands where the last row of the ledger does.
RC_GTEST_FIXTURE_PROP(CardexTest, TheStockIsTheSumOfTheMovements, ()) {
  add_product("0, 0, 0");
  const int count = *rc::gen::inRange(1, 30);
  double sum = 0, largest = 0;
  for (int i = 1; i <= count; ++i) {
    const bool entry = *rc::gen::arbitrary<bool>();
    *cardex_.ObVO = movement((entry ? 10 : 20) + *rc::gen::inRange(0, 10), *rc::gen::inRange(0, 50000000) / 1000.0,
                             *rc::gen::inRange(0, 100000) / 10000.0, *rc::gen::inRange(0, 26));
    cardex_.ObVO->Cd_LancamentoCardex = i;
    post(*cardex_.ObVO);
    cardex_.Incluir();
    sum += (entry ? 1 : -1) * cardex_.ObVO->Qt_Unidade;
    largest = std::max({largest, std::abs(sum), std::abs(cardex_.ObVO->Qt_Estoque)});
  }
  // a movement narrows the stock once and writes six decimals of it
  const double step = largest * std::numeric_limits<float>::epsilon() + 1e-6;
  const auto stock = connection().Execute("SELECT Qt_Estoque FROM Produto")[0].as<double>();
  Recordset last = connection().Execute("SELECT TOP 1 Qt_Estoque FROM Cardex ORDER BY Cd_LancamentoCardex DESC");
  RC_ASSERT(std::abs(stock - sum) <= count * step);
  RC_ASSERT(std::abs(stock - last[0].as<double>()) <= step);
}

}  // namespace
}  // namespace posto
