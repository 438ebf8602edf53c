#include "posto/tsql/bound_value.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

#include "posto/tsql/text_conversion.h"
#include "posto/tsql/types.h"
#include "posto/types/decimal.h"
#include "posto/types/erro.h"
#include "posto/types/rounding.h"
#include "posto/types/text.h"

namespace posto::tsql {
namespace {

std::string place(const Parameter& p) {
  if (p.column == nullptr) return {};
  return " em " + std::string(p.table->name) + "." + std::string(p.column->name);
}

[[noreturn]] void out_of_range(std::string_view value, const Parameter& p) {
  throw Erro(erro::kDataOverflow, "tsql", "O valor " + shortened(value) + " não cabe" + place(p));
}

[[noreturn]] void not_convertible(std::string_view value, std::string_view kind, const Parameter& p) {
  throw Erro(erro::kConversion, "tsql", "O texto '" + shortened(value) + "' não é " + std::string(kind) + place(p));
}

// A number of at most fifteen digits, as nearly all are: digits and power of ten are exact in a double, so that their
// quotient is the nearest one. Nothing for any other text.
std::optional<double> parse_short_real(std::string_view text) {
  constexpr std::size_t kMostDigits = 15;
  const char* p = text.data();
  const char* const end = p + text.size();
  std::int64_t digits = 0;
  auto read_digits = [&] {
    const char* const first = p;
    for (; p < end && *p >= '0' && *p <= '9'; ++p) digits = digits * 10 + (*p - '0');
    return static_cast<std::size_t>(p - first);
  };
  if (text.size() > kMostDigits + 1) return std::nullopt;
  const std::size_t whole = read_digits();
  std::size_t decimals = 0;
  if (p < end && *p == '.') {
    ++p;
    decimals = read_digits();
  }
  const std::size_t count = whole + decimals;
  if (p < end || count == 0 || count > kMostDigits) return std::nullopt;
  return static_cast<double>(digits) / kPowersOfTen[decimals];
}

std::optional<double> parse_real(std::string_view text) {
  if (const auto value = parse_short_real(text)) return value;
  if (text.starts_with('+')) text.remove_prefix(1);
  double value = 0;
  auto [behind, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || behind != text.data() + text.size() || !std::isfinite(value)) return std::nullopt;
  return value;
}

// A number in ten-thousandths. `exact` tells whether nothing was cut off behind the fourth decimal; the fifth decimal
// rounds half away from zero.
std::optional<std::int64_t> parse_scaled(std::string_view text, bool& exact) {
  exact = true;
  bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  std::int64_t scaled = 0;
  int decimals = -1;  // -1 before the point
  bool up = false, any = false;
  for (char c : text) {
    if (c == '.' && decimals < 0) {
      decimals = 0;
      continue;
    }
    if (c < '0' || c > '9') return std::nullopt;
    any = true;
    if (decimals >= 4) {
      if (decimals == 4) up = c >= '5';
      exact = exact && c == '0';
      ++decimals;
      continue;
    }
    if (decimals >= 0) ++decimals;
    if (__builtin_mul_overflow(scaled, 10, &scaled) || __builtin_add_overflow(scaled, c - '0', &scaled))
      return std::nullopt;
  }
  if (!any) return std::nullopt;
  for (int d = decimals < 0 ? 0 : decimals; d < 4; ++d) {
    if (__builtin_mul_overflow(scaled, 10, &scaled)) return std::nullopt;
  }
  if (up && __builtin_add_overflow(scaled, 1, &scaled)) return std::nullopt;
  return negative ? -scaled : scaled;
}

void set_integer(BoundValue& out, std::int64_t value) {
  out.kind = BoundValue::Kind::integer;
  out.integer = value;
}

void set_real(BoundValue& out, double value) {
  out.kind = BoundValue::Kind::real;
  out.real = value;
}

void set_text(BoundValue& out, std::string_view value) {
  out.kind = BoundValue::Kind::text;
  out.text = value;
  out.lasts = false;
}

// A float that is to be kept; a column holds neither an infinity nor what is no number.
void set_finite(BoundValue& out, double value, const Parameter& p) {
  if (!std::isfinite(value)) out_of_range(fmt::format("{}", value), p);
  set_real(out, value);
}

double real_of(const Literal& literal, const Parameter& p) {
  auto value = parse_real(literal.raw);
  if (!value) out_of_range(literal.raw, p);
  return p.negative ? -*value : *value;
}

void money_literal(const Literal& literal, const Parameter& p, BoundValue& out) {
  bool exact = true;
  auto scaled = parse_scaled(literal.raw, exact);
  if (literal.kind == LiteralKind::floating || (!exact && p.compared)) {
    double value = real_of(literal, p) * static_cast<double>(Currency::kScale);
    if (p.compared) return set_real(out, value);
    scaled = std::abs(value) < 9.2e18 ? std::optional(std::llround(value)) : std::nullopt;
    return scaled ? set_integer(out, *scaled) : out_of_range(literal.raw, p);
  }
  if (!scaled) {
    if (p.compared) return set_real(out, real_of(literal, p) * static_cast<double>(Currency::kScale));
    out_of_range(literal.raw, p);
  }
  set_integer(out, p.negative ? -*scaled : *scaled);
}

void integer_literal(const Literal& literal, const Parameter& p, BoundValue& out) {
  std::int64_t value = 0;
  if (literal.kind == LiteralKind::integer) {
    std::from_chars(literal.raw.data(), literal.raw.data() + literal.raw.size(), value);
    return set_integer(out, p.negative ? -value : value);
  }
  double real = real_of(literal, p);
  bool whole = real == std::trunc(real) && std::abs(real) < 9e15;
  if (p.compared && !whole) return set_real(out, real);
  if (std::abs(real) >= 9e15) out_of_range(literal.raw, p);
  set_integer(out, static_cast<std::int64_t>(real));  // what is behind the point is cut off
}

// Blanks that a column has no room for are cut; anything else that is too long is a failure of the database.
std::string_view without_spare_blanks(std::string_view text, const Parameter& p) {
  if (p.column == nullptr || p.column->type != SqlType::text || text.size() <= p.column->width) return text;
  std::string_view kept = first_chars(text, p.column->width);
  return trim_end(text).size() <= kept.size() ? kept : text;
}

// A number as text: without zeros in front, as the server writes it.
std::string number_as_text(const Literal& literal, bool negative) {
  if (literal.kind == LiteralKind::floating) {
    const double value = text_to_real(literal.raw);
    return real_to_text(negative ? -value : value, {});
  }
  std::string_view raw = literal.raw;
  while (raw.size() > 1 && raw[0] == '0' && raw[1] >= '0' && raw[1] <= '9') raw.remove_prefix(1);
  if (raw.ends_with('.')) raw.remove_suffix(1);
  return std::string(negative ? "-" : "") + (raw.starts_with('.') ? "0" : "") + std::string(raw);
}

void text_as(std::string_view text, const Parameter& p, const DateOrder& order, BoundValue& out) {
  try {
    switch (p.type) {
      case SqlType::bit:
        return set_integer(out, text_to_integer(text) != 0);
      case SqlType::byte:
      case SqlType::int16:
      case SqlType::int32:
        return set_integer(out, text_to_integer(text));
      case SqlType::money:
        return set_integer(out, text_to_money(text).scaled());
      case SqlType::float32:
        return set_real(out, static_cast<float>(text_to_real(text)));
      case SqlType::float64:
        return set_real(out, text_to_real(text));
      case SqlType::text:
        return set_text(out, without_spare_blanks(text, p));
      case SqlType::date:
        break;
    }
  } catch (const Erro& e) {
    if (e.number() == erro::kDataOverflow) out_of_range(text, p);
    not_convertible(text, "um número", p);
  }
  auto date = read_date(text, order);
  if (!date) not_convertible(text, "uma data", p);
  bind_date(*date, out);
}

}  // namespace

namespace {

// The least and greatest whole number of a column's type.
std::pair<std::int64_t, std::int64_t> range_of(SqlType type) {
  switch (type) {
    case SqlType::bit:
      return {0, 1};
    case SqlType::byte:
      return {0, 255};
    case SqlType::int16:
      return {std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max()};
    default:
      return {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()};
  }
}

}  // namespace

void require_room(const Parameter& p, std::int64_t value) {
  const auto [low, high] = range_of(p.column != nullptr ? p.column->type : p.type);
  if (value >= low && value <= high) return;
  if (p.column == nullptr) throw Erro(erro::kDataOverflow, "tsql", "Estouro aritmético");
  throw Erro(erro::kDataOverflow, "tsql",
             fmt::format("O valor não cabe em {}.{} (de {} a {})", p.table->name, p.column->name, low, high));
}

void bind_date(Date date, BoundValue& out) {
  std::size_t length = date.write_iso(out.date.data());
  set_text(out, {out.date.data(), length});
}

void bind_literal(const Literal& literal, const Parameter& p, const DateOrder& order, BoundValue& out) {
  if (is_text(literal.kind)) {
    if (literal.raw.find('\'') == std::string_view::npos) {
      text_as(literal.raw, p, order, out);
      out.lasts = p.type == SqlType::text;
      return;
    }
    out.own = literal.text();
    return text_as(out.own, p, order, out);
  }
  switch (p.type) {
    case SqlType::bit:
      return set_integer(out, real_of(literal, p) != 0);
    case SqlType::byte:
    case SqlType::int16:
    case SqlType::int32:
      return integer_literal(literal, p, out);
    case SqlType::money:
      return money_literal(literal, p, out);
    case SqlType::float32:
      return set_finite(out, static_cast<float>(real_of(literal, p)), p);
    case SqlType::float64:
      return set_real(out, real_of(literal, p));
    case SqlType::date: {
      double days = std::trunc(real_of(literal, p));
      if (days < -53690 || days > 2958463) out_of_range(literal.raw, p);  // 1753-01-01 to 9999-12-31
      return bind_date(Date::of_day(1900, 1, 1).plus_days(static_cast<std::int64_t>(days)), out);
    }
    case SqlType::text:
      out.own = number_as_text(literal, p.negative);
      return set_text(out, out.own);
  }
}

namespace {

// A value that has its parameter's type already, as nearly all have. False for any other.
bool bind_same_type(const Variant& value, const Parameter& p, BoundValue& out) {
  const SqlType type = p.type;
  switch (value.kind()) {
    case VariantKind::Boolean:
      if (type != SqlType::bit) return false;
      set_integer(out, value.held<bool>());
      return true;
    case VariantKind::Byte:
      if (type != SqlType::byte) return false;
      set_integer(out, value.held<std::uint8_t>());
      return true;
    case VariantKind::Int16:
      if (type != SqlType::int16) return false;
      set_integer(out, value.held<std::int16_t>());
      return true;
    case VariantKind::Int32:
      if (type != SqlType::int32) return false;
      set_integer(out, value.held<std::int32_t>());
      return true;
    case VariantKind::Float64:
      if (type != SqlType::float64) return false;
      set_finite(out, value.held<double>(), p);
      return true;
    case VariantKind::Currency:
      if (type != SqlType::money) return false;
      set_integer(out, value.held<Currency>().scaled());
      return true;
    case VariantKind::Date:
      if (type != SqlType::date) return false;
      bind_date(value.held<Date>(), out);
      return true;
    default:
      return false;
  }
}

}  // namespace

void bind_variant(const Variant& value, const Parameter& p, const DateOrder& order, BoundValue& out) {
  if (bind_same_type(value, p, out)) return;
  if (value.is_null() || value.is_empty()) {
    out.kind = BoundValue::Kind::null;
    return;
  }
  if (value.is_text()) {
    text_as(value.held<std::string>(), p, order, out);
    out.lasts = p.type == SqlType::text;
    return;
  }
  try {
    switch (p.type) {
      case SqlType::bit:
        return set_integer(out, value.as<bool>());
      case SqlType::byte:
      case SqlType::int16:
      case SqlType::int32:
        return set_integer(out, value.as<std::int32_t>());
      case SqlType::money:
        return set_integer(out, value.as<Currency>().scaled());
      case SqlType::float32:
        return set_finite(out, value.as<float>(), p);
      case SqlType::float64:
        return set_finite(out, value.as<double>(), p);
      case SqlType::date:
        return bind_date(value.as<Date>(), out);
      case SqlType::text:
        break;
    }
  } catch (const Erro& e) {
    if (e.number() == erro::kOverflow) out_of_range(value.as<std::string>(), p);
    not_convertible(value.as<std::string>(), type_name(p.type), p);
  }
  out.own = value.as<std::string>();
  set_text(out, out.own);
}

std::int64_t text_to_integer(std::string_view text) {
  std::string_view digits = trim(text);
  if (digits.empty()) return 0;
  if (digits.starts_with('+')) digits.remove_prefix(1);
  std::int32_t value = 0;
  auto [behind, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error == std::errc::result_out_of_range)
    throw Erro(erro::kDataOverflow, "tsql", "O número " + shortened(text) + " não cabe em int");
  if (error != std::errc{} || behind != digits.data() + digits.size()) {
    throw Erro(erro::kConversion, "tsql", "O texto '" + shortened(text) + "' não é um número inteiro");
  }
  return value;
}

Currency text_to_money(std::string_view text) {
  std::string_view digits = trim(text);
  bool exact = true;
  auto scaled = digits.empty() ? std::optional<std::int64_t>(0) : parse_scaled(digits, exact);
  if (!scaled) throw Erro(erro::kConversion, "tsql", "O texto '" + shortened(text) + "' não é um valor");
  return Currency::of_scaled(*scaled);
}

double text_to_real(std::string_view text) {
  std::string_view digits = trim(text);
  if (digits.empty()) return 0;
  auto value = parse_real(digits);
  if (!value) throw Erro(erro::kConversion, "tsql", "O texto '" + shortened(text) + "' não é um número");
  return *value;
}

}  // namespace posto::tsql
