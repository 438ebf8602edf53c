// Record sets: reading, moving, writing.
#include "posto/ado/recordset.h"

#include <gtest/gtest.h>

#include "tests/ado/station_database.h"

namespace posto {
namespace {

class RecordsetTest : public testing::StationDatabase {
 protected:
  RecordsetTest() {
    run("INSERT INTO Banco (Cd_Banco, Nm_Banco) Values (1, 'Um') INSERT INTO Banco (Cd_Banco, Nm_Banco) Values (2, "
        "Null) "
        "INSERT INTO Banco (Cd_Banco, Nm_Banco) Values (3, 'Três')");
    statements_.clear();
    rows_ = 0;
  }
  std::string names(Recordset& rs) {
    std::string all;
    for (; !rs.EOF(); rs.MoveNext()) all += rs["Nm_Banco"].value_or(std::string("-")) + " ";
    return all;
  }
};

constexpr const char* kBanks = "SELECT Cd_Banco, Nm_Banco FROM Banco ORDER BY Cd_Banco";

TEST_F(RecordsetTest, ATableOpenedToAddARowIsNotRead) {
  {
    Recordset rs = open("Banco");
    rs.AddNew();
    rs["Cd_Banco"] = 4;
    rs["nm_banco"] = "Quatro";
    rs.Update();
  }
  EXPECT_EQ(rows_, 1);  // the one that was written
  EXPECT_EQ(ask("SELECT Nm_Banco FROM Banco WHERE Cd_Banco = 4"), "Quatro");
}

TEST_F(RecordsetTest, RowsAreReadAsTheyAreAskedFor) {
  {
    Recordset rs = open(kBanks, adOpenForwardOnly);
    EXPECT_FALSE(rs.EOF());
    EXPECT_EQ(rs.RecordCount(), -1);
    rs.MoveFirst();
    rs.MoveNext();
    EXPECT_EQ(raised([&] { rs.MoveFirst(); }), erro::kNotSupported);
    EXPECT_EQ(raised([&] { rs.MovePrevious(); }), erro::kNotSupported);
    EXPECT_EQ(raised([&] { rs.MoveLast(); }), erro::kNotSupported);
  }
  EXPECT_EQ(rows_, 2);
}

TEST_F(RecordsetTest, MovesThroughKeptRows) {
  Recordset rs = open(kBanks);
  rs.MoveLast();
  EXPECT_EQ(rs[0].as<std::int32_t>(), 3);
  EXPECT_EQ(rs.RecordCount(), 3);
  rs.MovePrevious();
  EXPECT_TRUE(rs[1].is_null());
  rs.MovePrevious();
  rs.MovePrevious();
  EXPECT_TRUE(rs.BOF());
  EXPECT_EQ(raised([&] { rs[0].Value(); }), erro::kNoCurrentRecord);
  EXPECT_EQ(raised([&] { rs.MovePrevious(); }), erro::kNoCurrentRecord);
  rs.MoveNext();
  EXPECT_EQ(names(rs), "Um - Três ");
  EXPECT_EQ(raised([&] { rs.MoveNext(); }), erro::kNoCurrentRecord);
  rs.MoveFirst();
  EXPECT_EQ(names(rs), "Um - Três ");
}

TEST_F(RecordsetTest, AnEmptySetIsBeforeItsFirstAndBehindItsLast) {
  Recordset rs = open("SELECT * FROM Banco WHERE Cd_Banco = Null");
  EXPECT_TRUE(rs.EOF() && rs.BOF());
  for (auto move : {&Recordset::MoveNext, &Recordset::MovePrevious, &Recordset::MoveFirst, &Recordset::MoveLast}) {
    EXPECT_EQ(raised([&] { (rs.*move)(); }), erro::kNoCurrentRecord);
  }
  EXPECT_EQ(raised([&] { rs["Cd_Banco"] = 1; }), erro::kNoCurrentRecord);
}

TEST_F(RecordsetTest, AClientSetLivesWithoutItsConnection) {
  Recordset rs = open(kBanks, adOpenStatic, adUseClient);
  EXPECT_EQ(rs.RecordCount(), 3);
  rs.ActiveConnection(nullptr);
  connection_->Close();
  EXPECT_EQ(names(rs), "Um - Três ");
  rs.MoveFirst();
  rs["Nm_Banco"] = "x";
  EXPECT_EQ(raised([&] { rs.Update(); }), erro::kConnectionInvalid);
}

TEST_F(RecordsetTest, RefusesWhatItsStateDoesNotAllow) {
  Recordset closed;
  EXPECT_EQ(raised([&] { closed.Open(); }), erro::kConnectionInvalid);
  EXPECT_EQ(raised([&] { closed.EOF(); }), erro::kObjectClosed);
  EXPECT_EQ(raised([&] { closed.Fields("x"); }), erro::kObjectClosed);
  EXPECT_EQ(raised([&] { closed.Close(); }), erro::kObjectClosed);

  Recordset rs = open(kBanks);
  EXPECT_EQ(raised([&] { rs.Open(); }), erro::kObjectOpen);
  EXPECT_EQ(raised([&] { rs.ActiveConnection(connection_); }), erro::kObjectOpen);
  EXPECT_EQ(raised([&] { rs.ActiveConnection(nullptr); }), erro::kNotSupported);
  EXPECT_EQ(raised([&] { rs["Nada"].Value(); }), erro::kNoSuchItem);
  EXPECT_EQ(raised([&] { rs[2].Value(); }), erro::kNoSuchItem);
  EXPECT_EQ(raised([&] { rs[0].Properties("NADA"); }), erro::kNoSuchItem);

  Recordset nothing = connection_->Execute("DELETE FROM Banco WHERE Cd_Banco = 99");
  EXPECT_EQ(nothing.State(), 0);
  EXPECT_EQ(raised([&] { nothing.EOF(); }), erro::kObjectClosed);
  connection_->Close();
  EXPECT_EQ(raised([&] { open(kBanks); }), erro::kConnectionInvalid);
}

TEST_F(RecordsetTest, OnlyRowsOfOneTableWithItsKeyAreWritten) {
  for (const char* query : {"SELECT Nm_Banco FROM Banco", "SELECT A.Cd_Banco FROM Banco A, Banco B",
                            "SELECT DISTINCT Cd_Banco FROM Banco", "SELECT Cd_Banco FROM Banco GROUP BY Cd_Banco",
                            "SELECT Cd_Banco FROM Banco UNION ALL SELECT Cd_Banco FROM Banco"}) {
    Recordset rs = open(query);
    EXPECT_EQ(raised([&] { rs.AddNew(); }), erro::kNotSupported) << query;
    EXPECT_EQ(raised([&] { rs[0] = 1; }), erro::kNotSupported) << query;
  }
  Recordset read_only;
  read_only.ActiveConnection(connection_);
  read_only.Source = kBanks;
  read_only.Open();
  EXPECT_EQ(raised([&] { read_only["Nm_Banco"] = "x"; }), erro::kNotSupported);
}

TEST_F(RecordsetTest, ACalculatedFieldIsOnlyRead) {
  Recordset rs = open("SELECT Cd_Banco, Nm_Banco + '!' As Grito, Nm_Banco FROM Banco WHERE Cd_Banco = 1");
  EXPECT_EQ(raised([&] { rs["Grito"] = "x"; }), erro::kNotSupported);
  rs["Nm_Banco"] = "Outro";
  rs.Update();
  rs.AddNew();
  rs["Cd_Banco"] = 9;
  rs.Update();
  EXPECT_EQ(ask("SELECT Nm_Banco FROM Banco WHERE Cd_Banco = 1"), "Outro");
  EXPECT_EQ(ask("SELECT Count(*) FROM Banco"), "4");
}

TEST_F(RecordsetTest, UpdateWritesTheChangedColumnsByTheirOldValues) {
  Recordset rs = open("SELECT * FROM Bomba");
  rs.AddNew();
  rs["Cd_PessoaUsuaria"] = 1;
  rs["Cd_Bomba"] = 7;
  rs["De_EnderecoLogicoBico"] = "AA";
  rs.Update();
  statements_.clear();
  rs["Qt_Emitir"] = 5.5;
  rs["De_EnderecoLogicoBico"] = "AA";  // as it is
  rs["De_Status"] = Null{};            // as it is
  rs.Update();
  rs.Update();
  rs["Qt_Emitir"] = 6;
  rs.Update();
  EXPECT_EQ(statements_,
            (std::vector<std::string>{
                "UPDATE Bomba SET Qt_Emitir = ? WHERE Cd_PessoaUsuaria = ? AND Cd_Bomba = ? AND Qt_Emitir IS NULL",
                "UPDATE Bomba SET Qt_Emitir = ? WHERE Cd_PessoaUsuaria = ? AND Cd_Bomba = ? AND Qt_Emitir = ?"}));
  EXPECT_EQ(ask("SELECT Qt_Emitir FROM Bomba"), "6");
}

TEST_F(RecordsetTest, AChangedRowIsNotWrittenOver) {
  Recordset rs = open(kBanks);
  rs["Nm_Banco"] = "Meu";
  another()->Execute("UPDATE Banco SET Nm_Banco = 'Seu' WHERE Cd_Banco = 1");
  EXPECT_EQ(raised([&] { rs.Update(); }), erro::kRowNotFound);
  EXPECT_EQ(rs["Nm_Banco"].as<std::string>(), "Meu");
  rs.CancelUpdate();
  EXPECT_EQ(rs["Nm_Banco"].as<std::string>(), "Um");
  rs.MoveNext();
  rs["Nm_Banco"] = "x";
  another()->Execute("DELETE FROM Banco WHERE Cd_Banco = 2");
  EXPECT_EQ(raised([&] { rs.Update(); }), erro::kRowNotFound);
  EXPECT_EQ(ask("SELECT Nm_Banco FROM Banco WHERE Cd_Banco = 1"), "Seu");
}

TEST_F(RecordsetTest, AWrittenRowShowsItsValuesAfterAMove) {
  for (auto location : {adUseServer, adUseClient}) {
    Recordset rs = open(kBanks, adOpenKeyset, location);
    rs["Nm_Banco"] = "A longer name than before";
    rs.MoveNext();  // writes it
    rs["Nm_Banco"] = "Dois";
    rs.Update();
    rs.MoveFirst();
    EXPECT_EQ(names(rs), "A longer name than before Dois Três ");
    rs.MoveFirst();
    rs["Nm_Banco"] = "Um";
    rs.MoveNext();
    rs["Nm_Banco"] = Null{};
    rs.Update();
    EXPECT_EQ(ask("SELECT Nm_Banco FROM Banco WHERE Cd_Banco = 1"), "Um");
    EXPECT_EQ(ask("SELECT Nm_Banco FROM Banco WHERE Cd_Banco = 2"), "null");
  }
}

TEST_F(RecordsetTest, TheGeneratedKeyIsReadFromTheNewRecord) {
  Recordset rs = open("Select * From Bairro Where Cd_Bairro = Null");
  EXPECT_TRUE(rs["Cd_Bairro"].Properties("ISAUTOINCREMENT").as<bool>());
  EXPECT_FALSE(rs["Nm_Bairro"].Properties("isautoincrement").as<bool>());
  EXPECT_GT(rs["Nm_Bairro"].Properties("OCTETLENGTH").as<std::int32_t>(), 0);
  for (int i = 1; i <= 2; ++i) {
    rs.AddNew();
    EXPECT_FALSE(rs.EOF());
    rs["Nm_Bairro"] = "Centro";
    rs.Update();
    EXPECT_EQ(rs["Cd_Bairro"].as<std::int32_t>(), i);
  }
  rs["Nm_Bairro"] = "Leste";
  rs.Update();
  EXPECT_EQ(ask("SELECT Nm_Bairro FROM Bairro WHERE Cd_Bairro = 1"), "Centro");
  EXPECT_EQ(ask("SELECT Nm_Bairro FROM Bairro WHERE Cd_Bairro = 2"), "Leste");
}

TEST_F(RecordsetTest, ANewRecordHasTheDefaultsOfItsColumns) {
  Recordset rs = open("SELECT * FROM Bomba");
  rs.AddNew();
  rs["Cd_PessoaUsuaria"] = 1;
  rs["Cd_Bomba"] = 7;
  rs["De_EnderecoLogicoBico"] = "AA";
  rs.Update();
  EXPECT_FALSE(rs["Fl_BloquearBico"].as<bool>());
  rs["Fl_BloquearBico"] = true;
  rs.Update();
  EXPECT_EQ(ask("SELECT Count(*) FROM Bomba WHERE Fl_BloquearBico = 1"), "1");
}

TEST_F(RecordsetTest, AFailedInsertKeepsItsValuesForAnotherTry) {
  Recordset rs = open("Banco");
  rs.AddNew();
  rs["Cd_Banco"] = 1;
  rs["Nm_Banco"] = "Outro";
  EXPECT_EQ(raised([&] { rs.Update(); }), erro::kIntegrity);
  rs["Cd_Banco"] = 5;
  rs.Update();
  EXPECT_EQ(ask("SELECT Nm_Banco FROM Banco WHERE Cd_Banco = 5"), "Outro");
  rs.AddNew();
  rs["Nm_Banco"] = std::string(300, 'x');
  rs["Cd_Banco"] = 6;
  EXPECT_EQ(raised([&] { rs.Update(); }), erro::kDataOverflow);
  rs.CancelUpdate();
  EXPECT_EQ(rs["Cd_Banco"].as<std::int32_t>(), 1);  // the record on which the set stands
  EXPECT_EQ(raised([&] { rs["Cd_Banco"] = "abc"; }), erro::kTypeMismatch);
  EXPECT_EQ(raised([&] { rs["Cd_Banco"] = 70'000; }), erro::kOverflow);
}

TEST_F(RecordsetTest, OfTwoColumnsOfOneNameTheFirstIsRead) {
  Recordset rs = connection_->Execute("SELECT 1 As Cd, 2 As cd, 3 As CD");
  EXPECT_EQ(rs["CD"].as<std::int32_t>(), 1);
  EXPECT_EQ(rs["cD"].as<std::int32_t>(), 1);
}

}  // namespace
}  // namespace posto
