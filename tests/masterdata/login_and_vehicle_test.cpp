#include "posto/masterdata/DALEmpenho.h"
#include "posto/masterdata/DALUsuario.h"
#include "posto/masterdata/DALVeiculo.h"
#include "posto/masterdata/catalogue.h"
#include "tests/masterdata/masterdata_test.h"

namespace posto {
namespace {

class LoginTest : public MasterdataTest {
 protected:
  LoginTest() {
    for (const char* row :
         {"1, 3, 'MARIA', 'cifra3', 30", "1, 4, 'JOSE', 'cifra4', 40", "2, 5, 'MARIA', 'cifra5', 30"}) {
      run(
          fmt::format("INSERT INTO Usuario (Cd_PessoaUsuaria, Cd_Usuario, Nm_Usuario, Ds_CriptoSenha, Cd_Funcionario) "
                      "Values ({})",
                      row));
    }
  }
  DALUsuario login_{settings_};
};

TEST_F(LoginTest, TakesTheFirstRoadWhoseKeysAreAllGiven) {
  const struct {
    const char* road;
    int company, code;
    const char *name, *password;
    int employee;
    int found;  // 0: refused
  } cases[] = {{"code, whatever else is said", 1, 3, "JOSE", "errada", 40, 3},
               {"name and password", 1, 0, "MARIA", "cifra3", 0, 3},
               {"name and password before the employee's", 1, 0, "MARIA", "cifra4", 40, 0},
               {"name and password of another company", 2, 0, "MARIA", "cifra3", 0, 0},
               {"employee and password", 1, 0, "", "cifra4", 40, 4},
               {"employee and a wrong password", 1, 0, "", "cifra3", 40, 0},
               {"name alone", 2, 0, "MARIA", "", 0, 5},
               {"name alone, with an employee", 1, 0, "JOSE", "", 30, 4},
               {"nobody's name", 1, 0, "ANA", "", 0, 0}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.road);
    *login_.ObVO = {};
    login_.ObVO->Cd_PessoaUsuaria = c.company;
    login_.ObVO->Cd_Usuario = c.code;
    login_.ObVO->Nm_Usuario = c.name;
    login_.ObVO->Ds_CriptoSenha = c.password;
    login_.ObVO->Cd_Funcionario = c.employee;
    if (c.found != 0) {
      EXPECT_EQ(login_.Consultar().Cd_Usuario, c.found);
      continue;
    }
    const auto failure = failure_of([&] { login_.Consultar(); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), erro::kRecordNotFound);
    EXPECT_EQ(failure->description(), "Senha ou usuario invalido");
    EXPECT_EQ(failure->source(), " -> DALUsuario.Consultar,  -> DALUsuario.Consultar");
    EXPECT_EQ(login_.ObVO->Nm_Usuario, c.name);
    EXPECT_TRUE(failure_of([&] { login_.Consultar(true); }));
    EXPECT_EQ(login_.ObVO->Cd_PessoaUsuaria, 0);
  }
}

TEST_F(LoginTest, NeedsMoreThanACompanyAndChangesByCodeOnly) {
  login_.ObVO->Cd_PessoaUsuaria = 1;
  login_.ObVO->Ds_CriptoSenha = "cifra3";
  expect_failure(erro::kMissingKey, " -> DALUsuario.Consultar,  -> DALUsuario.Consultar", [&] { login_.Consultar(); });
  login_.ObVO->Nm_Usuario = "MARIA";
  expect_failure(erro::kMissingKey, " -> DALUsuario.Alterar,  -> DALUsuario.Alterar", [&] { login_.Alterar(true); });
}

class VehicleTest : public MasterdataTest {
 protected:
  VehicleTest() {
    vehicle_.ObVO->Cd_PessoaUsuaria = 1;
    vehicle_.ObVO->Cd_Veiculo = "ABC1234";
  }
  DALVeiculo vehicle_{settings_};
};

TEST_F(VehicleTest, AccumulatesTheMonthsCreditSalesAndItsConsumption) {
  vehicle_.Incluir();
  vehicle_.Ic_CalculadoAcumuloNaConsulta = true;
  EXPECT_EQ(vehicle_.Consultar().Vl_AcumuloAFaturar, Currency());
  EXPECT_EQ(vehicle_.ObVO->Qt_ConsumoMedio, 0.0);

  const Sale sales[] = {{.number = 1, .kind = 10, .total = "1.10", .vehicle = "ABC1234", .billed_on = "2026-11-01"},
                        {.number = 2, .kind = 19, .total = "2.20", .vehicle = "ABC1234", .billed_on = "2026-11-30"},
                        {.number = 3, .total = "4", .vehicle = "ABC1234", .billed_on = "2026-10-31"},
                        {.number = 4, .total = "8", .vehicle = "ABC1234", .billed_on = "2026-12-01"},
                        {.number = 5, .kind = 20, .total = "16", .vehicle = "ABC1234"},
                        {.number = 6, .state = "S", .total = "32", .vehicle = "ABC1234"},
                        {.number = 7, .total = "64", .vehicle = "XYZ9999"},
                        {.number = 8, .total = "128", .vehicle = "ABC1234", .company = 2}};
  for (const Sale& sale : sales) add_sale(sale);
  add_line(1, 1, 5, "10", "9.5");
  add_line(2, 1, 5, "10", "10.5");
  add_line(2, 2, 6, "1", "Null");  // a line without a figure counts for nothing
  add_line(7, 1, 5, "10", "3");
  vehicle_.Consultar();
  EXPECT_EQ(vehicle_.ObVO->Vl_AcumuloAFaturar, money("3.3"));  // 1.10 + 2.20, of November
  EXPECT_EQ(vehicle_.ObVO->Qt_ConsumoMedio, 10.0);             // (9.5 + 10.5) / 2

  const ClockOverride new_year_s_eve(Date::of_day(2026, 12, 31));
  vehicle_.VerificarAcumulos();
  EXPECT_EQ(vehicle_.ObVO->Vl_AcumuloAFaturar, money("8"));

  EXPECT_EQ(text_of(vehicle_.Rs_AbastecimentosVeiculoNoDia(Date::of_day(2026, 11, 20))).substr(0, 6), "1,1,1,");
  EXPECT_TRUE(vehicle_.Rs_AbastecimentosVeiculoNoDia(today()).EOF());
}

TEST_F(VehicleTest, CommitmentsHaveTheirLinesWithNames) {
  add_product(5, "Gasolina", "2.499");
  DALEmpenho commitment(settings_);
  commitment.ObVO->Cd_PessoaUsuaria = 1;
  commitment.ObVO->Cd_Cliente = 7;
  commitment.ObVO->Id_Empenho = "NE1";
  commitment.Incluir();
  for (const char* line : {"1, 7, 'NE1', 2, 5", "1, 7, 'NE1', 1, 5", "1, 7, 'NE2', 1, 5", "1, 8, 'NE1', 1, 5"}) {
    run(
        fmt::format("INSERT INTO ItemEmpenho (Cd_PessoaUsuaria, Cd_Cliente, Id_Empenho, No_Item, Cd_Produto) "
                    "Values ({})",
                    line));
  }
  std::string lines;
  for (Recordset rs = commitment.rsItens(); !rs.EOF(); rs.MoveNext()) {
    lines += rs["No_Item"].as<std::string>() + rs["Nm_Produto"].as<std::string>() + " ";
  }
  EXPECT_EQ(lines, "1Gasolina 2Gasolina ");
}

TEST_F(VehicleTest, AStreetExistsByItsCode) {
  DALLogradouro street(settings_);
  street.ObVO->Cd_Logradouro = 4;
  EXPECT_FALSE(street.Existe());
  street.Incluir();
  EXPECT_TRUE(street.Existe());
}

}  // namespace
}  // namespace posto
