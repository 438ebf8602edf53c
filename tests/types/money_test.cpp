#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

#include "posto/types/currency.h"
#include "posto/types/erro.h"
#include "posto/types/rounding.h"
#include "tests/types/raised.h"

namespace posto {
namespace {

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

TEST(Currency, RoundsDoublesHalfToEvenOnTheirDecimalForm) {
  const std::tuple<double, std::int64_t> cases[] = {{0.00005, 0},
                                                    {0.00015, 2},
                                                    {1.00005, 10'000},
                                                    {1.00015, 10'002},
                                                    {-0.00015, -2},
                                                    {0.000150001, 2},
                                                    {0.00014999, 1},
                                                    {0.1, 1'000},
                                                    {-12.5, -125'000},
                                                    {1e-320, 0},
                                                    {99999.99995, 1'000'000'000},
                                                    {2.675, 26'750},
                                                    {922337203685477.0, 9'223'372'036'854'770'000}};
  for (const auto& [value, scaled] : cases) EXPECT_EQ(Currency(value).scaled(), scaled) << value;
}

TEST(Currency, ReadsText) {
  const std::tuple<const char*, std::int64_t> cases[] = {
      {"12.5", 125'000},
      {"-0.0001", -1},
      {"3.", 30'000},
      {".5", 5'000},
      {" +7 ", 70'000},
      {"0.00005", 0},
      {"0.00015", 2},
      {"1.5e2", 1'500'000},
      {"0.00005000000000000000000000000000000000000000000000000000000000000001", 1},
      {"922337203685477.5807", kMost},
      {"-922337203685477.5808", kLeast},
      {"-0.00001", 0}};
  for (const auto& [text, scaled] : cases) EXPECT_EQ(Currency::parse(text).scaled(), scaled) << text;
  for (const char* text : {"", " ", ".", "-", "1,5", "1.2.3", "1 2", "1e", "1e+", "--1", "x", "1x", "inf", "nan"}) {
    EXPECT_EQ(raised([&] { Currency::parse(text); }), erro::kTypeMismatch) << text;
  }
}

TEST(Currency, OverflowIsAFailure) {
  const Currency most = Currency::of_scaled(kMost), least = Currency::of_scaled(kLeast), bit = Currency::of_scaled(1);
  EXPECT_EQ(raised([&] { (void)(most + bit); }), erro::kOverflow);
  EXPECT_EQ(raised([&] { (void)(least - bit); }), erro::kOverflow);
  EXPECT_EQ(raised([&] { (void)-least; }), erro::kOverflow);
  EXPECT_EQ(raised([] { Currency(std::int64_t{922'337'203'685'478}); }), erro::kOverflow);
  for (double value : {922337203685478.0, 1e300, -1e15, std::nan(""), -HUGE_VAL}) {
    EXPECT_EQ(raised([&] { (void)Currency(value); }), erro::kOverflow) << value;
  }
  for (const char* text : {"922337203685477.5808", "-922337203685477.58086", "1e15", "1e999999999999"}) {
    EXPECT_EQ(raised([&] { Currency::parse(text); }), erro::kOverflow) << text;
  }
}

RC_GTEST_PROP(Currency, TextAndDoubleReadBackAsTheSameSum, (std::int64_t scaled)) {
  const Currency sum = Currency::of_scaled(scaled);
  RC_ASSERT(Currency::parse(sum.text()) == sum);
  const Currency small = Currency::of_scaled(scaled % 1'000'000'000'000'000);
  RC_ASSERT(Currency(small.as_double()) == small);
}

RC_GTEST_PROP(Currency, SumsAreExactInAnyOrder, (std::vector<std::int32_t> cents)) {
  Currency forward, backward;
  std::int64_t expected = 0;
  for (auto c : cents) {
    forward += Currency(c / 100.0);
    expected += std::int64_t{c} * 100;
  }
  for (auto c = cents.rbegin(); c != cents.rend(); ++c) backward -= Currency(*c / 100.0);
  RC_ASSERT(forward.scaled() == expected);
  RC_ASSERT(forward == -backward);
}

TEST(Rounding, HalvesGoToEvenInTheLibraryAndAwayFromZeroOnTheServer) {
  // 1.005 * 100 is less than 100.5 in double precision.
  const std::tuple<double, int, double, double> cases[] = {{0.125, 2, 0.12, 0.13},
                                                           {-0.125, 2, -0.12, -0.13},
                                                           {2.5, 0, 2, 3},
                                                           {3.5, 0, 4, 4},
                                                           {1.005, 2, 1.0, 1.0},
                                                           {0.375, 2, 0.38, 0.38},
                                                           {1e300, 15, 1e300, 1e300},
                                                           {12.3456, 3, 12.346, 12.346}};
  for (const auto& [value, decimals, even, away] : cases) {
    EXPECT_EQ(Round(value, decimals), even) << value;
    EXPECT_EQ(round_half_away(value, decimals), away) << value;
  }
  EXPECT_EQ(round_half_away(1250.0, -2), 1300.0);
  EXPECT_EQ(round_half_away(-1249.0, -2), -1200.0);
  EXPECT_EQ(raised([] { Round(1.0, -1); }), erro::kInvalidCall);
  EXPECT_EQ(raised([] { round_half_away(1.0, 16); }), erro::kInvalidCall);
}

TEST(Rounding, MoneyIsRoundedExactly) {
  const std::tuple<std::int64_t, int, std::int64_t, std::int64_t> cases[] = {
      {1'250, 2, 1'200, 1'300},    {-1'250, 2, -1'200, -1'300},
      {1'350, 2, 1'400, 1'400},    {10'050, 2, 10'000, 10'100},
      {25'000, 0, 20'000, 30'000}, {12'345, 4, 12'345, 12'345},
      {12'345, 9, 12'345, 12'345}, {-49, 2, 0, 0}};
  for (const auto& [scaled, decimals, even, away] : cases) {
    EXPECT_EQ(Round(Currency::of_scaled(scaled), decimals).scaled(), even) << scaled;
    EXPECT_EQ(round_half_away(Currency::of_scaled(scaled), decimals).scaled(), away) << scaled;
  }
  EXPECT_EQ(round_half_away(Currency(1'250), -2), Currency(1'300));
  EXPECT_EQ(round_half_away(Currency::of_scaled(4'000'000'000'000'000'000), -15), Currency());
  EXPECT_EQ(raised([] { round_half_away(Currency::of_scaled(kMost), -15); }), erro::kOverflow);
  EXPECT_EQ(raised([] { Round(Currency::of_scaled(kMost), 0); }), erro::kOverflow);
}

}  // namespace
}  // namespace posto
