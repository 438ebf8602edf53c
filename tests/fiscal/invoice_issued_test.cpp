#include <fmt/format.h>
#include <gtest/gtest.h>

#include "posto/fiscal/DALItemNotaSaida.h"
#include "posto/fiscal/DALNotaSaida.h"
#include "posto/fiscal/invoice_layout.h"
#include "tests/core/failures.h"
#include "tests/support/database.h"

namespace posto {
namespace {

class IssuedInvoiceTest : public DatabaseTest {
 protected:
  // An invoice with two lines, of a receivable where that is not 0.
  void add(int kind, int number, int receivable = 0) {
    DALNotaSaida invoice(settings_);
    invoice.ObVO->Cd_TipoNF = kind;
    invoice.ObVO->No_Nota = number;
    invoice.ObVO->Cd_ContaAReceber = receivable;
    invoice.Incluir();
    for (int item : {1, 2}) add_line(kind, number, item, 0);
  }
  void add_line(int kind, int number, int item, int product, std::string_view cfop = "5102") {
    DALItemNotaSaida line(settings_);
    line.ObVO->Cd_TipoNF = kind;
    line.ObVO->No_Nota = number;
    line.ObVO->No_Item = item;
    line.ObVO->Cd_Produto = product;
    line.ObVO->Cd_CfopItem = cfop;
    line.Incluir();
  }
  std::string headers() {
    return rows(
        "SELECT Cd_TipoNF, No_Nota, Case When Ic_Cancelada <> 0 Then 1 Else 0 End, Cd_ContaAReceber FROM NotaSaida "
        "ORDER BY Cd_TipoNF, No_Nota");
  }
  std::string lines() {
    return rows("SELECT Cd_TipoNF, No_Nota, No_Item FROM ItemNotaSaida ORDER BY Cd_TipoNF, No_Nota, No_Item");
  }
  DALNotaSaida& asking(int kind, int number, int receivable) {
    invoice_.ObVO->RestaurarDefault();
    invoice_.ObVO->Cd_PessoaUsuaria = kTenant;
    invoice_.ObVO->Cd_TipoNF = kind;
    invoice_.ObVO->No_Nota = number;
    invoice_.ObVO->Cd_ContaAReceber = receivable;
    return invoice_;
  }

  DALNotaSaida invoice_{settings_};
};

TEST_F(IssuedInvoiceTest, IsFoundByItsNumberOrItsReceivable) {
  add(1, 10, 500);
  add(2, 20, 500);
  add(2, 30, 600);
  EXPECT_EQ(asking(1, 10, 600).Consultar().Cd_ContaAReceber, 500);  // the number counts
  EXPECT_EQ(asking(2, 0, 500).Consultar().No_Nota, 20);
  EXPECT_EQ(asking(0, 0, 600).Consultar().No_Nota, 30);
  EXPECT_EQ(asking(0, 10, 600).Consultar().No_Nota, 30);  // a number without a kind finds nothing
  expect_failure(erro::kMissingKey, " -> DALNotaSaida.Consultar,  -> DALNotaSaida.Consultar",
                 [&] { asking(2, 0, 0).Consultar(true); });
  EXPECT_EQ(invoice_.ObVO->Cd_TipoNF, 0);
  EXPECT_EQ(failure_of([&] { asking(3, 0, 600).Consultar(); }).value().description(),
            "Registro nao encontrado(NotaSaida)");
}

TEST_F(IssuedInvoiceTest, KeepsTheFormsNumberAndTheDatabases) {
  add(1, 1843);
  add(1, 1844);
  EXPECT_EQ(rows("SELECT No_Nota, Cd_SequencialNota FROM NotaSaida ORDER BY No_Nota"), "1843,1\n1844,2\n");
  asking(1, 1844, 0).ObVO->Cd_SequencialNota = 77;
  invoice_.ObVO->Vl_TotalLiquido = Currency(150.5);
  invoice_.Alterar();
  EXPECT_EQ(invoice_.ObVO->Cd_SequencialNota, 2);
  EXPECT_EQ(rows("SELECT No_Nota, Cd_SequencialNota, Vl_TotalLiquido FROM NotaSaida WHERE Vl_TotalLiquido > 0"),
            "1844,2,150.5\n");
  EXPECT_EQ(failure_of([&] { asking(1, 0, 500).Alterar(); }).value().number(), erro::kMissingKey);
  EXPECT_EQ(invoice_.nomeCamposSequencial(), (std::vector<std::string>{"Cd_SequencialNota", "No_Nota"}));
}

TEST_F(IssuedInvoiceTest, IsCancelledWithoutItsLinesOrDeleted) {
  add(1, 10, 500);
  add(1, 11, 500);
  add(2, 10);
  asking(1, 10, 0).Excluir(static_cast<CdTipoExclusao>(3));
  EXPECT_EQ(headers(), "1,10,0,500\n1,11,0,500\n2,10,0,-\n");
  asking(1, 10, 0).Excluir();
  EXPECT_EQ(headers(), "1,10,1,-\n1,11,0,500\n2,10,0,-\n");
  EXPECT_EQ(lines(), "1,11,1\n1,11,2\n2,10,1\n2,10,2\n");
  asking(1, 11, 0).Excluir(CdTipoExclusaoFisica);
  EXPECT_EQ(headers(), "1,10,1,-\n2,10,0,-\n");
  EXPECT_EQ(lines(), "2,10,1\n2,10,2\n");
}

TEST_F(IssuedInvoiceTest, OfAReceivableAllAreCancelledAndTheLinesOfOneGo) {
  for (bool physical : {false, true}) {
    SCOPED_TRACE(physical);
    run("DELETE FROM NotaSaida\rDELETE FROM ItemNotaSaida");
    add(1, 10, 500);
    add(2, 20, 500);
    add(2, 30, 600);
    asking(0, 0, 500).Excluir(physical ? CdTipoExclusaoFisica : CdTipoExclusaoLogica);
    EXPECT_EQ(headers(), physical ? "2,30,0,600\n" : "1,10,1,-\n2,20,1,-\n2,30,0,600\n");
    const bool read_first = invoice_.ObVO->No_Nota == 10;  // which one Consultar finds is the database's
    EXPECT_EQ(lines(), read_first ? "2,20,1\n2,20,2\n2,30,1\n2,30,2\n" : "1,10,1\n1,10,2\n2,30,1\n2,30,2\n");
  }
}

TEST_F(IssuedInvoiceTest, ADeletionNeedsAKeyAndTakesLinesWithoutAnInvoiceToo) {
  expect_failure(erro::kMissingKey,
                 " -> DALNotaSaida.ExcluirLogica,  -> DALNotaSaida.ExcluirLogica -> DALNotaSaida.Excluir",
                 [&] { asking(1, 0, 0).Excluir(); });
  EXPECT_EQ(invoice_.ObVO->Cd_TipoNF, 0);
  EXPECT_EQ(failure_of([&] { asking(0, 0, 500).ExcluirFisica(); }).value().number(), erro::kRecordNotFound);
  add_line(1, 10, 1, 0);
  asking(1, 10, 0).Excluir();
  EXPECT_EQ(lines(), "");
}

TEST_F(IssuedInvoiceTest, ItsLinesAreToldByKindOfProduct) {
  run("INSERT INTO NaturezaProduto (Ic_DestacarIcmsST) Values (1)");
  // goods, a service, goods without a nature, and goods of another company
  run(R"(INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto, No_Tipo, Cd_Natureza) Values (1, 'Oleo', 1, 1)
         INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto, No_Tipo, Cd_Natureza) Values (1, 'Lavagem', 2, 1)
         INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto, No_Tipo) Values (1, 'Filtro', 1)
         INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto, No_Tipo, Cd_Natureza) Values (2, 'Alheio', 1, 1))");
  for (int item : {4, 3, 2, 1}) add_line(1, 10, item, item, item == 2 ? "5933" : "5405");
  add_line(1, 11, 1, 1);
  auto told = [](Recordset rs) {
    std::string text;
    for (; !rs.EOF(); rs.MoveNext()) text += rs["Nm_Produto"].as<std::string>() + " ";
    return text;
  };
  asking(1, 10, 0);
  EXPECT_EQ(told(invoice_.Rs_ItensTodos()), "Oleo Lavagem Alheio ");
  EXPECT_EQ(told(invoice_.Rs_ItensProdutos()), "Oleo Alheio ");
  EXPECT_EQ(told(invoice_.Rs_ItensServicos()), "Lavagem ");
  EXPECT_TRUE(invoice_.ConsultarItens()["Ic_DestacarIcmsST"].as<bool>());
  EXPECT_EQ(text_of(invoice_.ConsultarCFOPs()), "5405\n5933\n");
}

TEST_F(IssuedInvoiceTest, StandsForTheCouponsOfItsReceivableAndOfItsNumber) {
  run("INSERT INTO ContaAReceber (Cd_PessoaUsuaria, Cd_ContaAReceber) Values (1, 500)");
  auto coupon = [&](int printer, int number, const char* receivable, const char* invoice) {
    run(
        fmt::format("INSERT INTO CupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, "
                    "Cd_ContaAReceber, No_NF) Values (1, {}, {}, '2026-11-23', {}, {})",
                    printer, number, receivable, invoice));
  };
  coupon(1, 7, "500", "Null");
  coupon(1, 5, "Null", "10");
  coupon(2, 6, "500", "10");  // by both roads
  coupon(2, 8, "501", "11");
  EXPECT_EQ(text_of(asking(1, 10, 500).ConsultarCupons()), "1,5\n2,6\n2,6\n1,7\n");
}

TEST_F(IssuedInvoiceTest, ALineTakesItsProductsRates) {
  run("INSERT INTO Produto (Cd_PessoaUsuaria, No_Tipo, Tx_Icms, No_SitTributaria, Cd_Unidade) "
      "Values (1, 1, 18, '060', 'UN')");
  DALItemNotaSaida line(settings_);
  line.ObVO->Cd_Produto = 1;
  EXPECT_EQ(failure_of([&] { line.ConsultarProduto(); }).value().number(), erro::kMissingKey);
  line.ObVO->Cd_PessoaUsuaria = kTenant;
  line.ObVO->No_Item = 3;
  EXPECT_EQ(line.ConsultarProduto().Tx_Icms, 18);
  EXPECT_EQ(line.ObVO->No_SitTributaria + line.ObVO->Cd_Unidade, "060UN");
  EXPECT_EQ(line.ObVO->No_Item, 3);
  line.ObVO->Cd_Produto = 2;
  const auto failure = failure_of([&] { line.ConsultarProduto(true); }).value();
  EXPECT_EQ(failure.description(), "Registro nao encontrado(ItemNotaSaida)");
  EXPECT_EQ(line.ObVO->No_Item, 0);
}

TEST_F(IssuedInvoiceTest, ALayoutIsSavedWhetherItStandsOrNot) {
  DALLayOutCamposNotaFiscalSaida field(settings_);
  field.ObVO->Cd_PessoaUsuaria = kTenant;
  field.ObVO->Nm_Campo = "Dt_Emissao";
  for (const std::int16_t column : {std::int16_t{40}, std::int16_t{42}}) {
    field.ObVO->No_Coluna = column;
    field.Salvar(true);
  }
  EXPECT_EQ(rows("SELECT Cd_PessoaUsuaria, Nm_Campo, No_Coluna FROM LayOutCamposNotaFiscalSaida"), "1,Dt_Emissao,42\n");
  DALLayOutNotaFiscalSaida form(settings_);
  form.Salvar();  // a record without a company takes the settings'
  EXPECT_EQ(rows("SELECT Cd_PessoaUsuaria FROM LayOutNotaFiscalSaida"), "1\n");
}

}  // namespace
}  // namespace posto
