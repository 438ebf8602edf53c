// Money: fixed point with four decimals.
#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace posto {

// A sum of money, kept as a 64-bit count of ten-thousandths. Sums, differences, negation and comparison are exact;
// a result that does not fit is error 6. A product or quotient with a number is a double, as the platform gives it.
class Currency {
 public:
  static constexpr int kDecimals = 4;
  static constexpr std::int64_t kScale = 10'000;

  constexpr Currency() = default;
  // From a whole number of units. Raises 6 when it does not fit.
  explicit Currency(std::int64_t units);
  // Rounds half to even at the fourth decimal, on the shortest decimal form of `value`. Raises 6 when it does not fit.
  explicit Currency(double value);
  explicit Currency(int units) : Currency(static_cast<std::int64_t>(units)) {}

  // From the count of ten-thousandths: of_scaled(12'500) is 1.25.
  static constexpr Currency of_scaled(std::int64_t scaled) {
    Currency c;
    c.scaled_ = scaled;
    return c;
  }
  // From decimal text with a point ("12.5", "-0.0001", "3."); further decimals round half to even.
  // Raises 13 for a text that is no number, 6 for one that does not fit.
  static Currency parse(std::string_view text);

  constexpr std::int64_t scaled() const { return scaled_; }
  double as_double() const { return static_cast<double>(scaled_) / static_cast<double>(kScale); }
  // Always four decimals and a point: "12.5000", "-0.0001".
  std::string text() const;

  Currency operator+(Currency other) const;
  Currency operator-(Currency other) const;
  Currency operator-() const;
  Currency& operator+=(Currency other) { return *this = *this + other; }
  Currency& operator-=(Currency other) { return *this = *this - other; }
  friend double operator*(Currency a, double b) { return a.as_double() * b; }
  friend double operator*(double a, Currency b) { return a * b.as_double(); }
  friend double operator/(Currency a, double b) { return a.as_double() / b; }

  constexpr auto operator<=>(const Currency&) const = default;

 private:
  std::int64_t scaled_ = 0;
};

}  // namespace posto
