#include "posto/types/rounding.h"

#include "posto/types/decimal.h"
#include "posto/types/erro.h"

namespace posto {
namespace {

constexpr int kMostDecimals = 15;
constexpr double kAllWhole = 4503599627370496.0;  // from 2^52 on a double has no fraction

void require_decimals(int decimals, int least, int most) {
  if (decimals < least || decimals > most) throw platform_erro(erro::kInvalidCall, "decimals out of range");
}

double power_of_ten(int decimals) { return kPowersOfTen[static_cast<std::size_t>(std::abs(decimals))]; }

// The quotient as a whole number, halves to the even one.
std::uint64_t divide_half_even(std::uint64_t value, std::uint64_t unit) {
  const std::uint64_t quotient = value / unit, rest = value % unit;
  const bool up = quotient % 2 == 0 ? rest > unit - rest : rest >= unit - rest;
  return quotient + (up ? 1 : 0);
}

template <class Divide>
Currency round_money(Currency value, int decimals, Divide divide) {
  if (decimals >= Currency::kDecimals) return value;
  const std::uint64_t unit = kWholePowersOfTen[static_cast<std::size_t>(Currency::kDecimals - decimals)];
  const std::uint64_t count = divide(magnitude(value.scaled()), unit);
  return Currency::of_scaled(signed_or_overflow(value.scaled() < 0, count * unit));
}

}  // namespace

double Round(double value, int decimals) {
  require_decimals(decimals, 0, kMostDecimals);
  if (!(std::abs(value) < kAllWhole)) return value;
  const double power = power_of_ten(decimals);
  return std::nearbyint(value * power) / power;
}

Currency Round(Currency value, int decimals) {
  if (decimals < 0) require_decimals(decimals, 0, kMostDecimals);
  return round_money(value, decimals, divide_half_even);
}

double round_half_away(double value, int decimals) {
  require_decimals(decimals, -kMostDecimals, kMostDecimals);
  const double power = power_of_ten(decimals);
  if (decimals < 0) return std::round(value / power) * power;
  if (!(std::abs(value) < kAllWhole)) return value;
  return std::round(value * power) / power;
}

Currency round_half_away(Currency value, int decimals) {
  if (decimals < 0) require_decimals(decimals, -kMostDecimals, kMostDecimals);
  return round_money(value, decimals, divide_half_up);
}

}  // namespace posto
