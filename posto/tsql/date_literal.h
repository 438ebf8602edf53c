// Dates written as text in statements.
#pragma once

#include <optional>
#include <string_view>

#include "posto/types/date.h"

namespace posto::tsql {

// The order in which a session reads the three numbers of a date: SET DATEFORMAT. A number of four digits is the year
// wherever it stands; the order then only tells day from month, so that 2009-04-03 is 3 April under "ymd" and "mdy",
// and 4 March under "ydm" and "dmy".
struct DateOrder {
  char order[3] = {'y', 'm', 'd'};

  static DateOrder of(std::string_view name);  // one of "ymd", "ydm", "dmy", "dym", "mdy", "myd"
  bool day_before_month() const;
};

// A date as text: numbers separated by "-", "/" or ".", or eight or six digits run together (always year, month, day);
// optionally a time of day "hh:mm[:ss[.mmm]] [AM|PM]" behind a blank or a "T". A day without a time is midnight, a time
// without a day lies on 1900-01-01, and so does a blank text. Nothing for a date that does not exist or lies outside
// 1753 to 9999.
std::optional<Date> read_date(std::string_view text, const DateOrder& order);

}  // namespace posto::tsql
