#include "tests/flows/failing_engine.h"
#include "tests/treasury/treasury_test.h"

namespace posto {
namespace {

class SummaryTest : public TreasuryTest {
 protected:
  std::string group(std::string_view code) {
    return rows(
        fmt::format("SELECT Cd_Item, Nm_Item, Valor1, Valor2, Valor3 FROM TempRelCaixa14 WHERE Cd_Grupo = {} "
                    "ORDER BY Cd_Item, Nm_Item",
                    code));
  }
};

TEST_F(SummaryTest, SendsItsStatementsInTheirOrder) {
  shift_.ObVO->Vl_SomaDebitos = money("1830.45");
  shift_.ObVO->Vl_SomaCreditos = money("1828.0951");  // with the surplus 1830.4451, which is written in cents
  shift_.ObVO->Vl_SobraSangrias = money("2.35");
  shift_.ObVO->Vl_OutrosDebitos = money("10");
  const auto sent = statements_of([&] { shift_.GerarDadosParaResumoDeCaixa(); });
  ASSERT_EQ(sent.size(), 24u);
  EXPECT_EQ(words_of(sent[0]), wanted("DALCaixa.GerarDadosParaResumoDeCaixa (work table emptied)"));
  for (std::size_t line = 1; line <= 23; ++line) {
    EXPECT_EQ(words_of(sent[line]), wanted(fmt::format("DALCaixa.GerarDadosParaResumoDeCaixa (line {})", line)));
  }
}

TEST_F(SummaryTest, OfAShiftWorkedOutByHand) {
  add_busy_shift();
  shift_.CalcularCaixa();
  shift_.GerarDadosParaResumoDeCaixa();
  struct {
    const char *group, *rows;
  } groups[] = {
      {"0.0", "0,CRÉDITOS,-,-,221.5\n0,DÉBITOS,-,-,-241.5\n"},
      {"0.1",
       "1,1 - VENDAS DE COMBUSTIVEIS,-,-,51.6\n"
       "2,2 - VENDAS DE PRODUTOS,-,-,80.51\n"  // the tie
       "3,3 - VENDAS DE SERVIÇOS,-,-,25\n"
       "4,4 - CONTAS RECEBIDAS,-,-,15.5\n"
       "5,5 - SUPRIMENTOS,-,-,50\n"
       "6,6 - OUTROS DÉBITOS,-,-,7.25\n"
       "7,7 - FALTA NAS SANGRIAS,-,-,0.41\n"},
      {"0.2",
       "7,7 - RECEBIMENTOS,-,-,129.5\n"
       "8,8 - VENDAS A CRÉDITO,-,-,85\n"  // Tp_Venda 20 is in here, and in no detail
       "9,9 - OUTROS CRÉDITOS,-,-,5\n"
       "10,10 - SOBRA NAS SANGRIAS,-,-,2\n"},
      {"1.1", "3,3 - GASOLINA - 06:00:00,1066.5,1000.5,66\n3,3 - GASOLINA - 10:30:15,-,1066.5,-\n"},
      {"1.2", "3,3 - GASOLINA - 4                             ,20,2.499,49.98\n"},  // thirty characters, blanks kept
      {"1.3", "3,3 - GASOLINA,0.333,1.115,0.37\n3,3 - GASOLINA,20.5,2.499,51.23\n"},
      {"2.1", "1,LOJA - ÓLEO - 2,4,0.125,0.5\n1,LOJA - ÓLEO - 2,8,10,80\n"},
      {"3.1", "1,LOJA - LAVAGEM - 3,1,25,25\n"},
      {"4.1", "1,ANA - 7 - Conta:70,0.5,15,15.5\n"},
      {"6.1", "1,TROCO - ERRO,0,0,7.25\n"},
      {"7.1", "1,CHEQUE - 0,-,1,15.5\n1,DINHEIRO - 0,-,2,54\n1,DINHEIRO - 1,-,1,60\n"},
      {"8.1", "1,ANA - 101,81.5,1.5,80\n"},
      {"9.1", "1,DINHEIRO - MOEDAS,0,0,2\n1,VALE - ALMOÇO,0,0,3\n"}};
  for (const auto& [code, expected] : groups) {
    SCOPED_TRACE(code);
    EXPECT_EQ(group(code), expected);
  }
  EXPECT_EQ(rows("SELECT Label1, Label2, Label3, Label4, Nm_Grupo FROM TempRelCaixa14 WHERE Cd_Grupo In (3.1, 7.1) "
                 "GROUP BY Label1, Label2, Label3, Label4, Nm_Grupo ORDER BY Nm_Grupo"),
            "GRUPO - SERVIÇO - CODIGO,QUANT.,PREÇO,TOTAL,3 - VENDAS DE SERVIÇOS\n"
            "FORMA - SANGRIA, - ,QUANT.,VALOR,7 - RECEBIMENTOS\n");
}

TEST_F(SummaryTest, OfAShiftWithNothingHasTheThirteenTotalsAndTwoNulls) {
  run("INSERT INTO TempRelCaixa14 (Label1, Cd_Grupo) Values ('de outro caixa', 9.1)");
  shift_.CalcularCaixa();
  shift_.GerarDadosParaResumoDeCaixa();
  EXPECT_EQ(rows("SELECT Cd_Item, Valor3 FROM TempRelCaixa14 WHERE Cd_Grupo > 0 ORDER BY Cd_Grupo, Cd_Item"),
            "1,0\n2,0\n3,0\n4,0\n5,0\n6,0\n7,0\n"
            "7,-\n8,-\n9,0\n10,0\n");
  EXPECT_EQ(rows("SELECT Count(*) As n FROM TempRelCaixa14"), "13\n");
}

// The totals of sales know no company: the lines of another one's coupon of the same printer, number and day are in.
TEST_F(SummaryTest, TotalsOfSalesAreNotOfOneCompany) {
  add_busy_shift();
  add("ItemCupomFiscal",
      "Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Item, Cd_Produto, Qt_Unidade, Vl_UnitVenda, "
      "Cd_PonVen",
      {"2, 1, 100, '2026-11-24', 1, 3, 1, 40, 1"});
  shift_.CalcularCaixa();
  shift_.GerarDadosParaResumoDeCaixa();
  EXPECT_EQ(shift_.ObVO->Vl_VendaServicos, money("25"));
  EXPECT_EQ(rows("SELECT Valor3 FROM TempRelCaixa14 WHERE Cd_Grupo = 0.1 And Cd_Item = 3"), "65\n");
  EXPECT_EQ(group("3.1"), "1,LOJA - LAVAGEM - 3,1,25,25\n");
}

TEST_F(SummaryTest, NamesAreCutAtEightyCharactersButThoseOfOtherCredits) {
  const std::string kind(50, 'T'), words = "Ação " + std::string(70, 'x');
  add("TipoDivergenciaCaixa", "Cd_TipoDivergenciaCaixa, Ds_DivergenciaCaixa, No_NaturezaDivergencia",
      {"1, '" + kind + "', 1", "2, '" + kind + "', 2", "3, 'SEM TEXTO', 2"});
  add("DivergenciaCaixa", "Cd_Caixa, Cd_TipoDivergenciaCaixa, Vl_Divergencia, Ds_Divergencia",
      {"87, 1, 1, '" + words + "'", "87, 2, 2, '" + words + "'", "87, 3, 3, Null"});
  shift_.GerarDadosParaResumoDeCaixa();
  const std::string whole = kind + " - " + words;
  EXPECT_EQ(group("9.1"), "1," + whole + ",0,0,1\n");
  // the cut counts characters, of which two in it take two bytes; a text that is null leaves no name
  EXPECT_EQ(group("6.1"), "1,-,0,0,3\n1," + whole.substr(0, 82) + ",0,0,2\n");
}

TEST_F(SummaryTest, AFailureLeavesTheLinesBeforeItAndTheNextRunClearsThem) {
  auto whole = settings_->ObConnection;
  settings_->ObConnection = Connection::create();
  settings_->ObConnection->Use(std::make_shared<FailingEngine>(std::shared_ptr<Engine>(whole, &whole->engine()), 6));
  expect_failure(erro::kProviderFailure, "FailingEngine -> DALCaixa.GerarDadosParaResumoDeCaixa",
                 [&] { shift_.GerarDadosParaResumoDeCaixa(); });
  settings_->ObConnection = whole;
  EXPECT_EQ(rows("SELECT Count(*) As n FROM TempRelCaixa14"), "4\n");
  shift_.GerarDadosParaResumoDeCaixa();
  EXPECT_EQ(rows("SELECT Count(*) As n FROM TempRelCaixa14"), "13\n");
}

}  // namespace
}  // namespace posto
