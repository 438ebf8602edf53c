// Values at the edges of their types: every engine keeps them as they are or refuses them, and in the same way.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "posto/engines/engine.h"
#include "tests/support/test_database.h"
#include "tests/types/raised.h"

namespace posto {
namespace {

const std::string kTooLong(41, 'x'), kLong(300'000, 'x');

class Extremes : public ::testing::Test {
 protected:
  Extremes() { engine_->execute("CREATE TABLE #T (Vl Money, Re Real, Fl Float, Dt DateTime, Tx VarChar(40))"); }

  // The first field of the first row.
  Variant ask(const std::string& query) {
    const Outcome outcome = engine_->execute(query);
    std::vector<Cell> row(outcome.cursor->shape().columns().size());
    if (!outcome.cursor->next(row)) return {};
    return cell_value(row[0], outcome.cursor->shape().columns()[0].type);
  }
  // A value that went in beside the statement and came back.
  Variant kept(const std::string& column, const Variant& value) {
    engine_->execute("DELETE FROM #T");
    const Variant* const values[] = {&value};
    engine_->prepare("INSERT INTO #T (" + column + ") Values (?)")->run(values);
    return ask("SELECT " + column + " FROM #T");
  }

  testing::TestDatabase database_;
  std::shared_ptr<Engine> engine_ = database_.open();
};

TEST_F(Extremes, AreKeptAsTheyAre) {
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
  const std::pair<const char*, Variant> values[] = {
      {"Vl", Currency::of_scaled(kMost)},
      {"Vl", Currency::of_scaled(-kMost - 1)},
      {"Re", std::numeric_limits<float>::max()},
      {"Re", std::numeric_limits<float>::denorm_min()},
      {"Fl", std::numeric_limits<double>::max()},
      {"Fl", std::numeric_limits<double>::denorm_min()},
      {"Dt", Date::of_day(1753, 1, 1)},
      {"Dt", Date::of_moment(1899, 12, 29, 23, 59, 59)},
      {"Dt", Date::of_moment(9999, 12, 31, 23, 59, 59)},
      {"Tx", std::string("a\xF0\x9F\x98\x80 '\\$1?")},
      {"Tx", std::string()},
  };
  for (const auto& [column, value] : values) {
    EXPECT_EQ(kept(column, value).as<std::string>(), value.as<std::string>()) << column;
    EXPECT_TRUE(kept(column, Null{}).is_null()) << column;
  }
  EXPECT_EQ(ask("SELECT '" + kLong + "' + 'é'").as<std::string>(), kLong + "é");
}

TEST_F(Extremes, WithoutRoomAreRefused) {
  const double infinite = std::numeric_limits<double>::infinity();
  const std::pair<const char*, Variant> values[] = {{"Vl", 1e300},    {"Vl", infinite}, {"Re", 1e39},
                                                    {"Re", infinite}, {"Fl", infinite}, {"Fl", std::nan("")},
                                                    {"Tx", kTooLong}};
  for (const auto& value : values) {
    EXPECT_EQ(raised([&] { kept(value.first, value.second); }), erro::kDataOverflow) << value.first;
  }
  engine_->execute("INSERT INTO #T (Vl, Re, Fl) Values (922337203685477.5807, 3.4e38, 1.7e308)");
  for (const char* statement : {"UPDATE #T SET Vl = 922337203685477.58075", "UPDATE #T SET Vl = Vl + 0.0001",
                                "UPDATE #T SET Re = 3.5e38", "UPDATE #T SET Re = Fl", "UPDATE #T SET Fl = 1e309"}) {
    EXPECT_EQ(raised([&] { engine_->execute(statement); }), erro::kDataOverflow) << statement;
  }
  for (const char* expression : {"Vl + 1", "Vl * Vl", "Vl * Fl", "Re * 10", "Fl * 10"}) {
    EXPECT_EQ(raised([&] { ask(std::string("SELECT ") + expression + " FROM #T"); }), erro::kDataOverflow)
        << expression;
  }
}

// What is not UTF-8, or holds the character 0, has no place on a server.
TEST_F(Extremes, TextThatIsNoneIsRefusedByAServer) {
  if (database_.embedded()) GTEST_SKIP() << "a file keeps bytes as they are";
  for (const std::string& text : {std::string("a\0b", 3), std::string("caf\xE9"), std::string("a\xED\xA0\x80")}) {
    EXPECT_EQ(raised([&] { kept("Tx", text); }), erro::kConversion);
    EXPECT_EQ(raised([&] { ask("SELECT '" + text + "'"); }), erro::kConversion);
  }
  EXPECT_EQ(kept("Tx", std::string("still here")).as<std::string>(), "still here");
}

}  // namespace
}  // namespace posto
