#include "posto/masterdata/DALEmpresaUsuaria.h"
#include "tests/masterdata/masterdata_test.h"

namespace posto {
namespace {

// Three in the afternoon of 24 November 2026; bills may be overdue by 30 days before credit is cancelled.
class CreditBlockTest : public MasterdataTest {
 protected:
  CreditBlockTest() { settings_->ObVOEmpresaUsuaria->Qt_DiasCancelamentoCredito = 30; }

  void add_customer(int code, int state, int may_block, int may_cancel, int of_company = 1) {
    run(
        fmt::format("INSERT INTO Cliente (Cd_PessoaUsuaria, Cd_Cliente, No_SituacaoCredito, Fl_BloqAutCredito, "
                    "Fl_CanCredito) Values ({}, {}, {}, {}, {})",
                    of_company, code, state, may_block, may_cancel));
  }
  struct Bill {
    std::string_view block = "'2026-11-20'", due = "'2026-11-10'", balance = "100", guarantor = "Null";
    int situation = 1;
    int of_company = 1;
    std::string_view debit = "100";
  };
  void add_bill(int person, const Bill& b) {
    run(
        fmt::format("INSERT INTO ContaAReceber (Cd_PessoaUsuaria, Cd_ContaAReceber, Cd_Pessoa, Dt_BloqueioCredito, "
                    "Dt_VencPro, Vl_Saldo, No_SituacaoPagamento, Cd_PessoaAvalista, Vl_Debito, Vl_Pagamentos) "
                    "Values ({}, {}, {}, {}, {}, {}, {}, {}, {}, {} - {})",
                    b.of_company, ++bills_, person, b.block, b.due, b.balance, b.situation, b.guarantor, b.debit,
                    b.debit, b.balance));
  }
  std::string states() { return rows("SELECT Cd_Cliente, No_SituacaoCredito FROM Cliente ORDER BY Cd_Cliente"); }

  DALEmpresaUsuaria company_{settings_};
  int bills_ = 0;
};

TEST_F(CreditBlockTest, AStateRisesAsTheCustomersFlagsAndBillsSay) {
  struct Case {
    const char* what;
    int state, may_block, may_cancel;
    Bill bill;
    int expected;
  };
  const Case cases[] = {
      {"released, past the block date", 2, 1, 0, {}, 3},
      {"its day has come", 2, 1, 0, {.block = "'2026-11-24'"}, 3},
      {"not before its hour", 2, 1, 0, {.block = "'2026-11-24 15:00:01'"}, 2},
      {"not before its day", 2, 1, 0, {.block = "'2026-11-25'"}, 2},
      {"without the flag", 2, 0, 0, {}, 2},
      {"paid", 2, 1, 1, {.due = "'2020-01-01'", .situation = 3}, 2},
      {"no balance", 2, 1, 1, {.due = "'2020-01-01'", .balance = "0"}, 2},
      {"to be defined is not blocked", 1, 1, 0, {}, 1},
      {"a zero block date does not block", 2, 1, 0, {.block = "'1899-12-30'"}, 2},
      {"but does not keep from cancelling", 2, 1, 1, {.block = "'1899-12-30'", .due = "'2026-01-01'"}, 4},
      {"no block date at all does", 3, 1, 1, {.block = "Null", .due = "'2026-01-01'"}, 3},
      {"overdue by the days granted", 3, 0, 1, {.due = "'2026-10-25'"}, 4},
      {"by a day less", 3, 0, 1, {.due = "'2026-10-26'"}, 3},
      {"cancelling without the flag", 3, 1, 0, {.due = "'2026-01-01'"}, 3},
      {"to be defined is cancelled", 1, 0, 1, {.due = "'2026-01-01'"}, 4},
      {"blocked and cancelled at once", 2, 1, 1, {.due = "'2026-01-01'"}, 4},
      {"insolvent stays", 5, 1, 1, {.due = "'2026-01-01'"}, 5},
  };
  std::string expected;
  int code = 100;
  for (const Case& c : cases) {
    add_customer(++code, c.state, c.may_block, c.may_cancel);
    add_bill(code, c.bill);
    expected += fmt::format("{},{}\n", code, c.expected);
  }
  EXPECT_TRUE(company_.BloqueiaAutomaticamenteCreditoClienteEmAtraso());
  EXPECT_EQ(states(), expected);
  const auto again = statements_of([&] { company_.BloqueiaAutomaticamenteCreditoClienteEmAtraso(); });
  EXPECT_EQ(states(), expected);
  // the insolvent customer is selected at each run: the update leaves it alone
  EXPECT_EQ(again.size(), 3u);
}

TEST_F(CreditBlockTest, AGuarantorIsBlockedWithTheCustomerInAllCompaniesAndNeverCancelled) {
  add_customer(7, 2, 1, 1);
  add_customer(7, 1, 0, 0, 2);
  add_bill(7, {.guarantor = "8"});
  add_bill(7, {.guarantor = "9"});
  add_bill(7, {.guarantor = "10"});  // whom no company knows as a customer
  add_customer(8, 2, 0, 0);          // own flags do not matter
  add_customer(9, 5, 1, 1);
  add_customer(11, 2, 1, 1);
  EXPECT_TRUE(company_.BloqueiaAutomaticamenteCreditoClienteEmAtraso());
  EXPECT_EQ(states(), "7,3\n7,3\n8,3\n9,5\n11,2\n");
  run("UPDATE ContaAReceber SET Dt_VencPro = '2026-10-01' WHERE Cd_PessoaAvalista = 8");
  company_.BloqueiaAutomaticamenteCreditoClienteEmAtraso();
  EXPECT_EQ(states(), "7,4\n7,4\n8,3\n9,5\n11,2\n");
}

TEST_F(CreditBlockTest, TheSummaryOfAPeriodIsReplaced) {
  add_bill(7, {.due = "'2026-11-01'", .balance = "40.25"});
  add_bill(7, {.due = "'2026-11-30'", .balance = "100"});  // not overdue yet
  add_bill(7, {.due = "'2026-10-31'"});                    // before the period
  add_bill(7, {.due = "'2026-11-05'", .of_company = 2});
  add_bill(8, {.due = "'2026-11-24'", .balance = "0", .situation = 3});
  const auto summary = [&] {
    return rows(
        "SELECT Dt_Inicial, Dt_Final, Cd_Pessoa, Qt_Contas, Vl_Debito, Vl_Pagamentos, Vl_Saldo, Vl_Vencido, "
        "Dt_VencimentoMaisAntigo FROM ResumoContaAReceber ORDER BY Cd_PessoaUsuaria, Dt_Inicial, Cd_Pessoa");
  };
  const Date first = Date::of_day(2026, 11, 1), last = Date::of_day(2026, 11, 30);
  company_.GerarResumoContaAReceber(first, last);
  const std::string expected =
      "2026-11-01 00:00:00,2026-11-30 00:00:00,7,2,200,59.75,140.25,40.25,2026-11-01 00:00:00\n"
      "2026-11-01 00:00:00,2026-11-30 00:00:00,8,1,100,100,0,0,-\n";
  EXPECT_EQ(summary(), expected);
  company_.GerarResumoContaAReceber(first, last);
  EXPECT_EQ(summary(), expected);
  // the bill of customer 8 moves out of the period; another period has rows of its own
  run("UPDATE ContaAReceber SET Dt_VencPro = '2026-12-01' WHERE Cd_Pessoa = 8");
  company_.GerarResumoContaAReceber(first, last);
  company_.GerarResumoContaAReceber(last.plus_days(1), last.plus_days(31));
  EXPECT_EQ(rows("SELECT Dt_Inicial, Cd_Pessoa FROM ResumoContaAReceber ORDER BY Dt_Inicial"),
            "2026-11-01 00:00:00,7\n2026-12-01 00:00:00,8\n");
}

// List price 5.00: a tenth off is 4.50, fixed is fixed.
TEST_F(CreditBlockTest, SpecialPricesOfAllItsCustomersAreWorkedOut) {
  add_product(3, "Diesel", "5");
  run("INSERT INTO Produto (Cd_PessoaUsuaria, Cd_Produto, Vl_Preco) Values (2, 4, 5)");
  for (const char* values : {"1, 7, 3, 11, 10", "1, 8, 3, 30, 4.2", "2, 7, 4, 11, 10"}) {
    run(
        fmt::format("INSERT INTO CondEspecialPreco (Cd_PessoaUsuaria, Cd_Cliente, Cd_Produto, Tp_Condicao, "
                    "Vl_Alteracao) Values ({})",
                    values));
  }
  EXPECT_TRUE(company_.AtualizarPrecoCondicaoEspecial());
  EXPECT_EQ(rows("SELECT Cd_PessoaUsuaria, Cd_Cliente, Vl_Preco FROM CondEspecialPreco ORDER BY 1, 2"),
            "1,7,4.5\n1,8,4.2\n2,7,-\n");
}

// A company is a person in the fourth role, whose key is the person's.
TEST_F(CreditBlockTest, TheCompanyIsAPersonInARole) {
  add_person(5, "11.222.333/0001-81", "Posto Um");
  company_.ObVO->Cd_CgcCpf = "11.222.333/0001-81";
  EXPECT_FALSE(company_.CnpjOuCpfCadastradoComoEmpresaUsuaria());
  EXPECT_TRUE(company_.CnpjOuCpfCadastradoComoPessoa());
  company_.ObVO->Nm_Pessoa = "Posto Um Ltda";
  company_.ObVO->Qt_SegundosBaixaAutomatica = 600;
  company_.Incluir();
  EXPECT_EQ(rows("SELECT Cd_PessoaUsuaria, Qt_SegundosBaixaAutomatica, Nm_Pessoa FROM EmpresaUsuaria "
                 "INNER JOIN Pessoa On Cd_PessoaUsuaria = Cd_Pessoa"),
            "5,600,Posto Um Ltda\n");

  company_.ObVO->RestaurarDefault();
  company_.ObVO->Cd_CgcCpf = "11.222.333/0001-81";
  EXPECT_TRUE(company_.CnpjOuCpfCadastradoComoEmpresaUsuaria());
  company_.Consultar();
  EXPECT_EQ(company_.ObVO->Nm_Pessoa, "Posto Um Ltda");
  company_.ObVO->Nm_Pessoa = "Outro nome";
  company_.ObVO->Ic_BaixaAutomaticaPorTempo = true;
  company_.AlterarEmpresaUsuaria();  // leaves the person alone
  EXPECT_EQ(rows("SELECT Ic_BaixaAutomaticaPorTempo, Nm_Pessoa FROM EmpresaUsuaria INNER JOIN Pessoa "
                 "On Cd_PessoaUsuaria = Cd_Pessoa"),
            "True,Posto Um Ltda\n");
  MemoryList list;
  company_.CarregarComboBox(list);
  EXPECT_EQ(list.items(), (std::vector<MemoryList::Item>{{"SELECIONE ->", 0}, {"Posto Um Ltda", 5}}));
}

}  // namespace
}  // namespace posto
