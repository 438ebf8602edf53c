#include "flows/registration.h"

#include <gtest/gtest.h>

#include "posto/types/erro.h"
#include "tests/flows/sample_station.h"

namespace posto::flows {
namespace {

TEST(Registration, ASecondTimeAddsNothing) {
  TemporaryFolder folder;
  Station station = registered_station(folder / "posto.db");
  register_station(station,
                   kSample + "/cadastro");  // a nozzle is changed field by field: zeros stand where nulls stood
  const std::string before = state_of(station.connection());
  for (const Registered& r : register_station(station, kSample + "/cadastro")) EXPECT_EQ(r.added, 0u) << r.file;
  EXPECT_TRUE(state_of(station.connection()) == before);
}

TEST(Registration, PurchasesMoveStockAndAverages) {
  TemporaryFolder folder;
  Station station = registered_station(folder / "posto.db");
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
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.content);
    TemporaryFolder folder;
    Station station = registered_station(folder / "posto.db");
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

}  // namespace
}  // namespace posto::flows
