// Decimal figures: what money and number patterns round on, without binary fractions. For the types' own use.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace posto {

// Powers of ten that are exact: in double precision up to 10^22, as whole numbers up to 10^19.
inline constexpr std::array<double, 23> kPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
inline constexpr auto kWholePowersOfTen = [] {
  std::array<std::uint64_t, 20> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}();

// Where an exact half goes: to the even digit, or away from zero.
enum class Half { Even, Away };

// A decimal number of at most kCapacity digits.
class Decimal {
 public:
  static constexpr int kCapacity = 48;

  // The shortest decimal form that reads back as the same value. Raises 5 for a value that is not finite.
  explicit Decimal(double value);
  explicit Decimal(float value);
  // `scaled` times 10^-decimals.
  Decimal(std::int64_t scaled, int decimals);
  // Blanks, sign, digits with or without a point, exponent, blanks. Nothing for any other text. Digits behind the
  // capacity only say whether something is left over, which is all that rounding asks of them.
  static std::optional<Decimal> parse(std::string_view text);

  // Rounds at `decimals` places behind the point.
  void round(int decimals, Half half);

  bool negative() const { return negative_; }  // never for zero
  int whole_digits() const { return point_; }  // digits in front of the point; negative: zeros behind it
  int decimals() const { return count_ > point_ ? count_ - point_ : 0; }  // digits behind the point
  // The digit that counts 10^power.
  char digit(int power) const {
    const int at = point_ - 1 - power;
    return at >= 0 && at < count_ ? digits_[static_cast<std::size_t>(at)] : '0';
  }
  // The number as a count of 10^-decimals, further digits cut off. Raises 6 when 64 bits do not hold it.
  std::int64_t scaled(int decimals) const;

 private:
  Decimal() = default;
  void push(char digit);
  void normalize();  // no zeros at the end, one form of zero

  std::array<char, kCapacity> digits_{};  // the first is never zero
  int count_ = 0;
  int point_ = 0;
  bool negative_ = false;
};

// The value rounded to a count of 10^-decimals, where that can be seen without writing its figures down: not close to a
// half. The shortest decimal form is less than epsilon away from the value and the product less still, so farther than
// twice that from a half both round to the same count, whichever way halves go.
template <class Float>
std::optional<std::int64_t> quick_rounded(Float value, int decimals) {
  constexpr double kEpsilon = 2 * double{std::numeric_limits<Float>::epsilon()};
  if (decimals < 0 || decimals >= static_cast<int>(kPowersOfTen.size())) return std::nullopt;
  const double scaled = std::abs(double{value}) * kPowersOfTen[static_cast<std::size_t>(decimals)];
  if (!(scaled < 1e15)) return std::nullopt;
  const auto whole = static_cast<std::int64_t>(scaled);
  const double fraction = scaled - static_cast<double>(whole);
  if (std::abs(fraction - 0.5) <= scaled * kEpsilon) return std::nullopt;
  const std::int64_t count = whole + (fraction > 0.5 ? 1 : 0);
  return value < 0 ? -count : count;
}

// The number without its sign.
constexpr std::uint64_t magnitude(std::int64_t value) {
  return value < 0 ? std::uint64_t{0} - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
}

// The quotient as a whole number, halves up. `unit` is at least 1.
constexpr std::uint64_t divide_half_up(std::uint64_t value, std::uint64_t unit) {
  const std::uint64_t rest = value % unit;
  return value / unit + (rest >= unit - rest ? 1 : 0);
}

// Decimals with more places than money has are carried in the double nearest to them.
// Their product: the double nearest to the exact product of the two shortest decimal forms.
double decimal_product(double a, double b);
// The decimal rounded as it is written, halves away from zero. decimals: -15 to 15.
double round_decimal(double value, int decimals);

// The number of this sign and magnitude, or error 6 where 64 bits do not hold it.
std::int64_t signed_or_overflow(bool negative, std::uint64_t magnitude);

// Writes magnitude times 10^-decimals with a point in front of the last `decimals` (0 to 22) digits; the sign only in
// front of a number other than zero.
void append_scaled(std::string& out, bool negative, std::uint64_t magnitude, int decimals);

}  // namespace posto
