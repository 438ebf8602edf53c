#include "posto/forecourt/DALLogLiberacaoBico.h"
#include "posto/forecourt/DALRespBomba.h"
#include "posto/forecourt/catalogue.h"
#include "tests/forecourt/forecourt_test.h"

namespace posto {
namespace {

class RespBombaTest : public ForecourtTest {
 protected:
  void begin(int tenant, int shift, int number, std::string_view at, std::string_view reading) {
    run(
        fmt::format("INSERT INTO RespBomba (Cd_PessoaUsuaria, Cd_Caixa, Dt_RespBomba, Cd_Bomba, "
                    "No_EncerranteEletronicoAbertura, No_EncerranteMecanicoAbertura) Values ({}, {}, '{}', {}, {}, 7)",
                    tenant, shift, at, number, reading));
  }
  void ask_for(int tenant, int shift, int number) {
    *period_.ObVO = {};
    period_.ObVO->Cd_PessoaUsuaria = tenant;
    period_.ObVO->Cd_Caixa = shift;
    period_.ObVO->Cd_Bomba = static_cast<std::uint8_t>(number);
    period_.ObVO->No_EncerranteEletronicoFechamento = 1250.75;
    period_.ObVO->No_EncerranteMecanicoFechamento = 2000;
  }
  std::string closed() {
    return rows(
        "SELECT Cd_PessoaUsuaria, Cd_Bomba, Substring(Convert(Char, Dt_RespBomba, 120), 12, 5), "
        "No_EncerranteEletronicoFechamento, No_EncerranteMecanicoFechamento, Qt_Venda FROM RespBomba "
        "WHERE No_EncerranteEletronicoFechamento Is Not Null");
  }

  DALRespBomba period_{settings_};
};

TEST_F(RespBombaTest, ClosesTheLastPeriodOfTheShiftAndNozzle) {
  begin(1, 87, 3, "2026-11-24 14:00:00", "1200.5");
  begin(1, 87, 3, "2026-11-24 06:00:00", "1000");
  begin(1, 87, 4, "2026-11-24 15:00:00", "1");
  begin(1, 88, 3, "2026-11-24 22:00:00", "1");
  begin(2, 87, 3, "2026-11-24 23:00:00", "1");
  ask_for(1, 87, 3);
  period_.FecharResponsabilidade();
  EXPECT_EQ(closed(), "1,3,14:00,1250.75,2000,50.25\n");  // the mechanical readings take no part in the litres
}

TEST_F(RespBombaTest, WithoutAnOpeningReadingTheLitresStayUnknown) {
  begin(1, 87, 3, "2026-11-24 06:00:00", "Null");
  ask_for(1, 87, 3);
  period_.FecharResponsabilidade();
  EXPECT_EQ(closed(), "1,3,06:00,1250.75,2000,-\n");
}

TEST_F(RespBombaTest, NeedsItsKeyAndAPeriod) {
  for (int missing = 0; missing < 3; ++missing) {
    ask_for(missing == 0 ? 0 : 1, missing == 1 ? 0 : 87, missing == 2 ? 0 : 3);
    expect_failure(erro::kMissingKey,
                   " -> DALRespBomba.FecharResponsabilidade,  -> DALRespBomba.FecharResponsabilidade",
                   [&] { period_.FecharResponsabilidade(); });
  }
  ask_for(1, 87, 3);
  expect_failure(erro::kNoCurrentRecord, "ADODB.Recordset -> DALRespBomba.FecharResponsabilidade",
                 [&] { period_.FecharResponsabilidade(); });
}

TEST_F(RespBombaTest, IsReadByTheDayOnWhichItBegan) {
  ask_for(1, 87, 3);
  period_.ObVO->Dt_RespBomba = moment("2026-11-24");
  period_.ObVO->No_EncerranteMecanicoAbertura = 1.5;
  period_.Incluir();
  period_.ObVO->No_EncerranteMecanicoAbertura = 0;
  EXPECT_EQ(period_.Consultar().No_EncerranteMecanicoAbertura, 1.5);
  period_.Excluir();
  EXPECT_EQ(rows("SELECT Cd_Caixa FROM RespBomba"), "");
}

TEST_F(ForecourtTest, AReleaseIsLoggedWithItsMoment) {
  DALLogLiberacaoBico log(settings_);
  VOLogLiberacaoBico& v = *log.ObVO;
  v.No_Liberacao = 15;
  v.Cd_PessoaUsuaria = 1;
  v.Cd_Bomba = 3;
  v.No_TipoVencimento = 4;
  v.Ic_BaixaAutomatica = true;
  v.No_TipoPagamento = 2;
  v.Cd_Veiculo = "ABC1D23/SP";
  v.Cd_Funcionario = 42;
  v.Dt_Liberacao = moment("2026-11-24 10:14:05");
  v.Cd_Caixa = 87;
  v.No_TipoHardware = 1;
  EXPECT_EQ(log.instrucaoInsert(),
            "INSERT INTO LogLiberacaoBico (No_Liberacao,Cd_PessoaUsuaria,Cd_Bomba,No_TipoVencimento,Ic_BaixaAutomatica,"
            "No_TipoPagamento,Cd_Veiculo,Cd_Funcionario,Dt_Liberacao,Cd_Caixa,No_TipoHardware) Values "
            "(15,1,3,4,-1,2,'ABC1D23/',42,'2026-11-24 10:14:05',87,1)");
  log.Incluir();
  expect_failure(erro::kIntegrity, testing::provider() + " -> DALLogLiberacaoBico.Incluir", [&] { log.Incluir(); });
  v.No_Liberacao = 16;
  v.Cd_Veiculo.clear();
  log.Incluir();
  EXPECT_EQ(rows("SELECT No_Liberacao, Ic_BaixaAutomatica, Cd_Veiculo FROM LogLiberacaoBico ORDER BY No_Liberacao"),
            "15,True,ABC1D23/\n16,True,-\n");
}

TEST_F(ForecourtTest, TheAutomationsConfigurationIsOneRecordACompany) {
  DALAutomacaoBomba automation(settings_);
  automation.ObVO->Cd_ModeloAutomacaoBombas = ModeloAutomacaoBombasCBC04;
  automation.Incluir();  // the company is filled in
  automation.ObVO->RestaurarDefault();
  automation.ObVO->Cd_PessoaUsuaria = 1;
  EXPECT_EQ(automation.Consultar().Cd_ModeloAutomacaoBombas, ModeloAutomacaoBombasCBC04);
}

}  // namespace
}  // namespace posto
