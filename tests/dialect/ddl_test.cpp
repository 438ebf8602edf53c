// The tables and indexes as SQLite gets them: accepted by it, and keeping the limits that the catalogue states.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <memory>
#include <string>

#include "posto/schema/table.h"
#include "posto/tsql/names.h"
#include "posto/tsql/postgres_ddl.h"
#include "posto/tsql/sqlite_ddl.h"

namespace posto::tsql {
namespace {

class Ddl : public ::testing::Test {
 protected:
  Ddl() {
    sqlite3* opened = nullptr;
    EXPECT_EQ(sqlite3_open(":memory:", &opened), SQLITE_OK);
    database_.reset(opened);
    sqlite3_create_collation(opened, std::string(kSqliteCollation).c_str(), SQLITE_UTF8, nullptr,
                             [](void*, int n, const void* a, int m, const void* b) {
                               return std::string_view(static_cast<const char*>(a), static_cast<std::size_t>(n))
                                   .compare({static_cast<const char*>(b), static_cast<std::size_t>(m)});
                             });
  }

  // The message of SQLite's refusal; empty when it ran.
  std::string run(const std::string& statement) {
    char* message = nullptr;
    sqlite3_exec(database_.get(), statement.c_str(), nullptr, nullptr, &message);
    std::string text = message == nullptr ? "" : message;
    sqlite3_free(message);
    return text;
  }

  void create(const Table& table, bool temporary) {
    EXPECT_EQ(run(sqlite_create_table(table, temporary)), "");
    if (temporary) return;
    for (const std::string& index : sqlite_create_indexes(table)) EXPECT_EQ(run(index), "") << index;
  }

 private:
  struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
  };
  std::unique_ptr<sqlite3, Close> database_;
};

// A value that the column takes, or (`beyond`) one just past its limit.
std::string literal(const Column& column, bool beyond) {
  switch (column.type) {
    case SqlType::bit:
      return beyond ? "2" : "1";
    case SqlType::byte:
      return beyond ? "256" : "255";
    case SqlType::int16:
      return beyond ? "-32769" : "-32768";
    case SqlType::int32:
      return beyond ? "2147483648" : "2147483647";
    case SqlType::money:
      return beyond ? "1.5" : "12345";
    case SqlType::float32:
    case SqlType::float64:
      return beyond ? "'x'" : "0.5";
    case SqlType::date:
      return "'2009-04-03 10:15:30'";
    case SqlType::text:
      break;
  }
  std::string text = "'";
  for (int i = 0; i < column.width + (beyond ? 1 : 0); ++i) text += "ç";  // two bytes, one character
  return text + "'";
}

// An insert of a full row; `changed`, if given, gets the value `instead`.
std::string insert(const Table& table, const Column* changed = nullptr, const std::string& instead = "") {
  std::string columns;
  std::string values;
  for (const Column& column : table.columns) {
    if (column.identity) continue;
    columns += (columns.empty() ? "" : ", ") + quoted_name(column.name);
    values += (values.empty() ? "" : ", ") + (&column == changed ? instead : literal(column, false));
  }
  if (columns.empty()) return "INSERT INTO " + quoted_name(table.name) + " DEFAULT VALUES";
  return "INSERT INTO " + quoted_name(table.name) + " (" + columns + ") VALUES (" + values + ")";
}

// Whether no part of the key is generated.
bool has_given_key(const Table& table) {
  return table.has_key() && std::none_of(table.columns.begin(), table.columns.end(),
                                         [](const Column& column) { return column.key && column.identity; });
}

TEST_F(Ddl, EveryTableTakesAFullRowAndRefusesWhatIsPastALimit) {
  for (const Table& table : all_tables()) {
    SCOPED_TRACE(std::string(table.name));
    create(table, false);
    for (const Column& column : table.columns) {
      if (column.identity) continue;
      const std::string where = std::string(table.name) + "." + std::string(column.name);
      if (column.type != SqlType::date) {
        EXPECT_NE(run(insert(table, &column, literal(column, true))).find(where), std::string::npos) << where;
      }
      if (!column.nullable) {
        EXPECT_NE(run(insert(table, &column, "NULL")).find(where), std::string::npos) << where;
      }
    }
    EXPECT_EQ(run(insert(table)), "");
    if (has_given_key(table)) {
      EXPECT_NE(run(insert(table)).find("UNIQUE constraint failed"), std::string::npos);
    }
  }
}

TEST_F(Ddl, EveryTableCanBeTemporary) {
  for (const Table& table : all_tables()) {
    SCOPED_TRACE(std::string(table.name));
    create(table, true);
    EXPECT_EQ(run(insert(table)), "");
  }
}

// A partition keeps its keys alone, and may lie on another server, which generates numbers of its own.
TEST(PartitionedTables, AreKeyedByTheirCompany) {
  int partitioned = 0;
  for (const Table& table : all_tables()) {
    if (!grows_by_company(table)) continue;
    ++partitioned;
    EXPECT_EQ(table.identity(), nullptr) << table.name;
    EXPECT_TRUE(table.columns[0].key && table.columns[0].name == "Cd_PessoaUsuaria") << table.name;
    for (const Index& index : table.indexes) {
      EXPECT_TRUE(!index.unique || index.columns.starts_with("Cd_PessoaUsuaria")) << table.name;
    }
  }
  EXPECT_EQ(partitioned, 9);
}

TEST_F(Ddl, AnAlternativeKeyIsKept) {
  create(*find_table("Bomba"), false);
  const std::string head = "INSERT INTO Bomba (Cd_PessoaUsuaria, Cd_Bomba, De_EnderecoLogicoBico) VALUES ";
  EXPECT_EQ(run(head + "(1, 1, '04')"), "");
  EXPECT_EQ(run(head + "(2, 1, '04')"), "");
  EXPECT_NE(run(head + "(1, 2, '04')").find("Bomba.De_EnderecoLogicoBico"), std::string::npos);
}

}  // namespace
}  // namespace posto::tsql
