// What a server has beside the embedded database: other computers, a connection that can be lost, rows under way.
#include <gtest/gtest.h>

#include <thread>

#include "tests/ado/station_database.h"

namespace posto {
namespace {

class ServerTest : public testing::StationDatabase {
 protected:
  void SetUp() override {
    if (database_.embedded()) GTEST_SKIP() << "there is no server";
  }
  void add_banks(int count) {
    Transaction transaction(connection_);
    for (int i = 1; i <= count; ++i)
      run("INSERT INTO Banco (Cd_Banco, Nm_Banco) Values (" + std::to_string(i) + ", 'b')");
    transaction.commit();
  }
};

TEST_F(ServerTest, OnlyAStationsDatabaseIsOpenedAndOnlyAnEmptyOneFilled) {
  const std::string own = testing::provider() == "PostgreSQL" ? "postgres" : "master";
  for (const std::string& address :
       {database_.address_of(own), database_.address_of("missing"), std::string("postgresql://127.0.0.1:1/x")}) {
    auto other = Connection::create();
    EXPECT_EQ(raised([&] { other->Open(address); }), erro::kProviderFailure) << address;
    EXPECT_EQ(other->State(), 0);
  }
  EXPECT_EQ(raised([&] { Connection::create()->Create(file_); }), erro::kProviderFailure);
  EXPECT_EQ(ask("SELECT Count(*) FROM Banco"), "0");
}

// The first one's failure leaves what stood before it, and the transaction goes on.
TEST_F(ServerTest, ATransactionGoesOnBehindAFailure) {
  connection_->BeginTrans();
  run("INSERT INTO Banco (Cd_Banco) Values (1)");
  EXPECT_EQ(raised([&] { run("INSERT INTO Banco (Cd_Banco) Values (1)"); }), erro::kIntegrity);
  EXPECT_EQ(raised([&] { ask("SELECT 1 / (Cd_Banco - 1) FROM Banco"); }), erro::kSyntax);
  run("INSERT INTO Banco (Cd_Banco) Values (2)");
  connection_->CommitTrans();
  EXPECT_EQ(another()->Execute("SELECT Count(*) FROM Banco")[0].as<std::int32_t>(), 2);
}

TEST_F(ServerTest, AWriterWaitsForTheRowsOfAnotherAndNoLongerThanItsCommandMay) {
  add_banks(2);
  auto other = another();
  other->BeginTrans();
  other->Execute("UPDATE Banco SET Nm_Banco = 'o' WHERE Cd_Banco = 1");
  connection_->CommandTimeout = 1;
  run("UPDATE Banco SET Nm_Banco = 'x' WHERE Cd_Banco = 2");
  EXPECT_EQ(raised([&] { run("UPDATE Banco SET Nm_Banco = 'x' WHERE Cd_Banco = 1"); }), erro::kTimeout);
  EXPECT_EQ(ask("SELECT Nm_Banco FROM Banco WHERE Cd_Banco = 1"), "b");  // a reader does not wait
  other->CommitTrans();
  run("UPDATE Banco SET Nm_Banco = 'x' WHERE Cd_Banco = 1");
  EXPECT_EQ(ask("SELECT Count(*) FROM Banco WHERE Nm_Banco = 'x'"), "2");
}

TEST_F(ServerTest, ALostConnectionIsToldAndAnotherOneWorks) {
  add_banks(1);
  connection_->BeginTrans();
  run("DELETE FROM Banco");
  database_.disconnect_all();
  try {
    run("INSERT INTO Banco (Cd_Banco) Values (7)");
    FAIL() << "the connection is not lost";
  } catch (const Erro& e) {
    EXPECT_EQ(e.number(), erro::kProviderFailure);
    ASSERT_TRUE(e.provider());
    EXPECT_FALSE(e.provider()->connection_good);
  }
  EXPECT_FALSE(connection_->in_transaction());
  EXPECT_EQ(raised([&] { ask("SELECT 1"); }), erro::kProviderFailure);
  connection_->Close();
  connection_->Open(file_);
  EXPECT_EQ(ask("SELECT Cd_Banco FROM Banco"), "1");  // nothing of the transaction stands
}

TEST_F(ServerTest, RowsUnderWayAreTakenInWhereAnotherStatementRuns) {
  add_banks(1000);
  std::int64_t sum = 0;
  for (Recordset rs = connection_->Execute("SELECT Cd_Banco FROM Banco ORDER BY Cd_Banco"); !rs.EOF(); rs.MoveNext()) {
    sum += rs[0].as<std::int32_t>();
    if (sum == 1 || sum == 6) run("UPDATE Banco SET Nm_Banco = 'x' WHERE Cd_Banco = 1");
  }
  EXPECT_EQ(sum, 500'500);
  // A scan that is given up leaves a connection that works, in a transaction too.
  connection_->BeginTrans();
  run("DELETE FROM Banco WHERE Cd_Banco = 1000");
  { Recordset many = connection_->Execute("SELECT A.Cd_Banco FROM Banco A, Banco B, Banco C"); }
  EXPECT_EQ(ask("SELECT Count(*) FROM Banco"), "999");
  connection_->CommitTrans();
  EXPECT_EQ(ask("SELECT Count(*) FROM Banco"), "999");
}

// The rows that a commit takes in fail behind the first: what was written stands all the same.
TEST_F(ServerTest, RowsThatFailAtTheCommitTakeNothingWithThem) {
  if (testing::TestDatabase::driver_reads_ahead()) GTEST_SKIP() << "the driver met the failure before";
  add_banks(1000);
  connection_->BeginTrans();
  run("INSERT INTO Banco (Cd_Banco) Values (1001)");
  Recordset rs = connection_->Execute("SELECT 1 / (Cd_Banco - 1000) FROM Banco");
  EXPECT_EQ(rs[0].as<std::int32_t>(), 0);
  connection_->CommitTrans();
  EXPECT_EQ(another()->Execute("SELECT Count(*) FROM Banco")[0].as<std::int32_t>(), 1001);
}

TEST_F(ServerTest, AGivenNumberIsNotGeneratedAgain) {
  run("INSERT INTO Pessoa (Cd_Pessoa, Nm_Pessoa) Values (50, 'a') INSERT INTO Pessoa (Nm_Pessoa) Values ('b')");
  EXPECT_EQ(ask("SELECT @@IDENTITY"), "51");
  run("INSERT INTO Pessoa (Cd_Pessoa, Nm_Pessoa) Values (7, 'c') INSERT INTO Pessoa (Nm_Pessoa) Values ('d')");
  EXPECT_EQ(ask("SELECT Cd_Pessoa FROM Pessoa WHERE Nm_Pessoa = 'd'"), "52");
}

}  // namespace
}  // namespace posto
