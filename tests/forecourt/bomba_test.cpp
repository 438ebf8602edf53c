#include "posto/forecourt/DALBomba.h"
#include "tests/forecourt/forecourt_test.h"

namespace posto {
namespace {

class BombaTest : public ForecourtTest {
 protected:
  void ask_for(int tenant, int number, std::string_view address) {
    *nozzle_.ObVO = {};
    nozzle_.ObVO->Cd_PessoaUsuaria = tenant;
    nozzle_.ObVO->Cd_Bomba = static_cast<std::uint8_t>(number);
    nozzle_.ObVO->De_EnderecoLogicoBico = address;
  }
  // Gives every property but the key a value of its own, none the default and none blank.
  void fill() {
    ValueObject vo = by_name(*nozzle_.ObVO);
    std::int32_t next = 1;
    for (const Property& p : vo.layout().properties()) {
      if (p.name == "Cd_PessoaUsuaria" || p.name == "Cd_Bomba") continue;
      if (p.type == SqlType::date) {
        vo.let(p, Date::of_day(2026, 11, 24));
      } else {
        vo.let(p, ++next);
      }
    }
  }
  // The names of the properties that nozzle 3 does not have as fill() gave them.
  std::string not_written() {
    VOBomba written = *nozzle_.ObVO;
    ask_for(1, 3, "");
    nozzle_.Consultar();
    std::string names;
    for (const Property& p : layout_of<VOBomba>().properties()) {
      if (by_name(written).get(p).as<std::string>() == by_name(*nozzle_.ObVO).get(p).as<std::string>()) continue;
      names += (names.empty() ? "" : " ") + std::string(p.name);
    }
    return names;
  }

  DALBomba nozzle_{settings_};
};

TEST_F(BombaTest, IsFoundByNumberAndOtherwiseByAddress) {
  add_nozzle(1, 3, "04");
  add_nozzle(1, 5, "06");
  add_nozzle(2, 9, "04");
  struct {
    int tenant, number;
    const char* address;
    const char* found;
  } cases[] = {
      {1, 3, "", "Bomba 1/3"}, {1, 5, "04", "Bomba 1/5"}, {1, 0, "04", "Bomba 1/3"}, {2, 0, "04", "Bomba 2/9"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.found);
    ask_for(c.tenant, c.number, c.address);
    EXPECT_EQ(nozzle_.Consultar().Ds_Bomba, c.found);
  }
  for (auto [tenant, number] : {std::pair{0, 3}, std::pair{1, 0}}) {
    ask_for(tenant, number, tenant == 0 ? "04" : "");
    expect_failure(erro::kMissingKey, " -> DALBomba.Consultar,  -> DALBomba.Consultar", [&] { nozzle_.Consultar(); });
  }
  ask_for(1, 0, "07");
  EXPECT_EQ(failure_of([&] { nozzle_.Consultar(); })->description(), "Registro nao encontrado(Bomba)");
}

TEST_F(BombaTest, IsChangedByAddressWhateverItsTenant) {
  add_nozzle(2, 9, "04");
  ask_for(1, 0, "04");
  nozzle_.ObVO->De_Status = "L";
  nozzle_.Alterar();
  EXPECT_EQ(rows("SELECT Cd_PessoaUsuaria, Cd_Bomba, De_Status FROM Bomba"), "2,9,L\n");
  ask_for(1, 9, "04");  // the number is given: tenant and number it is
  expect_failure(erro::kRecordNotFound, " -> DALBomba.Alterar,  -> DALBomba.Alterar", [&] { nozzle_.Alterar(); });
  EXPECT_EQ(nozzle_.ObVO->Cd_Bomba, 0);
}

TEST_F(BombaTest, ChangesThePresetsOfTheNextDeliveryOnlyOnRequest) {
  constexpr const char* kPresets =
      "Ds_Bomba Ds_Bico Cd_Caixa Cd_Veiculo No_TipoPagamento No_TipoVencimento Ic_BaixaAutomatica Vl_Abastecimento "
      "Tx_DescontoAbastecimento Fl_AutorizarAbastecimento No_Hodometro";
  struct {
    const char* what;
    std::function<void(DALBomba&)> write;
    const char* kept;
  } cases[] = {{"neither", [](DALBomba& b) { b.Alterar(); }, kPresets},
               {"responsibilities", [](DALBomba& b) { b.Alterar(false, true); }, "Ds_Bomba Ds_Bico"},
               {"release", [](DALBomba& b) { b.Alterar(false, false, true); }, "Ds_Bomba Ds_Bico"},
               {"saved", [](DALBomba& b) { b.Salvar(); }, kPresets},
               {"saved with responsibilities", [](DALBomba& b) { b.Salvar(true); }, "Ds_Bomba Ds_Bico"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    run("DELETE FROM Bomba");
    add_nozzle(1, 3, "04");
    ask_for(1, 3, "");
    fill();
    c.write(nozzle_);
    EXPECT_EQ(not_written(), c.kept);
  }
}

TEST_F(BombaTest, AVehicleOfBlanksIsNone) {
  add_nozzle(1, 3, "04");
  ask_for(1, 3, "04");
  nozzle_.ObVO->Cd_Veiculo = "ABC1234";
  nozzle_.Alterar(false, true);
  nozzle_.ObVO->Cd_Veiculo = "   ";
  nozzle_.Alterar(false, true);
  EXPECT_EQ(rows("SELECT Cd_Veiculo FROM Bomba"), "-\n");
}

TEST_F(BombaTest, SavingInsertsWhatIsNotThere) {
  ask_for(0, 3, "04");
  nozzle_.ObVO->Ds_Bomba = "Bomba da frente";
  nozzle_.ObVO->Cd_Veiculo = "ABC1234";
  nozzle_.ObVO->Cd_PessoaUsuaria = 1;
  nozzle_.Salvar();
  EXPECT_EQ(rows("SELECT Cd_PessoaUsuaria, Cd_Bomba, Ds_Bomba, Cd_Veiculo, Cd_Produto FROM Bomba"),
            "1,3,Bomba da frente,ABC1234,-\n");
  // another failure of Alterar is no reason to insert: the address is taken
  add_nozzle(1, 5, "06");
  ask_for(1, 5, "04");
  expect_failure(erro::kIntegrity, testing::provider() + " -> DALBomba.Alterar -> DALBomba.Salvar",
                 [&] { nozzle_.Salvar(); });
  // without any key the way leads to Incluir, with the values as they were
  ask_for(1, 0, "");
  nozzle_.ObVO->Ds_Bomba = "Sem número";
  EXPECT_EQ(failure_of([&] { nozzle_.Salvar(); })->number(), erro::kIntegrity);
  EXPECT_EQ(nozzle_.ObVO->Ds_Bomba, "Sem número");
}

TEST_F(BombaTest, IsDeletedByItsNumberOnly) {
  add_nozzle(1, 3, "04");
  ask_for(1, 0, "04");
  expect_failure(erro::kMissingKey, " -> DALBomba.Excluir,  -> DALBomba.Excluir", [&] { nozzle_.Excluir(); });
  EXPECT_EQ(nozzle_.ObVO->De_EnderecoLogicoBico, "");
  ask_for(1, 3, "");
  nozzle_.Excluir();
  EXPECT_EQ(rows("SELECT Cd_Bomba FROM Bomba"), "");
}

TEST_F(BombaTest, TheTotaliserIsThatOfTheLastDelivery) {
  ask_for(0, 3, "04");
  const Date day = moment("2026-11-24");
  EXPECT_EQ(nozzle_.UltimoEncerranteEletronico(), 0);
  EXPECT_EQ(nozzle_.ObVO->Cd_PessoaUsuaria, 1);
  EXPECT_EQ(nozzle_.EncerranteAnteriorAoDia(day), 0);
  EXPECT_TRUE(nozzle_.DataUltimoAbastecimento().empty());

  VOAbastecimento other_tenant = fuelling(90, "2026-11-25 12:00:00");
  other_tenant.Cd_PessoaUsuaria = 2;
  VOAbastecimento other_nozzle = fuelling(91, "2026-11-25 12:00:00");
  other_nozzle.De_EnderecoLogicoBico = "06";
  add(other_tenant);
  add(other_nozzle);
  struct {
    const char* what;
    VOAbastecimento next;
    double last, before_the_day;  // 1000.5 and the code of the fuelling that counts
  } cases[] = {
      {"the first", fuelling(10, "2026-11-23 08:00:00", 5), 1010.5, 1010.5},
      {"an earlier one", fuelling(12, "2026-11-22 08:00:00", 9), 1010.5, 1010.5},
      {"at the same moment, an earlier count", fuelling(13, "2026-11-23 08:00:00", 4), 1010.5, 1010.5},
      {"at the same moment, a later count", fuelling(9, "2026-11-23 08:00:00", 6), 1009.5, 1009.5},
      {"in the last second of the day before", fuelling(20, "2026-11-23 23:59:59"), 1020.5, 1020.5},
      {"in the first second of the day", fuelling(21, "2026-11-24 00:00:00", 3), 1021.5, 1020.5},
      {"the same but for its code", fuelling(22, "2026-11-24 00:00:00", 3), 1022.5, 1020.5},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    add(c.next);
    EXPECT_EQ(nozzle_.UltimoEncerranteEletronico(), c.last);
    EXPECT_EQ(nozzle_.EncerranteAnteriorAoDia(day), c.before_the_day);
  }
  EXPECT_EQ(nozzle_.DataUltimoAbastecimento(), day);
  ask_for(1, 3, "");
  expect_failure(erro::kMissingKey, " -> DALBomba.DataUltimoAbastecimento,  -> DALBomba.DataUltimoAbastecimento",
                 [&] { nozzle_.DataUltimoAbastecimento(); });
}

TEST_F(BombaTest, PendingDeliveriesComeByAmountWithTheEmployeesName) {
  add_nozzle(1, 3, "04");
  add_shift(87, 42);
  auto pending = [&](int code, const char* end, double total, int shift, bool done = false) {
    VOAbastecimento v = fuelling(code, end);
    v.Vl_Total = Currency(total);
    v.Cd_Caixa = shift;
    v.Ic_Baixado = done;
    add(v);
  };
  pending(1, "2026-11-24 10:00:00", 50, 87);
  pending(2, "2026-11-24 09:00:00", 50, 0);
  pending(3, "2026-11-24 11:00:00", 20, 999);
  pending(4, "2026-11-24 11:00:00", 10, 87, true);
  ask_for(1, 3, "");  // the address is read from the nozzle's record
  Recordset rs = nozzle_.Rs_AbastecimentosPendentes();
  EXPECT_EQ(rs.ActiveConnection(), nullptr);
  EXPECT_EQ(nozzle_.ObVO->De_EnderecoLogicoBico, "04");
  std::string list;
  for (; !rs.EOF(); rs.MoveNext()) {
    list += rs["Cd_Abastecimento"].as<std::string>() + rs["Nm_Pessoa"].value_or<std::string>(" -") + ";";
  }
  EXPECT_EQ(list, "3 -;2 -;1Frentista 42;");
  ask_for(1, 7, "");
  expect_failure(erro::kRecordNotFound,
                 " -> DALBomba.Consultar,  -> DALBomba.Consultar -> DALBomba.Rs_AbastecimentosPendentes",
                 [&] { nozzle_.Rs_AbastecimentosPendentes(); });
}

TEST_F(BombaTest, TheCheckStartsAgainAtTheLastRecordThatWasChecked) {
  add(fuelling(12, "2026-11-20 00:00:00"));  // the settled date itself
  add(fuelling(11, "2026-11-20 00:00:01"));  // the last checked
  add(fuelling(10, "2026-11-23 10:00:00"));
  add(fuelling(13, "2026-11-22 10:00:00", 8));
  add(fuelling(14, "2026-11-22 10:00:00", 7));
  settings_->ObVOEmpresaUsuaria->Dt_CorteMovimento = moment("2026-11-20");
  ask_for(1, 3, "04");
  nozzle_.ObVO->No_UltimoSequencialAutomacaoConferido = 11;
  EXPECT_EQ(codes(nozzle_.Rs_AbastecimentosNaoConferido()), "11 14 13");
}

TEST_F(BombaTest, TheDaysDeliveriesAreOrderedByCounterButForOneRevision) {
  add(fuelling(1, "2026-11-23 23:59:59"));
  add(fuelling(2, "2026-11-24 23:59:59", 8));
  add(fuelling(3, "2026-11-24 23:59:59", 7));
  add(fuelling(4, "2026-11-24 00:00:00"));
  add(fuelling(5, "2026-11-25 00:00:00"));
  ask_for(1, 3, "04");
  const Date afternoon = moment("2026-11-24 15:30:00");
  EXPECT_EQ(codes(nozzle_.Rs_AbastecimentoNaoVerificado(afternoon)), "4 3 2");
  settings_->No_Revisao = 192;
  EXPECT_EQ(codes(nozzle_.Rs_AbastecimentoNaoVerificado(afternoon)), "4 2 3");
}

TEST_F(BombaTest, AllNozzlesOfTheTenantComeByNumber) {
  add_nozzle(1, 10, "10");
  add_nozzle(1, 2, "02");
  add_nozzle(2, 1, "01");
  DALBombas nozzles(settings_);
  Recordset rs = nozzles.ConsultarTodasRs();
  EXPECT_EQ(rs.ActiveConnection(), nullptr);
  std::string names;
  for (; !rs.EOF(); rs.MoveNext()) names += rs["Ds_Bomba"].as<std::string>() + ";";
  EXPECT_EQ(names, "Bomba 1/2;Bomba 1/10;");
}

}  // namespace
}  // namespace posto
