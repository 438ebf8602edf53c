#include "posto/masterdata/special_prices.h"
#include "tests/masterdata/masterdata_test.h"

namespace posto {
namespace {

class ClientCreditTest : public MasterdataTest {
 protected:
  ClientCreditTest() {
    customer_.ObVO->Cd_PessoaUsuaria = 1;
    customer_.ObVO->Cd_Cliente = 7;
  }
  struct Bill {
    int code = 1;
    std::string_view due = "2026-11-01";
    std::string_view balance = "1000";
    int grace = 0;
    std::string_view percent = "3";
    std::string_view guarantor = "Null";
    int customer = 7;
    int state = 1;
    int company = 1;
    std::string_view blocks_from = "2026-11-10";
  };
  void add_bill(const Bill& b) {
    run(fmt::format(
        "INSERT INTO ContaAReceber (Cd_PessoaUsuaria, Cd_ContaAReceber, Dt_VencPro, Vl_Saldo, "
        "Fl_LiberarXdiasJuros, Tx_Mora, Cd_PessoaAvalista, Cd_Pessoa, No_SituacaoPagamento, "
        "Dt_BloqueioCredito) Values ({}, {}, '{}', {}, {}, {}, {}, {}, {}, '{}')",
        b.company, b.code, b.due, b.balance, b.grace, b.percent, b.guarantor, b.customer, b.state, b.blocks_from));
  }

  DALCliente customer_{settings_};
};

TEST_F(ClientCreditTest, InterestRunsFromTheDueDateAndDelayIsKeptInFull) {
  const std::string_view untouched = "-,-";
  const struct {
    const char* what;
    Bill bill;
    std::string_view interest_and_delay;  // five days of grace, on 24 November
  } cases[] = {{"not due: seven days to go", {.due = "2026-12-01"}, "1000,-7"},
               {"due today", {.due = "2026-11-24"}, "1000,0"},
               {"23 days at 3 / 30 = 0.1 % a day: 1000 * 0.023", {}, "1023,23"},
               {"whole days, whatever the hour", {.due = "2026-11-01 23:30:00"}, "1023,23"},
               {"within grace: 4 - 5 days", {.due = "2026-11-20", .grace = 1}, "1000,4"},
               {"grace to the day: 5 - 5 days", {.due = "2026-11-19", .grace = 1}, "1000,5"},
               {"beyond grace: 10 - 5 days, 1000 * 0.005", {.due = "2026-11-14", .grace = 1}, "1005,10"},
               {"no grace for a bill without the flag: 1000 * 0.010", {.due = "2026-11-14"}, "1010,10"},
               {"17 days at 0.15 %: 333.33 + 8.499915",
                {.due = "2026-11-07", .balance = "333.33", .percent = "4.5"},
                "341.83,17"},
               {"no rate", {.percent = "Null"}, "1000,23"},
               {"as guarantor", {.guarantor = "7", .customer = 8}, "1023,23"},
               {"of another company", {.company = 2}, "1023,23"},
               {"paid", {.balance = "0"}, untouched},
               {"another's", {.guarantor = "9", .customer = 8}, untouched}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    run("DELETE FROM ContaAReceber");
    add_bill(c.bill);
    EXPECT_TRUE(customer_.atualizarDebito(today().plus_millis(1), 5));
    EXPECT_EQ(rows("SELECT Vl_ComJuros, Qt_DiasAtraso FROM ContaAReceber"), std::string(c.interest_and_delay) + "\n");
  }
}

TEST_F(ClientCreditTest, TheGuarantorsBillsAreMarked) {
  add_bill({.code = 1});
  add_bill({.code = 2, .guarantor = "7", .customer = 8});
  add_bill({.code = 3, .guarantor = "9"});
  run("UPDATE ContaAReceber SET Ic_Avalista = -1 WHERE Cd_ContaAReceber <> 2");
  customer_.atualizarDebito(today(), 0);
  // without a guarantor the mark stays; the customer is the guarantor of 2 and not of 3
  EXPECT_EQ(rows("SELECT Cd_ContaAReceber FROM ContaAReceber WHERE Ic_Avalista <> 0 ORDER BY Cd_ContaAReceber"),
            "1\n2\n");
}

TEST_F(ClientCreditTest, ABillWithoutADueDateHasNoDelay) {
  add_bill({});
  run("UPDATE ContaAReceber SET Dt_VencPro = Null, Qt_DiasAtraso = 4");
  customer_.atualizarDebito(today(), 0);
  EXPECT_EQ(rows("SELECT Vl_ComJuros, Qt_DiasAtraso FROM ContaAReceber"), "1000,-\n");
}

TEST_F(ClientCreditTest, TimeToPayOnlyMovesForward) {
  add_bill({.code = 1, .blocks_from = "2026-11-10"});
  add_bill({.code = 2, .blocks_from = "2026-12-24"});
  add_bill({.code = 3, .customer = 8, .blocks_from = "2026-11-10"});
  const auto blocks_from = [&] {
    std::string days;
    for (Recordset r = connection().Execute("SELECT Dt_BloqueioCredito FROM ContaAReceber ORDER BY Cd_ContaAReceber");
         !r.EOF(); r.MoveNext()) {
      days += format_date(r[0].as<Date>(), "dd/mm ");
    }
    return days;
  };
  expect_failure(erro::kRuleViolation, " -> DALCliente.concederPrazo,  -> DALCliente.concederPrazo",
                 [&] { customer_.concederPrazo(today().plus_days(-1)); });
  EXPECT_EQ(failure_of([&] { customer_.concederPrazo(Date()); })->description(),
            "Não é permitido informar uma data passada.");
  EXPECT_EQ(blocks_from(), "10/11 24/12 10/11 ");
  EXPECT_TRUE(customer_.concederPrazo(today()));
  EXPECT_EQ(blocks_from(), "24/11 24/12 10/11 ");
}

TEST_F(ClientCreditTest, OverdueBillsAreOpenDueBeforeTodayAndOfTheCompany) {
  EXPECT_EQ(customer_.ValorDasContasVencida(), Currency());
  add_bill({.code = 1, .due = "2026-11-23", .balance = "10.01"});
  add_bill({.code = 2, .due = "2026-11-01", .balance = "20.02"});
  add_bill({.code = 3, .due = "2026-11-24", .balance = "40"});
  add_bill({.code = 4, .balance = "80", .state = 3});
  add_bill({.code = 5, .balance = "160", .customer = 8});
  add_bill({.code = 6, .balance = "320", .company = 2});
  EXPECT_EQ(customer_.ValorDasContasVencida(), money("30.03"));
}

TEST_F(ClientCreditTest, AccumulatesChequesSalesAndBills) {
  run("INSERT INTO Cliente (Cd_PessoaUsuaria, Cd_Cliente) Values (1, 7)");
  add_person(7, "77", "pessoa");
  customer_.Ic_CalculadoAcumuloNaConsulta = true;
  const auto accumulated = [&] {
    const VOCliente& vo = customer_.Consultar();
    return fmt::format("{} {} {} {}", vo.Vl_AcumuloChequeEmitente.text(), vo.Vl_AcumuloChequeTerceiro.text(),
                       vo.Vl_AcumuloAFaturar.text(), vo.Vl_AcumuloFaturado.text());
  };
  EXPECT_EQ(accumulated(), "0.0000 0.0000 0.0000 0.0000");

  run("INSERT INTO TipoRecebimento (Cd_TipoRecebimento, Fl_eCheque) Values (5, 0)\r"
      "INSERT INTO TipoRecebimento (Cd_TipoRecebimento, Fl_eCheque) Values (10, 1)\r"
      "INSERT INTO TipoRecebimento (Cd_TipoRecebimento, Fl_eCheque) Values (11, 1)");
  const struct {
    int number, kind;
    const char *issuer, *passed_by, *day, *value;
  } receipts[] = {{1, 10, "77", "", "2026-11-24", "1"},    {2, 11, "77", "", "2026-11-19", "2"},
                  {3, 10, "77", "", "2026-11-18", "4"},    {4, 5, "77", "", "2026-11-24", "8"},
                  {5, 10, "88", "77", "2026-11-24", "16"}, {6, 10, "88", "", "2026-11-24", "32"}};
  for (const auto& r : receipts) {
    run(
        fmt::format("INSERT INTO Recebimento (Cd_PessoaUsuaria, No_Recebimento, Cd_TipoRecebimento, Cd_CgcCpf0, "
                    "Cd_CgcCpf1, Dt_Recebimento, Vl_Recebimento) Values (1, {}, {}, '{}', '{}', '{}', {})",
                    r.number, r.kind, r.issuer, r.passed_by, r.day, r.value));
  }
  const Sale sales[] = {{.number = 1, .kind = 10, .total = "1.10"}, {.number = 2, .kind = 19, .total = "2.20"},
                        {.number = 3, .kind = 20, .total = "4"},    {.number = 4, .state = "S", .total = "8"},
                        {.number = 5, .state = "-", .total = "16"}, {.number = 6, .customer = 8, .total = "32"},
                        {.number = 7, .total = "64", .company = 2}};
  for (const Sale& sale : sales) add_sale(sale);
  add_bill({.code = 1, .balance = "100.01"});
  add_bill({.code = 2, .due = "2027-01-01", .balance = "200.02"});
  add_bill({.code = 3, .balance = "400", .state = 3});
  // cheques of five days: 1 + 2, passed on 16; sales of kinds 10 to 19 to be billed: 1.10 + 2.20; open: 100.01 + 200.02
  EXPECT_EQ(accumulated(), "3.0000 16.0000 3.3000 300.0300");

  customer_.ObVO->Cd_CgcCpf = "";  // who has no number has no cheques
  customer_.VerificarAcumulos();
  EXPECT_EQ(customer_.ObVO->Vl_AcumuloChequeEmitente, Currency());
  customer_.Ic_CalculadoAcumuloNaConsulta = false;
  customer_.ObVO->Vl_AcumuloFaturado = money("5");
  EXPECT_EQ(customer_.Consultar().Vl_AcumuloFaturado, money("5"));
}

TEST_F(ClientCreditTest, AFailingSumNamesItsRoutine) {
  settings_->Ds_FormatoData = "mmm";
  customer_.ObVO->Cd_CgcCpf = "77";
  const auto failure = failure_of([&] { customer_.VerificarAcumulos(); });
  ASSERT_TRUE(failure);
  EXPECT_TRUE(failure->source().ends_with(" -> DALCliente.AcumulosChequeEmitente -> DALCliente.VerificarAcumulos"))
      << failure->source();
}

TEST_F(ClientCreditTest, CommitmentsAreComparedWithWhatWasDrawn) {
  EXPECT_EQ(customer_.ConsultarQtEmpenhoPendenteProduto(5, "NE1"), Currency());
  EXPECT_EQ(customer_.ConsultarQtVendaPendenteProduto(5, "NE1"), Currency());
  const auto add_commitment = [&](int company, int customer, std::string_view id, int state) {
    run(
        fmt::format("INSERT INTO Empenho (Cd_PessoaUsuaria, Cd_Cliente, Id_Empenho, No_Situacao) "
                    "Values ({0}, {1}, '{2}', {3})\r"
                    "INSERT INTO ItemEmpenho (Cd_PessoaUsuaria, Cd_Cliente, Id_Empenho, No_Item, Cd_Produto, "
                    "Qt_Unidade) Values ({0}, {1}, '{2}', 1, 5, 100.25)\r"
                    "INSERT INTO ItemEmpenho (Cd_PessoaUsuaria, Cd_Cliente, Id_Empenho, No_Item, Cd_Produto, "
                    "Qt_Unidade) Values ({0}, {1}, '{2}', 2, 5, 50.5)\r"
                    "INSERT INTO ItemEmpenho (Cd_PessoaUsuaria, Cd_Cliente, Id_Empenho, No_Item, Cd_Produto, "
                    "Qt_Unidade) Values ({0}, {1}, '{2}', 3, 6, 999)",
                    company, customer, id, state));
  };
  add_commitment(1, 7, "NE1", 1);
  add_commitment(1, 7, "NE2", 2);
  add_commitment(1, 8, "NE1", 1);
  add_commitment(2, 7, "NE1", 1);
  const Sale sales[] = {{.number = 1, .commitment = "NE1"},
                        {.number = 2, .state = "-", .commitment = "NE1"},
                        {.number = 3, .state = "S", .commitment = "NE1"},
                        {.number = 4, .commitment = "NE1", .bill = "88"},
                        {.number = 5, .kind = 21, .commitment = "NE1"},
                        {.number = 6, .commitment = "NE2"}};
  for (const Sale& sale : sales) {
    add_sale(sale);
    add_line(sale.number, 1, 5, fmt::format("{}.125", sale.number));
    add_line(sale.number, 2, 6, "1000");
  }
  EXPECT_EQ(customer_.ConsultarQtEmpenhoPendenteProduto(5, "NE1"), money("150.75"));
  EXPECT_EQ(customer_.ConsultarQtEmpenhoPendenteProduto(5, "NE2"), Currency());   // concluded
  EXPECT_EQ(customer_.ConsultarQtVendaPendenteProduto(5, "NE1"), money("3.25"));  // 1.125 + 2.125
  EXPECT_EQ(text_of(customer_.rsEmpenhoPendente()).substr(0, 8), "1,7,NE1,");

  EXPECT_TRUE(customer_.AlterarEmpenhosParaConcluido());
  EXPECT_EQ(rows("SELECT Cd_PessoaUsuaria, Cd_Cliente FROM Empenho WHERE No_Situacao = 1 ORDER BY Cd_PessoaUsuaria"),
            "1,8\n2,7\n");
}

TEST(SpecialPriceTest, FollowsItsCondition) {
  const struct {
    std::int32_t condition;
    const char *list, *change, *price;
  } cases[] = {{Tp_CondicaoDescontoPercentual, "2.499", "5", "2.3740"},    // 2.37405
               {Tp_CondicaoDescontoPercentual, "2.49", "5", "2.3660"},     // 2.3655: the half goes up
               {Tp_CondicaoDescontoPercentual, "2.4899", "5", "2.3650"},   // 2.365405, rounded once
               {Tp_CondicaoAcrescimoPercentual, "2.499", "10", "2.7490"},  // 2.7489
               {Tp_CondicaoDescontoValor, "2.499", "0.15", "2.3490"},
               {Tp_CondicaoAcrescimoValor, "2.499", "0.0005", "2.5000"},
               {Tp_CondicaoPrecoFixo, "2.499", "1.9", "1.9000"},
               {Tp_CondicaoDescontoValor, "1", "1.01", "0.0000"},
               {Tp_CondicaoDescontoPercentual, "1", "120", "0.0000"},
               {0, "2.4994", "9", "2.4990"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(fmt::format("{} {} {}", c.condition, c.list, c.change));
    EXPECT_EQ(special_price(c.condition, money(c.list), money(c.change)).text(), c.price);
  }
  EXPECT_EQ(
      failure_of([] { special_price(Tp_CondicaoAcrescimoPercentual, money("900000000000"), money("100")); })->number(),
      erro::kOverflow);
}

TEST_F(ClientCreditTest, SpecialPricesFollowTheListOfTheirCompany) {
  add_product(5, "Gasolina", "2.499");
  add_product(6, "Diesel", "1.999");
  run("INSERT INTO Produto (Cd_PessoaUsuaria, Cd_Produto, Vl_Preco) Values (2, 7, 9)");
  for (const char* row : {"1, 7, 5, 12, 0.1, 1", "1, 7, 6, 30, 1.5, 1", "1, 8, 5, 12, 0.1, 1", "2, 7, 7, 12, 0.1, 1"}) {
    run(
        fmt::format("INSERT INTO CondEspecialPreco (Cd_PessoaUsuaria, Cd_Cliente, Cd_Produto, Tp_Condicao, "
                    "Vl_Alteracao, Vl_Preco) Values ({})",
                    row));
  }
  const auto prices = [&] {
    return rows(
        "SELECT Cd_Cliente, Cd_Produto, Vl_Preco FROM CondEspecialPreco "
        "ORDER BY Cd_PessoaUsuaria, Cd_Cliente, Cd_Produto");
  };
  EXPECT_TRUE(customer_.AtualizarPrecoCondicaoEspecial());
  EXPECT_EQ(prices(), "7,5,2.399\n7,6,1.5\n8,5,1\n7,7,1\n");
  customer_.ObVO->Cd_Cliente = 0;  // no customer is not every customer
  customer_.AtualizarPrecoCondicaoEspecial();
  EXPECT_EQ(prices(), "7,5,2.399\n7,6,1.5\n8,5,1\n7,7,1\n");
  update_special_prices(connection(), 1, 0);
  EXPECT_EQ(prices(), "7,5,2.399\n7,6,1.5\n8,5,2.399\n7,7,1\n");
}

}  // namespace
}  // namespace posto
