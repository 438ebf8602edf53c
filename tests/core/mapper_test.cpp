#include "posto/core/mapper.h"

#include <cstddef>

#include "posto/schema/forecourt.h"
#include "tests/core/failures.h"
#include "tests/support/database.h"

namespace posto {
namespace {

// Cidade seen by a value object that has other types than the columns and a property more.
struct City {
  std::int32_t Cd_Cidade = 7;
  std::int32_t Nm_Cidade = 8;
  std::uint8_t Cd_UF = 9;
  std::string Nm_Prefeito = "Maria";
};
constexpr Property kCity[] = {{"Cd_Cidade", SqlType::int32, 0, offsetof(City, Cd_Cidade)},
                              {"Nm_Cidade", SqlType::int32, 0, offsetof(City, Nm_Cidade)},
                              {"Cd_UF", SqlType::byte, 0, offsetof(City, Cd_UF)},
                              {"Nm_Prefeito", SqlType::text, 0, offsetof(City, Nm_Prefeito)}};

class MapperTest : public DatabaseTest {
 protected:
  Recordset open(const std::string& source) {
    Recordset record;
    record.ActiveConnection(settings_->ObConnection);
    record.Source = source;
    record.CursorType = adOpenKeyset;
    record.LockType = adLockOptimistic;
    record.Open();
    return record;
  }
  // Adds a record of the table with what the value object holds.
  template <class VO>
  void insert(const std::string& table, VO& vo) {
    Recordset record = open(table);
    record.AddNew();
    TransferirDadosDeVOParaBd(*settings_, by_name(vo), record);
    record.Update();
  }

  City city_;
  VoLayout layout_{"VOCity", kCity, [](void* object) { *static_cast<City*>(object) = {}; }};
  ValueObject by_city_{&city_, layout_};
};

TEST_F(MapperTest, DatesBefore1900AreNull) {
  struct {
    Date date;
    const char* stored;
  } const cases[] = {{Date(), "-\n"},
                     {Date::of_day(1899, 12, 31), "-\n"},
                     {Date::of_day(1900, 1, 1), "1900-01-01 00:00:00\n"},
                     {Date::of_day(2026, 11, 24), "2026-11-24 00:00:00\n"}};
  for (const auto& c : cases) {
    VOAbastecimento fuelling;
    fuelling.Cd_Abastecimento = 1;
    fuelling.Dt_Termino = c.date;
    insert("Abastecimento", fuelling);
    EXPECT_EQ(rows("SELECT Dt_Termino FROM Abastecimento"), c.stored);
    EXPECT_EQ(fuelling.Dt_Termino, c.date);  // the value object keeps it
    run("DELETE FROM Abastecimento");
  }
}

TEST_F(MapperTest, CodesOfZeroAreNullAndTheCompanyIsFilledIn) {
  VOBomba nozzle;  // Cd_Produto 0, Cd_Veiculo "", Cd_PessoaUsuaria 0
  nozzle.Cd_Bomba = 1;
  insert("Bomba", nozzle);
  nozzle.Cd_PessoaUsuaria = 2;
  nozzle.Cd_Produto = 5;
  nozzle.Cd_Veiculo = "ABC1234";
  insert("Bomba", nozzle);
  // what is no code stays zero or empty
  EXPECT_EQ(rows("SELECT Cd_PessoaUsuaria, Cd_Produto, Cd_Veiculo, No_UltEncerrante, De_Status, Vl_Desconto FROM Bomba "
                 "ORDER BY Cd_PessoaUsuaria"),
            "1,-,-,0,,0\n2,5,ABC1234,0,,0\n");
}

TEST_F(MapperTest, TextsAreCutAtTheWidthOfTheirColumn) {
  VOBairro district;
  std::string sixty;
  for (int i = 0; i < 60; ++i) sixty += "ã";  // characters count, not bytes
  district.Nm_Bairro = sixty + "x";
  insert("Bairro", district);
  EXPECT_EQ(rows("SELECT Nm_Bairro FROM Bairro"), sixty + "\n");
}

TEST_F(MapperTest, AGeneratedColumnIsLeftAloneAndRead) {
  run("INSERT INTO Bairro (Nm_Bairro) Values ('um') INSERT INTO Bairro (Nm_Bairro) Values ('dois')");
  VOBairro district{.Cd_Bairro = 99, .Nm_Bairro = "novo"};
  Recordset record = open("SELECT * FROM Bairro WHERE Cd_Bairro = 2");
  TransferirDadosDeVOParaBd(*settings_, by_name(district), record);
  record.Update();
  EXPECT_EQ(district.Cd_Bairro, 2);
  EXPECT_EQ(rows("SELECT * FROM Bairro"), "1,um\n2,novo\n");
  // of a new record there is nothing to read yet
  district.Cd_Bairro = 99;
  insert("Bairro", district);
  EXPECT_EQ(district.Cd_Bairro, 99);

  district.Cd_Bairro = 99;
  constexpr std::string_view kSequence[] = {"Cd_Bairro"};
  EXPECT_TRUE(pegarValorCamposSequencial(by_name(district), kSequence, record));
  EXPECT_EQ(district.Cd_Bairro, 2);
  constexpr std::string_view kUnknown[] = {"Nada"};
  expect_failure(erro::kNoSuchItem, "ADODB.Recordset -> DALModulo.pegarValorCamposSequencial, ",
                 [&] { pegarValorCamposSequencial(by_name(district), kUnknown, record); });
}

TEST_F(MapperTest, OnlyWhatBothSidesHaveIsMoved) {
  run("INSERT INTO Cidade (Nm_Cidade, Cd_UF) Values ('Ubá', 31)");
  Recordset record = open("SELECT Cd_Cidade, 'x' AS Nm_Prefeit, Nm_Cidade, Cd_UF, Null AS Nm_Prefeito FROM Cidade");
  read_record(record, by_city_);
  EXPECT_EQ(city_.Cd_Cidade, 1);
  EXPECT_EQ(city_.Nm_Cidade, 8);          // "Ubá" is no number: passed over, and the next field is read
  EXPECT_EQ(city_.Cd_UF, 31);             // of another type, converted
  EXPECT_EQ(city_.Nm_Prefeito, "Maria");  // a null

  run("UPDATE Cidade SET Cd_UF = 256");
  record = open("SELECT * FROM Cidade");
  EXPECT_EQ(failure_of([&] { read_record(record, by_city_); }).value().number(), erro::kOverflow);

  // the other way: a text into a whole number cannot be, and the rest is written
  VOBairro district{.Cd_Bairro = 1, .Nm_Bairro = "não"};
  run("INSERT INTO SequenciadorGeral (Nm_Atributo, No_Sequencial) Values ('a', 4)");
  struct Sequence {
    std::string Nm_Atributo = "b", No_Sequencial = "quatro";
  } sequence;
  constexpr Property kSequence[] = {{"No_Sequencial", SqlType::text, 0, offsetof(Sequence, No_Sequencial)},
                                    {"Nm_Atributo", SqlType::text, 0, offsetof(Sequence, Nm_Atributo)}};
  VoLayout layout("VOSequence", kSequence, [](void*) {});
  record = open("SELECT No_Sequencial, Nm_Atributo FROM SequenciadorGeral");
  TransferirDadosDeVOParaBd(*settings_, {&sequence, layout}, record);
  record.Update();
  EXPECT_EQ(rows("SELECT * FROM SequenciadorGeral"), "b,4\n");
}

TEST_F(MapperTest, AnyOtherFailureNamesTheRoutine) {
  VOBairro district{.Cd_Bairro = 1, .Nm_Bairro = "x"};
  run("INSERT INTO Bairro (Nm_Bairro) Values ('um')");
  Recordset record = connection().Execute("SELECT * FROM Bairro");  // read-only
  expect_failure(erro::kNotSupported, "ADODB.Recordset -> DALModulo.TransferirDadosDeVOParaBd, ",
                 [&] { TransferirDadosDeVOParaBd(*settings_, by_name(district), record); });
}

}  // namespace
}  // namespace posto
