#include "tests/fiscal/fiscal_test.h"

namespace posto {
namespace {

// Every column that a statement writes, with more decimals and characters than some of them keep.
VOItemCupomFiscal full_line() {
  VOItemCupomFiscal v = line(coupon(2, 1530, "2009-04-03"), 1, 5);
  v.Qt_Unidade = 40.13;
  v.Vl_UnitTabela = Currency::parse("12345.6789");
  v.Vl_UnitVenda = Currency::parse("2.4995");
  v.Vl_AltAut = Currency::parse("-0.1005");
  v.Vl_AltDig = Currency::parse("0.0005");
  v.No_SitTributaria = "060";
  v.Cd_Unidade = "LT";
  v.Tx_Icms = 17.125f;
  v.Tx_BaseCalculo = 66.625f;
  v.No_TribIcms = "6";
  v.Cd_SisTubulacao = 2;
  v.Cd_PonVen = 4;
  v.Cd_CFOP = "5929";
  v.Cd_CompCFOP = "01";
  v.Cd_Abastecimento = 4711;
  v.Cd_LancamentoCardex = 90213;
  v.Cd_Bomba = 3;
  v.Qt_KmPorLitro = Currency::parse("9.8755");
  v.Vl_ComissaoVendedor = Currency::parse("0.255");
  return v;
}

constexpr std::string_view kInsertLine =
    "INSERT INTO ItemCupomFiscal (Cd_PessoaUsuaria,No_Impressora,No_CupomFiscal,Dt_Emissao,No_Item,Cd_Produto,"
    "Qt_Unidade,Vl_UnitTabela,Vl_UnitVenda,Vl_AltAut,Vl_AltDig,No_SitTributaria,Cd_Unidade,Tx_Icms,Tx_BaseCalculo,"
    "No_TribIcms,Cd_SisTubulacao,Cd_PonVen,Cd_CFOP,Cd_CompCFOP,Cd_Abastecimento,Cd_LancamentoCardex,Cd_Bomba,"
    "Qt_KmPorLitro,Vl_ComissaoVendedor) Values (";

class ItemTest : public FiscalTest {
 protected:
  DALItemCupomFiscal& asking(const VOItemCupomFiscal& v) {
    *item_.ObVO = v;
    return item_;
  }
  DALItemCupomFiscal item_{settings_};
};

TEST_F(ItemTest, InsertAndUpdateWriteTheSameLineDifferently) {
  asking(full_line()).Incluir();
  EXPECT_EQ(item_.statement(), std::string(kInsertLine) +
                                   "1,2,1530,'2009-04-03',1,5,40.13000000,12345.679,2.500,-0.101,0.001,'060','LT',"
                                   "17.12500000,66.62500000,'6',2,4,'5929','01',4711,90213,3,9.876,0.26)");
  item_.Alterar();
  EXPECT_EQ(item_.statement(),
            "UPDATE ItemCupomFiscal\rSET   Cd_PessoaUsuaria = 1\r,No_Impressora = 2\r,No_CupomFiscal = 1530\r,"
            "Dt_Emissao = '2009-04-03'\r,No_Item = 1\r,Cd_Produto = 5\r,Qt_Unidade = 40.13000000\r,"
            "Vl_UnitTabela = 12345.67900000\r,Vl_UnitVenda = 2.4995\r,Vl_AltAut = -0.1005\r,Vl_AltDig = 0.0005\r,"
            "No_SitTributaria = '060'\r,Cd_Unidade = 'LT'\r,Tx_Icms = 17.13\r,Tx_BaseCalculo = 66.63\r,"
            "No_TribIcms = '6'\r,Cd_SisTubulacao = 2\r,Cd_PonVen = 4\r,Cd_CFOP = '5929'\r,Cd_CompCFOP = '01'\r,"
            "Cd_Abastecimento = 4711\r,Cd_LancamentoCardex = 90213\r,Cd_Bomba = 3\r,Qt_KmPorLitro = 9.87550000\r,"
            "Vl_ComissaoVendedor = 0.26\rWHERE Cd_PessoaUsuaria = 1 And No_Impressora = 2 And No_CupomFiscal = 1530 "
            "And Dt_Emissao = '2009-04-03' And No_Item = 1");
}

TEST_F(ItemTest, WithoutValuesLinksAreNullAndFiguresZero) {
  const std::string key_and_figures = "0,0,'1899-12-30',0,Null,0.00000000,0.000,0.000,0.000,0.000,'','',";
  EXPECT_TRUE(failure_of([&] { asking({}).Incluir(); }));  // a company is required
  EXPECT_EQ(item_.statement(), std::string(kInsertLine) + "Null," + key_and_figures +
                                   "0.00000000,0.00000000,'',Null,Null,'','',Null,Null,Null,0.000,0.00)");
  VOItemCupomFiscal v = line(coupon(1, 1), 1);
  v.Qt_Unidade = 0;
  v.Vl_UnitVenda = {};
  asking(v).Alterar();
  EXPECT_EQ(item_.statement().substr(item_.statement().find(",Cd_Produto")),
            ",Cd_Produto = 0\r,Qt_Unidade = 0.00000000\r,Vl_UnitTabela = 0.00000000\r,Vl_UnitVenda = 0.0000\r,"
            "Vl_AltAut = 0.0000\r,Vl_AltDig = 0.0000\r,No_SitTributaria = ''\r,Cd_Unidade = ''\r,Tx_Icms = 0.00\r,"
            "Tx_BaseCalculo = 0.00\r,No_TribIcms = ''\r,Cd_SisTubulacao = Null\r,Cd_PonVen = Null\r,Cd_CFOP = ''\r,"
            "Cd_CompCFOP = ''\r,Cd_Abastecimento = Null\r,Cd_LancamentoCardex = Null\r,Cd_Bomba = Null\r,"
            "Qt_KmPorLitro = 0.00000000\r,Vl_ComissaoVendedor = 0.00\rWHERE Cd_PessoaUsuaria = 1 And "
            "No_Impressora = 1 And No_CupomFiscal = 1 And Dt_Emissao = '2026-11-23' And No_Item = 1");
}

TEST_F(ItemTest, InsertCutsTextsAndUpdateDoesNot) {
  VOItemCupomFiscal v = full_line();
  v.No_SitTributaria = "06099";
  v.Cd_Unidade = "LTR";
  v.Cd_CFOP = "5.929";
  asking(v).Incluir();
  EXPECT_EQ(rows("SELECT No_SitTributaria, Cd_Unidade, Cd_CFOP FROM ItemCupomFiscal"), "060,LT,5.92\n");
  const auto failure = failure_of([&] { item_.Alterar(); });
  ASSERT_TRUE(failure);  // longer than its column
  EXPECT_EQ(failure->source(), testing::provider() + " -> DALItemCupomFiscal.Alterar");
}

TEST_F(ItemTest, ADeletedLineStaysAndLetsItsFuellingGo) {
  add(coupon(2, 1530, "2009-04-03"));
  asking(full_line()).Incluir();
  DALCupomFiscal coupons(settings_);
  EXPECT_FALSE(coupons.ObterCuponsFiscaisPeloCodigoAbastecimento("4711").EOF());
  item_.Excluir();
  EXPECT_EQ(item_.statement(),
            "UPDATE ItemCupomFiscal\rSET    Ic_Excluido = -1,\r       Cd_LancamentoCardex = NULL,\r       "
            "Cd_Abastecimento = NULL\rWHERE  Cd_PessoaUsuaria = 1 And\r       No_Impressora = 2 And\r       "
            "No_CupomFiscal = 1530 And\r       Dt_Emissao = '2009-04-03' And\r       No_Item = 1");
  EXPECT_TRUE(coupons.ObterCuponsFiscaisPeloCodigoAbastecimento("4711").EOF());
  EXPECT_EQ(rows("SELECT No_Item, Cd_LancamentoCardex, Cd_Abastecimento, Cd_Bomba FROM ItemCupomFiscal"), "1,-,-,3\n");
  const auto failure = failure_of([&] { item_.Consultar(); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->description(), "Registro nao encontrado(ItemCupomFiscal)");
}

TEST_F(ItemTest, NeedsItsWholeKey) {
  VOItemCupomFiscal v = full_line();
  v.No_Item = 0;
  expect_failure(erro::kMissingKey, " -> DALItemCupomFiscal.Excluir,  -> DALItemCupomFiscal.Excluir",
                 [&] { asking(v).Excluir(); });
  EXPECT_EQ(item_.ObVO->Cd_Produto, 0);
  expect_failure(erro::kMissingKey, " -> DALItemCupomFiscal.Alterar,  -> DALItemCupomFiscal.Alterar",
                 [&] { asking(v).Alterar(true); });
  EXPECT_EQ(item_.ObVO->Cd_Produto, 5);  // kept while saving
}

TEST_F(ItemTest, TakesOverTheProductsColumns) {
  const std::int32_t product = add_product("OLEO");
  run("UPDATE Produto SET Cd_Unidade = 'UN', Tx_Icms = 18, No_SitTributaria = '000', No_TribIcms = '3'");
  VOItemCupomFiscal v = line(coupon(1, 10), 1, product, 2, 30);
  VOItemCupomFiscal& read = asking(v).ConsultarProduto();
  EXPECT_EQ(read.Cd_Unidade, "UN");
  EXPECT_EQ(read.Tx_Icms, 18.0f);
  EXPECT_EQ(read.No_TribIcms, "3");
  EXPECT_EQ(read.Qt_Unidade, 2);
  const auto failure = failure_of([&] { asking(line(coupon(1, 10), 1, 9999)).ConsultarProduto(true); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->description(), "Registro nao encontrado(ItemCupomFiscal)");
  EXPECT_EQ(item_.ObVO->No_CupomFiscal, 0);
}

TEST_F(ItemTest, HandsItsSettingsToNozzleAndProduct) {
  DALItemCupomFiscal item;
  item.ObVOSistema = settings_;
  EXPECT_EQ(item.Ob_DALBomba()->ObVOSistema, settings_);
  EXPECT_EQ(item.Ob_DALProduto()->ObVOSistema, settings_);
  auto nozzle = std::make_shared<DALBomba>();
  item.Ob_DALBomba(nozzle);
  EXPECT_EQ(item.Ob_DALBomba(), nozzle);
  EXPECT_EQ(nozzle->ObVOSistema, settings_);
}

}  // namespace
}  // namespace posto
