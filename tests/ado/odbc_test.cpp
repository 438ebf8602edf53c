// What reaches a driver behind which SQL Server stands, and what is made of its answers.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "posto/engines/engine.h"
#include "posto/schema/table.h"
#include "tests/support/recording_driver.h"

namespace posto {
namespace {

using testing::DriverResult;
using testing::Recording;
using Calls = std::vector<std::string>;

// The driver's file stays loaded, so that the recording is the one that the driver manager's connections fill.
Recording& recording() {
  static Recording* const shared = [] {
    void* file = dlopen(POSTO_RECORDING_DRIVER, RTLD_NOW | RTLD_LOCAL);
    EXPECT_NE(file, nullptr) << dlerror();
    return reinterpret_cast<Recording* (*)()>(dlsym(file, testing::kRecordingSymbol))();
  }();
  return *shared;
}

const std::string kAddress = std::string("Driver=") + POSTO_RECORDING_DRIVER + ";PWD=segredo";
const std::string kStation = "SELECT 1 FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_NAME = 'EmpresaUsuaria'";

class SqlServer : public ::testing::Test {
 protected:
  SqlServer() {
    recording() = {};
    recording().answers[kStation] = {{.sizes = {10}, .rows = {{"1"}}}};
    engine_ = open_engine(kAddress, 5);
    engine_->execute("SET DATEFORMAT ymd DELETE FROM Banco");  // what a new connection is told is told
    recording().calls.clear();
  }

  // What reached the driver since the last time, without time-outs and what is named here.
  static Calls calls(const std::string& left_out = "timeout") {
    Calls calls;
    std::swap(calls, recording().calls);
    std::erase_if(calls,
                  [&](const std::string& call) { return call.starts_with("timeout") || call.starts_with(left_out); });
    return calls;
  }
  static void answer(const std::string& statement, std::vector<DriverResult> results) {
    recording().answers[statement] = std::move(results);
  }
  // Rows as one text: columns separated by commas, rows by blanks, "-" for null.
  std::string rows(const std::string& statement) {
    Outcome outcome = engine_->execute(statement);
    if (!outcome.cursor) return "nothing";
    const auto& columns = outcome.cursor->shape().columns();
    std::vector<Cell> row(columns.size());
    std::string text;
    while (outcome.cursor->next(row)) {
      if (!text.empty()) text += ' ';
      for (std::size_t i = 0; i < row.size(); ++i) {
        const Variant value = cell_value(row[i], columns[i].type);
        text += (i > 0 ? "," : "") + (value.is_null() ? "-" : value.as<std::string>());
      }
    }
    return text;
  }
  template <class Body>
  static Erro raised(Body&& body) {
    try {
      body();
    } catch (const Erro& e) {
      return e;
    }
    ADD_FAILURE() << "nothing was raised";
    return {0, "", ""};
  }

  std::shared_ptr<Engine> engine_;
};

TEST_F(SqlServer, GetsStatementsToTheLetter) {
  const Calls statements = {
      " SELECT   TOP 1 A.*\rFROM     Banco AS A -- {fn x} it's\rWHERE    Nm_Banco Like 'Ação?%' ;",
      "UPDATE Banco SET Banco.Nm_Banco = 'D''Água {d ''x''}'",
      "SELECT Case when Cd_Banco = 20 then 1. Else 0 End FROM Vr5.dbo.Banco WHERE Nm_Banco = Null",
      "CREATE TABLE #T (Cd int NOT NULL PRIMARY KEY)"};
  for (const std::string& statement : statements) {
    rows(statement);
    EXPECT_EQ(calls(), Calls{"direct " + statement});
  }
}

TEST_F(SqlServer, GetsTheStatementsOfABatchOneByOne) {
  rows("INSERT INTO Banco (Cd_Banco) Values (1) DELETE FROM Banco;\rSELECT Cd_Banco FROM Banco");
  EXPECT_EQ(calls(), (Calls{"direct INSERT INTO Banco (Cd_Banco) Values (1) ", "direct DELETE FROM Banco",
                            "direct SELECT Cd_Banco FROM Banco"}));
}

TEST_F(SqlServer, GetsNothingThatTheDialectDoesNotKnow) {
  for (const char* statement : {"DROP TABLE Banco", "SELECT 1 FROM sysobjects", "DELETE FROM Banco EXEC sp_who",
                                "SELECT Cd FROM Banco", "DELETE FROM Banco WHERE Cd_Banco = OBJECT_ID('x')"}) {
    EXPECT_EQ(raised([&] { rows(statement); }).number(), erro::kSyntax) << statement;
  }
  EXPECT_EQ(calls(), Calls());
}

TEST_F(SqlServer, KeepsOneStatementForAShape) {
  rows("SELECT Nm_Banco FROM Banco WHERE Cd_Banco = 1");
  const int statements = recording().open_statements;
  for (int i = 2; i < 20; ++i) rows("SELECT Nm_Banco FROM Banco WHERE Cd_Banco = " + std::to_string(i));
  EXPECT_EQ(recording().open_statements, statements);
}

TEST_F(SqlServer, GetsTheValuesOfPreparedStatementsWithoutLoss) {
  const std::string text =
      "UPDATE Pessoa SET Cd_Bairro = ?, Nm_Pessoa = ?, Dt_Nascimento = ?, No_TipoPessoa = ? WHERE Cd_Pessoa = ? And "
      "Nm_Pessoa <> 'a?'";
  auto statement = engine_->prepare(text);
  const Variant number(std::int32_t{-7}), name(std::string("Conceição 𝄞")), type(std::int32_t{255}), null{Null{}};
  const Variant moment(Date::of_moment(1999, 12, 31, 23, 59, 58).plus_millis(7));
  const Variant* const first[] = {&number, &name, &moment, &type, &number};
  const Variant* const second[] = {&null, &null, &null, &null, &number};
  EXPECT_EQ(statement->run(first).affected, 1);
  statement->run(second);
  EXPECT_EQ(calls(), (Calls{"prepare " + text,
                            "run integer -7, varchar 'Conceição 𝄞', varchar 1999-12-31T23:59:58.007, integer 255, "
                            "bigint -7",
                            "run null, null, null, null, bigint -7"}));

  auto money = engine_->prepare("UPDATE CupomFiscal SET Vl_TotalLiquido = ? WHERE Vl_TotalLiquido = ?");
  const Variant least(Currency::of_scaled(std::numeric_limits<std::int64_t>::min())), cents(Currency::of_scaled(-5));
  const Variant* const amounts[] = {&least, &cents};
  money->run(amounts);
  EXPECT_EQ(calls().back(), "run varchar -922337203685477.5808, varchar -0.0005");

  auto real = engine_->prepare("UPDATE Bomba SET No_UltEncerrante = ? WHERE Cd_Bomba = 1");
  const Variant tenths(0.1 + 0.2);
  const Variant* const figures[] = {&tenths};
  real->run(figures);
  EXPECT_EQ(calls().back(), "run double 0.30000000000000004");

  const Variant too_great(std::int32_t{256});
  const Variant* const refused[] = {&number, &name, &moment, &too_great, &number};
  EXPECT_EQ(raised([&] { statement->run(refused); }).number(), erro::kDataOverflow);
  EXPECT_EQ(calls(), Calls());
}

TEST_F(SqlServer, IsAskedForAGeneratedNumber) {
  answer("SELECT @@IDENTITY", {{.sizes = {38}, .rows = {{"51"}}}});
  engine_->execute("INSERT INTO Pessoa (Nm_Pessoa) Values ('a')");
  EXPECT_EQ(calls(), (Calls{"direct INSERT INTO Pessoa (Nm_Pessoa) Values ('a')", "direct SELECT @@IDENTITY", "fetch",
                            "fetch"}));
  EXPECT_EQ(engine_->last_identity().as<std::int32_t>(), 51);
  rows("INSERT INTO Banco (Cd_Banco) Values (1)");
  EXPECT_TRUE(engine_->last_identity().is_null());
}

TEST_F(SqlServer, ReadsValuesWithoutLoss) {
  const std::string coupons = "SELECT Vl_TotalLiquido, Dt_Emissao, Ic_Excluido FROM CupomFiscal";
  answer(coupons, {{.sizes = {19, 23, 1},
                    .rows = {{"922337203685477.5807", "1753-01-01 00:00:00", "1"},
                             {"-.0001", "2009-04-03 10:15:30.003333333", "0"},
                             {"1.25E-2", std::nullopt, "0"},
                             {std::nullopt, "9999-12-31 23:59:59.997", "1"}}}});
  EXPECT_EQ(rows(coupons),
            "922337203685477.5807,1753-01-01 00:00:00,True -0.0001,2009-04-03 10:15:30.003,False "
            "0.0125,-,False -,9999-12-31 23:59:59.997,True");
  const std::string banks = "SELECT Cd_Bairro, Nm_Bairro FROM Bairro";
  answer(banks, {{.sizes = {10, 90}, .rows = {{"-2147483648", "  Água 𝄞 "}, {"1", ""}, {"2", std::string(90, 'x')}}}});
  EXPECT_EQ(rows(banks), "-2147483648,  Água 𝄞  1, 2," + std::string(90, 'x'));
  // Nobody knows how long these are: each is got on its own, in pieces.
  const std::string texts = "SELECT 'a' + Nm_Banco, Cd_Banco FROM Banco";
  std::string lengthy;
  for (int i = 0; i < 1500; ++i) lengthy += "é𝄞";
  answer(texts, {{.sizes = {0, 10}, .rows = {{lengthy, "1"}, {std::nullopt, "2"}}}});
  EXPECT_EQ(rows(texts), lengthy + ",1 -,2");

  struct {
    const char* statement;
    const char* value;
  } const beyond[] = {{"SELECT Vl_TotalLiquido FROM CupomFiscal", "922337203685477.5808"},
                      {"SELECT Cd_Bairro FROM Bairro", "2147483648"},
                      {"SELECT Dt_Emissao FROM CupomFiscal", "2009-02-30 00:00:00"}};
  for (const auto& c : beyond) {
    answer(c.statement, {{.sizes = {20}, .rows = {{c.value}}}});
    EXPECT_EQ(raised([&] { rows(c.statement); }).number(), erro::kDataOverflow) << c.value;
  }
}

TEST_F(SqlServer, RowsComeInBlocksWhenTheyAreAskedFor) {
  const std::string statement = "SELECT Cd_Banco FROM Banco";
  DriverResult many{.sizes = {10}};
  std::int64_t sum = 0;
  for (int i = 1; i <= 1000; ++i) many.rows.push_back({std::to_string(i)});
  answer(statement, {many});
  {
    Outcome outcome = engine_->execute(statement);
    EXPECT_EQ(calls(), Calls());
    Cell cell;
    for (int i = 0; i < 300 && outcome.cursor->next({&cell, 1}); ++i) sum += cell.integer;
    EXPECT_EQ(calls().size(), 1u + 3);
    rows("DELETE FROM Banco WHERE Cd_Banco = 1");  // the connection is needed: what is left is taken in first
    EXPECT_EQ(calls("fetch"), Calls{"direct DELETE FROM Banco WHERE Cd_Banco = 1"});
    while (outcome.cursor->next({&cell, 1})) sum += cell.integer;
  }
  EXPECT_EQ(calls(), Calls());
  EXPECT_EQ(sum, 500'500);
}

TEST_F(SqlServer, RowCountsInFrontOfRowsAreSkippedAndTheFirstRowsTaken) {
  const std::string statement = "SELECT Cd_Banco FROM Banco";
  answer(statement, {DriverResult::count(3),
                     DriverResult::count(-1),
                     {.sizes = {10}, .rows = {{"1"}, {"2"}}},
                     {.sizes = {10}, .rows = {{"9"}}}});
  EXPECT_EQ(rows(statement), "1 2");
  // What fails behind the rows is told all the same.
  answer(statement, {{.sizes = {10}, .rows = {{"1"}}}, DriverResult::failure("22012", 8134, "x")});
  EXPECT_EQ(raised([&] { rows(statement); }).number(), erro::kSyntax);
  answer("DELETE FROM Banco", {DriverResult::count(2), DriverResult::count(5)});
  EXPECT_EQ(engine_->execute("DELETE FROM Banco").affected, 5);
}

TEST_F(SqlServer, IsToldWhatASessionChanges) {
  engine_->set_command_timeout(7);
  rows("DELETE FROM Banco");
  rows("DELETE FROM Banco");
  EXPECT_EQ(recording().calls, (Calls{"timeout 7", "direct DELETE FROM Banco", "direct DELETE FROM Banco"}));
  calls();
  rows("SET DATEFORMAT ydm; DELETE FROM Banco");
  engine_->begin();
  rows("DELETE FROM Banco");
  engine_->rollback();
  rows("DELETE FROM Banco");
  EXPECT_EQ(calls(),
            (Calls{"direct SET DATEFORMAT ydm", "direct DELETE FROM Banco", "begin", "direct DELETE FROM Banco",
                   "rollback", "direct SET DATEFORMAT ydm", "direct DELETE FROM Banco"}));
}

TEST_F(SqlServer, FailuresKeepWhatItSaid) {
  struct {
    const char* state;
    std::int32_t native, number;
    const char* words;
  } const cases[] = {{"23000", 2627, erro::kIntegrity, "Violation of PRIMARY KEY"},
                     {"23000", 515, erro::kIntegrity, "Violation of PRIMARY KEY"},
                     {"22001", 8152, erro::kDataOverflow, "Violation of PRIMARY KEY"},
                     {"22003", 8115, erro::kDataOverflow, "Estouro aritmético"},
                     {"22012", 8134, erro::kSyntax, "Divisão por zero"},
                     {"22018", 245, erro::kConversion, "Violation of PRIMARY KEY"},
                     {"22007", 241, erro::kConversion, "Violation of PRIMARY KEY"},
                     {"42S22", 207, erro::kSyntax, "Violation of PRIMARY KEY"},
                     {"40001", 1205, erro::kTimeout, "Duas transações esperavam uma pela outra"},
                     {"HYT00", 0, erro::kTimeout, "Violation of PRIMARY KEY"},
                     {"HY000", 9002, erro::kProviderFailure, "Violation of PRIMARY KEY"}};
  const std::string statement = "INSERT INTO Banco (Cd_Banco) Values (1)";
  for (const auto& c : cases) {
    answer(statement, {DriverResult::failure(c.state, c.native, "[Any][Driver][SQL Server]Violation of PRIMARY KEY")});
    const Erro e = raised([&] { rows("DELETE FROM Banco " + statement); });
    EXPECT_EQ(e.number(), c.number) << c.state;
    EXPECT_EQ(e.source(), "SQL Server");
    EXPECT_EQ(e.description(), c.words);
    ASSERT_TRUE(e.provider());
    EXPECT_EQ(e.provider()->sqlstate, c.state);
    EXPECT_EQ(e.provider()->native_code, c.native);
    EXPECT_EQ(e.provider()->statement, statement);
    EXPECT_TRUE(e.provider()->connection_good);
  }
}

TEST_F(SqlServer, AFailureMayEndTheTransaction) {
  const std::string statement = "UPDATE Banco SET Nm_Banco = 'x'";
  answer(statement, {DriverResult::failure("23000", 547, "x")});
  for (const char* open : {"1", "0"}) {
    answer("SELECT @@TRANCOUNT", {{.sizes = {10}, .rows = {{open}}}});
    engine_->begin();
    raised([&] { rows(statement); });
    EXPECT_EQ(engine_->in_transaction(), std::string(open) == "1");
    if (engine_->in_transaction()) engine_->commit();
  }
}

TEST_F(SqlServer, ALostConnectionIsToldAndNothingIsTriedAgain) {
  const std::string statement = "INSERT INTO Banco (Cd_Banco) Values (1)";
  engine_->begin();
  calls();
  answer(statement, {DriverResult::failure("08S01", 10054, "[x]Communication link failure")});
  const Erro e = raised([&] { rows(statement); });
  EXPECT_EQ(e.number(), erro::kProviderFailure);
  ASSERT_TRUE(e.provider());
  EXPECT_FALSE(e.provider()->connection_good);
  EXPECT_EQ(e.provider()->native_code, 10054);
  EXPECT_FALSE(engine_->in_transaction());
  EXPECT_EQ(calls(), Calls{"direct " + statement});
}

TEST_F(SqlServer, ShowsAPlan) {
  const std::string statement = "SELECT Cd_Banco FROM Banco WHERE Cd_Banco = 1";
  answer(statement, {{.sizes = {200}, .rows = {{statement}}}, {.sizes = {200}, .rows = {{"|--Clustered Index Seek"}}}});
  EXPECT_EQ(engine_->explain(statement), statement + "\n|--Clustered Index Seek\n");
  const Calls told = calls("fetch");
  EXPECT_EQ(told.front(), "direct SET SHOWPLAN_TEXT ON");
  EXPECT_EQ(told.back(), "direct SET SHOWPLAN_TEXT OFF");
}

TEST_F(SqlServer, ANewDatabaseGetsAllTablesOrNone) {
  const Erro stands = raised([] { create_database(kAddress, 5); });
  EXPECT_EQ(stands.number(), erro::kProviderFailure);
  EXPECT_NE(stands.description().find("posto1 já existe"), std::string::npos);

  answer(kStation, {{.sizes = {10}}});
  calls();
  create_database(kAddress, 5);
  const Calls told = calls();
  const auto tables = std::ranges::count_if(told, [](const auto& c) { return c.starts_with("direct CREATE TABLE "); });
  EXPECT_EQ(static_cast<std::size_t>(tables), all_tables().size());
  EXPECT_EQ(std::ranges::count(told, "begin"), 1);
  EXPECT_NE(std::ranges::find(told, "commit"), told.end());
  EXPECT_EQ(raised([] { open_engine(kAddress, 5); }).description(), "O banco posto1 não é um banco do posto");
}

TEST_F(SqlServer, AnotherServerIsRefused) {
  recording().dbms = "Oracle";
  const Erro e = raised([] { open_engine(kAddress, 5); });
  EXPECT_EQ(e.number(), erro::kProviderFailure);
  EXPECT_EQ(e.description(), "O servidor Oracle não é conhecido: por ODBC só SQL Server e PostgreSQL");
  const Erro missing = raised([] { open_engine("driver=/nowhere.so;pwd=segredo", 5); });
  EXPECT_EQ(missing.number(), erro::kProviderFailure);
  EXPECT_EQ(missing.description().find("segredo"), std::string::npos);
}

TEST(OdbcAddress, IsShownWithoutItsPassword) {
  struct {
    const char* address;
    const char* shown;
  } const cases[] = {
      {"Driver=FreeTDS;Server=a;PWD=x y", "Driver=FreeTDS;Server=a;PWD=***;"},
      {"dsn=Posto; Password = {a;b}}c} ;UID=u", "dsn=Posto;Password=***;UID=u;"},
      {"DRIVER={ODBC Driver 18 for SQL Server};pwd={};UID=", "DRIVER={ODBC Driver 18 for SQL Server};pwd=***;UID=;"},
      {"sqlite:/x;dsn.db", "sqlite:/x;dsn.db"}};
  for (const auto& c : cases) EXPECT_EQ(shown_address(c.address), c.shown);
}

}  // namespace
}  // namespace posto
