#include "flows/registration.h"

#include <gtest/gtest.h>

#include "posto/types/erro.h"
#include "tests/flows/sample_station.h"

namespace posto::flows {
namespace {

TEST(Registration, ASecondTimeAddsNothing) {
  StationDatabase database;
  Station station = database.registered();
  register_station(station,
                   kSample + "/cadastro");  // a nozzle is changed field by field: zeros stand where nulls stood
  const std::string before = state_of(station.connection());
  for (const Registered& r : register_station(station, kSample + "/cadastro")) EXPECT_EQ(r.added, 0u) << r.file;
  EXPECT_TRUE(state_of(station.connection()) == before);
}

TEST(Registration, PurchasesMoveStockAndAverages) {
  TemporaryFolder folder;
  StationDatabase database;
  Station station = database.registered();
  folder.write("compras.csv",
               "data,documento,produto,quantidade,custo_unitario,aliquota_icms\n"
               "2026-11-24,NF 1,7890000000208,1,10,0\n"  // a service has no stock
               "2026-11-24,NF 7,7890000000123,10,41.73,18\n");
  register_station(station, folder / ".");
  // 10 at 61.73 in stock, 10 more at 41.73
  EXPECT_EQ(rows_of(station.connection(),
                    "SELECT Qt_Estoque, Vl_CustoMedio FROM Produto WHERE Cd_CodBarras = '7890000000123'"),
            "20,51.73\n");
  EXPECT_EQ(rows_of(station.connection(), "SELECT Qt_Estoque FROM Produto WHERE Cd_CodBarras = '7890000000208'"),
            "0\n");
}

TEST(Registration, AFaultNamesFileAndLineAndNothingIsRegistered) {
  struct {
    const char* file;
    const char* content;
    const char* message;
  } cases[] = {
      {"grupos.csv", "nome\n\n   \nA\n\"B\n", "grupos.csv, linha 5: aspas sem par"},
      {"grupos.csv", "titulo\nA\n", "grupos.csv, linha 1: o cabeçalho não é nome"},
      {"bicos.csv", "bico,endereco,produto,tubulacao,encerrante_inicial,bomba,descricao\n1,04,nenhum,1,0,B,D\n",
       "bicos.csv, linha 2: produto desconhecido: nenhum"},
      {"bicos.csv",
       "bico,endereco,produto,tubulacao,encerrante_inicial,bomba,descricao\n300,04,7890000000017,1,0,B,D\n",
       "bicos.csv, linha 2: bico inválido: '300' (de 1 a 255)"},
      {"compras.csv",
       "data,documento,produto,quantidade,custo_unitario,aliquota_icms\n2026-11-24,NF D'OURO,7890000000017,1,1,0\n",
       "compras.csv, linha 2: documento com apóstrofo: NF D'OURO"},
      {"compras.csv",
       "data,documento,produto,quantidade,custo_unitario,aliquota_icms\n2026-02-30,NF,7890000000017,1,1,0\n",
       "compras.csv, linha 2: data não é uma data (aaaa-mm-dd): '2026-02-30'"},
      {"Feriado.csv", "Dt_Feriado,Nome\n2027-01-25,X\n", "Feriado.csv, linha 2: coluna desconhecida: Nome"},
      {"Veiculo.csv", "Cd_Veiculo,cliente\nABC1D23,123\n", "Veiculo.csv, linha 2: cliente desconhecido: 123"},
      {"Cliente.csv", "Cd_CgcCpf,Nm_Pessoa\n,SEM NÚMERO\n", "Cliente.csv, linha 2: Cd_CgcCpf em branco"},
      {"Banco.csv", "Cd_Banco,Nm_Banco\n40000,LONGE\n",
       "Banco.csv, linha 2: Cd_Banco inválido: '40000' (de -32768 a 32767)"},
      {"ConPag.csv", "Cd_ConPag,Nm_ConPag\n77,A PRAZO\n", "ConPag.csv, linha 2: o banco deu o código 5 em lugar de 77"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.content);
    TemporaryFolder folder;
    StationDatabase database;
    Station station = database.registered();
    const std::string before = state_of(station.connection());
    folder.write(c.file, c.content);
    try {
      register_station(station, folder / ".");
      ADD_FAILURE() << "no fault";
    } catch (const Erro& failure) {
      EXPECT_EQ(failure.description(), c.message);
    }
    EXPECT_TRUE(state_of(station.connection()) == before);
    EXPECT_EQ(rows_of(station.connection(), "SELECT Count(*) FROM GrupoProduto"), "3\n");
  }
}

// The first of these customers is a person already, as employee; a vehicle and a bill name their customer by tax
// number.
TEST(Registration, RecordsAreNamedAfterTheirTables) {
  TemporaryFolder folder;
  StationDatabase database;
  Station station = database.registered();
  folder.write("Funcionario.csv", "Cd_CgcCpf,Nm_Pessoa,Dt_Admissao\n52998224725,ANA,2020-01-15\n");
  folder.write("Cliente.csv",
               "Cd_CgcCpf,Vl_LimiteCredito,No_Telefone\n52998224725,1500.50,\n11144477735,,3534001122\n");
  folder.write("Veiculo.csv",
               "Cd_Veiculo,cliente,produto,Qt_CapacidadeTanque\nABC1D23,52998224725,7890000000017,54.5\n");
  folder.write("CondEspecialPreco.csv", "cliente,produto,Tp_Condicao,Vl_Alteracao\n52998224725,7890000000017,11,2.5\n");
  folder.write("Feriado.csv", "Dt_Feriado,Nm_Feriado\n2027-01-25,ANIVERSÁRIO\n");
  for (bool first : {true, false}) {
    for (const Registered& r : register_station(station, folder / ".")) {
      EXPECT_EQ(r.added > 0, first && r.found) << r.file;
    }
    EXPECT_EQ(rows_of(station.connection(), R"(
        SELECT   Pessoa.Nm_Pessoa, Cliente.Vl_LimiteCredito, Funcionario.Dt_Admissao, Veiculo.Qt_CapacidadeTanque,
                 CondEspecialPreco.Vl_Alteracao, Produto.Cd_CodBarras
        FROM     Pessoa
                 INNER JOIN Cliente On Pessoa.Cd_Pessoa = Cliente.Cd_Cliente
                 INNER JOIN Funcionario On Pessoa.Cd_Pessoa = Funcionario.Cd_Funcionario
                 INNER JOIN Veiculo On Veiculo.Cd_Cliente = Cliente.Cd_Cliente
                 INNER JOIN CondEspecialPreco On CondEspecialPreco.Cd_Cliente = Cliente.Cd_Cliente
                 INNER JOIN Produto On CondEspecialPreco.Cd_Produto = Produto.Cd_Produto
        WHERE    Pessoa.Cd_CgcCpf = '52998224725')"),
              "ANA,1500.5,2020-01-15 00:00:00,54.5,2.5,7890000000017\n");
  }
}

}  // namespace
}  // namespace posto::flows
