// The tables and indexes as SQL Server gets them. No such server is at hand: what it gets was read by a person once,
// and stands in sqlserver_ddl.sql; every table of the catalogue is made of the same parts.
#include "posto/tsql/sqlserver_ddl.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "posto/schema/table.h"

namespace posto::tsql {
namespace {

constexpr Column kColumns[] = {
    {.name = "Cd_PessoaUsuaria", .type = SqlType::int32, .key = true, .nullable = false},
    {.name = "Cd_Lancamento", .type = SqlType::int32, .key = true, .identity = true, .nullable = false},
    {.name = "Cd_Destinatário", .type = SqlType::int16},
    {.name = "No_Tipo", .type = SqlType::byte, .nullable = false, .default_value = "0"},
    {.name = "Fl_Excluido", .type = SqlType::bit, .nullable = false, .default_value = "0"},
    {.name = "Vl_Total", .type = SqlType::money},
    {.name = "Qt_Litros", .type = SqlType::float32, .nullable = false},
    {.name = "No_Encerrante", .type = SqlType::float64},
    {.name = "Dt_Emissao", .type = SqlType::date},
    {.name = "De_Historico", .type = SqlType::text, .width = 80},
    {.name = "De_Livre", .type = SqlType::text}};
constexpr Index kIndexes[] = {{.columns = "Cd_PessoaUsuaria, Dt_Emissao"},
                              {.columns = "Cd_PessoaUsuaria, No_Tipo", .unique = true},
                              {.columns = "Cd_PessoaUsuaria, De_Historico", .unique = true},
                              {.columns = "Dt_Emissao", .only_where_zero = "Fl_Excluido"}};
constexpr Column kPlainColumns[] = {{.name = "Nm_Item", .type = SqlType::text, .width = 8000}};
constexpr Table kTables[] = {{.name = "Lancamento", .columns = kColumns, .indexes = kIndexes},
                             {.name = "Temp", .columns = kPlainColumns, .indexes = {}}};

std::string definition(const Table& table) {
  std::string text = sqlserver_create_table(table) + ";\n";
  for (const std::string& index : sqlserver_create_indexes(table)) text += index + ";\n";
  return text;
}

TEST(SqlServerDdl, IsAsItWasReviewed) {
  std::ifstream file(POSTO_SOURCE_DIR "/tests/dialect/sqlserver_ddl.sql");
  const std::string reviewed{std::istreambuf_iterator<char>(file), {}};
  std::string written;
  for (const Table& table : kTables) written += definition(table) + "\n";
  EXPECT_EQ(written, reviewed);
}

// What the server itself would refuse.
TEST(SqlServerDdl, EveryTableIsWithinTheServersLimits) {
  constexpr std::size_t kLongestName = 128, kLongestIndexKey = 1700;
  std::set<std::string> names;
  for (const Table& table : all_tables()) {
    SCOPED_TRACE(std::string(table.name));
    int generated = 0;
    for (const Column& column : table.columns) {
      generated += column.identity ? 1 : 0;
      EXPECT_LE(column.width, 8000) << column.name;
      EXPECT_TRUE(!column.key || !column.nullable) << column.name;
    }
    EXPECT_LE(generated, 1);
    for (const Index& index : table.indexes) {
      std::size_t bytes = 0;
      for (const Column& column : table.columns) {
        if ((", " + std::string(index.columns) + ",").find(" " + std::string(column.name) + ",") != std::string::npos)
          bytes += column.type == SqlType::text ? column.width : 8;
      }
      EXPECT_LE(bytes, kLongestIndexKey) << index.columns;
    }
    for (const std::string& index : sqlserver_create_indexes(table)) {
      const std::size_t begin = index.find('"') + 1;
      const std::string name = index.substr(begin, index.find('"', begin) - begin);
      EXPECT_LE(name.size(), kLongestName);
      EXPECT_TRUE(names.insert(name).second) << name << " stands twice";
    }
  }
}

}  // namespace
}  // namespace posto::tsql
