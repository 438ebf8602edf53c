// A point in time without a zone: the station's own clock.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace posto {

// Milliseconds since 1899-12-30 00:00, so that zero is the empty date. Days run from year 100 to 9999.
class Date {
 public:
  static constexpr std::int64_t kMillisPerDay = 86'400'000;

  struct Parts {
    int year = 1899, month = 12, day = 30, hour = 0, minute = 0, second = 0, millisecond = 0;
  };

  constexpr Date() = default;
  static constexpr Date of_millis(std::int64_t millis) {
    Date d;
    d.millis_ = millis;
    return d;
  }
  // Nothing when the parts name no moment that exists (30 February, hour 24, a year outside 100 to 9999).
  static std::optional<Date> of_parts(const Parts& parts);
  // The same, for days that the code itself names. Raises 5 for a day that does not exist.
  static Date of_day(int year, int month, int day);
  static Date of_moment(int year, int month, int day, int hour, int minute, int second);
  // "yyyy-mm-dd", optionally " hh:mm:ss" or "Thh:mm:ss", optionally ".m" to ".mmm". Nothing for any other text.
  static std::optional<Date> parse_iso(std::string_view text);

  constexpr std::int64_t millis() const { return millis_; }
  constexpr bool empty() const { return millis_ == 0; }
  Parts parts() const;
  Date day() const;                         // the same day at midnight
  Date plus_days(std::int64_t days) const;  // raises 6 outside the range
  constexpr Date plus_millis(std::int64_t millis) const { return of_millis(millis_ + millis); }
  int weekday() const;  // 1 Sunday to 7 Saturday
  // "yyyy-mm-dd hh:mm:ss", with ".mmm" behind it when there are milliseconds.
  std::string iso() const;
  // Writes iso() into `out` (at least 24 characters) and returns its length: 19 or 23.
  std::size_t write_iso(char* out) const;

  constexpr auto operator<=>(const Date&) const = default;

 private:
  std::int64_t millis_ = 0;
};

// Formats with the platform's date letters, blind to case: d dd m mm yy yyyy (day, month, year), h hh (hour of 24), n
// nn (minute), s ss (second); "m" or "mm" directly behind hours is minutes. Any other character stands for itself.
// "dd/mm/yyyy", "yyyymmdd", "hh:Nn:Ss". A letter with no meaning (as in "mmm") raises 5.
std::string format_date(Date date, std::string_view pattern);

}  // namespace posto
