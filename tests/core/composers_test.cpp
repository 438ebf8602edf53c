#include "posto/core/composers.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "tests/core/failures.h"

namespace posto {
namespace {

// One property of each type.
struct Sample {
  bool Ic = true;
  std::uint8_t Byte = 255;
  std::int16_t Curto = -7;
  std::int32_t Codigo = 42;
  float Real = 1.5F;
  double Duplo = 12.25;
  Currency Valor = Currency::parse("12.35");
  Date Dia = Date::of_day(2007, 3, 5);
  std::string Nome = "D'Ávila";
};

constexpr Property kProperties[] = {
    {"Ic", SqlType::bit, 0, offsetof(Sample, Ic)},         {"Byte", SqlType::byte, 0, offsetof(Sample, Byte)},
    {"Curto", SqlType::int16, 0, offsetof(Sample, Curto)}, {"Codigo", SqlType::int32, 0, offsetof(Sample, Codigo)},
    {"Real", SqlType::float32, 0, offsetof(Sample, Real)}, {"Duplo", SqlType::float64, 0, offsetof(Sample, Duplo)},
    {"Valor", SqlType::money, 0, offsetof(Sample, Valor)}, {"Dia", SqlType::date, 0, offsetof(Sample, Dia)},
    {"Nome", SqlType::text, 60, offsetof(Sample, Nome)},
};

using List = std::vector<std::string_view>;
const List kEveryKey = {"Ic", "Byte", "Curto", "Codigo", "Real", "Duplo", "Valor", "Dia", "Nome"};

class Composers : public ::testing::Test {
 protected:
  std::string select(const List& fields, const List& keys, const List& groups = {}, const List& having = {},
                     const List& order = {}) {
    return readable(sqlSelect(settings_, "T", vo_, fields, keys, groups, having, order));
  }
  std::string select2(bool include_deleted, const List& keys, const List& groups = {}) {
    return readable(sqlSelect2(settings_, "T", vo_, {}, keys, include_deleted, groups));
  }
  // The statement with "|" for its carriage returns.
  static std::string readable(std::string statement) {
    std::ranges::replace(statement, '\r', '|');
    return statement;
  }

  VOSistema settings_;
  Sample sample_;
  VoLayout layout_{"VOT", kProperties, [](void* object) { *static_cast<Sample*>(object) = {}; }};
  ValueObject vo_{&sample_, layout_};
};

TEST_F(Composers, SelectLaysItsClausesOut) {
  EXPECT_EQ(select({}, {}), "SELECT    * |FROM     T |");
  EXPECT_EQ(select({}, {"Codigo"}), "SELECT    * |FROM     T |WHERE    Codigo = 42  |");
  EXPECT_EQ(select({"Codigo", "Sum(Valor) as Total"}, {"Byte", "Curto", "codigo"}, {"Codigo", "Nome"},
                   {"Byte", "Curto"}, {"Nome Desc", "Codigo"}),
            "SELECT   Codigo, |         Sum(Valor) as Total |"
            "FROM     T |"
            "WHERE    Byte = 255 and |         Curto = -7 and |         codigo = 42  |"
            "GROUP BY Codigo, |         Nome |"
            "HAVING Byte = 255 and |         Curto = -7 |"
            "ORDER BY Nome Desc, |         Codigo |");
}

TEST_F(Composers, SelectComparesEachTypeInItsOwnForm) {
  EXPECT_EQ(
      select({}, kEveryKey),
      "SELECT    * |FROM     T |"
      "WHERE    Ic <> 0 and |         Byte = 255 and |         Curto = -7 and |         Codigo = 42 and |"
      "         and |         "  // a 32-bit float is not compared
      "Duplo = 12.3 and |         Valor = 12.4 and |         Dia = '2007-03-05' and |         Nome = 'D'Ávila'  |");
  sample_.Ic = false;
  EXPECT_EQ(select({}, {"Ic"}), "SELECT    * |FROM     T |WHERE    Ic = 0  |");
  EXPECT_EQ(select({}, {}, {}, kEveryKey),
            "SELECT    * |FROM     T |"
            "HAVING and |         Byte = 255 and |         Curto = -7 and |         Codigo = 42 and |"
            "         and |         and |         "
            "Valor = 12.4 and |         Dia = '2007-03-05' and |         Nome = 'D'Ávila' |");
}

TEST_F(Composers, Select2LeavesDeletedRecordsOut) {
  EXPECT_EQ(select2(true, {"Codigo"}), "SELECT    * |FROM     T |WHERE    Codigo = 42  |");
  EXPECT_EQ(select2(false, {"Codigo"}, {"Nome"}),
            "SELECT    * |FROM     T |WHERE    Codigo = 42  |         and Ic_Excluido = 0GROUP BY Nome |");
  EXPECT_EQ(select2(false, {}), "SELECT    * |FROM     T |and |WHERE        Ic_Excluido = 0");
}

TEST_F(Composers, DeleteWritesMoneyInFullAndSkipsFloatsAndBooleans) {
  const std::string conditions =
      "      and Byte = 255 |      and Curto = -7 |      and Codigo = 42 |      and       and       and "
      "Valor = 12.35 |      and Dia = '2007-03-05' |      and Nome = 'D'Ávila' |";
  EXPECT_EQ(readable(sqlDelete(settings_, "T", vo_, kEveryKey)), "DELETE |FROM T |WHERE " + conditions);
  EXPECT_EQ(readable(sqlIndicadorExcluido(settings_, "T", vo_, kEveryKey)),
            "UPDATE T |SET    Ic_Excluido = -1|WHERE " + conditions);
  sample_.Valor = Currency(3);
  const List key = {"Valor"};
  EXPECT_EQ(readable(sqlDelete(settings_, "T", vo_, key)), "DELETE |FROM T |WHERE Valor = 3 |");
}

TEST_F(Composers, OtherDatabasesGetTheEmptyText) {
  const List unknown = {"Nada"};
  for (const std::int32_t database : {BancoDadosAcess1997, BancoDadosAcess2000}) {
    settings_.Cd_BD = database;
    EXPECT_EQ(select({}, unknown), "");
    EXPECT_EQ(select2(false, unknown), "");
    EXPECT_EQ(sqlDelete(settings_, "T", vo_, unknown), "");
    EXPECT_EQ(sqlIndicadorExcluido(settings_, "T", vo_, unknown), "");
  }
}

TEST_F(Composers, AnUnknownKeyIsNamedByTheComposer) {
  const List keys = {"Codigo", "Nada"};
  expect_failure(erro::kUnknownMember, " -> DALModulo.sqlSelect, ", [&] { select({}, keys); });
  expect_failure(erro::kUnknownMember, " -> DALModulo.sqlSelect2, ", [&] { select2(true, keys); });
  expect_failure(erro::kUnknownMember, " -> DALModulo.sqlDelete, ", [&] { sqlDelete(settings_, "T", vo_, keys); });
  expect_failure(erro::kUnknownMember, " -> DALModulo.sqlIndicadorExcluido, ",
                 [&] { sqlIndicadorExcluido(settings_, "T", vo_, keys); });
  settings_.Ds_FormatoData = "mmm";
  expect_failure(erro::kInvalidCall, " -> DALModulo.sqlSelect, ", [&] { select({}, {"Dia"}); });
}

TEST_F(Composers, APropertyIsReadOrReportedAsMissing) {
  Variant value = "antes";
  EXPECT_TRUE(LerPropriedadeVO(vo_, "VALOR", value));
  EXPECT_EQ(value, Variant(Currency::parse("12.35")));
  EXPECT_FALSE(LerPropriedadeVO(vo_, "Nada", value));
  EXPECT_TRUE(value.is_empty());
}

}  // namespace
}  // namespace posto
