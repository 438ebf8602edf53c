#include "posto/types/date.h"

#include <chrono>

#include "posto/types/erro.h"
#include "posto/types/text.h"

namespace posto {
namespace {

namespace chrono = std::chrono;

constexpr chrono::sys_days kZeroDay = chrono::year{1899} / chrono::December / 30;
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;
constexpr std::int64_t kFirstDay = (chrono::sys_days{chrono::year{kFirstYear} / 1 / 1} - kZeroDay).count();
constexpr std::int64_t kLastDay = (chrono::sys_days{chrono::year{kLastYear} / 12 / 31} - kZeroDay).count();

// Days since the zero day and milliseconds into the day.
struct DayAndTime {
  std::int64_t day;
  std::int64_t time;
};

DayAndTime split(std::int64_t millis) {
  const chrono::milliseconds since_zero{millis};
  const auto day = chrono::floor<chrono::days>(since_zero);
  return {day.count(), (since_zero - day).count()};
}

char* write_digits(char* out, int value, int width) {
  for (int i = width - 1; i >= 0; --i, value /= 10) out[i] = static_cast<char>('0' + value % 10);
  return out + width;
}

// Reads numbers of fixed width and marks off the front of a text; once something is missing it stays failed.
class FixedReader {
 public:
  explicit FixedReader(std::string_view text) : rest_(text) {}

  int number(std::size_t width) {
    int value = 0;
    for (std::size_t i = 0; i < width; ++i) {
      const char c = i < rest_.size() ? rest_[i] : '\0';
      failed_ |= c < '0' || c > '9';
      value = value * 10 + (c - '0');
    }
    if (!failed_) rest_.remove_prefix(width);
    return value;
  }
  void mark(std::string_view any_of) {
    failed_ |= rest_.empty() || any_of.find(rest_.front()) == std::string_view::npos;
    if (!failed_) rest_.remove_prefix(1);
  }
  std::size_t left() const { return rest_.size(); }
  bool failed() const { return failed_; }

 private:
  std::string_view rest_;
  bool failed_ = false;
};

struct DateToken {
  char letter;
  std::size_t length;
  int Date::Parts::*part;
  int width;  // digits written at least
  int modulus;
};

constexpr DateToken kTokens[] = {
    {'d', 1, &Date::Parts::day, 1, 100},    {'d', 2, &Date::Parts::day, 2, 100},
    {'m', 1, &Date::Parts::month, 1, 100},  {'m', 2, &Date::Parts::month, 2, 100},
    {'y', 2, &Date::Parts::year, 2, 100},   {'y', 4, &Date::Parts::year, 4, 10'000},
    {'h', 1, &Date::Parts::hour, 1, 100},   {'h', 2, &Date::Parts::hour, 2, 100},
    {'n', 1, &Date::Parts::minute, 1, 100}, {'n', 2, &Date::Parts::minute, 2, 100},
    {'s', 1, &Date::Parts::second, 1, 100}, {'s', 2, &Date::Parts::second, 2, 100},
};

bool is_letter(char lowered) { return lowered >= 'a' && lowered <= 'z'; }

const DateToken& find_token(char letter, std::size_t length, std::string_view pattern) {
  for (const DateToken& token : kTokens) {
    if (token.letter == letter && token.length == length) return token;
  }
  throw platform_erro(erro::kInvalidCall, "date pattern '" + std::string(pattern) + "'");
}

}  // namespace

std::optional<Date> Date::of_parts(const Parts& parts) {
  if (parts.year < kFirstYear || parts.year > kLastYear || parts.month < 1 || parts.month > 12 || parts.day < 1 ||
      parts.day > 31 || parts.hour < 0 || parts.hour > 23 || parts.minute < 0 || parts.minute > 59 ||
      parts.second < 0 || parts.second > 59 || parts.millisecond < 0 || parts.millisecond > 999) {
    return std::nullopt;
  }
  const chrono::year_month_day day = chrono::year{parts.year} / parts.month / parts.day;
  if (!day.ok()) return std::nullopt;
  const chrono::milliseconds since_zero = (chrono::sys_days{day} - kZeroDay) + chrono::hours{parts.hour} +
                                          chrono::minutes{parts.minute} + chrono::seconds{parts.second} +
                                          chrono::milliseconds{parts.millisecond};
  return of_millis(since_zero.count());
}

Date Date::of_day(int year, int month, int day) { return of_moment(year, month, day, 0, 0, 0); }

Date Date::of_moment(int year, int month, int day, int hour, int minute, int second) {
  const auto date = of_parts({year, month, day, hour, minute, second, 0});
  if (!date) throw platform_erro(erro::kInvalidCall, "no such day or time");
  return *date;
}

std::optional<Date> Date::parse_iso(std::string_view text) {
  FixedReader reader(text);
  Parts parts;
  parts.year = reader.number(4);
  reader.mark("-");
  parts.month = reader.number(2);
  reader.mark("-");
  parts.day = reader.number(2);
  if (reader.left() > 0) {
    reader.mark(" T");
    parts.hour = reader.number(2);
    reader.mark(":");
    parts.minute = reader.number(2);
    reader.mark(":");
    parts.second = reader.number(2);
  }
  if (reader.left() > 0) {
    reader.mark(".");
    const std::size_t width = reader.left();
    if (width < 1 || width > 3) return std::nullopt;
    constexpr int kUnits[] = {100, 10, 1};
    parts.millisecond = reader.number(width) * kUnits[width - 1];
  }
  return reader.failed() ? std::nullopt : of_parts(parts);
}

Date::Parts Date::parts() const {
  const auto [day, time] = split(millis_);
  const chrono::year_month_day date{kZeroDay + chrono::days{day}};
  const chrono::hh_mm_ss clock{chrono::milliseconds{time}};
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(clock.hours().count()),
          static_cast<int>(clock.minutes().count()),
          static_cast<int>(clock.seconds().count()),
          static_cast<int>(clock.subseconds().count())};
}

Date Date::day() const { return of_millis(split(millis_).day * kMillisPerDay); }

Date Date::plus_days(std::int64_t days) const {
  const auto [day, time] = split(millis_);
  if (days < kFirstDay - day || days > kLastDay - day) throw platform_erro(erro::kOverflow, "date out of range");
  return of_millis((day + days) * kMillisPerDay + time);
}

int Date::weekday() const {
  const chrono::weekday weekday{kZeroDay + chrono::days{split(millis_).day}};
  return static_cast<int>(weekday.c_encoding()) + 1;
}

std::string Date::iso() const {
  std::string text(24, '\0');
  text.resize(write_iso(text.data()));
  return text;
}

std::size_t Date::write_iso(char* out) const {
  const Parts now = parts();
  char* at = write_digits(out, now.year, 4);
  *at++ = '-';
  at = write_digits(at, now.month, 2);
  *at++ = '-';
  at = write_digits(at, now.day, 2);
  *at++ = ' ';
  at = write_digits(at, now.hour, 2);
  *at++ = ':';
  at = write_digits(at, now.minute, 2);
  *at++ = ':';
  at = write_digits(at, now.second, 2);
  if (now.millisecond != 0) {
    *at++ = '.';
    at = write_digits(at, now.millisecond, 3);
  }
  return static_cast<std::size_t>(at - out);
}

std::string format_date(Date date, std::string_view pattern) {
  const Date::Parts parts = date.parts();
  std::string out;
  out.reserve(pattern.size() + 4);
  bool behind_hours = false;
  for (std::size_t at = 0; at < pattern.size();) {
    const char letter = ascii_lower(pattern[at]);
    if (!is_letter(letter)) {
      out += pattern[at++];
      continue;
    }
    std::size_t end = at;
    while (end < pattern.size() && ascii_lower(pattern[end]) == letter) ++end;
    const DateToken& token = find_token(letter == 'm' && behind_hours ? 'n' : letter, end - at, pattern);
    const int value = parts.*token.part % token.modulus;
    char digits[4];
    const int width = token.width == 1 && value > 9 ? 2 : token.width;
    write_digits(digits, value, width);
    out.append(digits, static_cast<std::size_t>(width));
    behind_hours = letter == 'h';
    at = end;
  }
  return out;
}

}  // namespace posto
