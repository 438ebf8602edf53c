#include "posto/services/late_bound.h"
#include "tests/treasury/treasury_test.h"

namespace posto {
namespace {

class CaixaTest : public TreasuryTest {
 protected:
  void ask_for_employee(int tenant = 1, int employee = kEmployee) {
    *shift_.ObVO = {};
    shift_.ObVO->Cd_PessoaUsuaria = tenant;
    shift_.ObVO->Cd_Funcionario = employee;
  }
  std::vector<std::string> texts(const MemoryList& list) {
    std::vector<std::string> texts;
    for (const auto& item : list.items()) texts.push_back(fmt::format("{} {}", item.data, item.text));
    return texts;
  }

  ClockOverride clock_{Date::of_moment(2026, 11, 24, 15, 0, 0)};
};

TEST_F(CaixaTest, ComposesItsStatements) {
  const ClockOverride then(Date::of_moment(2009, 4, 3, 23, 59, 59));
  add("Caixa", "Cd_PessoaUsuaria, Cd_Caixa, Cd_Funcionario, No_Sequencial, Dt_Abertura, Cd_Situacao",
      {"1, 87, 42, 1, '2009-04-03', 1"});
  expect_statements({"Consultar (by code)"}, [&] { shift_.Consultar(); });
  expect_statements({"Consultar (by employee, sequence and day)"}, [&] { shift_.Consultar(); });
  expect_statements({"ConsultarUltimoCaixa"}, [&] { shift_.ConsultarUltimoCaixa(); });
  expect_statements({"ConsultarUltimoSequencial"}, [&] { shift_.ConsultarUltimoSequencial(1, 42); });
  expect_statements({"ExisteRespBomba"}, [&] { EXPECT_FALSE(shift_.ExisteRespBomba()); });
  std::string kept = "como está";
  expect_statements({"Rs_RecebimentosETroco"}, [&] { shift_.Rs_RecebimentosETroco(kept); });
  EXPECT_EQ(kept, "como está");
  expect_statements({"Rs_CuponsFiscais"}, [&] { shift_.Rs_CuponsFiscais(); });
  expect_statements({"Rs_VolumeCombustiveisVendidos"}, [&] { shift_.Rs_VolumeCombustiveisVendidos(); });
  MemoryList list;
  expect_statements({"CarregarComboBox"}, [&] {
    shift_.CarregarComboBox(list, "WHERE Cd_PessoaUsuaria = 1 And Dt_Abertura = '2009-04-03'");
  });
  expect_statements({"CarregarComboBox2"}, [&] {
    shift_.CarregarComboBox2(list, "WHERE Caixa.Cd_PessoaUsuaria = 1 And Caixa.Cd_Situacao = 1");
  });
  shift_.ObVO->No_Sequencial = 2;
  shift_.Incluir();
  EXPECT_EQ(words_of(shift_.statement()), wanted("DALCaixa.Incluir"));
}

TEST_F(CaixaTest, AShiftsLifeUnderEitherKey) {
  EXPECT_TRUE(shift_.temCampoSequencial());
  EXPECT_EQ(shift_.nomeCamposSequencial(), std::vector<std::string>{"Cd_Caixa"});
  ask_for_employee();
  shift_.ObVO->No_Sequencial = 1;
  shift_.ObVO->Dt_Abertura = Date::of_day(2026, 11, 24);
  shift_.ObVO->Hr_Abertura = "06:00:00";
  EXPECT_FALSE(shift_.Existe());
  shift_.Incluir();
  EXPECT_TRUE(shift_.Existe());
  const std::int32_t code = shift_.Consultar().Cd_Caixa;
  EXPECT_GT(code, 0);
  EXPECT_EQ(failure_of([&] { shift_.Incluir(); })->number(), erro::kIntegrity);

  *shift_.ObVO = {};
  shift_.ObVO->Cd_PessoaUsuaria = kTenant;
  shift_.ObVO->Cd_Caixa = code;
  EXPECT_EQ(shift_.Consultar().Hr_Abertura, "06:00:00");
  shift_.ObVO->Cd_Situacao = Cd_SituacaoFechado;
  shift_.ObVO->Vl_Diferenca = money("-1.5");
  shift_.Alterar();
  EXPECT_EQ(rows("SELECT Cd_Caixa, Cd_Situacao, Vl_Diferenca, Dt_Fechamento FROM Caixa"),
            fmt::format("{},2,-1.5,-\n", code));
  shift_.Excluir();
  EXPECT_FALSE(shift_.Existe());
  *shift_.ObVO = {};
  expect_failure(erro::kMissingKey, " -> DALCaixa.Existe,  -> DALCaixa.Existe", [&] { shift_.Existe(); });
}

TEST_F(CaixaTest, TheShiftInForceIsTheLatestOpenOneUntilToday) {
  add_shift(1, 1, "2026-11-23");
  add_shift(2, 2, "2026-11-24");
  add_shift(3, 1, "2026-11-24");
  add_shift(4, 3, "2026-11-24", 2);
  add_shift(5, 1, "2026-11-25");
  add_shift(6, 9, "2026-11-24", 1, 43);
  ask_for_employee();
  EXPECT_EQ(shift_.ConsultarUltimoCaixa().Cd_Caixa, 2);
  EXPECT_EQ(shift_.ConsultarUltimoSequencial(1, kEmployee), 3);  // of whatever state
  EXPECT_EQ(shift_.ConsultarUltimoSequencial(1, 43), 9);         // the arguments count
  EXPECT_EQ(shift_.ConsultarUltimoSequencial(2, 43), 0);
  run("UPDATE Caixa SET Cd_Situacao = 3 WHERE Dt_Abertura = '2026-11-24'");
  EXPECT_EQ(shift_.ConsultarUltimoCaixa().Cd_Caixa, 1);

  ask_for_employee(1, 44);
  expect_failure(erro::kRecordNotFound, " -> DALCaixa.ConsultarUltimoCaixa,  -> DALCaixa.ConsultarUltimoCaixa",
                 [&] { shift_.ConsultarUltimoCaixa(); });
  EXPECT_EQ(failure_of([&] { shift_.ConsultarUltimoCaixa(); })->description(), "Registro nao encontrado(Caixa)");
  for (auto [tenant, employee] : {std::pair{0, 42}, std::pair{1, 0}}) {
    ask_for_employee(tenant, employee);
    EXPECT_EQ(failure_of([&] { shift_.ConsultarUltimoCaixa(); })->number(), erro::kMissingKey);
    expect_failure(erro::kMissingKey, " -> DALCaixa.ConsultarUltimoSequencial,  -> DALCaixa.ConsultarUltimoSequencial",
                   [&] { shift_.ConsultarUltimoSequencial(1, 42); });
  }
}

TEST_F(CaixaTest, Lists) {
  MemoryList list;
  list.call("AddItem", {{Variant("antigo")}});
  shift_.CarregarComboBox2(list);
  EXPECT_TRUE(list.items().empty());
  add_shift(8, 2, "2026-11-24");
  add_shift(7, 1, "2026-11-23", 1, 43);
  add("Pessoa", "Cd_Pessoa, Nm_Pessoa", {"42, 'CARLOS'", "43, 'BEATRIZ'"});
  using Texts = std::vector<std::string>;
  shift_.CarregarComboBox(list);
  EXPECT_EQ(texts(list), (Texts{"0 SELECIONE ->", "7 01 - 23/11/2026 06:00:00", "8 02 - 24/11/2026 06:00:00"}));
  shift_.CarregarComboBox2(list);
  EXPECT_EQ(texts(list), (Texts{"0 SELECIONE ->", "7 BEATRIZ-SEQ:1", "8 CARLOS-SEQ:2"}));
  shift_.CarregarComboBox2(list, "WHERE Caixa.Cd_Funcionario = 42");
  EXPECT_EQ(texts(list), (Texts{"0 SELECIONE ->", "8 CARLOS-SEQ:2"}));
  expect_failure(erro::kSyntax, testing::provider() + " -> DALCaixa.CarregarComboBox2",
                 [&] { shift_.CarregarComboBox2(list, "WHERE"); });
}

TEST_F(CaixaTest, CouponsWhoseReceiptsAreNotTheirTotal) {
  add_shift(kShift, 1, "2026-11-24");
  struct {
    int number, sale;
    const char *total, *receipts, *told;  // told: the sum, "-" for none; nothing where the coupon is good
  } cases[] = {{1, 21, "50", "30 20", nullptr}, {2, 21, "50", "30 19.9999", "49.9999"},
               {3, 20, "50", "60", "60"},       {4, 29, "50", "", "-"},
               {5, 19, "50", "", nullptr},      {6, 30, "50", "", nullptr},
               {7, 21, "0", "1", nullptr},      {8, 21, "-5", "", nullptr}};
  std::string expected;
  int receipt = 0;
  for (const auto& c : cases) {
    run(
        fmt::format("INSERT INTO CupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, Cd_Caixa, "
                    "Tp_Venda, Vl_TotalLiquido) Values (1, 1, {}, '2026-11-24', 87, {}, {})",
                    c.number, c.sale, c.total));
    for (std::string_view rest = c.receipts; !rest.empty();) {
      const std::string_view value = rest.substr(0, rest.find(' '));
      rest.remove_prefix(std::min(value.size() + 1, rest.size()));
      run(
          fmt::format("INSERT INTO Recebimento (Cd_PessoaUsuaria, No_Recebimento, Vl_Recebimento) Values (1, {0}, {1})"
                      "\rINSERT INTO RecebimentoCupom (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, "
                      "No_Recebimento) Values (1, 1, {2}, '2026-11-24', {0})",
                      ++receipt, value, c.number));
    }
    if (c.told != nullptr) expected += fmt::format("{} {}\n", c.number, c.told);
  }
  run("INSERT INTO CupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, Cd_Caixa, Tp_Venda, "
      "Vl_TotalLiquido, Ic_Excluido) Values (1, 1, 9, '2026-11-24', 87, 21, 50, 1)");
  std::string told, ignored;
  Recordset rs = shift_.Rs_RecebimentosETroco(ignored);
  EXPECT_EQ(rs.ActiveConnection(), nullptr);
  for (; !rs.EOF(); rs.MoveNext()) {
    const Field sum = rs["SomaVl_Recebimento"];
    told += fmt::format("{} {}\n", rs["No_CupomFiscal"].as<int>(), sum.is_null() ? "-" : sum.as<std::string>());
    EXPECT_EQ(rs["No_Sequencial"].as<int>(), 1);
  }
  EXPECT_EQ(told, expected);
}

TEST_F(CaixaTest, CouponsAndLitres) {
  add_busy_shift();
  EXPECT_TRUE(shift_.ExisteRespBomba());
  std::string coupons;
  for (Recordset rs = shift_.Rs_CuponsFiscais(); !rs.EOF(); rs.MoveNext()) {
    coupons += rs["No_CupomFiscal"].as<std::string>() + " ";
  }
  EXPECT_EQ(coupons, "101 100 102 ");
  // those of every shift: 5 + 40 + 1 + 20
  Recordset litres = shift_.Rs_VolumeCombustiveisVendidos();
  EXPECT_EQ(litres["Nm_Produto"].as<std::string>(), "GASOLINA");
  EXPECT_EQ(litres["SomaDeQt_Litros"].as<double>(), 66);
}

// The shift's rows where the shift's coupons stand in another database than the system's own.
TEST_F(CaixaTest, RowsFromAnotherDatabase) {
  testing::TestDatabase other(true);
  {
    auto own = std::exchange(settings_->ObConnection, Connection::create());
    settings_->ObConnection->Use(other.open());
    add_busy_shift();
    add("Veiculo", "Cd_PessoaUsuaria, Cd_Veiculo", {"1, 'ABC1234'"});
    add("Cardex", "Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, No_Tipo, Cd_Produto, Qt_Estoque",
        {"1, 500, '2026-11-24', 20, 1, 9", "2, 500, '2026-11-24', 20, 1, 8"});
    run("UPDATE ItemCupomFiscal SET Cd_LancamentoCardex = 500, Cd_Abastecimento = 2 WHERE No_CupomFiscal = 103");
    run("UPDATE CupomFiscal SET Cd_Veiculo = 'ABC1234' WHERE No_CupomFiscal = 103");
    settings_->ObConnection = own;
  }
  struct {
    Recordset (DALCaixa::*rows)(std::string_view);
    const char *column, *values;
  } cases[] = {{&DALCaixa::rsCupomFiscal, "No_CupomFiscal", "100 101 102 103 "},
               {&DALCaixa::rsItemCupomFiscal, "No_CupomFiscal", "100 100 100 100 100 100 100 100 101 103 "},
               {&DALCaixa::rsRecebimento, "Vl_Recebimento", "60 "},
               {&DALCaixa::rsRecebimentoCupom, "No_Recebimento", "1 "},
               {&DALCaixa::rsPessoa, "Nm_Pessoa", "ANA ANA ANA "},
               {&DALCaixa::rsCliente, "Nm_Pessoa", "ANA ANA ANA "},
               {&DALCaixa::rsVeiculo, "Cd_Veiculo", "ABC1234 "},
               {&DALCaixa::rsCardex, "Qt_Estoque", "9 "},
               {&DALCaixa::rsAbastecimento, "Vl_Total", "99.96 "}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.values);
    Recordset rs = (shift_.*c.rows)(other.address());
    EXPECT_EQ(rs.ActiveConnection(), nullptr);
    std::vector<std::string> found;
    for (; !rs.EOF(); rs.MoveNext()) found.push_back(rs[c.column].as<std::string>());
    std::ranges::sort(found);
    std::string values;
    for (const auto& value : found) values += value + " ";
    EXPECT_EQ(values, c.values);
  }
  EXPECT_EQ(rows("SELECT No_CupomFiscal FROM CupomFiscal"), "");
  const auto failure = failure_of([&] { shift_.rsCardex("sqlite:/nao/existe/nada.db"); });
  ASSERT_TRUE(failure);
  EXPECT_TRUE(failure->source().ends_with(" -> DALCaixa.rsCardex")) << failure->source();
}

}  // namespace
}  // namespace posto
