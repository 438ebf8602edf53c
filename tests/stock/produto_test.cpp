#include "posto/stock/DALProduto.h"
#include "tests/core/failures.h"
#include "tests/stock/stock_test.h"

namespace posto {
namespace {

class ProdutoTest : public StockTest {
 protected:
  ProdutoTest() {
    run("INSERT INTO GrupoProduto (Nm_GrupoProduto) Values ('Combustíveis') "
        "INSERT INTO GrupoProduto (Nm_GrupoProduto) Values ('Bebidas')");
  }
  // A ledger row: its code, day, type, unit cost and the stock behind it.
  void add_movement(int code, int on_day, int type, std::string_view unit, double stock, int product = 1,
                    int company = kTenant) {
    run(
        fmt::format("INSERT INTO Cardex (Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, No_Tipo, Vl_Unitario, "
                    "Qt_Estoque, Cd_Produto) Values ({}, {}, '2026-11-{:02}', {}, {}, {}, {})",
                    company, code, on_day, type, unit, stock, product));
  }
  void ask_for(std::int32_t product) {
    *vo_ = {};
    vo_->Cd_PessoaUsuaria = kTenant;
    vo_->Cd_Produto = product;
  }

  DALProduto product_{settings_};
  std::shared_ptr<VOProduto> vo_ = product_.ObVO;
};

TEST_F(ProdutoTest, TheLastCostIsThatOfTheLatestPurchase) {
  add_product("10, 2, 0.5");
  ask_for(1);
  vo_->Vl_UltimoCusto = 9;
  EXPECT_EQ(product_.Consultar().Vl_UltimoCusto, 0);  // no purchase yet
  add_movement(1, 3, 10, "1.75", 0);
  EXPECT_EQ(product_.Consultar().Vl_UltimoCusto, 1.75);
  add_movement(2, 1, 10, "1.5", 0);      // an earlier day, stored later
  add_movement(3, 5, 11, "3", 0);        // a surplus is no purchase
  add_movement(4, 6, 10, "4", 0, 2);     // another product
  add_movement(5, 7, 10, "5", 0, 1, 2);  // another company
  EXPECT_EQ(product_.Consultar().Vl_UltimoCusto, 1.75);
  add_movement(6, 8, 10, "Null", 0);
  EXPECT_EQ(product_.Consultar().Vl_UltimoCusto, 0);

  vo_->Vl_UltimoCusto = 9;
  const auto statements = statements_of([&] { product_.Consultar(false, false); });
  EXPECT_EQ(statements.size(), 1u);  // the ledger is not read
  EXPECT_EQ(vo_->Vl_UltimoCusto, 9);
}

TEST_F(ProdutoTest, ABarCodeFindsTheProductOfAnyCompany) {
  run("INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto, Cd_CodBarras) Values (2, 'Óleo', '789')");
  add_movement(1, 3, 10, "30", 0, 1, 2);
  vo_->Cd_PessoaUsuaria = kTenant;  // without a code it plays no part
  vo_->Cd_CodBarras = "789";
  product_.Consultar();
  EXPECT_EQ(vo_->Nm_Produto, "Óleo");
  EXPECT_EQ(vo_->Cd_PessoaUsuaria, 2);
  EXPECT_EQ(vo_->Vl_UltimoCusto, 30);

  ask_for(1);  // with a code the bar code plays none
  vo_->Cd_CodBarras = "789";
  EXPECT_EQ(failure_of([&] { product_.Consultar(); }).value().number(), erro::kRecordNotFound);
  // to change or delete takes company and code
  for (auto call : {+[](DALProduto& p) { p.Alterar(); }, +[](DALProduto& p) { p.Excluir(); }}) {
    *vo_ = {};
    vo_->Cd_CodBarras = "789";
    EXPECT_EQ(failure_of([&] { call(product_); }).value().number(), erro::kMissingKey);
    EXPECT_EQ(*vo_, VOProduto{});
  }
  EXPECT_EQ(rows("SELECT Count(*) FROM Produto"), "1\n");
}

TEST_F(ProdutoTest, SavingHasTheNozzlesSendThePriceAgain) {
  add_product("10, 2, 0.5");
  for (const char* nozzle : {"1, 1, '04', 1", "1, 2, '05', 2", "2, 1, '04', 1"}) {
    run(fmt::format("INSERT INTO Bomba (Cd_PessoaUsuaria, Cd_Bomba, De_EnderecoLogicoBico, Cd_Produto) Values ({})",
                    nozzle));
  }
  const std::string flags = "SELECT Cd_PessoaUsuaria, Cd_Produto, Fl_AlterarPrecoAutomacao FROM Bomba ORDER BY 1, 2";
  ask_for(2);
  EXPECT_EQ(failure_of([&] { product_.Alterar(true); }).value().number(), erro::kRecordNotFound);
  EXPECT_EQ(rows(flags), "1,1,False\n1,2,False\n2,1,False\n");

  ask_for(1);
  product_.Consultar();
  const auto statements = statements_of([&] { product_.Alterar(); });  // nothing changed, and yet
  EXPECT_EQ(statements.back(), "Update Bomba|Set    Fl_AlterarPrecoAutomacao = -1|WHERE  Cd_Produto = 1");
  EXPECT_EQ(rows(flags), "1,1,True\n1,2,False\n2,1,True\n");
}

TEST_F(ProdutoTest, StockAtADay) {
  add_product("0, 0, 0", "Gasolina");
  add_product("0, 0, 0", "Etanol");
  run("INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto, Cd_GrupoProduto) Values (1, 'Água', 2)"
      "INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto, Cd_GrupoProduto) Values (1, 'Sem grupo', Null)"
      "INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto, Cd_GrupoProduto) Values (2, 'De outra', 1)");
  add_movement(1, 3, 10, "1", 100);
  add_movement(9, 5, 20, "1", 80);
  add_movement(10, 5, 20, "1", 60);  // of one day the higher code counts
  add_movement(2, 4, 10, "1", 7, 2);
  add_movement(3, 5, 20, "1", -1, 3);
  add_movement(4, 3, 10, "1", 5, 4);     // has no group to be listed in
  add_movement(5, 3, 10, "1", 5, 5, 2);  // another company's
  const struct {
    Date date;
    const char* rows;
  } cases[] = {{day(2), ""},
               {day(3), "1,Combustíveis,1,Gasolina,100\n"},
               {day(4), "1,Combustíveis,2,Etanol,7\n1,Combustíveis,1,Gasolina,100\n"},
               {day(30), "1,Bebidas,3,Água,-1\n1,Combustíveis,2,Etanol,7\n1,Combustíveis,1,Gasolina,60\n"}};
  ask_for(0);
  for (const auto& c : cases) {
    Recordset stock = product_.rsEstoque(c.date);
    EXPECT_EQ(stock.ActiveConnection(), nullptr);
    EXPECT_EQ(text_of(std::move(stock)), c.rows);
  }
}

TEST_F(ProdutoTest, LedgerBetweenTwoDays) {
  for (int on_day : {1, 2, 3, 4, 5}) add_movement(on_day, on_day, 20, "1", on_day % 2 == 0 ? -on_day : 0);
  add_movement(6, 3, 20, "1", -6, 2);
  add_movement(7, 3, 20, "1", -7, 1, 2);
  const auto codes = [](Recordset ledger) {
    std::string text;
    for (; !ledger.EOF(); ledger.MoveNext()) text += ledger["Cd_LancamentoCardex"].as<std::string>() + " ";
    return text;
  };
  ask_for(1);
  EXPECT_EQ(codes(product_.rsKardex(day(2), day(4))), "2 3 4 ");
  EXPECT_EQ(codes(product_.rsKardexNegativo(day(2), day(3))), "2 ");
  EXPECT_EQ(codes(product_.rsKardex(day(4), day(2))), "");
}

TEST_F(ProdutoTest, LitresPostedOnAnotherDay) {
  run("INSERT INTO Bomba (Cd_PessoaUsuaria, Cd_Bomba, De_EnderecoLogicoBico, Cd_Produto) Values (1, 1, '04', 1)"
      "INSERT INTO Bomba (Cd_PessoaUsuaria, Cd_Bomba, De_EnderecoLogicoBico, Cd_Produto) Values (1, 2, '05', 2)");
  const struct {
    const char* end;
    double litres;
    int posted_on;  // day of the coupon; 0 when there is none
    const char* address = "04";
    int posted = -1;
  } fuellings[] = {{"2026-11-10 23:59:59", 1, 10},  // the day's own: in neither sum
                   {"2026-11-10 00:00:00", 2, 11},         {"2026-11-10 12:00:00", 4, 9},
                   {"2026-11-10 12:00:00", 8, 0, "04", 0},  // not posted: falls out of both
                   {"2026-11-10 12:00:00", 16, 11, "05"},   // another product
                   {"2026-11-09 23:59:59", 32, 10},        {"2026-11-11 00:00:00", 64, 10},
                   {"2026-11-09 12:00:00", 128, 10, "05"}, {"2026-11-09 12:00:00", 256, 10, "04", 0}};
  int number = 0;
  for (const auto& f : fuellings) {
    run(
        fmt::format("INSERT INTO Abastecimento (Cd_PessoaUsuaria, Cd_Abastecimento, Dt_Termino, Qt_Litros, "
                    "De_EnderecoLogicoBico, Ic_Baixado) Values (1, {}, '{}', {}, '{}', {})",
                    ++number, f.end, f.litres, f.address, f.posted));
    if (f.posted_on == 0) continue;
    run(fmt::format(
        "INSERT INTO CupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao) "
        "Values (1, 1, {0}, '2026-11-{1:02}') "
        "INSERT INTO ItemCupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Item, "
        "Cd_Produto, Cd_Abastecimento) Values (1, 1, {0}, '2026-11-{1:02}', 1, {2}, {0})",
        number, f.posted_on, f.address[1] == '4' ? 1 : 2));
  }
  ask_for(1);
  EXPECT_EQ(text_of(product_.rsSomaDeAbastecimentoDoDiaBaixadoEmOutraData(day(10))), "6\n");   // 2 + 4
  EXPECT_EQ(text_of(product_.rsSomaDeAbastecimentoDeOutraDataBaixadoNoDia(day(10))), "96\n");  // 32 + 64
  EXPECT_EQ(text_of(product_.rsSomaDeAbastecimentoDeOutraDataBaixadoNoDia(day(20))), "-\n");

  connection().Close();
  expect_failure(erro::kConnectionInvalid, "ADODB.Connection -> DALProduto.rsMargemContribuicao",
                 [&] { product_.rsSomaDeAbastecimentoDeOutraDataBaixadoNoDia(day(10)); });
}

}  // namespace
}  // namespace posto
