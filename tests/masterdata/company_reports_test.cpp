#include "posto/masterdata/DALEmpresaUsuaria.h"
#include "tests/masterdata/masterdata_test.h"

namespace posto {
namespace {

class CompanyReportsTest : public MasterdataTest {
 protected:
  // Rows of a table, each a list of values in the order of the columns.
  void add(std::string_view table, std::string_view columns, std::initializer_list<std::string_view> list) {
    for (std::string_view values : list) run(fmt::format("INSERT INTO {} ({}) Values ({})", table, columns, values));
  }
  void add_products() {
    add("GrupoProduto", "Cd_GrupoProduto, Nm_GrupoProduto", {"1, 'Óleos'", "2, 'Combustíveis'"});
    add("Produto",
        "Cd_PessoaUsuaria, Cd_Produto, Nm_Produto, Cd_GrupoProduto, No_Tipo, Cd_Unidade, Vl_Preco, Fl_VendBomba, "
        "Qt_Estoque, Vl_CustoMedio, Qt_EstoqueInicial, Vl_CustoMedioInicial, Cd_CodBarras",
        {"1, 1, 'Gasolina', 2, 1, 'LT', 6.399, 1, 900, 5.5, 1000, 5, '789'",
         "1, 2, 'Óleo 1 L', 1, 1, 'UN', 30, 0, -2, 20, 3, 19, Null",
         "1, 3, 'Estopa', Null, 1, 'UN', 2, 0, 0, 1.5, Null, Null, Null",
         "1, 4, 'Lavagem', 1, 2, 'UN', 50, 0, 1, 1, 1, 1, Null", "2, 5, 'Álcool', 2, 1, 'LT', 4, 1, 7, 3, 7, 3, Null"});
  }

  const Date first_ = Date::of_day(2026, 11, 1), last_ = Date::of_day(2026, 11, 30);
  DALEmpresaUsuaria company_{settings_};
};

TEST_F(CompanyReportsTest, StockAtADayAndAtPresent) {
  add_products();
  add("Cardex", "Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, No_Tipo, Cd_Produto, Qt_Estoque, Vl_CustoMedio",
      {"1, 1, '2026-11-10', 20, 1, 950.5, 5.25", "1, 2, '2026-11-11', 20, 1, 900, 5.5"});
  connection().CommandTimeout = 45;
  std::int32_t allowed = 0;
  connection().observe([&](const StatementReport&) { allowed = connection().CommandTimeout; });
  // 950.5 * 5.25 = 4990.125, which the server rounds up; 3 * 19 = 57
  EXPECT_EQ(text_of(company_.rsEstoque(Date::of_day(2026, 11, 10))),
            "-,3,Estopa,UN,0,0,0\nCombustíveis,1,Gasolina,LT,950.5,5.25,4990.13\nÓleos,2,Óleo 1 L,UN,3,19,57\n");
  EXPECT_EQ(allowed, 120);
  EXPECT_EQ(connection().CommandTimeout, 30);

  const std::string below = "Óleos,2,Óleo 1 L,UN,-2,20,30,-40\n", none = "-,3,Estopa,UN,0,1.5,2,0\n";
  const std::string above = "Combustíveis,1,Gasolina,LT,900,5.5,6.399,4950\n";
  EXPECT_EQ(text_of(company_.rsEstoqueAtual()), none + above + below);
  EXPECT_EQ(text_of(company_.rsEstoqueAtual(true, false, false)), below);
  EXPECT_EQ(text_of(company_.rsEstoqueAtual(false, true, false)), above);
  EXPECT_EQ(text_of(company_.rsEstoqueAtual(true, false, true)), none + below);
  EXPECT_EQ(text_of(company_.rsEstoqueAtual(false, false, false)), "");
}

TEST_F(CompanyReportsTest, TheTimeoutIsPutBackWhenTheStatementFails) {
  connection().CommandTimeout = 45;
  connection().Close();
  expect_failure(erro::kConnectionInvalid, "ADODB.Connection -> DALEmpresaUsuaria.rsEstoque",
                 [&] { company_.rsEstoque(first_); });
  EXPECT_EQ(connection().CommandTimeout, 30);
}

TEST_F(CompanyReportsTest, LabelsOfTheChosenProducts) {
  add_products();
  EXPECT_EQ(text_of(company_.rsEtiquetaProdutos("2,1, 5")), "1,Gasolina,789,LT,6.399\n2,Óleo 1 L,-,UN,30\n");
  EXPECT_EQ(text_of(company_.rsEtiquetaProdutos("")), "");
  EXPECT_EQ(text_of(company_.rsEtiquetaProdutos("  ")), "");
}

TEST_F(CompanyReportsTest, TransfersByTheProductThatIsRefilled) {
  add_products();
  add("ProdutoTransferencia",
      "Cd_PessoaUsuaria, Cd_ProdutoBaixa, Cd_ProdutoEntrada, Qt_UnidadeBaixa, Qt_UnidadeEntrada, "
      "Ic_TransferenciaAutomatica",
      {"1, 1, 2, 1, 24, 1", "1, 2, 3, 2, 12, 0", "2, 5, 5, 1, 1, 0"});
  EXPECT_EQ(text_of(company_.rsTransferenciaEntrada()),
            "3,Estopa,12,0,2,Óleo 1 L,2,-2,False\n2,Óleo 1 L,24,-2,1,Gasolina,1,900,True\n");
}

// Two sales of gasoline of one day: 10 at 6.333 is 63.33, at a cost of 5.5; 0.5 at 6.333 is 3.1665, so 3.17, cost 2.75.
TEST_F(CompanyReportsTest, MarginOfEachDayAndProduct) {
  add_products();
  add("Cardex",
      "Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, No_Tipo, Cd_Produto, Qt_Unidade, Vl_Unitario, Vl_CustoMedio",
      {"1, 1, '2026-11-01', 20, 1, 10, 6.333, 5.5", "1, 2, '2026-11-01', 20, 1, 0.5, 6.333, 5.5",
       "1, 3, '2026-11-30', 20, 2, 2, 30, 20", "1, 4, '2026-11-30', 20, 3, 1, 0, 1.5",
       "1, 5, '2026-11-30', 10, 1, 9, 9, 9", "1, 6, '2026-10-31', 20, 1, 1, 1, 1", "1, 7, '2026-12-01', 20, 1, 1, 1, 1",
       "2, 8, '2026-11-01', 20, 5, 1, 1, 1"});
  const std::string gasoline = "2026-11-01 00:00:00,1,Gasolina,10.5,66.5,57.75,8.75,13.16\n";
  EXPECT_EQ(text_of(company_.rsMargemContribuicaoPorProdutoEDia(first_, last_, false)),
            gasoline +
                "2026-11-30 00:00:00,3,Estopa,1,0,1.5,-1.5,0\n"
                "2026-11-30 00:00:00,2,Óleo 1 L,2,60,40,20,33.33\n");
  EXPECT_EQ(text_of(company_.rsMargemContribuicaoPorProdutoEDia(first_, last_, true)), gasoline);
}

// Nozzle 1: 990 before the period, 1000.1 and 1002.6 in it, of which 2.5 litres are a calibration; nozzle 2 stands
// still.
TEST_F(CompanyReportsTest, NozzlesAndTheirTotalisers) {
  add_products();
  add("SisTubulacao", "Cd_PessoaUsuaria, Cd_SisTubulacao, Nm_SisTubulacao", {"1, 3, 'Linha 3'"});
  add("Bomba",
      "Cd_PessoaUsuaria, Cd_Bomba, Ds_Bomba, Ds_Bico, De_EnderecoLogicoBico, Cd_Produto, Cd_SisTubulacao, "
      "No_EncerranteInicial, No_TipoControleResponsabilidade",
      {"1, 1, 'Ilha A', 'Bico 1', '04', 1, 3, 900, 2", "1, 2, 'Ilha A', 'Bico 2', '05', Null, Null, 70, 0",
       "2, 3, 'Ilha B', 'Bico 3', '04', 5, Null, 1, 1"});
  EXPECT_EQ(text_of(company_.rsBombas()),
            "1,Ilha A,Bico 1,04,1,Gasolina,6.399,3,Linha 3,-,-,False\n"
            "2,Ilha A,Bico 2,05,-,-,-,-,-,-,-,False\n");
  EXPECT_FALSE(company_.ExisteControleResponsabilidadePorTrocaTurno());
  EXPECT_TRUE(company_.ExisteControleResponsabilidadePorDesbloqueioDeBico());

  add("Abastecimento",
      "Cd_PessoaUsuaria, Cd_Abastecimento, De_EnderecoLogicoBico, Dt_Termino, Qt_Litros, Vl_Total, "
      "No_EncerranteFechamento, Ic_Afericao",
      {"1, 1, '04', '2026-10-31 23:59:59', 90, 500, 990, 0",
       "1, 2, '04', '2026-11-01 00:00:00', 10.1, 64.63, 1000.1, 0",
       "1, 3, '04', '2026-11-30 23:59:59', 2.5, 16, 1002.6, 1", "1, 4, '04', '2026-12-01 00:00:00', 1, 6, 1003.6, 0",
       "2, 5, '04', '2026-11-02 00:00:00', 50, 300, 51, 0"});
  EXPECT_EQ(text_of(company_.rsEncerranteInicialFinalEVenda(first_, last_)),
            "1,04,Bico 1,1,Gasolina,990,1002.6,10.1,2.5,64.63\n2,05,Bico 2,-,-,70,70,0,0,0\n");
}

TEST_F(CompanyReportsTest, ConciliationsOfADay) {
  add_products();
  add("SisTubulacao", "Cd_PessoaUsuaria, Cd_SisTubulacao, Nm_SisTubulacao, Cd_Produto", {"1, 3, 'Linha 3', 1"});
  add("ConciliacaoEstoqueSisTubulacao",
      "Cd_PessoaUsuaria, Cd_SisTubulacao, Dt_Conciliacao, Qt_EstoqueFisico, Qt_EstoqueSistema, Qt_Diferenca",
      {"1, 3, '2026-11-02 06:30:00', 995, 1000, -5", "1, 4, '2026-11-02 23:59:59', 10, 10, 0",
       "1, 3, '2026-11-03 00:00:00', 1, 1, 0", "2, 3, '2026-11-02 06:30:00', 1, 1, 0"});
  EXPECT_EQ(text_of(company_.rsConciliacaoEstoqueSisTubulacao(Date::of_moment(2026, 11, 2, 12, 0, 0))),
            "2026-11-02 06:30:00,3,Linha 3,1,Gasolina,1000,995,-5,-\n2026-11-02 23:59:59,4,-,-,-,10,10,0,-\n");
}

TEST_F(CompanyReportsTest, ReceiptsOfSalesByKind) {
  add("TipoRecebimento", "Cd_TipoRecebimento, Nm_TipoRecebimento, Fl_eCheque",
      {"5, 'Dinheiro', 0", "6, 'Cheque', 1", "7, 'Cartão', 0"});
  EXPECT_EQ(text_of(company_.rsTipoRecebimento()), "7,Cartão,-,-,-,0\n6,Cheque,-,-,-,1\n5,Dinheiro,-,-,-,0\n");
  add("Recebimento",
      "Cd_PessoaUsuaria, No_Recebimento, Tp_DocDebito, Cd_TipoRecebimento, Dt_Lancamento, Vl_Recebimento, "
      "Ic_Suprimento",
      {"1, 1, 20, 5, '2026-11-01 00:00:00', 10.5, 0", "1, 2, 20, 5, '2026-11-30 23:59:59', 0.25, 0",
       "1, 3, 20, 6, '2026-11-10 08:00:00', 100, 0", "1, 4, 10, 5, '2026-11-10 08:00:00', 1000, 0",
       "1, 5, 20, 5, '2026-11-10 08:00:00', 200, 1", "1, 6, 20, 5, '2026-12-01 00:00:00', 1, 0",
       "2, 7, 20, 5, '2026-11-10 08:00:00', 1, 0"});
  // a receipt that pays two coupons counts once
  add("RecebimentoCupom", "Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Recebimento",
      {"1, 1, 1, '2026-11-10', 3", "1, 1, 2, '2026-11-10', 3"});
  EXPECT_EQ(text_of(company_.rsRecebimentosDasVendas(first_, last_)), "6,Cheque,1,100\n5,Dinheiro,2,10.75\n");
}

TEST_F(CompanyReportsTest, PayablesAndTheirPayments) {
  add_person(50, "1", "Distribuidora");
  add("ContaAPagar",
      "Cd_PessoaUsuaria, No_ContasAPagar, Cd_Fornecedor, Id_DocumentoFornecedor, Dt_Vencimento, Vl_Debito, "
      "Vl_Pagamentos, Vl_SaldoDebito, Vl_MoraDiaria",
      {"1, 1, 50, 'D1', '2026-11-05', 100, 60, 40, 0.5", "1, 2, Null, 'D2', '2026-11-20', 30, 0, 30, 0",
       "1, 3, 50, 'D3', '2026-11-06', 20, 20, 0, 0", "1, 4, 50, 'D4', '2026-11-21', 20, 0, 20, 0",
       "2, 5, 50, 'D5', '2026-11-05', 20, 0, 20, 0"});
  add("Pagamento", "Cd_PessoaUsuaria, Cd_Pagamento, Dt_Pagamento, Vl_Pagamento",
      {"1, 11, '2026-11-30', 60", "1, 12, '2026-11-01', 20", "1, 13, '2026-12-01', 5", "1, 14, '2026-11-15', 9"});
  // payment 14 settles an expense
  add("PagamentoDeConta", "Cd_PessoaUsuaria, No_ContasAPagar, Cd_Pagamento", {"1, 1, 11", "1, 3, 12", "1, 2, 13"});
  add("ContaAPagarDeNotaEntrada", "Cd_PessoaUsuaria, No_ContasAPagar, Cd_Fornecedor, Cd_TipoNF, No_Nota",
      {"1, 3, 50, 1, 777"});
  EXPECT_EQ(text_of(company_.rsContaAPagarEmAbertoVencimentoMenorIgualA(Date::of_day(2026, 11, 20))),
            "2026-11-05 00:00:00,1,D1,50,Distribuidora,100,60,40,0.5\n2026-11-20 00:00:00,2,D2,-,-,30,0,30,0\n");
  const std::string of_note = "2026-11-01 00:00:00,12,20,3,D3,2026-11-06 00:00:00,20,0,50,Distribuidora";
  EXPECT_EQ(text_of(company_.rsPagamentoDeContasNoPeriodo(first_, last_)),
            of_note + "\n2026-11-30 00:00:00,11,60,1,D1,2026-11-05 00:00:00,100,40,50,Distribuidora\n");
  EXPECT_EQ(text_of(company_.rsPagamentoDebitosOriginadoDeNotaFiscalNoPeriodo(first_, last_)), of_note + ",1,777\n");
}

TEST_F(CompanyReportsTest, DocumentsAndPrinters) {
  add("CupomFiscal",
      "Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, Hr_Emissao, Cd_ContaAReceber, Cd_Veiculo, No_Km, "
      "No_Requisicao, Vl_Total, Vl_DescontoCF, Vl_TotalLiquido, Ic_Excluido",
      {"1, 1, 10, '2026-11-02', '09:00:00', 640, 'ABC1234', 500, 3, 50, 5, 45, 0",
       "1, 2, 4, '2026-11-02', '08:00:00', 640, Null, Null, Null, 20, 0, 20, 0",
       "1, 1, 11, '2026-11-02', '09:30:00', 640, Null, Null, Null, 20, 0, 20, -1",
       "1, 1, 12, '2026-11-02', '09:30:00', 641, Null, Null, Null, 20, 0, 20, 0",
       "2, 1, 13, '2026-11-02', '09:30:00', 640, Null, Null, Null, 20, 0, 20, 0"});
  EXPECT_EQ(text_of(company_.rsCuponsDeContaAReceber(640)),
            "2026-11-02 00:00:00,08:00:00,2,4,-,-,-,20,0,20\n"
            "2026-11-02 00:00:00,09:00:00,1,10,ABC1234,500,3,50,5,45\n");
  add("ECF", "Cd_PessoaUsuaria, No_Impressora, No_Serie", {"1, 2, 'S2'", "1, 1, 'S1'", "2, 3, 'S3'"});
  add("ReducaoZ", "Cd_PessoaUsuaria, Dt_Movimento, No_Impressora",
      {"1, '2026-11-02', 1", "1, '2026-11-03', 1", "2, '2026-11-04', 1"});
  EXPECT_EQ(text_of(company_.rsECFsCadastrados()), "1,S1,2026-11-03 00:00:00\n2,S2,-\n");

  EXPECT_EQ(company_.ObterDataUltimoLmc(), Date());
  add("LMC", "Cd_PessoaUsuaria, Cd_Produto, Dt_Lmc",
      {"1, 1, '2026-11-02'", "1, 2, '2026-11-01'", "2, 1, '2026-11-09'"});
  EXPECT_EQ(company_.ObterDataUltimoLmc(), Date::of_day(2026, 11, 2));
}

// A company in the value object counts before that of the settings.
TEST_F(CompanyReportsTest, TheCompanyOfTheValueObject) {
  add_products();
  company_.ObVO->Cd_PessoaUsuaria = 2;
  EXPECT_EQ(text_of(company_.rsEstoqueAtual()), "Combustíveis,5,Álcool,LT,7,3,4,21\n");
}

}  // namespace
}  // namespace posto
