#include "posto/types/decimal.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

#include "posto/types/erro.h"
#include "posto/types/rounding.h"
#include "posto/types/text.h"

namespace posto {
namespace {

__extension__ typedef __int128 Wide;  // for products of two 64-bit integers

constexpr std::int64_t kWhole = std::int64_t{1} << 53;  // up to 2^53 a double holds every whole number
constexpr int kExponentCap = 100'000;                   // far outside every type, far inside an int

template <class Float>
Decimal shortest(Float value) {
  if (!std::isfinite(value)) throw platform_erro(erro::kInvalidCall, "the number is not finite");
  std::array<char, 32> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific).ptr;
  return *Decimal::parse({text.data(), end});
}

// Takes the sign off `text` and tells whether it was a minus.
bool take_sign(std::string_view& text) {
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  return negative;
}

// The exponent behind its letter; nothing when it is not written out.
std::optional<int> parse_exponent(std::string_view text) {
  const bool negative = take_sign(text);
  if (text.empty() || !std::ranges::all_of(text, is_digit)) return std::nullopt;
  int exponent = 0;
  for (char c : text) exponent = std::min(exponent * 10 + (c - '0'), kExponentCap);
  return negative ? -exponent : exponent;
}

}  // namespace

Decimal::Decimal(double value) : Decimal(shortest(value)) {}
Decimal::Decimal(float value) : Decimal(shortest(value)) {}

Decimal::Decimal(std::int64_t scaled, int decimals) {
  const auto end = std::to_chars(digits_.data(), digits_.data() + digits_.size(), magnitude(scaled)).ptr;
  count_ = static_cast<int>(end - digits_.data());
  point_ = count_ - decimals;
  negative_ = scaled < 0;
  if (scaled == 0) count_ = 0;
  normalize();
}

std::optional<Decimal> Decimal::parse(std::string_view text) {
  text = trim(text);
  Decimal number;
  number.negative_ = take_sign(text);
  bool any = false, behind_point = false;
  std::size_t at = 0;
  for (; at < text.size(); ++at) {
    const char c = text[at];
    if (c == '.' && !behind_point) {
      behind_point = true;
    } else if (is_digit(c)) {
      any = true;
      const bool leading_zero = c == '0' && number.count_ == 0;
      if (!leading_zero) number.push(c);
      if (leading_zero && behind_point) --number.point_;
      if (!leading_zero && !behind_point) ++number.point_;
    } else {
      break;
    }
  }
  if (!any) return std::nullopt;
  if (at < text.size()) {
    if (text[at] != 'e' && text[at] != 'E') return std::nullopt;
    const auto exponent = parse_exponent(text.substr(at + 1));
    if (!exponent) return std::nullopt;
    number.point_ += *exponent;
  }
  number.normalize();
  return number;
}

void Decimal::push(char digit) {
  if (count_ < kCapacity) {
    digits_[static_cast<std::size_t>(count_++)] = digit;
  } else if (digit != '0') {
    digits_.back() = std::max(digits_.back(), '1');
  }
}

void Decimal::normalize() {
  while (count_ > 0 && digits_[static_cast<std::size_t>(count_ - 1)] == '0') --count_;
  if (count_ > 0) return;
  point_ = 0;
  negative_ = false;
}

void Decimal::round(int decimals, Half half) {
  const int keep = std::max(point_ + decimals, -1);
  if (keep >= count_) return;
  bool up = false;
  if (keep >= 0) {
    const char next = digits_[static_cast<std::size_t>(keep)];
    const bool tie = next == '5' && keep + 1 == count_;  // no zeros stand at the end
    const bool odd = keep > 0 && (digits_[static_cast<std::size_t>(keep - 1)] - '0') % 2 == 1;
    up = tie ? half == Half::Away || odd : next >= '5';
  }
  count_ = std::max(keep, 0);
  if (up) {
    while (count_ > 0 && digits_[static_cast<std::size_t>(count_ - 1)] == '9') --count_;
    if (count_ > 0) {
      ++digits_[static_cast<std::size_t>(count_ - 1)];
    } else {
      digits_[0] = '1';
      count_ = 1;
      ++point_;
    }
  }
  normalize();
}

std::int64_t Decimal::scaled(int decimals) const {
  if (point_ + decimals > 19) throw platform_erro(erro::kOverflow);
  std::uint64_t sum = 0;  // 19 digits always fit
  for (int power = point_ - 1; power >= -decimals; --power) {
    sum = sum * 10 + static_cast<std::uint64_t>(digit(power) - '0');
  }
  return signed_or_overflow(negative_, sum);
}

double decimal_product(double a, double b) {
  constexpr double kLeast = 1e-15, kMost = 1e15;  // beyond them a decimal has no place
  const auto beyond = [](double x) { return !(std::abs(x) < kMost) || (x != 0 && std::abs(x) < kLeast); };
  if (beyond(a) || beyond(b)) return a * b;
  const Decimal left(a), right(b);
  const Wide product = Wide{left.scaled(left.decimals())} * right.scaled(right.decimals());
  const int decimals = left.decimals() + right.decimals();
  const bool short_digits = product < Wide{kWhole} && product > -Wide{kWhole};
  if (short_digits && decimals < static_cast<int>(kPowersOfTen.size())) {
    return static_cast<double>(product) / kPowersOfTen[static_cast<std::size_t>(decimals)];
  }
  const std::string text = fmt::format("{}e-{}", product, decimals);
  double nearest = 0;
  std::from_chars(text.data(), text.data() + text.size(), nearest);
  return nearest;
}

double round_decimal(double value, int decimals) {
  if (decimals < 0 || !std::isfinite(value)) return round_half_away(value, decimals);
  Decimal rounded(value);
  if (rounded.decimals() <= decimals) return value;
  rounded.round(decimals, Half::Away);
  return static_cast<double>(rounded.scaled(decimals)) / kPowersOfTen[static_cast<std::size_t>(decimals)];
}

std::int64_t signed_or_overflow(bool negative, std::uint64_t magnitude) {
  constexpr auto kMost = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  if (magnitude > kMost + (negative ? 1 : 0)) throw platform_erro(erro::kOverflow);
  return static_cast<std::int64_t>(negative ? std::uint64_t{0} - magnitude : magnitude);
}

void append_scaled(std::string& out, bool negative, std::uint64_t magnitude, int decimals) {
  std::array<char, 48> text;
  char* const end = text.data() + text.size();
  char* at = end;
  std::uint64_t rest = magnitude;
  for (int i = 0; i < decimals; ++i, rest /= 10) *--at = static_cast<char>('0' + rest % 10);
  *--at = '.';
  do {
    *--at = static_cast<char>('0' + rest % 10);
    rest /= 10;
  } while (rest != 0);
  if (negative && magnitude != 0) *--at = '-';
  out.append(at, static_cast<std::size_t>(end - at));
}

}  // namespace posto
