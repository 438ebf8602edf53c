#include <functional>

#include "posto/types/text.h"
#include "tests/closing/closing_test.h"

namespace posto {
namespace {

constexpr std::string_view kCoupon =
    "Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, Dt_Movimento, Vl_TotalLiquido, Tp_Venda, Cd_Caixa";
constexpr std::string_view kLine =
    "Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Item, Cd_Produto, Qt_Unidade, Vl_UnitVenda, "
    "Cd_Abastecimento, Cd_LancamentoCardex";
constexpr std::string_view kReceipt =
    "Cd_PessoaUsuaria, No_Recebimento, Tp_DocDebito, Dt_Lancamento, Vl_Recebimento, Ic_Suprimento";
constexpr std::string_view kPart = "Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Recebimento";
constexpr std::string_view kFuelling = "Cd_PessoaUsuaria, Cd_Abastecimento, Qt_Litros";
constexpr std::string_view kMovement = "Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, Cd_Produto, No_Tipo";
constexpr std::string_view kInvoice =
    "Cd_PessoaUsuaria, Cd_TipoNF, No_Nota, Dt_Emissao, Cd_Operacao, Fl_NfServicosDeCupom, Fl_FatVariosCupons, "
    "Fl_FatUnicoCupom";
constexpr std::string_view kInvoiceLine = "Cd_PessoaUsuaria, Cd_TipoNF, No_Nota, No_Item, Cd_LancamentoCardex";
constexpr std::string_view kPurchase =
    "Cd_PessoaUsuaria, Cd_TipoNF, No_Nota, Cd_Fornecedor, Dt_Emissao, Dt_Entrega, Dt_Saida, Cd_Operacao, Ic_Concluido";
constexpr std::string_view kPurchaseLine = "Cd_PessoaUsuaria, No_Entrada, No_Item, Cd_LancamentoCardex";
constexpr std::string_view kProduct = "Cd_PessoaUsuaria, Nm_Produto, Fl_VendBomba";
constexpr std::string_view kShift = "Cd_PessoaUsuaria, Cd_Funcionario, No_Sequencial, Dt_Abertura, Cd_Situacao";

std::string no_text;

// What an examination passes over, what it finds, and the columns of what it found.
struct VerificationCase {
  const char* name;
  std::function<Recordset(DALFecDiario&)> ask;
  std::vector<Rows> passes, faults;
  const char* columns;
  const char* found;
};

const VerificationCase kCases[] = {
    {"rsCupomFiscalSemItem",
     [](DALFecDiario& c) { return c.rsCupomFiscalSemItem(kDay); },
     {{"CupomFiscal",
       kCoupon,
       {"1, 1, 10, '2026-11-23', '2026-11-23', 50, 20, 1", "1, 1, 11, '2026-11-23', '2026-11-23', 0, 20, 1",
        "1, 1, 12, '2026-11-22', '2026-11-23', 50, 20, 1"}},
      {"ItemCupomFiscal", kLine, {"1, 1, 10, '2026-11-23', 1, 1, 1, 50, Null, 1"}}},
     {{"CupomFiscal",
       kCoupon,
       {"1, 2, 10, '2026-11-23', '2026-11-23', 0.01, 20, 1", "2, 1, 10, '2026-11-23', '2026-11-23', 5, 20, 1"}}},
     "Cd_PessoaUsuaria No_Impressora No_CupomFiscal",
     "1,2,10\n2,1,10\n"},  // of another company too
    {"RsItemCupomFiscalSemCardex",
     [](DALFecDiario& c) { return c.RsItemCupomFiscalSemCardex(kDay); },
     {{"ItemCupomFiscal",
       kLine,
       {"1, 1, 10, '2026-11-23', 1, 1, 1, 50, Null, 7", "1, 1, 12, '2026-11-22', 1, 1, 1, 50, Null, Null",
        "2, 1, 10, '2026-11-23', 1, 1, 1, 50, Null, Null"}}},
     {{"ItemCupomFiscal", kLine, {"1, 1, 10, '2026-11-23', 2, 1, 1, 50, Null, Null"}}},
     "No_CupomFiscal No_Item",
     "10,2\n"},
    {"RsItemNotaSaidaSemCardex",
     [](DALFecDiario& c) { return c.RsItemNotaSaidaSemCardex(kDay); },
     {{"NotaSaida",
       kInvoice,
       {"1, 1, 5, '2026-11-23', 20, 0, 0, 0", "1, 1, 6, '2026-11-23', 10, 0, 0, 1",
        "1, 1, 7, '2026-11-22', 10, 0, 0, 0", "1, 1, 8, '2026-11-23', 30, 0, 0, 0"}},
      {"ItemNotaSaida", kInvoiceLine, {"1, 1, 5, 1, Null", "1, 1, 6, 1, Null", "1, 1, 7, 1, Null", "1, 1, 8, 1, 3"}}},
     {{"ItemNotaSaida", kInvoiceLine, {"1, 1, 8, 2, Null"}}},
     "No_Nota No_Item",
     "8,2\n"},
    {"RsItemNotaEntradaSemCardex",
     [](DALFecDiario& c) { return c.RsItemNotaEntradaSemCardex(kDay); },
     {{"NotaEntrada",
       kPurchase,
       {"1, 1, 5, 9, '2026-11-23', Null, Null, 10, -1", "1, 1, 6, 9, '2026-11-22', Null, Null, 10, -1",
        "1, 1, 7, 9, '2026-11-23', Null, Null, 30, -1"}},
      {"ItemNotaEntrada", kPurchaseLine, {"1, 1, 1, 4", "1, 2, 1, Null", "1, 3, 1, Null"}}},
     {{"ItemNotaEntrada", kPurchaseLine, {"1, 1, 2, Null"}}},
     "No_Entrada No_Item",
     "1,2\n"},
    {"RsCardexSemVenda",
     [](DALFecDiario& c) { return c.RsCardexSemVenda(1); },
     {{"Cardex",
       kMovement,
       {"1, 1, '2026-11-23', 1, 20", "1, 2, '2026-11-23', 1, 10", "1, 3, '2026-11-23', 1, 20",
        "1, 4, '2026-10-31', 1, 20", "1, 5, '2026-11-23', 2, 20", "1, 6, '2026-11-23', 1, 11"}},
      {"ItemCupomFiscal", kLine, {"1, 1, 10, '2026-11-23', 1, 1, 1, 50, Null, 1"}},
      {"ItemNotaEntrada", kPurchaseLine, {"1, 1, 1, 2"}},
      {"ItemNotaSaida", kInvoiceLine, {"1, 1, 5, 1, 3"}}},
     {{"Cardex", kMovement, {"1, 9, '2026-11-01', 1, 20", "1, 8, '2026-11-24', 1, 10"}}},
     "Cd_LancamentoCardex",
     "8\n9\n"},
    {"Rs_ItemCupomFiscalCombustivelSemAbastecimentoCorrespondente",
     [](DALFecDiario& c) { return c.Rs_ItemCupomFiscalCombustivelSemAbastecimentoCorrespondente(no_text); },
     {{"Produto", kProduct, {"1, 'Gasolina', -1", "1, 'Água', 0"}},
      {"Abastecimento", kFuelling, {"1, 5, 10"}},
      {"ItemCupomFiscal",
       kLine,
       {"1, 1, 10, '2026-11-23', 1, 1, 10, 5, 5, 1", "1, 1, 10, '2026-11-23', 2, 2, 1, 5, Null, 1",
        "1, 1, 9, '2026-11-22', 1, 1, 10, 5, Null, 1"}}},
     {{"ItemCupomFiscal",
       kLine,
       {"1, 1, 11, '2026-11-23', 1, 1, 10, 5, Null, 1", "1, 1, 12, '2026-11-23', 1, 1, 10, 5, 99, 1"}}},
     "No_CupomFiscal",
     "11\n12\n"},
    {"Rs_QuantidadeBaixaEAbastecimento",
     [](DALFecDiario& c) { return c.Rs_QuantidadeBaixaEAbastecimento(kDay, no_text); },
     {{"Abastecimento", kFuelling, {"1, 5, 10"}},
      {"ItemCupomFiscal",
       kLine,
       {"1, 1, 10, '2026-11-23', 1, 1, 11, 5, 5, 1", "1, 1, 11, '2026-11-23', 1, 1, 50, 5, 99, 1"}}},
     {{"ItemCupomFiscal", kLine, {"1, 1, 12, '2026-11-23', 1, 1, 11.5, 5, 5, 1"}}},
     "Cd_Abastecimento Qt_Unidade Qt_Litros",
     "5,11.5,10\n"},
    {"Rs_RecebimentosETroco",
     [](DALFecDiario& c) { return c.Rs_RecebimentosETroco(kDay, no_text); },
     {{"Caixa", kShift, {"1, 7, 1, '2026-11-23', 3"}},
      {"CupomFiscal",
       kCoupon,
       {"1, 1, 10, '2026-11-23', '2026-11-23', 50, 20, 1", "1, 1, 11, '2026-11-23', '2026-11-23', 30, 20, 1",
        "1, 1, 12, '2026-11-23', '2026-11-23', 30, 10, 1", "1, 1, 13, '2026-11-23', '2026-11-23', 0, 20, 1"}},
      {"Recebimento",
       kReceipt,
       {"1, 1, 20, '2026-11-23', 20, 0", "1, 2, 20, '2026-11-23', 30, 0", "1, 3, 20, '2026-11-23', 1, 0"}},
      {"RecebimentoCupom",
       kPart,
       {"1, 1, 10, '2026-11-23', 1", "1, 1, 10, '2026-11-23', 2", "1, 1, 12, '2026-11-23', 3",
        "1, 1, 13, '2026-11-23', 3"}}},
     {{"CupomFiscal", kCoupon, {"1, 1, 14, '2026-11-23', '2026-11-23', 49.99, 29, 1"}},
      {"RecebimentoCupom", kPart, {"1, 1, 14, '2026-11-23', 1", "1, 1, 14, '2026-11-23', 2"}}},
     "No_CupomFiscal Vl_TotalLiquido SomaVl_Recebimento Cd_Funcionario",
     "14,49.99,50,7\n"},
    {"Rs_RecebimentoSemCupom",
     [](DALFecDiario& c) { return c.Rs_RecebimentoSemCupom(kDay, no_text); },
     {{"CupomFiscal", kCoupon, {"1, 1, 10, '2026-11-23', '2026-11-23', 50, 20, 1"}},
      {"Recebimento",
       kReceipt,
       {"1, 1, 20, '2026-11-23 12:00:00', 20, 0", "1, 2, 10, '2026-11-23 12:00:00', 20, 0",
        "1, 3, 20, '2026-11-24', 20, 0", "1, 4, 20, '2026-11-23', 20, -1"}},
      {"RecebimentoCupom", kPart, {"1, 1, 10, '2026-11-23', 1"}}},
     {{"Recebimento", kReceipt, {"1, 5, 20, '2026-11-23 23:59:59', 20, 0", "1, 6, 20, '2026-11-23', 20, 0"}},
      {"RecebimentoCupom", kPart, {"1, 1, 99, '2026-11-23', 6"}}},
     "No_Recebimento",
     "6\n5\n"},
    {"Rs_TodasEntradasForamConcluidas",
     [](DALFecDiario& c) { return c.Rs_TodasEntradasForamConcluidas(kDay, no_text); },
     {{"NotaEntrada",
       kPurchase,
       {"1, 1, 5, 9, '2026-11-23', Null, Null, 10, 0", "1, 1, 6, 9, '2026-11-22', '2026-11-23', Null, 10, -1",
        "1, 1, 7, 9, '2026-11-22', '2026-11-22', '2026-11-24', 10, 0"}}},
     {{"NotaEntrada",
       kPurchase,
       {"1, 1, 8, 9, '2026-11-22', '2026-11-23', Null, 10, 0", "1, 1, 9, 9, '2026-11-22', Null, '2026-11-23', 30, 0"}}},
     "No_Nota",
     "8\n9\n"},
    {"Rs_CaixaNaoFechado",
     [](DALFecDiario& c) { return c.Rs_CaixaNaoFechado(kDay, no_text); },
     {{"Caixa", kShift, {"1, 1, 1, '2026-11-23', 3", "1, 1, 1, '2026-11-22', 1", "2, 1, 1, '2026-11-23', 1"}}},
     {{"Caixa", kShift, {"1, 1, 2, '2026-11-23', 1", "1, 2, 1, '2026-11-23', 2"}}},
     "Cd_Funcionario No_Sequencial",
     "1,2\n2,1\n"},
    {"RsBicos",
     [](DALFecDiario& c) { return c.RsBicos(); },
     {{"Bomba", "Cd_PessoaUsuaria, Cd_Bomba, De_EnderecoLogicoBico", {"2, 1, '04'"}}},
     {{"Bomba", "Cd_PessoaUsuaria, Cd_Bomba, De_EnderecoLogicoBico", {"1, 2, '05'", "1, 3, '06'"}}},
     "Cd_Bomba",
     "2\n3\n"},
    {"Rs_ProdutosVendidos",
     [](DALFecDiario& c) { return c.Rs_ProdutosVendidos(kDay, no_text); },
     {{"Cardex", kMovement, {"1, 1, '2026-11-22', 1, 20", "1, 2, '2026-11-24', 2, 20", "2, 3, '2026-11-23', 3, 20"}}},
     {{"Cardex", kMovement, {"1, 4, '2026-11-23', 4, 20", "1, 5, '2026-11-23', 4, 11", "1, 6, '2026-11-23', 5, 0"}}},
     "Cd_Produto",
     "4\n5\n"},
    {"Rs_TodosProdutosVendidosAPartirDaData",
     [](DALFecDiario& c) { return c.Rs_TodosProdutosVendidosAPartirDaData(kDay, no_text); },
     {{"Cardex", kMovement, {"1, 1, '2026-11-22', 1, 20", "2, 3, '2026-11-23', 3, 20"}}},
     {{"Cardex", kMovement, {"1, 4, '2026-11-23', 4, 20", "1, 5, '2026-12-24', 2, 11"}}},
     "Cd_Produto",
     "2\n4\n"},
};

class VerificationTest : public ClosingTest {
 protected:
  // The rows, in their order by text where the statement gives none.
  static std::string found(Recordset rows, std::string_view columns) {
    EXPECT_EQ(rows.ActiveConnection(), nullptr);
    std::vector<std::string> lines;
    for (; !rows.EOF(); rows.MoveNext()) {
      std::string line;
      for (std::size_t begin = 0; begin < columns.size();) {
        const std::size_t end = std::min(columns.find(' ', begin), columns.size());
        const Variant value = rows[columns.substr(begin, end - begin)].Value();
        line += (line.empty() ? "" : ",") + (value.is_null() ? "-" : value.as<std::string>());
        begin = end + 1;
      }
      lines.push_back(line + "\n");
    }
    if (rows.Source.find("ORDER BY") == std::string::npos) std::ranges::sort(lines);
    std::string text;
    for (const std::string& line : lines) text += line;
    return text;
  }
};

class Verifications : public VerificationTest, public ::testing::WithParamInterface<VerificationCase> {};

TEST_P(Verifications, PassesWhatIsRightAndFindsWhatIsNot) {
  const VerificationCase& c = GetParam();
  add(c.passes);
  EXPECT_EQ(found(c.ask(closing_), c.columns), "");
  add(c.faults);
  EXPECT_EQ(found(c.ask(closing_), c.columns), c.found);
  EXPECT_EQ(no_text, "");
}

INSTANTIATE_TEST_SUITE_P(OfADay, Verifications, ::testing::ValuesIn(kCases),
                         [](const auto& suite) { return std::string(suite.param.name); });

TEST_F(VerificationTest, LinesAreRoundedBeforeTheyAreSummed) {
  add({{"CupomFiscal", kCoupon, {"1, 1, 10, '2026-11-23', '2026-11-23', 4, 20, 1"}},
       {"ItemCupomFiscal",
        kLine,
        {"1, 1, 10, '2026-11-23', 1, 1, 3, 0.115, Null, 1", "1, 1, 10, '2026-11-23', 2, 1, 3, 0.115, Null, 1"}}});
  run("UPDATE CupomFiscal SET Vl_DescontoCF = 0.25");
  // 0.345 becomes 0.35 (or 0.34, as a double just below it), twice; the sum rounded once would be 0.69
  const std::string sums =
      found(closing_.RsSomaDeCupomEItens(kDay), "No_CupomFiscal Vl_Total Vl_TotalLiquido Vl_DescontoCF");
  EXPECT_EQ(sums, "10,0.7,4,0.25\n");
  EXPECT_EQ(found(closing_.RsSomaDeCupomEItens(day(22)), "No_CupomFiscal"), "");
}

TEST_F(VerificationTest, ReceiptsOfEachSettledCoupon) {
  add({{"CupomFiscal",
        kCoupon,
        {"1, 1, 10, '2026-11-23', '2026-11-23', 50, 20, 1", "1, 1, 11, '2026-11-23', '2026-11-23', 30, 29, 1",
         "1, 1, 12, '2026-11-23', '2026-11-23', 30, 19, 1"}},
       {"Recebimento", kReceipt, {"1, 1, 20, '2026-11-23', 20.5, 0", "1, 2, 20, '2026-11-23', 30, 0"}},
       {"RecebimentoCupom", kPart, {"1, 1, 10, '2026-11-23', 1", "1, 1, 10, '2026-11-23', 2"}}});
  EXPECT_EQ(found(closing_.Rs_SomaDeRecebimentoPorCupom(kDay, no_text),
                  "No_CupomFiscal Vl_TotalLiquido SomaDeVl_Recebimento"),
            "10,50,50.5\n11,30,-\n");
}

TEST_F(VerificationTest, SalesOfEachPrinter) {
  const std::string_view columns =
      "Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, Dt_Movimento, Vl_GTotal, Vl_Cancelamentos, "
      "Vl_SubTrib, Vl_DescontoCF, Vl_TotSer";
  add({"CupomFiscal",
       columns,
       {"1, 2, 7, '2026-11-24', '2026-11-23', 900, 5, 10, 1, 0",
        "1, 2, 6, '2026-11-23', '2026-11-23', 800, 4, 20, 2, 3",
        "1, 1, 1, '2026-11-23', '2026-11-22', 1, 1, 1, 1, 1"}});
  EXPECT_EQ(text_of(closing_.Rs_SomaVendasCFAgrupadosPorECF()), "2,6,7,800,900,5,30,3,3\n");
}

TEST_F(VerificationTest, AFuellingOnTwoLinesIsFoundAfterLinesOfOtherProductsLostTheirs) {
  add({{"Produto",
        kProduct,
        {"1, 'Gasolina', -1", "1, 'Diesel', 0", "1, 'C', 0", "1, 'D', 0", "1, 'E', 0", "1, 'Água', 0"}},
       {"ItemCupomFiscal",
        kLine,
        {"1, 1, 10, '2026-11-23', 1, 1, 10, 5, 5, 1", "1, 1, 11, '2026-11-23', 1, 6, 10, 5, 5, 1",
         "1, 1, 12, '2026-11-23', 1, 2, 10, 5, 6, 1"}}});
  // product 6 is sold at no pump; product 2 neither, but its code is spared
  EXPECT_EQ(found(closing_.Rs_BaixaAbastecimentoDuplicidade(kDay, no_text), "Cd_Abastecimento"), "");
  EXPECT_EQ(rows("SELECT No_CupomFiscal, Cd_Abastecimento FROM ItemCupomFiscal ORDER BY 1"), "10,5\n11,-\n12,6\n");

  add({"ItemCupomFiscal",
       kLine,
       {"1, 1, 1, '2020-01-01', 1, 1, 10, 5, 5, 1", "1, 1, 20, '2026-11-24', 1, 1, 10, 5, 6, 1"}});
  closing_.ObVO->Cd_PessoaUsuaria = 2;  // the company is that of the settings
  EXPECT_EQ(
      found(closing_.Rs_BaixaAbastecimentoDuplicidade(kDay, no_text), "Cd_Abastecimento Qt_BaixasDoAbastecimento"),
      "5,2\n");  // however long ago, but not of a later day
}

TEST_F(VerificationTest, FailuresBearTheNamesUnderWhichTheyAreKnown) {
  connection().Close();
  const struct {
    std::function<void()> call;
    const char* name;
  } cases[] = {
      {[&] { closing_.rsCupomFiscalSemItem(kDay); }, "RsVerificarSomaDeCupomEItens"},
      {[&] { closing_.RsItemNotaSaidaSemCardex(kDay); }, "VerificarItemNotaSaidaSemCardex"},
      {[&] { closing_.Rs_TodosProdutosVendidosAPartirDaData(kDay, no_text); }, "VerificarProdutosVendidos"},
      {[&] { closing_.Rs_BaixaAbastecimentoDuplicidade(kDay, no_text); }, "VerificarBaixaAbastecimentoDuplicidade"},
      {[&] { closing_.Rs_CaixaNaoFechado(kDay, no_text); }, "Rs_CaixaNaoFechado"},
      {[&] {
         float figure = 0;
         closing_.AtualizaEstoqueCardex(kDay, 1, figure, figure, figure);
       },
       "AtualizarEstoqueCardex"}};
  for (const auto& c : cases) {
    const auto failure = failure_of(c.call);
    ASSERT_TRUE(failure) << c.name;
    EXPECT_TRUE(failure->source().ends_with(std::string(" -> DALFecDiario.") + c.name)) << failure->source();
  }
}

TEST_F(VerificationTest, WhatIsKeptWithoutEffectHasNone) {
  add({"Caixa", kShift, {"1, 1, 1, '2026-11-23', 1"}});
  std::string said = "antes";
  const auto statements = statements_of([&] {
    EXPECT_FALSE(closing_.AtualizarCardex(kDay, said));
    EXPECT_FALSE(closing_.CalcularEstoqueSistemaTubulacao(kDay, said));
    EXPECT_FALSE(closing_.VerificarSequenciaDeAbastecimentos(kDay, said));
    EXPECT_FALSE(closing_.IncluindoLmc(kDay, said));
  });
  EXPECT_TRUE(statements.empty());
  EXPECT_EQ(said, "antes");
}

TEST_F(VerificationTest, TheRecordOfAClosedDay) {
  EXPECT_FALSE(closing_.temCampoSequencial());
  closing_.ObVO->Nm_Usuario = "ANA";
  closing_.Incluir();
  closing_.ObVO->Nm_Usuario.clear();
  EXPECT_EQ(closing_.Consultar().Nm_Usuario, "ANA");
  closing_.ObVO->Dt_FecDiario = {};  // both columns of the key are needed
  EXPECT_EQ(failure_of([&] { closing_.Excluir(); }).value().number(), erro::kMissingKey);
  EXPECT_EQ(rows("SELECT Dt_FecDiario FROM FecDiario"), "2026-11-23 00:00:00\n");
}

}  // namespace
}  // namespace posto
