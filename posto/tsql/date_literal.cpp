#include "posto/tsql/date_literal.h"

#include <array>
#include <string>

#include "posto/types/text.h"

namespace posto::tsql {
namespace {

// Reads from the front of a text, piece by piece.
struct Reader {
  std::string_view rest;

  // A number of at most `most` digits; its length in `digits`.
  std::optional<int> number(std::size_t most, std::size_t& digits) {
    int value = 0;
    for (digits = 0; digits < rest.size() && is_digit(rest[digits]); ++digits) {
      if (digits == most) return std::nullopt;
      value = value * 10 + (rest[digits] - '0');
    }
    if (digits == 0) return std::nullopt;
    rest.remove_prefix(digits);
    return value;
  }
  bool accept(std::string_view any_of) {
    if (rest.empty() || any_of.find(rest.front()) == std::string_view::npos) return false;
    rest.remove_prefix(1);
    return true;
  }
  void blanks() {
    while (accept(" ")) continue;
  }
};

int full_year(int year, std::size_t digits) { return digits > 2 ? year : year + (year < 50 ? 2000 : 1900); }

bool read_run_together(Reader& r, std::size_t digits, Date::Parts& p) {
  auto part = [&](std::size_t from, std::size_t count) {
    int value = 0;
    for (char c : r.rest.substr(from, count)) value = value * 10 + (c - '0');
    return value;
  };
  std::size_t year_digits = digits - 4;
  p.year = full_year(part(0, year_digits), year_digits);
  p.month = part(year_digits, 2);
  p.day = part(year_digits + 2, 2);
  r.rest.remove_prefix(digits);
  return true;
}

bool read_day(Reader& r, const DateOrder& order, Date::Parts& p) {
  std::size_t run = 0;
  while (run < r.rest.size() && is_digit(r.rest[run])) ++run;
  if (run == 8 || run == 6) return read_run_together(r, run, p);
  std::array<int, 3> number{};
  std::array<std::size_t, 3> digits{};
  for (std::size_t i = 0; i < 3; ++i) {
    if (i > 0 && !r.accept("-/.")) return false;
    auto n = r.number(4, digits[i]);
    if (!n || digits[i] == 3) return false;
    number[i] = *n;
  }
  std::string shape(order.order, 3);
  std::string day_month = order.day_before_month() ? "dm" : "md";
  if (digits[0] == 4) shape = "y" + day_month;
  if (digits[2] == 4) shape = day_month + "y";
  for (std::size_t i = 0; i < 3; ++i) {
    if (digits[i] == 4 && shape[i] != 'y') return false;
    if (shape[i] == 'y') p.year = full_year(number[i], digits[i]);
    if (shape[i] == 'm') p.month = number[i];
    if (shape[i] == 'd') p.day = number[i];
  }
  return true;
}

bool read_half_of_day(Reader& r, Date::Parts& p) {
  r.blanks();
  if (r.rest.empty()) return true;
  bool afternoon = equal_names(r.rest, "PM");
  if (!afternoon && !equal_names(r.rest, "AM")) return false;
  r.rest = {};
  if (p.hour < 1 || p.hour > 12) return false;
  p.hour = p.hour % 12 + (afternoon ? 12 : 0);
  return true;
}

bool read_time(Reader& r, Date::Parts& p) {
  std::size_t digits = 0;
  auto hour = r.number(2, digits);
  if (!hour || !r.accept(":")) return false;
  auto minute = r.number(2, digits);
  if (!minute) return false;
  p.hour = *hour;
  p.minute = *minute;
  if (r.accept(":")) {
    auto second = r.number(2, digits);
    if (!second) return false;
    p.second = *second;
    if (r.accept(".:")) {
      auto fraction = r.number(3, digits);
      if (!fraction) return false;
      p.millisecond = *fraction * (digits == 1 ? 100 : digits == 2 ? 10 : 1);
    }
  }
  return read_half_of_day(r, p);
}

}  // namespace

DateOrder DateOrder::of(std::string_view name) { return {{name[0], name[1], name[2]}}; }

bool DateOrder::day_before_month() const {
  std::string_view shape(order, 3);
  return shape.find('d') < shape.find('m');
}

namespace {

// The form in which nearly all dates come: year, month and day with hyphens, perhaps a time to the second.
std::optional<Date> read_usual_date(std::string_view text, const DateOrder& order) {
  static const Date kFirst = Date::of_day(1753, 1, 1);
  bool usual = (text.size() == 10 || text.size() == 19) && !order.day_before_month();
  auto date = usual ? Date::parse_iso(text) : std::nullopt;
  return date && *date >= kFirst ? date : std::nullopt;
}

}  // namespace

std::optional<Date> read_date(std::string_view text, const DateOrder& order) {
  if (auto usual = read_usual_date(text, order)) return usual;
  Date::Parts p{.year = 1900, .month = 1, .day = 1};
  Reader r{trim(text)};
  bool time_only = r.rest.find(':') <= 2;
  if (!r.rest.empty() && !time_only) {
    if (!read_day(r, order, p)) return std::nullopt;
    if (!r.rest.empty()) {
      if (!r.accept(" Tt")) return std::nullopt;
      r.blanks();
      if (!read_time(r, p)) return std::nullopt;
    }
  } else if (time_only && !read_time(r, p)) {
    return std::nullopt;
  }
  if (p.year < 1753) return std::nullopt;
  return Date::of_parts(p);
}

}  // namespace posto::tsql
