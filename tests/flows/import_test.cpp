#include <gtest/gtest.h>

#include <map>

#include "flows/import_readings.h"
#include "flows/position.h"
#include "posto/services/csv.h"
#include "posto/types/number_pattern.h"
#include "tests/flows/cut.h"

namespace posto::flows {
namespace {

constexpr const char* kHeader = "bico,contador,termino,segundos,litros,preco,total,encerrante\n";

std::string number(double value, const char* pattern) { return format_number(value, pattern, kPointLocale); }

// The rows of a file of expected figures, without its header.
std::vector<std::vector<std::string>> expected(const std::string& file) {
  std::vector<std::vector<std::string>> rows;
  LineFile lines(kSample + "/esperado/" + file);
  std::string line;
  for (lines.next(line); lines.next(line);) rows.push_back(*split_csv(line));
  return rows;
}

class ImportTest : public ::testing::Test {
 protected:
  ImportResult import(const std::string& lines) {
    return import_readings(station_, folder_.write("leituras.csv", kHeader + lines));
  }
  std::string rows(const std::string& query) { return rows_of(station_.connection(), query); }

  TemporaryFolder folder_;
  StationDatabase database_;
  Station station_ = database_.registered();
};

// The figures were worked out by a model on exact decimals: sample/esperado tells how.
TEST_F(ImportTest, TheSampleDayGivesTheExpectedFigures) {
  std::filesystem::copy(kSample + "/leituras.csv", folder_ / "leituras.csv");
  const ImportResult result = import_readings(station_, folder_ / "leituras.csv");
  EXPECT_EQ(result.read, 611u);
  EXPECT_EQ(result.stored, 600u);
  EXPECT_EQ(result.repeated, 1u);
  EXPECT_EQ(result.rejected, 10u);

  std::map<std::string, NozzlePosition> nozzles;
  for (auto& p : nozzle_positions(station_, kFirstDay, kFirstDay)) nozzles[p.address] = p;
  for (const auto& row : expected("encerrantes.csv")) {
    const NozzlePosition& p = nozzles.at(row[0]);
    EXPECT_EQ(number(p.opening, "0.000"), row[1]) << row[0];
    EXPECT_EQ(number(p.closing, "0.000"), row[2]) << row[0];
    EXPECT_EQ(number(p.litres, "0.000"), row[3]) << row[0];
    EXPECT_EQ(format_number(p.sales, "0.00", kPointLocale), row[4]) << row[0];
    EXPECT_LT(std::abs(p.difference()), 0.0005) << row[0];
  }
  std::map<std::string, ProductPosition> products;
  for (auto& p : product_positions(station_, Date::of_day(2026, 11, 1), kFirstDay)) products[p.bar_code] = p;
  for (const auto& row : expected("estoque.csv")) {
    const ProductPosition& p = products.at(row[0]);
    EXPECT_EQ(number(p.in, "0.000"), row[2]) << row[1];
    EXPECT_EQ(number(p.out, "0.000"), row[3]) << row[1];
    EXPECT_EQ(number(p.stock, "0.000000"), row[4]) << row[1];
    EXPECT_EQ(number(p.cost, "0.000000"), row[5]) << row[1];
    EXPECT_EQ(number(p.icms_credit, "0.000000"), row[6]) << row[1];
  }
  EXPECT_EQ(rows("SELECT Count(*) FROM Cardex WHERE No_Tipo = 20"), "600\n");
}

TEST_F(ImportTest, ASecondImportStoresNothingAgain) {
  std::filesystem::copy(kSample + "/leituras.csv", folder_ / "leituras.csv");
  import_readings(station_, folder_ / "leituras.csv");
  const std::string before = state_of(station_.connection());
  const ImportResult again = import_readings(station_, folder_ / "leituras.csv");
  EXPECT_EQ(again.stored, 0u);
  EXPECT_EQ(again.repeated, 601u);
  EXPECT_EQ(again.rejected, 10u);
  EXPECT_TRUE(state_of(station_.connection()) == before);
}

TEST_F(ImportTest, AReadingBecomesAFuellingAndALedgerMovement) {
  // nozzle 08 stands at 508214.603; 10 litres of product 2 at 6.399
  import("08,7,2026-11-23 08:00:05,40,10.000,6.399,63.99,508224.603\n");
  EXPECT_EQ(rows("SELECT Cd_Abastecimento, Tp_OrigemRegistro, No_Contador, Dt_Termino, Qt_TempoSegundos, Qt_Litros, "
                 "Vl_Preco, Vl_Total, "
                 "No_EncerranteFechamento, Ic_Baixado FROM Abastecimento"),
            "1,1,7,2026-11-23 08:00:05,40,10,6.399,63.99,508224.603,False\n");
  EXPECT_EQ(
      rows(
          "SELECT Dt_Emissao, Nm_Doc, No_Tipo, Qt_Unidade, Cd_SisTubulacao, Cd_Produto FROM Cardex WHERE No_Tipo = 20"),
      "2026-11-23 00:00:00,AB 1,20,10,2,2\n");
  EXPECT_EQ(rows("SELECT No_UltEncerrante, No_UltEncerranteAutomacao FROM Bomba WHERE De_EnderecoLogicoBico = '08'"),
            "508224.603,508224.603\n");
}

TEST_F(ImportTest, RejectedLinesKeepTheirNumberReasonAndText) {
  const ImportResult result = import(
      "08,7,2026-11-23 08:00:05,40,10.000,6.399,63.99,508224.603\n"
      "08,8,2026-11-23 08:10:00,40,1.000,6.399,6.40,508224.603\n"  // the reading of the line before, other figures
      "88,1,2026-11-23 08:11:00,40,10.000,6.399,63.99,100.000\n"
      "08,9,2026-11-23 08:12:00,40,5.000,6.399,32.00,508229.603\n");
  EXPECT_EQ(result.stored, 2u);
  EXPECT_EQ(result.rejected, 2u);
  LineFile rejected(result.rejected_file);
  std::string header, first, second;
  ASSERT_TRUE(rejected.next(header) && rejected.next(first) && rejected.next(second));
  EXPECT_EQ(header, "linha,motivo,conteudo");
  EXPECT_EQ(split_csv(first)->at(0), "3");
  EXPECT_EQ(split_csv(first)->at(1), "encerrante já registrado com outros valores");
  EXPECT_EQ(split_csv(second)->at(2), "88,1,2026-11-23 08:11:00,40,10.000,6.399,63.99,100.000");
  // a later import without a bad line leaves no stale file
  EXPECT_TRUE(import("08,10,2026-11-23 08:13:00,40,5.000,6.399,32.00,508234.603\n").rejected_file.empty());
  EXPECT_FALSE(std::filesystem::exists(result.rejected_file));
}

TEST_F(ImportTest, AFileThatIsNoFileOfReadingsIsRefused) {
  const std::string file = folder_.write("outro.csv", "codigo,nome\n1,x\n");
  EXPECT_THROW(import_readings(station_, file), Erro);
  EXPECT_THROW(import_readings(station_, folder_ / "nenhum.csv"), Erro);
  EXPECT_EQ(rows("SELECT Count(*) FROM Abastecimento"), "0\n");
}

// Whatever statement the import is cut at, only whole fuellings stand there.
TEST(Import, ACutImportRunAgainEndsLikeAnUncutOne) {
  TemporaryFolder folder;
  const std::string readings =
      folder.write("leituras.csv", std::string(kHeader) +
                                       "08,7,2026-11-23 08:00:05,40,10.000,6.399,63.99,508224.603\n"
                                       "04,1,2026-11-23 08:01:00,30,2.500,6.199,15.50,1284563.827\n"
                                       "08,8,2026-11-23 08:10:00,40,5.000,6.399,32.00,508229.603\n"
                                       "99,8,2026-11-23 08:10:00,40,5.000,6.399,32.00,508229.603\n");
  for (const char* file : {"empresa.csv", "grupos.csv", "produtos.csv", "tubulacoes.csv", "bicos.csv"}) {
    std::filesystem::copy(kSample + "/cadastro/" + file, folder / file);
  }
  cut_everywhere({.fill = [&](Station& station) { register_station(station, folder / "."); },
                  .work = [&](Station& station) { import_readings(station, readings); },
                  .state = state_of,
                  .check_cut =
                      [](Connection& connection) {
                        EXPECT_EQ(rows_of(connection, "SELECT Count(*) FROM Abastecimento"),
                                  rows_of(connection, "SELECT Count(*) FROM Cardex WHERE No_Tipo = 20"));
                      }});
}

}  // namespace
}  // namespace posto::flows
