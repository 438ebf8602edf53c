#include "posto/types/currency.h"

#include "posto/types/decimal.h"
#include "posto/types/erro.h"

namespace posto {
namespace {

constexpr int kDecimals = 4;

std::int64_t nearest_scaled(Decimal number) {
  number.round(kDecimals, Half::Even);
  return number.scaled(kDecimals);
}

std::int64_t scaled_of(double value) {
  if (const auto scaled = quick_rounded(value, kDecimals)) return *scaled;
  if (!std::isfinite(value)) throw platform_erro(erro::kOverflow);
  return nearest_scaled(Decimal(value));
}

}  // namespace

Currency::Currency(std::int64_t units) {
  if (__builtin_mul_overflow(units, kScale, &scaled_)) throw platform_erro(erro::kOverflow);
}

Currency::Currency(double value) : scaled_(scaled_of(value)) {}

Currency Currency::parse(std::string_view text) {
  const auto number = Decimal::parse(text);
  if (!number) throw platform_erro(erro::kTypeMismatch, "'" + std::string(text) + "' is no number");
  return of_scaled(nearest_scaled(*number));
}

std::string Currency::text() const {
  std::string out;
  append_scaled(out, scaled_ < 0, magnitude(scaled_), kDecimals);
  return out;
}

Currency Currency::operator+(Currency other) const {
  Currency sum;
  if (__builtin_add_overflow(scaled_, other.scaled_, &sum.scaled_)) throw platform_erro(erro::kOverflow);
  return sum;
}

Currency Currency::operator-(Currency other) const {
  Currency difference;
  if (__builtin_sub_overflow(scaled_, other.scaled_, &difference.scaled_)) throw platform_erro(erro::kOverflow);
  return difference;
}

Currency Currency::operator-() const { return Currency() - *this; }

}  // namespace posto
