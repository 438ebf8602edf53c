#include "posto/types/number_pattern.h"

#include <algorithm>

#include "posto/types/decimal.h"
#include "posto/types/erro.h"

namespace posto {
namespace {

// What a pattern asks for.
struct Pattern {
  int least_whole = 0;  // digits in front of the point that stand even when they are zero
  bool grouped = false;
  bool point = false;
  int least_decimals = 0;
  int most_decimals = 0;
};

bool is_place(char c) { return c == '#' || c == '0'; }

bool is_grouping(std::string_view pattern, std::size_t at) {
  return at > 0 && is_place(pattern[at - 1]) && at + 1 < pattern.size() && is_place(pattern[at + 1]);
}

Pattern parse_pattern(std::string_view text) {
  Pattern pattern;
  bool any_place = false;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    any_place |= is_place(c);
    if (is_place(c) && pattern.point) {
      ++pattern.most_decimals;
      if (c == '0') pattern.least_decimals = pattern.most_decimals;
    } else if (is_place(c)) {
      if (c == '0' || pattern.least_whole > 0) ++pattern.least_whole;
    } else if (c == '.' && !pattern.point) {
      pattern.point = true;
    } else if (c == ',' && !pattern.point && is_grouping(text, at)) {
      pattern.grouped = true;
    } else {
      throw platform_erro(erro::kInvalidCall, "number pattern '" + std::string(text) + "'");
    }
  }
  if (!any_place) throw platform_erro(erro::kInvalidCall, "a number pattern without places");
  return pattern;
}

void append_number(std::string& out, Decimal number, const Pattern& pattern, const Locale& locale) {
  number.round(pattern.most_decimals, Half::Away);
  if (number.negative()) out += '-';
  for (int power = std::max(number.whole_digits(), pattern.least_whole) - 1; power >= 0; --power) {
    out += number.digit(power);
    if (pattern.grouped && power > 0 && power % 3 == 0) out += locale.grouping;
  }
  if (pattern.point) out += locale.decimal;
  const int decimals = std::max(number.decimals(), pattern.least_decimals);
  for (int power = -1; power >= -decimals; --power) out += number.digit(power);
}

std::string format_decimal(const Decimal& number, std::string_view pattern, const Locale& locale) {
  std::string out;
  append_number(out, number, parse_pattern(pattern), locale);
  return out;
}

void require_decimals(int decimals) {
  if (decimals < 0) throw platform_erro(erro::kInvalidCall, "decimals out of range");
}

template <class Float>
void append_fixed_float(std::string& out, Float value, int decimals) {
  require_decimals(decimals);
  if (const auto scaled = quick_rounded(value, decimals)) {
    append_scaled(out, *scaled < 0, magnitude(*scaled), decimals);
    return;
  }
  const Pattern fixed{.least_whole = 1, .point = true, .least_decimals = decimals, .most_decimals = decimals};
  append_number(out, Decimal(value), fixed, kPointLocale);
}

}  // namespace

std::string format_number(double value, std::string_view pattern, const Locale& locale) {
  return format_decimal(Decimal(value), pattern, locale);
}

std::string format_number(float value, std::string_view pattern, const Locale& locale) {
  return format_decimal(Decimal(value), pattern, locale);
}

std::string format_number(Currency value, std::string_view pattern, const Locale& locale) {
  return format_decimal(Decimal(value.scaled(), Currency::kDecimals), pattern, locale);
}

std::string format_number(std::int64_t value, std::string_view pattern, const Locale& locale) {
  return format_decimal(Decimal(value, 0), pattern, locale);
}

void append_fixed(std::string& out, double value, int decimals) { append_fixed_float(out, value, decimals); }

void append_fixed(std::string& out, float value, int decimals) { append_fixed_float(out, value, decimals); }

void append_fixed(std::string& out, Currency value, int decimals) {
  require_decimals(decimals);
  const int written = std::min(decimals, Currency::kDecimals);
  const std::uint64_t unit = kWholePowersOfTen[static_cast<std::size_t>(Currency::kDecimals - written)];
  append_scaled(out, value.scaled() < 0, divide_half_up(magnitude(value.scaled()), unit), written);
  out.append(static_cast<std::size_t>(decimals - written), '0');
}

}  // namespace posto
