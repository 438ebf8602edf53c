// Connections: files of the embedded database, time-outs, transactions, what failures leave, cursors beside writers.
#include "posto/ado/connection.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/wait.h>

#include <filesystem>
#include <fstream>
#include <thread>

#include "tests/ado/station_database.h"

namespace posto {
namespace {

class ConnectionTest : public testing::StationDatabase {
 protected:
  void add_banks(int count) {
    connection_->BeginTrans();
    for (int i = 1; i <= count; ++i) {
      run("INSERT INTO Banco (Cd_Banco, Nm_Banco) Values (" + std::to_string(i) + ", 'b" + std::to_string(i) + "')");
    }
    connection_->CommitTrans();
  }
};

// What concerns the files of the embedded database.
class FileTest : public ConnectionTest {
 protected:
  void SetUp() override {
    if (!database_.embedded()) GTEST_SKIP() << "the database is no file";
  }
  static std::string content(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  const std::filesystem::path folder_ = std::filesystem::path(file_).parent_path();
};

// SQLite without the library, as another program would use it.
struct Raw {
  explicit Raw(const std::string& path) { EXPECT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK); }
  ~Raw() { sqlite3_close(database); }
  void run(const char* sql) { EXPECT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql; }
  sqlite3* database = nullptr;
};

TEST_F(FileTest, OpensOnlyDatabasesOfAStation) {
  const std::string foreign = (folder_ / "foreign.db").string(), text = (folder_ / "text.db").string();
  Raw(foreign).run("CREATE TABLE T (a)");
  std::ofstream(text) << std::string(2000, 'x');
  for (const std::string& path : {foreign, text, (folder_ / "missing.db").string()}) {
    const std::string before = content(path);
    auto other = Connection::create();
    EXPECT_EQ(raised([&] { other->Open(path); }), erro::kProviderFailure) << path;
    EXPECT_EQ(other->State(), 0);
    EXPECT_EQ(content(path), before);
  }
}

TEST_F(FileTest, CreatesOnlyWhatDoesNotStand) {
  auto other = Connection::create();
  EXPECT_EQ(raised([&] { other->Create(file_); }), erro::kProviderFailure);
  EXPECT_EQ(raised([&] { connection_->Open(file_); }), erro::kObjectOpen);
  EXPECT_EQ(raised([&] { connection_->Create(file_ + "2"); }), erro::kObjectOpen);
  // What a creation that was killed leaves behind is in nobody's way.
  const std::string second = (folder_ / "second.db").string();
  std::ofstream(second + ".criando") << "half";
  std::ofstream(second + ".criando-wal") << "half";
  other->Create("sqlite:" + second);
  EXPECT_EQ(other->Execute("SELECT Count(*) FROM Banco")[0].as<std::int32_t>(), 0);
  EXPECT_FALSE(std::filesystem::exists(second + ".criando"));
}

TEST_F(ConnectionTest, NothingRunsOnAClosedConnection) {
  connection_->Close();
  EXPECT_EQ(raised([&] { run("SELECT 1"); }), erro::kConnectionInvalid);
  EXPECT_EQ(raised([&] { connection_->BeginTrans(); }), erro::kConnectionInvalid);
  connection_->Open(file_);
  EXPECT_EQ(ask("SELECT 1"), "1");
}

TEST_F(ConnectionTest, ASlowStatementIsGivenUp) {
  add_banks(200);
  connection_->CommandTimeout = 1;
  EXPECT_EQ(raised([&] { ask("SELECT Count(*) FROM Banco A, Banco B, Banco C, Banco D, Banco E"); }), erro::kTimeout);
  EXPECT_EQ(raised([&] {
              run("UPDATE Banco SET Nm_Banco = 'x' WHERE "
                  "(SELECT Count(*) FROM Banco A, Banco B, Banco C, Banco D, Banco E) = 0");
            }),
            erro::kTimeout);
  EXPECT_EQ(ask("SELECT Count(*) FROM Banco WHERE Nm_Banco = 'x'"), "0");
}

TEST_F(ConnectionTest, TimeBetweenReadsIsTheCallers) {
  if (testing::TestDatabase::driver_reads_ahead()) GTEST_SKIP() << "the driver has no time between reads";
  add_banks(200);
  connection_->CommandTimeout = 1;
  Recordset rs = connection_->Execute("SELECT A.Cd_Banco FROM Banco A, Banco B, Banco C");
  for (int i = 0; i < 100'000; ++i) rs.MoveNext();
  std::this_thread::sleep_for(std::chrono::milliseconds(1200));
  for (int i = 0; i < 100'000; ++i) rs.MoveNext();
}

TEST_F(FileTest, AWriterWaitsForAnotherAsLongAsItsCommandMay) {
  auto other = another();
  other->BeginTrans();
  connection_->CommandTimeout = 1;
  EXPECT_EQ(raised([&] { run("DELETE FROM Banco"); }), erro::kTimeout);
  EXPECT_EQ(raised([&] { connection_->BeginTrans(); }), erro::kTimeout);
  EXPECT_EQ(ask("SELECT Count(*) FROM Banco"), "0");  // a reader does not wait
  other->RollbackTrans();

  // Not as long as its opening might.
  auto patient = Connection::create();
  patient->ConnectionTimeout = 1;
  patient->Open(file_);
  connection_->CommandTimeout = 30;
  connection_->BeginTrans();
  std::jthread release([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(1500));
    connection_->RollbackTrans();
  });
  patient->Execute("DELETE FROM Banco");
}

TEST_F(FileTest, OpeningWaitsForABusyFile) {
  connection_->Close();
  Raw holder(file_);
  holder.run("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE; CREATE TABLE T (a)");
  auto other = Connection::create();
  other->ConnectionTimeout = 1;
  auto started = std::chrono::steady_clock::now();
  EXPECT_EQ(raised([&] { other->Open(file_); }), erro::kProviderFailure);
  auto waited = std::chrono::steady_clock::now() - started;
  EXPECT_GE(waited, std::chrono::milliseconds(900));
  EXPECT_LE(waited, std::chrono::seconds(10));
}

TEST_F(ConnectionTest, ATransactionIsWholeOrNothing) {
  connection_->BeginTrans();
  run("CREATE TABLE #T (Cd int NOT NULL PRIMARY KEY) INSERT INTO #T Values (1)");
  run("INSERT INTO Banco (Cd_Banco) Values (1)");
  EXPECT_EQ(ask("SELECT Cd FROM #T"), "1");
  EXPECT_EQ(raised([&] { connection_->BeginTrans(); }), erro::kTransactionOpen);
  connection_->RollbackTrans();
  EXPECT_EQ(raised([&] { connection_->RollbackTrans(); }), erro::kNoTransaction);
  EXPECT_EQ(raised([&] { connection_->CommitTrans(); }), erro::kNoTransaction);
  EXPECT_EQ(ask("SELECT Count(*) FROM Banco"), "0");
  EXPECT_EQ(raised([&] { ask("SELECT Cd FROM #T"); }), erro::kSyntax);
  run("CREATE TABLE #T (Nm varchar(5))");  // another table of the name
  run("INSERT INTO #T Values ('x')");
  {
    Transaction forgotten(connection_);
    run("DELETE FROM #T");
  }
  EXPECT_EQ(ask("SELECT Nm FROM #T"), "x");
  Transaction kept(connection_);
  run("DELETE FROM #T");
  kept.commit();
  EXPECT_EQ(ask("SELECT Count(*) FROM #T"), "0");
}

TEST_F(ConnectionTest, AStatementThatFailsLeavesNothing) {
  run("CREATE TABLE #T (Cd int NOT NULL PRIMARY KEY, Vl money, Qt float) INSERT INTO #T Values (1, 1, 1) "
      "INSERT INTO #T Values (2, 900000000000000, 0) INSERT INTO #T Values (3, 1, 1)");
  const std::string before = "SELECT Sum(Cd * Qt) FROM #T WHERE Vl = 1";
  ASSERT_EQ(ask(before), "4");
  struct {
    const char* statement;
    std::int32_t number;
  } const cases[] = {{"UPDATE #T SET Qt = 7 / Qt", erro::kSyntax},
                     {"UPDATE #T SET Vl = Vl * 2000000000", erro::kDataOverflow},
                     {"DELETE FROM #T WHERE 1 / Qt > 0", erro::kSyntax},
                     {"UPDATE #T SET Cd = 3 - Cd / 3", erro::kIntegrity},
                     {"INSERT INTO #T SELECT Cd + 10, Vl, 1 / Qt FROM #T", erro::kSyntax}};
  for (bool in_transaction : {false, true}) {
    for (const auto& c : cases) {
      if (in_transaction) connection_->BeginTrans();
      EXPECT_EQ(raised([&] { run(c.statement); }), c.number) << c.statement;
      if (in_transaction) connection_->CommitTrans();
      EXPECT_EQ(ask(before), "4") << c.statement;
      EXPECT_EQ(ask("SELECT Count(*) FROM #T"), "3") << c.statement;
    }
  }
}

TEST_F(ConnectionTest, ABatchThatFailsHalfWayKeepsWhatWentBefore) {
  std::int64_t affected = 0;
  EXPECT_EQ(raised([&] {
              run("INSERT INTO Banco (Cd_Banco) Values (1) INSERT INTO Banco (Cd_Banco) Values (1) DELETE FROM Banco");
            }),
            erro::kIntegrity);
  EXPECT_EQ(ask("SELECT Count(*) FROM Banco"), "1");
  connection_->Execute("UPDATE Banco SET Nm_Banco = 'x' WHERE Cd_Banco < 9", affected);
  EXPECT_EQ(affected, 1);
  EXPECT_EQ(raised([&] { run("SELECT 1 / (Cd_Banco - 1) FROM Banco; DELETE FROM Banco"); }), erro::kSyntax);
  EXPECT_EQ(ask("SELECT Count(*) FROM Banco"), "1");
}

TEST_F(ConnectionTest, AFailureTellsItsStatement) {
  try {
    run("UPDATE Banco SET Cd_Banco = 1; INSERT INTO Banco (Nm_Banco) Values ('x')");
    FAIL();
  } catch (const Erro& e) {
    ASSERT_TRUE(e.provider());
    EXPECT_EQ(e.provider()->statement, "INSERT INTO Banco (Nm_Banco) Values ('x')");
    EXPECT_TRUE(e.provider()->connection_good);
    EXPECT_TRUE(e.provider()->native_code != 0 || e.provider()->sqlstate == "23502");
  }
}

TEST_F(FileTest, AnObserverSeesEveryStatement) {
  std::vector<std::string> seen;
  connection_->observe([&](const StatementReport& r) {
    seen.push_back(std::string(r.statement) + " | " + std::string(r.engine_text) + " | " + std::to_string(r.rows));
    EXPECT_GT(r.duration.count(), 0);
  });
  run("INSERT INTO Banco (Cd_Banco, Nm_Banco) Values (1, 'a'); UPDATE Banco SET Nm_Banco = 'b' WHERE Cd_Banco = 2");
  ask("SELECT Nm_Banco FROM Banco WHERE Cd_Banco = 1");
  EXPECT_EQ(seen, (std::vector<std::string>{
                      "INSERT INTO Banco (Cd_Banco, Nm_Banco) Values (1, 'a') | "
                      R"(INSERT INTO "Banco" ("Cd_Banco", "Nm_Banco") VALUES (?1, ?2) | 1)",
                      "UPDATE Banco SET Nm_Banco = 'b' WHERE Cd_Banco = 2 | "
                      R"(UPDATE "Banco" SET "Nm_Banco" = ?1 WHERE ("Banco"."Cd_Banco" = ?2) | 0)",
                      "SELECT Nm_Banco FROM Banco WHERE Cd_Banco = 1 | "
                      R"(SELECT "Banco"."Nm_Banco" FROM "Banco" WHERE ("Banco"."Cd_Banco" = ?1) | 1)"}));
}

// The second batch has the shape of the first, and its statements begin elsewhere.
TEST_F(ConnectionTest, AKeptBatchKnowsWhereEachOfItsStatementsStands) {
  std::vector<std::string> seen;
  run("UPDATE Banco SET Nm_Banco = 'a long name' WHERE Cd_Banco = 12345; DELETE FROM Banco WHERE Cd_Banco = 1");
  connection_->observe([&](const StatementReport& r) { seen.emplace_back(r.statement); });
  run("UPDATE Banco SET Nm_Banco = '' WHERE Cd_Banco = 1; DELETE FROM Banco WHERE Cd_Banco = 12345");
  EXPECT_EQ(seen, (std::vector<std::string>{"UPDATE Banco SET Nm_Banco = '' WHERE Cd_Banco = 1",
                                            "DELETE FROM Banco WHERE Cd_Banco = 12345"}));
}

TEST_F(ConnectionTest, StatementsLiveOnWhenTheirShapeIsForgotten) {
  add_banks(3);
  Recordset open_one = connection_->Execute("SELECT Nm_Banco FROM Banco ORDER BY Cd_Banco");
  EXPECT_EQ(open_one[0].as<std::string>(), "b1");
  Recordset written = open("Banco");
  written["Nm_Banco"] = "first";
  written.Update();
  for (int i = 0; i < 1200; ++i) {
    ASSERT_EQ(ask("SELECT Cd_Banco As C" + std::to_string(i) + " FROM Banco WHERE Cd_Banco = 2"), "2");
  }
  open_one.MoveNext();
  EXPECT_EQ(open_one[0].as<std::string>(), "b2");
  written["Nm_Banco"] = "second";
  written.Update();
  EXPECT_EQ(ask("SELECT Nm_Banco FROM Banco ORDER BY Cd_Banco"), "second");
  // One shape, many values that belong to its form.
  for (int i = 1; i < 100; ++i) {
    Recordset rs = connection_->Execute("SELECT TOP " + std::to_string(i) + " Cd_Banco FROM Banco");
    int rows = 0;
    for (; !rs.EOF(); rs.MoveNext()) ++rows;
    ASSERT_EQ(rows, std::min(i, 3));
  }
}

TEST_F(ConnectionTest, CursorsOfOneShapeRunInsideEachOther) {
  add_banks(3);
  auto from = [&](int first) {
    return connection_->Execute("SELECT Cd_Banco FROM Banco WHERE Cd_Banco >= " + std::to_string(first) +
                                " ORDER BY Cd_Banco");
  };
  std::string seen;
  for (Recordset outer = from(1); !outer.EOF(); outer.MoveNext()) {
    for (Recordset inner = from(outer[0].as<std::int32_t>()); !inner.EOF(); inner.MoveNext()) {
      seen += outer[0].as<std::string>() + inner[0].as<std::string>() + " ";
    }
  }
  EXPECT_EQ(seen, "11 12 13 22 23 33 ");
}

TEST_F(ConnectionTest, ACursorOutlivesItsConnection) {
  add_banks(2);
  Recordset rs = connection_->Execute("SELECT Nm_Banco FROM Banco ORDER BY Cd_Banco");
  connection_->Close();
  connection_.reset();
  EXPECT_EQ(rs[0].as<std::string>(), "b1");
  rs.MoveNext();
  EXPECT_EQ(rs[0].as<std::string>(), "b2");
}

TEST_F(ConnectionTest, AShapeOutlivesItsTemporaryTable) {
  Recordset rs;
  connection_->BeginTrans();
  run("CREATE TABLE #T (Cd int NOT NULL PRIMARY KEY, Nm varchar(5)) INSERT INTO #T Values (1, 'x')");
  rs = open("SELECT * FROM #T", adOpenStatic, adUseClient);
  connection_->RollbackTrans();
  EXPECT_EQ(rs["Nm"].as<std::string>(), "x");
  EXPECT_FALSE(rs["Cd"].Properties("ISAUTOINCREMENT").as<bool>());
  EXPECT_EQ(rs.shape().updatable_table()->name, "#T");
  rs["Nm"] = "y";
  EXPECT_EQ(raised([&] { rs.Update(); }), erro::kSyntax);
}

TEST_F(ConnectionTest, ATemporaryTableIsDroppedAndMadeAnew) {
  run("CREATE TABLE #T (Cd int) INSERT INTO #T Values (1) INSERT INTO #T Values (2)");
  Recordset rows = connection_->Execute("SELECT Cd FROM #T ORDER BY Cd");
  EXPECT_EQ(rows[0].as<std::int32_t>(), 1);
  run("DROP TABLE #T");
  rows.MoveNext();
  EXPECT_EQ(rows[0].as<std::int32_t>(), 2);
  EXPECT_EQ(raised([&] { run("SELECT Cd FROM #T ORDER BY Cd"); }), erro::kSyntax);
  EXPECT_EQ(raised([&] { run("DROP TABLE #T"); }), erro::kSyntax);
  EXPECT_EQ(raised([&] { run("DROP TABLE Banco"); }), erro::kSyntax);
  run("CREATE TABLE #T (Cd varchar(5)) INSERT INTO #T Values ('x')");
  connection_->BeginTrans();
  run("DROP TABLE #T");
  connection_->RollbackTrans();
  EXPECT_EQ(connection_->Execute("SELECT Cd FROM #T ORDER BY Cd")[0].as<std::string>(), "x");
}

// A walk that moves the rows on which it stands meets each of them once.
TEST_F(ConnectionTest, AWalkSeesTheRowsOfItsStart) {
  run("CREATE TABLE #T (Cd int IDENTITY PRIMARY KEY, No_Ordem int NOT NULL, Nm varchar(40), PRIMARY KEY (No_Ordem))");
  for (int i = 1; i <= 5; ++i) run("INSERT INTO #T Values (" + std::to_string(i) + ", 'a name of some length')");
  int met = 0;
  for (Recordset rs = connection_->Execute("SELECT No_Ordem, Nm FROM #T WHERE No_Ordem > 0 ORDER BY No_Ordem");
       !rs.EOF(); rs.MoveNext()) {
    ASSERT_LT(met++, 5);
    const std::string number = rs[0].as<std::string>();
    run("UPDATE #T SET No_Ordem = No_Ordem + 100 WHERE No_Ordem = " + number);
    run("INSERT INTO #T Values (" + number + " + 200, 'another')");
    EXPECT_EQ(rs[0].as<std::string>(), number);
    EXPECT_EQ(rs[1].as<std::string>(), "a name of some length");
  }
  EXPECT_EQ(met, 5);
}

TEST_F(ConnectionTest, AWalkWritesAlthoughAnotherWroteMeanwhile) {
  add_banks(3);
  auto other = another();
  std::string seen;
  for (Recordset rs = connection_->Execute("SELECT Cd_Banco, Nm_Banco FROM Banco ORDER BY Cd_Banco"); !rs.EOF();
       rs.MoveNext()) {
    other->Execute("UPDATE Banco SET Nm_Banco = 'o' WHERE Cd_Banco = 3");
    run("DELETE FROM Bairro");
    seen += rs[1].as<std::string>() + " ";
  }
  EXPECT_EQ(seen, "b1 b2 b3 ");
}

TEST_F(FileTest, WhatWasCommittedSurvivesAKill) {
  connection_->Close();
  pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    auto own = Connection::create();
    own->Open(file_);
    own->Execute("INSERT INTO Banco (Cd_Banco) Values (1)");
    own->BeginTrans();
    own->Execute("INSERT INTO Banco (Cd_Banco) Values (2)");
    own->CommitTrans();
    own->BeginTrans();
    own->Execute("INSERT INTO Banco (Cd_Banco) Values (3)");
    kill(getpid(), SIGKILL);
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_TRUE(WIFSIGNALED(status));
  connection_->Open(file_);
  EXPECT_EQ(ask("SELECT Max(Cd_Banco) FROM Banco"), "2");
  run("INSERT INTO Banco (Cd_Banco) Values (3)");
}

}  // namespace
}  // namespace posto
