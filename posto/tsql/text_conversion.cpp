#include "posto/tsql/text_conversion.h"

#include <fmt/format.h>

#include <algorithm>

#include "posto/types/erro.h"
#include "posto/types/number_pattern.h"
#include "posto/types/text.h"

namespace posto::tsql {
namespace {

struct DateStyle {
  int style;
  std::string_view pattern;
};

constexpr DateStyle kDateStyles[] = {
    {101, "mm/dd/yyyy"}, {102, "yyyy.mm.dd"}, {103, "dd/mm/yyyy"}, {104, "dd.mm.yyyy"}, {105, "dd-mm-yyyy"},
    {108, "hh:nn:ss"},   {110, "mm-dd-yyyy"}, {111, "yyyy/mm/dd"}, {112, "yyyymmdd"},   {120, "yyyy-mm-dd hh:nn:ss"}};

// "Apr  3 2009  2:05PM"
std::string default_date_text(Date date) {
  static constexpr std::string_view kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  Date::Parts p = date.parts();
  int hour = p.hour % 12 == 0 ? 12 : p.hour % 12;
  return fmt::format("{} {:2} {} {:2}:{:02}{}", kMonths[p.month - 1], p.day, p.year, hour, p.minute,
                     p.hour < 12 ? "AM" : "PM");
}

[[noreturn]] void unknown_style(int style) {
  throw Erro(erro::kSyntax, "tsql", "Estilo de conversão desconhecido: " + std::to_string(style));
}

std::string number_that_fits(const std::string& text, const TextTarget& target) {
  if (target.width > 0 && text.size() > target.width) {
    throw Erro(erro::kDataOverflow, "tsql",
               "O número " + text + " não cabe em " + std::to_string(target.width) + " caracteres");
  }
  return text_to_text(text, target);
}

}  // namespace

std::string text_to_text(std::string_view value, const TextTarget& target) {
  if (target.width == 0) return std::string(value);
  std::string text(first_chars(value, target.width));
  if (target.padded) text.append(target.width - std::min(target.width, char_count(text)), ' ');
  return text;
}

std::string integer_to_text(std::int64_t value, const TextTarget& target) {
  std::string text = std::to_string(value);
  return text_to_text(target.width > 0 && text.size() > target.width ? "*" : text, target);
}

std::string money_to_text(Currency value, const TextTarget& target) {
  switch (target.style) {
    case -1:
    case 0:
      return number_that_fits(format_number(value, "0.00", kPointLocale), target);
    case 1:
      return number_that_fits(format_number(value, "#,##0.00", kPointLocale), target);
    case 2:
      return number_that_fits(format_number(value, "0.0000", kPointLocale), target);
    default:
      unknown_style(target.style);
  }
}

std::string real_to_text(double value, const TextTarget& target) {
  std::string text = fmt::format("{:g}", value);
  std::size_t exponent = text.find('e');
  if (exponent != std::string::npos && text.size() == exponent + 4) text.insert(exponent + 2, "0");  // three digits
  return number_that_fits(text, target);
}

std::string date_to_text(Date value, const TextTarget& target) {
  switch (target.style) {
    case -1:
    case 0:
    case 100:
      return text_to_text(default_date_text(value), target);
    case 121:
      return text_to_text(format_date(value, "yyyy-mm-dd hh:nn:ss") + fmt::format(".{:03}", value.parts().millisecond),
                          target);
    default:
      break;
  }
  auto found = std::find_if(std::begin(kDateStyles), std::end(kDateStyles),
                            [&](const DateStyle& s) { return s.style == target.style; });
  if (found == std::end(kDateStyles)) unknown_style(target.style);
  return text_to_text(format_date(value, found->pattern), target);
}

std::string_view substring(std::string_view text, std::int64_t start, std::int64_t count) {
  if (count < 0) throw Erro(erro::kSyntax, "tsql", "Substring com tamanho negativo");
  constexpr std::int64_t kFarAway = std::int64_t{1} << 40;  // beyond any text
  start = std::clamp(start, -kFarAway, kFarAway);
  count = std::min(count, 2 * kFarAway);
  std::int64_t end = start + count;  // behind the last character
  std::int64_t first = std::max<std::int64_t>(start, 1);
  if (end <= first) return {};
  return mid_chars(text, static_cast<std::size_t>(first), static_cast<std::size_t>(end - first));
}

}  // namespace posto::tsql
