#include "posto/types/number_pattern.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <charconv>
#include <cmath>
#include <cstring>
#include <tuple>

#include "posto/types/erro.h"
#include "posto/types/rounding.h"
#include "tests/types/raised.h"

namespace posto {
namespace {

TEST(NumberPattern, Doubles) {
  // 1.005 is less than that in binary: the decimal form counts.
  const std::tuple<double, const char*, const char*> cases[] = {{1234567.891, "###,###,##0.00", "1.234.567,89"},
                                                                {999.995, "###,###,##0.00", "1.000,00"},
                                                                {0, "###,###,##0.00", "0,00"},
                                                                {1.005, "0.00", "1,01"},
                                                                {-0.125, "0.00", "-0,13"},
                                                                {-0.004, "0.00", "0,00"},
                                                                {12.5, "########0.0#####", "12,5"},
                                                                {12, "########0.0#####", "12,0"},
                                                                {0.1234567, "########0.0#####", "0,123457"},
                                                                {12.5, "###########0.", "13,"},
                                                                {7, "000", "007"},
                                                                {1234, "000", "1234"},
                                                                {-7, "000", "-007"},
                                                                {1234, "000,000", "001.234"},
                                                                {0.5, "#.##", ",5"},
                                                                {0, "#", ""},
                                                                {5, "0.##", "5,"},
                                                                {7, "0##", "007"},
                                                                {1e21, "#,##0", "1.000.000.000.000.000.000.000"},
                                                                {1e-300, "0.000", "0,000"},
                                                                {9.5, "0", "10"}};
  for (const auto& [value, pattern, text] : cases)
    EXPECT_EQ(format_number(value, pattern), text) << value << " " << pattern;
}

TEST(NumberPattern, OtherTypesAndSeparators) {
  EXPECT_EQ(format_number(7.15f, "0.0"), "7,2");  // as a double 7.15f is 7.1500000954
  EXPECT_EQ(format_number(0.35f, "0.0"), "0,4");  // and 0.35f is less than 0.35
  EXPECT_EQ(format_number(Currency::of_scaled(-12'345'678), "#,##0.00"), "-1.234,57");
  EXPECT_EQ(format_number(Currency::of_scaled(INT64_MAX), "0"), "922337203685478");
  EXPECT_EQ(format_number(INT64_MIN, "#,##0", kPointLocale), "-9,223,372,036,854,775,808");
  EXPECT_EQ(format_number(42, "000.0", kPointLocale), "042.0");
  for (const char* pattern : {"", ".", "0.0.0", "0,", ",0", "0.0,0", "0%", "R$ 0"}) {
    EXPECT_EQ(raised([&] { format_number(1.0, pattern); }), erro::kInvalidCall) << pattern;
  }
  EXPECT_EQ(raised([] { format_number(std::nan(""), "0"); }), erro::kInvalidCall);
}

template <class T>
std::string fixed(T value, int decimals) {
  std::string out = "=";
  append_fixed(out, value, decimals);
  return out;
}

TEST(AppendFixed, WritesForStatements) {
  EXPECT_EQ(fixed(12.5, 2), "=12.50");
  EXPECT_EQ(fixed(12.0, 0), "=12.");
  EXPECT_EQ(fixed(-0.5, 0), "=-1.");
  EXPECT_EQ(fixed(-0.004, 2), "=0.00");
  EXPECT_EQ(fixed(1.005, 2), "=1.01");
  EXPECT_EQ(fixed(7.1f, 4), "=7.1000");
  EXPECT_EQ(fixed(16777216.0f, 1), "=16777216.0");
  EXPECT_EQ(fixed(0.1, 30), "=0.100000000000000000000000000000");
  EXPECT_EQ(fixed(Currency::of_scaled(-5'000), 2), "=-0.50");
  EXPECT_EQ(fixed(Currency::of_scaled(-49), 2), "=0.00");
  EXPECT_EQ(fixed(Currency::of_scaled(INT64_MIN), 6), "=-922337203685477.580800");
  EXPECT_EQ(fixed(Currency::of_scaled(INT64_MAX), 0), "=922337203685478.");
  EXPECT_EQ(raised([] { fixed(HUGE_VAL, 2); }), erro::kInvalidCall);
  EXPECT_EQ(raised([] { fixed(1.0, -1); }), erro::kInvalidCall);
}

// Any bit pattern of a double or float, so that every size and every number of digits comes up.
template <class Float, class Bits>
Float of_bits(Bits bits) {
  Float value;
  std::memcpy(&value, &bits, sizeof value);
  return std::isfinite(value) ? value : Float{0};
}

template <class Float>
void expect_the_same_with_all_decimals(Float value) {
  std::string text;
  append_fixed(text, value, 255);
  Float read = 1;
  std::from_chars(text.data(), text.data() + text.size(), read);
  if (std::abs(value) > 1e-200) RC_ASSERT(read == value);
}

RC_GTEST_PROP(AppendFixed, WithAllDecimalsReadsBackAsTheSameValue, (std::uint64_t bits, std::uint32_t short_bits)) {
  expect_the_same_with_all_decimals(of_bits<double>(bits));
  expect_the_same_with_all_decimals(of_bits<float>(short_bits));
}

template <class T>
void expect_the_same_as_by_pattern(T value, int decimals) {
  const std::string pattern = "0." + std::string(static_cast<std::size_t>(decimals), '0');
  RC_ASSERT(fixed(value, decimals) == "=" + format_number(value, pattern, kPointLocale));
}

RC_GTEST_PROP(AppendFixed, AgreesWithThePatternAndWithMoney, (std::int32_t count)) {
  const int decimals = *rc::gen::inRange(0, 9);
  const double value = count / std::pow(10.0, *rc::gen::inRange(0, 8));  // every tenth is a half at some place
  expect_the_same_as_by_pattern(value, decimals);
  expect_the_same_as_by_pattern(value * 1.1, decimals);
  expect_the_same_as_by_pattern(static_cast<float>(value), decimals);
  const Currency money = Currency::of_scaled(count);
  expect_the_same_as_by_pattern(money, decimals);
  RC_ASSERT(fixed(money.as_double(), decimals) == fixed(money, decimals));
  RC_ASSERT(Currency::parse(fixed(money, decimals).substr(1)) == round_half_away(money, decimals));
}

}  // namespace
}  // namespace posto
