#include "posto/types/date.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <tuple>

#include "posto/types/erro.h"
#include "tests/types/raised.h"

namespace posto {
namespace {

TEST(Date, CountsFromTheZeroDay) {
  EXPECT_EQ(Date().iso(), "1899-12-30 00:00:00");
  EXPECT_EQ(Date::of_day(1900, 1, 1).millis(), 2 * Date::kMillisPerDay);
  EXPECT_EQ(Date::of_day(2009, 4, 3).millis() / Date::kMillisPerDay, 39906);
  EXPECT_EQ(Date::of_moment(1899, 12, 29, 23, 0, 0).millis(), -3'600'000);
}

TEST(Date, ReadsOnlyIsoTextOfMomentsThatExist) {
  const std::tuple<const char*, const char*> good[] = {{"2009-04-03", "2009-04-03 00:00:00"},
                                                       {"2009-04-03 07:08:09", "2009-04-03 07:08:09"},
                                                       {"2009-04-03T07:08:09.5", "2009-04-03 07:08:09.500"},
                                                       {"2009-04-03 07:08:09.025", "2009-04-03 07:08:09.025"},
                                                       {"2008-02-29", "2008-02-29 00:00:00"},
                                                       {"0100-01-01", "0100-01-01 00:00:00"},
                                                       {"9999-12-31 23:59:59.999", "9999-12-31 23:59:59.999"}};
  for (const auto& [text, iso] : good) EXPECT_EQ(Date::parse_iso(text).value_or(Date()).iso(), iso);
  for (const char* text : {"", "2009-04", "2009-4-3", "2009/04/03", "2009-02-29", "2009-00-10", "2009-13-01",
                           "2009-04-31", "0099-12-31", "2009-04-03 ", "2009-04-03 07:08", "2009-04-03 24:00:00",
                           "2009-04-03 07:60:00", "2009-04-03 07:08:60", "2009-04-03 07:08:09.",
                           "2009-04-03 07:08:09.1234", "2009-04-03x07:08:09", "-009-04-03", "2009-04-03 07:08:09Z"}) {
    EXPECT_FALSE(Date::parse_iso(text)) << text;
  }
  EXPECT_EQ(raised([] { Date::of_day(2009, 2, 30); }), erro::kInvalidCall);
}

TEST(Date, MovesByDaysWithinItsRange) {
  const Date moment = Date::of_moment(2008, 2, 28, 22, 15, 0);
  EXPECT_EQ(moment.plus_days(2).iso(), "2008-03-01 22:15:00");
  EXPECT_EQ(moment.day(), Date::of_day(2008, 2, 28));
  EXPECT_EQ(Date::of_moment(1899, 12, 28, 6, 0, 0).day(), Date::of_day(1899, 12, 28));
  EXPECT_EQ(Date::of_day(2026, 11, 24).weekday(), 3);
  EXPECT_EQ(Date::of_day(1600, 1, 2).weekday(), 1);
  EXPECT_EQ(Date::of_day(9999, 12, 30).plus_days(1), Date::of_day(9999, 12, 31));
  for (std::int64_t days : {std::int64_t{3'000'000}, std::int64_t{-800'000}, INT64_MAX, INT64_MIN}) {
    EXPECT_EQ(raised([&] { (void)moment.plus_days(days); }), erro::kOverflow) << days;
  }
}

TEST(Date, FormatsByPattern) {
  const Date moment = Date::of_moment(2009, 4, 3, 7, 8, 9);
  const std::tuple<const char*, const char*> cases[] = {{"dd/mm/yyyy", "03/04/2009"},
                                                        {"yyyy-dd-mm", "2009-03-04"},
                                                        {"yyyymmdd", "20090403"},
                                                        {"d/m/yy", "3/4/09"},
                                                        {" hh:Nn:Ss", " 07:08:09"},
                                                        {"h:n:s", "7:8:9"},
                                                        {"HHMM", "0708"},
                                                        {"hh:mm mm", "07:08 04"},
                                                        {"DD.MM.YY h:m", "03.04.09 7:8"},
                                                        {"", ""}};
  for (const auto& [pattern, text] : cases) EXPECT_EQ(format_date(moment, pattern), text) << pattern;
  EXPECT_EQ(format_date(Date::of_moment(2009, 11, 23, 10, 20, 30), "d/m h:n:s"), "23/11 10:20:30");
  for (const char* pattern : {"mmm", "yyy", "y", "dddd", "hhh", "ddxmm"}) {
    EXPECT_EQ(raised([&] { format_date(moment, pattern); }), erro::kInvalidCall) << pattern;
  }
}

RC_GTEST_PROP(Date, PartsAndIsoTextReadBackAsTheSameMoment, ()) {
  const auto first = Date::of_day(100, 1, 1).millis(), last = Date::of_day(9999, 12, 31).millis();
  const Date moment = Date::of_millis(*rc::gen::inRange(first, last));
  RC_ASSERT(Date::of_parts(moment.parts()) == moment);
  RC_ASSERT(Date::parse_iso(moment.iso()) == moment);
  RC_ASSERT(moment.plus_days(1).weekday() == moment.weekday() % 7 + 1);
}

}  // namespace
}  // namespace posto
