#include "posto/core/sql_literals.h"

#include <limits>

#include "tests/core/failures.h"

namespace posto {
namespace {

TEST(SqlLiterals, WholeNumbersAreNullOnlyWhenZeroAndAsked) {
  EXPECT_EQ(IntToSql(0, false), "0");
  EXPECT_EQ(IntToSql(0, true), "Null");
  EXPECT_EQ(IntToSql(5, true), "5");
  EXPECT_EQ(IntToSql(std::numeric_limits<std::int32_t>::min(), true), "-2147483648");
  EXPECT_EQ(SmallIntToSql(-32768, false), "-32768");
  EXPECT_EQ(SmallIntToSql(0, true), "Null");
  EXPECT_EQ(TinyIntToSql(255, true), "255");
}

TEST(SqlLiterals, FiguresHaveTheirDecimalsAndAPoint) {
  struct {
    double value;
    std::uint8_t decimals;
    const char* literal;
  } const cases[] = {{3, 0, "3."},
                     {-0.5, 2, "-0.50"},
                     {0, 2, "0.00"},
                     {2.675, 2, "2.68"},
                     {-0.004, 2, "0.00"},
                     {1234567.891, 3, "1234567.891"},
                     {0.5, 0, "1."},
                     {1e15, 1, "1000000000000000.0"},
                     {0.1, 30, "0.100000000000000000000000000000"}};
  for (const auto& c : cases) EXPECT_EQ(DoubleToSql(c.value, c.decimals), c.literal);

  EXPECT_EQ(MoneyToSql(Currency::parse("-0.5"), 2), "-0.50");
  EXPECT_EQ(MoneyToSql(Currency::parse("12.345"), 2), "12.35");
  EXPECT_EQ(MoneyToSql(Currency::parse("922337203685477.5807"), 4), "922337203685477.5807");
  // 2.675 as a 32-bit float lies below 2.675; its shortest form is what rounds.
  EXPECT_EQ(FloatToSql(2.675F, 2), "2.68");
  EXPECT_EQ(SingleToSql(16.4F, 3), "16.400");
  EXPECT_EQ(RealToSql(12.0F, 0), "12.");
}

TEST(SqlLiterals, TextIsCutByCharactersAndNotEscaped) {
  struct {
    const char* value;
    std::int16_t max_length;
    bool empty_is_null;
    const char* literal;
  } const cases[] = {{"O'Brien", 20, false, "'O'Brien'"}, {"", 5, true, "Null"},      {"", 5, false, "''"},
                     {" a ", 5, true, "' a '"},           {"ação", 3, true, "'açã'"}, {"abc", 0, true, "''"}};
  for (const auto& c : cases) EXPECT_EQ(VarCharToSql(c.value, c.max_length, c.empty_is_null), c.literal);
}

TEST(SqlLiterals, DatesFollowTheSettings) {
  VOSistema settings;
  const Date moment = Date::of_moment(2007, 3, 5, 14, 2, 9);
  EXPECT_EQ(DateSemHoraToSql(moment, settings), "'2007-03-05'");
  EXPECT_EQ(DateComHoraToSql(moment, settings), "'2007-03-05 14:02:09'");
  EXPECT_EQ(DateComHoraToSql(Date(), settings), "'1899-12-30 00:00:00'");
  settings.Ds_FormatoData = "mm/dd/yyyy";
  EXPECT_EQ(DateComHoraToSql(moment, settings), "'03/05/2007 14:02:09'");
}

TEST(SqlLiterals, AppendingLeavesWhatStandsInFront) {
  VOSistema settings;
  std::string out = "(";
  TinyIntToSql(out, 1, true);
  VarCharToSql(out += ", ", "x", 1, true);
  MoneyToSql(out += ", ", Currency(2), 2);
  DateSemHoraToSql(out += ", ", Date::of_day(2000, 2, 29), settings);
  BitToSql(out += ", ", true);
  EXPECT_EQ(out, "(1, 'x', 2.00, '2000-02-29', -1");
  EXPECT_EQ(BitToSql(false), "0");
  EXPECT_EQ(BooleanToBit(true), -1);
}

TEST(SqlLiterals, CommasBecomePointsAndBlanksShortenTheText) {
  EXPECT_EQ(SubstituirVirgulaPorPonto("1.234,50"), "1.234.50");
  EXPECT_EQ(SubstituirVirgulaPorPonto("12,5  "), "12.5");
  EXPECT_EQ(SubstituirVirgulaPorPonto("  12,50"), "  12.");
  EXPECT_EQ(SubstituirVirgulaPorPonto("   "), "");
  EXPECT_EQ(SubstituirVirgulaPorPonto(std::string(32766, ',')), std::string(32766, '.'));
}

TEST(SqlLiterals, FailuresNameTheRoutine) {
  VOSistema settings;
  settings.Ds_FormatoData = "mmm";
  const double nan = std::numeric_limits<double>::quiet_NaN();
  expect_failure(erro::kInvalidCall, " -> , vr5.DoubleToSql, ", [&] { DoubleToSql(nan, 2); });
  expect_failure(erro::kInvalidCall, " -> , vr5.RealToSql, ", [&] { RealToSql(static_cast<float>(nan), 2); });
  expect_failure(erro::kInvalidCall, " -> , vr5.VarCharToSql, ", [] { VarCharToSql("a", -1, true); });
  expect_failure(erro::kInvalidCall, " -> , vr5.DateComHoraToSql, ", [&] { DateComHoraToSql(Date(), settings); });
  expect_failure(erro::kOverflow, " -> cdpModulo.SubstituirVirgulaPorPonto, ",
                 [] { SubstituirVirgulaPorPonto(std::string(32767, ',')); });
}

}  // namespace
}  // namespace posto
