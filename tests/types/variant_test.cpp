#include "posto/types/variant.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <functional>
#include <tuple>

#include "posto/types/erro.h"
#include "tests/types/raised.h"

namespace posto {
namespace {

TEST(Variant, ConvertsNumbersAsThePlatform) {
  EXPECT_EQ(Variant(2.5).as<std::int16_t>(), 2);
  EXPECT_EQ(Variant(3.5f).as<std::int32_t>(), 4);
  EXPECT_EQ(Variant(Currency::of_scaled(-25'000)).as<std::int32_t>(), -2);
  EXPECT_EQ(Variant(Currency::of_scaled(25'001)).as<std::uint8_t>(), 3);
  EXPECT_EQ(Variant(255.4).as<std::uint8_t>(), 255);
  EXPECT_EQ(Variant(0.00015).as<Currency>(), Currency::of_scaled(2));
  EXPECT_TRUE(Variant(0.4).as<bool>());
  EXPECT_FALSE(Variant(Currency()).as<bool>());
  EXPECT_EQ(Variant(true).as<std::int32_t>(), -1);
  EXPECT_EQ(Variant(true).as<std::uint8_t>(), 255);
  EXPECT_EQ(Variant(true).as<Currency>(), Currency(-1));
  EXPECT_EQ(Variant(39906.75).as<Date>(), Date::of_moment(2009, 4, 3, 18, 0, 0));
  EXPECT_EQ(Variant(Date::of_moment(1899, 12, 29, 12, 0, 0)).as<double>(), -0.5);
}

TEST(Variant, ConvertsText) {
  EXPECT_EQ(Variant(" -12.5 ").as<double>(), -12.5);
  EXPECT_EQ(Variant("+1e3").as<std::int32_t>(), 1000);
  EXPECT_EQ(Variant("2.5").as<std::uint8_t>(), 2);
  EXPECT_EQ(Variant("7.1").as<float>(), 7.1f);
  EXPECT_EQ(Variant("1e-400").as<double>(), 0.0);
  EXPECT_EQ(Variant("922337203685477.5807").as<Currency>().scaled(), INT64_MAX);  // not by way of a double
  EXPECT_TRUE(Variant("true").as<bool>());
  EXPECT_FALSE(Variant("False").as<bool>());
  EXPECT_TRUE(Variant("-1").as<bool>());
  EXPECT_EQ(Variant("2009-04-03").as<Date>(), Date::of_day(2009, 4, 3));
}

TEST(Variant, WritesText) {
  const std::tuple<Variant, const char*> cases[] = {{Variant(), ""},
                                                    {0.1, "0.1"},
                                                    {0.1f, "0.1"},
                                                    {100000.0, "100000"},
                                                    {-0.0, "0"},
                                                    {1e15, "1E+15"},
                                                    {1e-7, "1E-07"},
                                                    {123456789.125, "123456789.125"},
                                                    {Currency(12.5), "12.5"},
                                                    {Currency(100), "100"},
                                                    {Currency::of_scaled(-1), "-0.0001"},
                                                    {std::uint8_t{7}, "7"},
                                                    {-32768, "-32768"},
                                                    {true, "True"},
                                                    {Date::of_day(2009, 4, 3), "2009-04-03 00:00:00"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(value.as<std::string>(), text);
}

TEST(Variant, EmptyIsZeroAndNullIsNoValue) {
  const Variant empty, null = Null{};
  EXPECT_EQ(empty.as<std::int32_t>(), 0);
  EXPECT_FALSE(empty.as<bool>());
  EXPECT_TRUE(empty.as<Date>().empty());
  EXPECT_EQ(raised([&] { (void)null.as<std::string>(); }), erro::kInvalidUseOfNull);
  EXPECT_EQ(raised([&] { (void)null.as<bool>(); }), erro::kInvalidUseOfNull);
  EXPECT_EQ(raised([&] { (void)null.as<Date>(); }), erro::kInvalidUseOfNull);
  EXPECT_NE(empty, null);
  EXPECT_NE(Variant(1), Variant(1.0));
}

TEST(Variant, RefusesWhatDoesNotFitOrDoesNotRead) {
  const std::tuple<std::int32_t, std::function<void()>> cases[] = {
      {erro::kOverflow, [] { (void)Variant(-1).as<std::uint8_t>(); }},
      {erro::kOverflow, [] { (void)Variant(255.5).as<std::uint8_t>(); }},
      {erro::kOverflow, [] { (void)Variant(32768).as<std::int16_t>(); }},
      {erro::kOverflow, [] { (void)Variant(2147483647.5).as<std::int32_t>(); }},
      {erro::kOverflow, [] { (void)Variant(std::nan("")).as<std::int32_t>(); }},
      {erro::kOverflow, [] { (void)Variant(1e39).as<float>(); }},
      {erro::kOverflow, [] { (void)Variant("1e400").as<double>(); }},
      {erro::kOverflow, [] { (void)Variant(3e6).as<Date>(); }},
      {erro::kOverflow, [] { (void)Variant("1e15").as<Currency>(); }},
      {erro::kTypeMismatch, [] { (void)Variant("").as<double>(); }},
      {erro::kTypeMismatch, [] { (void)Variant("12,5").as<double>(); }},
      {erro::kTypeMismatch, [] { (void)Variant("nan").as<double>(); }},
      {erro::kTypeMismatch, [] { (void)Variant("True").as<std::int32_t>(); }},
      {erro::kTypeMismatch, [] { (void)Variant("yes").as<bool>(); }},
      {erro::kTypeMismatch, [] { (void)Variant("03/04/2009").as<Date>(); }}};
  int index = 0;
  for (const auto& [number, call] : cases) EXPECT_EQ(raised(call), number) << "case " << index++;
}

RC_GTEST_PROP(Variant, TextOfAValueConvertsBack, (double number, std::int64_t scaled, bool flag)) {
  RC_ASSERT(Variant(Variant(number).as<std::string>()).as<double>() == number);
  const auto money = Currency::of_scaled(scaled);
  RC_ASSERT(Variant(Variant(money).as<std::string>()).as<Currency>() == money);
  RC_ASSERT(Variant(Variant(flag).as<std::string>()).as<bool>() == flag);
}

}  // namespace
}  // namespace posto
