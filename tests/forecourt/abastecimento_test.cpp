#include "posto/forecourt/DALAbastecimento.h"
#include "posto/services/clock.h"
#include "tests/flows/failing_engine.h"
#include "tests/forecourt/forecourt_test.h"

namespace posto {
namespace {

constexpr const char* kEnd = "2026-11-24 10:00:00";

class AbastecimentoTest : public ForecourtTest {
 protected:
  void ask_for(int code, std::string_view address = "", double reading = 0) {
    *fuelling_.ObVO = {};
    fuelling_.ObVO->Cd_PessoaUsuaria = 1;
    fuelling_.ObVO->Cd_Abastecimento = code;
    fuelling_.ObVO->De_EnderecoLogicoBico = address;
    fuelling_.ObVO->No_EncerranteFechamento = reading;
  }
  // A coupon line that holds the fuelling.
  void sell(int code, int coupon) {
    run(
        fmt::format("INSERT INTO ItemCupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, "
                    "No_Item, Cd_Abastecimento) Values (1, 1, {}, '2026-11-24', 1, {})",
                    coupon, code));
  }

  DALAbastecimento fuelling_{settings_};
  DALAbastecimentos fuellings_{settings_};
};

TEST_F(AbastecimentoTest, IsFoundByCodeAndOtherwiseByNozzleAndReading) {
  add(fuelling(7, kEnd));  // its reading is 1007.5
  VOAbastecimento fine = fuelling(8, kEnd);
  fine.No_EncerranteFechamento = 1008.25;
  add(fine);
  struct {
    int code;
    const char* address;
    double reading;
    std::int32_t failure;
  } cases[] = {{7, "", 0, 0},
               {7, "99", 5, 0},  // the code alone decides
               {0, "04", 1007.5, 0},
               {0, "06", 1007.5, erro::kRecordNotFound},
               {0, "04", 1008.25, erro::kRecordNotFound},  // compared with one decimal: 1008.3
               {0, "04", 0, erro::kMissingKey},            // no delivery ends at 0
               {0, "", 1007.5, erro::kMissingKey},
               {9, "04", 1007.5, erro::kRecordNotFound}};
  for (const auto& c : cases) {
    SCOPED_TRACE(fmt::format("{} {} {}", c.code, c.address, c.reading));
    for (bool reading : {true, false}) {
      if (reading || c.failure != 0) ask_for(c.code, c.address, c.reading);
      const auto failure = failure_of([&] { reading ? void(fuelling_.Consultar()) : fuelling_.Alterar(true); });
      ASSERT_EQ(failure ? failure->number() : 0, c.failure);
      if (c.failure == erro::kRecordNotFound) {
        EXPECT_EQ(failure->description(), "Registro nao encontrado(Abastecimento)");
      } else if (c.failure == 0) {
        EXPECT_EQ(fuelling_.ObVO->Cd_Abastecimento, 7);
        EXPECT_EQ(fuelling_.ObVO->No_EncerranteFechamento, 1007.5);
      }
    }
  }
  ask_for(0, "04", 1007.5);
  fuelling_.ObVO->No_Hodometro = 99;
  fuelling_.Alterar();
  EXPECT_EQ(rows("SELECT Cd_Abastecimento, No_Hodometro FROM Abastecimento ORDER BY Cd_Abastecimento"), "7,99\n8,0\n");
  EXPECT_EQ(fuelling_.ObVO->Cd_Abastecimento, 7);  // the code is the record's
}

TEST_F(AbastecimentoTest, IsDeletedByItsCodeOnly) {
  add(fuelling(7, kEnd));
  ask_for(0, "04", 1007.5);
  expect_failure(erro::kMissingKey, " -> DALAbastecimento.Excluir,  -> DALAbastecimento.Excluir",
                 [&] { fuelling_.Excluir(); });
  EXPECT_EQ(fuelling_.ObVO->De_EnderecoLogicoBico, "");
  ask_for(7);
  fuelling_.Excluir();
  EXPECT_EQ(rows("SELECT Cd_Abastecimento FROM Abastecimento"), "");
}

TEST_F(AbastecimentoTest, IsInsertedWithEveryLiteralInItsPlace) {
  VOAbastecimento& v = *fuelling_.ObVO;
  EXPECT_EQ(fuelling_.instrucaoInsert(),
            "INSERT INTO Abastecimento (Cd_PessoaUsuaria,Tp_OrigemRegistro,No_Contador,Dt_Termino,Qt_TempoSegundos,"
            "Qt_Litros,Qt_LitrosAutomacao,Vl_Preco,Vl_Total,De_EnderecoLogicoBico,No_EncerranteFechamento,Cd_Caixa,"
            "Cd_Veiculo,No_TipoPagamento,Ic_BaixaAutomatica,Cd_Abastecimento,Ic_Baixado,Fl_TipoPedidoFeitoAutomacao,"
            "No_TipoVencimento,Ic_Afericao,Cd_Cmc7,Tx_DescontoAbastecimento,No_Hodometro) Values "
            "(0,0,0,'1899-12-30 00:00:00',0,0.00000000,0.00000000,0.000,0.000,'',0.00000000,Null,"
            "Null,0,0,0,0,0,0,0,Null,0.000,0)");
  v.Cd_PessoaUsuaria = 1;
  v.Tp_OrigemRegistro = Tp_OrigemRegistroDigitado;
  v.No_Contador = -2;
  v.Dt_Termino = moment("2026-11-24 06:12:40");
  v.Qt_TempoSegundos = 95;
  v.Qt_Litros = 21.345F;
  v.Qt_LitrosAutomacao = 123.456F;
  v.Vl_Preco = Currency::of_scaled(61'995);  // 6.1995
  v.Vl_Total = Currency::of_scaled(1'323'200);
  v.De_EnderecoLogicoBico = "A4x";
  v.No_EncerranteFechamento = 1284582.672;
  v.Cd_Caixa = 87;
  v.Cd_Veiculo = "ABC1D23/SP";
  v.No_TipoPagamento = 2;
  v.Ic_BaixaAutomatica = true;
  v.Cd_Abastecimento = 4711;
  v.Ic_Baixado = true;
  v.Fl_TipoPedidoFeitoAutomacao = 1;
  v.No_TipoVencimento = 5;
  v.Ic_Afericao = true;
  v.Cd_Cmc7 = "2370245000180000115505603712345678";
  v.Tx_DescontoAbastecimento = Currency(1.5);
  v.No_Hodometro = 85210;
  const std::string statement = fuelling_.instrucaoInsert();
  EXPECT_EQ(statement.substr(statement.find(" Values ")),
            " Values (1,3,-2,'2026-11-24 06:12:40',95,21.34500000,123.45600000,6.200,132.320,'A4',1284582.67200000,"
            "87,'ABC1D23/',2,-1,4711,-1,1,5,-1,'237024500018000011550560371234',1.500,85210)");
  fuelling_.Incluir();
  EXPECT_EQ(fuelling_.statement(), statement);
  const VOAbastecimento given = v;
  ask_for(4711);
  fuelling_.Consultar();
  EXPECT_EQ(v.Qt_Litros, given.Qt_Litros);
  EXPECT_EQ(v.No_EncerranteFechamento, given.No_EncerranteFechamento);
  EXPECT_EQ(v.Dt_Termino, given.Dt_Termino);
  EXPECT_EQ(v.Vl_Preco, Currency(6.2));
  expect_failure(erro::kIntegrity, testing::provider() + " -> DALAbastecimento.Incluir", [&] { fuelling_.Incluir(); });
  ask_for(4712);
  v.Cd_Veiculo = "O'BRIEN";  // texts are not escaped
  expect_failure(erro::kSyntax, testing::provider() + " -> DALAbastecimento.Incluir", [&] { fuelling_.Incluir(); });
}

TEST_F(AbastecimentoTest, PostingDoesNotAskForTheTenant) {
  VOAbastecimento other = fuelling(7, kEnd);
  other.Cd_PessoaUsuaria = 2;
  add(fuelling(7, kEnd));
  add(fuelling(8, kEnd));
  add(other);
  ask_for(7);
  EXPECT_TRUE(fuelling_.BaixarAbastecimento());
  EXPECT_EQ(posted(), "7\n7\n");
}

TEST_F(AbastecimentoTest, PostingIsProvedByExactlyOneCouponLine) {
  constexpr const char* kSource = " -> DALAbastecimento.ConferirBaixa,  -> DALAbastecimento.ConferirBaixa";
  add(fuelling(7, kEnd));
  sell(8, 1);
  ask_for(7);
  auto none = failure_of([&] { fuelling_.ConferirBaixa(); });
  ASSERT_TRUE(none);
  EXPECT_EQ(none->number(), erro_number(0x80040660));
  EXPECT_EQ(none->description(), "Erro na conferencia da baixa, o abastecimento não foi baixado corretamente");
  EXPECT_EQ(none->source(), kSource);
  EXPECT_EQ(posted(), "");

  sell(7, 2);
  EXPECT_EQ(statements_of([&] { EXPECT_TRUE(fuelling_.ConferirBaixa()); }).size(), 1U);

  sell(7, 3);
  auto twice = failure_of([&] { fuelling_.ConferirBaixa(); });
  ASSERT_TRUE(twice);
  EXPECT_EQ(twice->number(), erro_number(0x8004026F));
  EXPECT_EQ(
      twice->description(),
      "Erro na conferencia da baixa, o abastecimento já foi baixado anteriormente, tente novamente, se o problema "
      "persistir solicite orientação ao suporte técnico.");
  EXPECT_EQ(twice->source(), kSource);
  EXPECT_EQ(posted(), "7\n");
}

// One fuelling that this computer has to post, and what keeps it from being posted.
TEST_F(AbastecimentoTest, TheNextToPostBelongsToThisComputerAndToAUserWhoMaySell) {
  struct {
    const char* what;
    const char* change;
    const char* found;
  } cases[] = {{"as it is", "", "7"},
               {"not marked", "UPDATE Abastecimento SET Ic_BaixaAutomatica = 0", ""},
               {"posted", "UPDATE Abastecimento SET Ic_Baixado = 1", ""},
               {"of another company", "UPDATE Abastecimento SET Cd_PessoaUsuaria = 2", ""},
               {"of another computer", "UPDATE Bomba SET Nm_ComputadorBaixaAutomatica = 'PISTA02'", ""},
               {"of a user who may not sell", "UPDATE Usuario SET FlMCupomFiscal_I = '0'", ""},
               {"without a shift", "UPDATE Abastecimento SET Cd_Caixa = Null", ""},
               {"of a shift without an employee", "UPDATE Caixa SET Cd_Funcionario = Null", ""},
               {"of an unknown employee", "DELETE FROM Funcionario", ""},
               {"of an employee who is no user", "DELETE FROM Usuario", ""},
               {"of an unknown nozzle", "DELETE FROM Bomba", ""}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    for (const char* table : {"Abastecimento", "Bomba", "Caixa", "Funcionario", "Usuario", "Pessoa"}) {
      run("DELETE FROM " + std::string(table));
    }
    add_nozzle(1, 3, "04");
    add_shift(87, 42);
    VOAbastecimento marked = fuelling(7, kEnd);
    marked.Cd_Caixa = 87;
    marked.Ic_BaixaAutomatica = true;
    add(marked);
    if (*c.change != '\0') run(c.change);
    settings_->Nm_Computador = "PISTA01";
    Recordset rs = fuelling_.ConsultarProximoAbastecimentosBaixaAutomatica();
    EXPECT_EQ(rs.ActiveConnection(), nullptr);
    if (!rs.EOF()) {
      EXPECT_EQ(rs["Cd_Usuario"].as<std::int32_t>(), 142);
      EXPECT_EQ(rs["Cd_Funcionario"].as<std::int32_t>(), 42);
      EXPECT_EQ(rs["Cd_Bomba"].as<std::int32_t>(), 3);
    }
    EXPECT_EQ(codes(std::move(rs)), c.found);
  }
}

TEST_F(AbastecimentoTest, TheNextToPostIsTheOldestAndMayBePostedForItsAge) {
  settings_->Nm_Computador = "PISTA01";
  add_nozzle(1, 3, "04");
  add_shift(87, 42);
  auto pending = [&](int code, const char* end, bool marked) {
    VOAbastecimento v = fuelling(code, end);
    v.Cd_Caixa = 87;
    v.Ic_BaixaAutomatica = marked;
    add(v);
  };
  pending(1, "2026-11-24 10:00:00", false);
  pending(2, "2026-11-24 10:04:59", true);
  pending(3, "2026-11-24 10:03:00", true);
  VOEmpresaUsuaria& company = *settings_->ObVOEmpresaUsuaria;
  company.Qt_SegundosBaixaAutomatica = 300;
  struct {
    bool by_age;
    const char* now;
    const char* found;
  } cases[] = {{false, "2026-11-24 12:00:00", "3"},
               {true, "2026-11-24 10:04:59", "3"},  // a second too young
               {true, "2026-11-24 10:05:00", "1"},
               {true, "2026-11-24 10:05:01", "1"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.now);
    company.Ic_BaixaAutomaticaPorTempo = c.by_age;
    ClockOverride clock(moment(c.now));
    EXPECT_EQ(codes(fuelling_.ConsultarProximoAbastecimentosBaixaAutomatica()), c.found);
  }
}

TEST_F(AbastecimentoTest, PendingFuellingsAreListedWithAndWithoutAShift) {
  add_nozzle(1, 3, "04");
  add_nozzle(1, 1, "06");
  add_nozzle(1, 2, "08");
  add_shift(87, 42);
  add_shift(88, 43);
  auto pending = [&](int code, const char* end, int shift, const char* address = "04") {
    VOAbastecimento v = fuelling(code, end);
    v.Cd_Caixa = shift;
    v.De_EnderecoLogicoBico = address;
    add(v);
  };
  // three of one moment: the lowest number of a nozzle comes first
  pending(5, "2026-11-24 10:00:00", 87);
  pending(6, "2026-11-24 10:00:00", 88, "06");
  pending(7, "2026-11-24 10:00:00", 88, "08");
  pending(4, "2026-11-24 11:00:00", 0);
  pending(3, "2026-11-24 09:00:00", 87, "99");  // no such nozzle
  VOAbastecimento other = fuelling(1, kEnd), done = fuelling(2, kEnd);
  other.Cd_PessoaUsuaria = 2;
  done.Ic_Baixado = true;
  add(other);
  add(done);

  EXPECT_EQ(codes(fuellings_.ConsultarAbastecimentoPendentesRs()), "4 6 7 5 3");
  EXPECT_EQ(codes(fuellings_.ConsultarAbastecimentoPendentesRs(0, false)), "3 6 7 5 4");
  EXPECT_EQ(codes(fuellings_.ConsultarAbastecimentoPendentesRs(42)), "5 3");
  EXPECT_EQ(codes(fuellings_.ConsultarAbastecimentoPendentesRs(42, false)), "3 5");
  EXPECT_EQ(codes(fuellings_.ConsultarAbastecimentoPendentesRs(99)), "");
  Recordset by_code = fuellings_.ConsultarAbastecimentoPendentesOrdenadoPorCodigoRs();
  EXPECT_EQ(by_code.ActiveConnection(), nullptr);
  EXPECT_EQ(by_code["Cd_Bomba"].as<std::int32_t>(), 2);
  EXPECT_EQ(by_code["Cd_Funcionario"].as<std::int32_t>(), 43);
  EXPECT_EQ(codes(std::move(by_code)), "7 6 5 4 3");
}

TEST_F(AbastecimentoTest, TheStatementInAnotherDialectIsRefusedUnderItsTraceName) {
  expect_failure(erro::kSyntax,
                 testing::provider() + " -> DALAbastecimentos.VeriricaAbastecimentosBaixadosSemEmissaoCupom",
                 [&] { fuellings_.VerificaAbastecimentosBaixadosSemEmissaoCupom(); });
  EXPECT_EQ(routines_.back(), "-DALAbastecimentos.VeriricaAbastecimentosBaixadosSemEmissaoCupom");
}

// A connection that breaks at a statement: each operation ends in the provider's failure, under its own name.
TEST_F(AbastecimentoTest, ABrokenConnectionIsReportedByTheOperationThatMetIt) {
  sell(7, 1);
  sell(7, 2);
  ask_for(7);
  struct {
    const char* step;
    std::function<void()> call;
    int fails_at = 1;
  } cases[] = {
      {"DALAbastecimento.Consultar", [&] { fuelling_.Consultar(); }},
      {"DALAbastecimento.Incluir", [&] { fuelling_.Incluir(); }},
      {"DALAbastecimento.BaixarAbastecimento", [&] { fuelling_.BaixarAbastecimento(); }},
      {"DALAbastecimento.ConferirBaixa", [&] { fuelling_.ConferirBaixa(); }},
      {"DALAbastecimento.ConferirBaixa", [&] { fuelling_.ConferirBaixa(); }, 2},  // while it marks the fuelling
      {"DALAbastecimento.ConsultarProximoAbastecimentosBaixaAutomatica",
       [&] { fuelling_.ConsultarProximoAbastecimentosBaixaAutomatica(); }},
      {"DALAbastecimentos.ConsultarAbastecimentoPendentesRs", [&] { fuellings_.ConsultarAbastecimentoPendentesRs(); }},
      {"DALAbastecimentos.ConsultarAbastecimentoPendentesRs",  // the name of its sister
       [&] { fuellings_.ConsultarAbastecimentoPendentesOrdenadoPorCodigoRs(); }},
  };
  // The engine is the connection's own: it lives as long as the connection that is wrapped.
  const std::shared_ptr<Engine> inner(settings_->ObConnection, &connection().engine());
  for (const auto& c : cases) {
    SCOPED_TRACE(c.step);
    settings_->ObConnection = Connection::create();
    settings_->ObConnection->Use(std::make_shared<FailingEngine>(inner, c.fails_at));
    expect_failure(erro::kProviderFailure, "FailingEngine -> " + std::string(c.step), c.call);
    EXPECT_EQ(routines_.back(), "-" + std::string(c.step));
  }
}

TEST_F(AbastecimentoTest, ItsNumberComesFromASequence) {
  EXPECT_TRUE(fuelling_.temCampoSequencial());
  EXPECT_EQ(fuelling_.nomeCamposSequencial(), std::vector<std::string>{"Cd_Abastecimento"});
  EXPECT_FALSE(DALBomba(settings_).temCampoSequencial());
}

}  // namespace
}  // namespace posto
