#include "posto/types/variant.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "posto/types/decimal.h"
#include "posto/types/erro.h"
#include "posto/types/text.h"

namespace posto {
namespace {

template <class... Cases>
struct Overload : Cases... {
  using Cases::operator()...;
};
template <class... Cases>
Overload(Cases...) -> Overload<Cases...>;  // clang 14 asks for it

[[noreturn]] void no_conversion(const std::string& text, const char* target) {
  throw platform_erro(erro::kTypeMismatch, "'" + text + "' is no " + target);
}

double number_of(const std::string& text) {
  const auto decimal = Decimal::parse(text);
  if (!decimal) no_conversion(text, "number");
  std::string_view figures = trim(text);
  if (figures.starts_with('+')) figures.remove_prefix(1);
  double value = 0;
  const auto result = std::from_chars(figures.data(), figures.data() + figures.size(), value);
  if (result.ec == std::errc()) return value;
  if (decimal->whole_digits() > 0) throw platform_erro(erro::kOverflow);
  return 0;  // smaller than the smallest double
}

double number_of(const Variant::Storage& storage) {
  return std::visit(
      Overload{
          [](std::monostate) { return 0.0; },
          [](Null) -> double { throw platform_erro(erro::kInvalidUseOfNull); },
          [](bool value) { return value ? -1.0 : 0.0; },
          [](Currency value) { return value.as_double(); },
          [](Date value) { return static_cast<double>(value.millis()) / static_cast<double>(Date::kMillisPerDay); },
          [](const std::string& value) { return number_of(value); },
          [](auto value) { return static_cast<double>(value); },
      },
      storage);
}

template <class Int>
Int whole_of(const Variant::Storage& storage) {
  if (const Int* held = std::get_if<Int>(&storage)) return *held;
  const double whole = std::nearbyint(number_of(storage));
  if (!(whole >= std::numeric_limits<Int>::min() && whole <= std::numeric_limits<Int>::max())) {
    throw platform_erro(erro::kOverflow);
  }
  return static_cast<Int>(whole);
}

Date date_of(double days) {
  const double millis = std::round(days * static_cast<double>(Date::kMillisPerDay));
  if (!(std::abs(millis) < 1e15)) throw platform_erro(erro::kOverflow, "date out of range");
  return Date::of_millis(static_cast<std::int64_t>(millis)).plus_days(0);  // which checks the range
}

template <class Float>
std::string figures(Float value) {
  if (value == 0) return "0";  // no minus sign
  const double size = std::abs(static_cast<double>(value));
  const auto format = size < 1e-5 || size >= 1e15 ? std::chars_format::scientific : std::chars_format::fixed;
  std::array<char, 40> text;
  std::string out(text.data(), std::to_chars(text.data(), text.data() + text.size(), value, format).ptr);
  std::ranges::replace(out, 'e', 'E');
  return out;
}

std::string money_figures(Currency value) {
  std::string text = value.text();
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text;
}

}  // namespace

const char* kind_name(VariantKind kind) {
  constexpr const char* kNames[] = {"Empty",   "Null",    "Boolean",  "Byte", "Int16", "Int32",
                                    "Float32", "Float64", "Currency", "Date", "Text"};
  static_assert(std::size(kNames) == std::variant_size_v<Variant::Storage>);
  return kNames[static_cast<std::size_t>(kind)];
}

template <>
bool Variant::as<bool>() const {
  if (const bool* held = std::get_if<bool>(&value_)) return *held;
  if (const auto* text = std::get_if<std::string>(&value_)) {
    const std::string_view word = trim(*text);
    if (equal_names(word, "True")) return true;
    if (equal_names(word, "False")) return false;
  }
  return number_of(value_) != 0;
}

template <>
std::uint8_t Variant::as<std::uint8_t>() const {
  if (const bool* held = std::get_if<bool>(&value_)) return *held ? 255 : 0;
  return whole_of<std::uint8_t>(value_);
}

template <>
std::int16_t Variant::as<std::int16_t>() const {
  return whole_of<std::int16_t>(value_);
}

template <>
std::int32_t Variant::as<std::int32_t>() const {
  return whole_of<std::int32_t>(value_);
}

template <>
float Variant::as<float>() const {
  if (const float* held = std::get_if<float>(&value_)) return *held;
  const double value = number_of(value_);
  if (std::abs(value) > static_cast<double>(std::numeric_limits<float>::max())) throw platform_erro(erro::kOverflow);
  return static_cast<float>(value);
}

template <>
double Variant::as<double>() const {
  if (const double* held = std::get_if<double>(&value_)) return *held;
  return number_of(value_);
}

template <>
Currency Variant::as<Currency>() const {
  if (const Currency* held = std::get_if<Currency>(&value_)) return *held;
  if (const auto* text = std::get_if<std::string>(&value_)) return Currency::parse(*text);
  return Currency(number_of(value_));
}

template <>
Date Variant::as<Date>() const {
  if (const Date* held = std::get_if<Date>(&value_)) return *held;
  if (const auto* text = std::get_if<std::string>(&value_)) {
    const auto date = Date::parse_iso(*text);
    if (!date) no_conversion(*text, "date");
    return *date;
  }
  return date_of(number_of(value_));
}

template <>
std::string Variant::as<std::string>() const {
  return std::visit(Overload{
                        [](std::monostate) { return std::string(); },
                        [](Null) -> std::string { throw platform_erro(erro::kInvalidUseOfNull); },
                        [](bool value) { return std::string(value ? "True" : "False"); },
                        [](float value) { return figures(value); },
                        [](double value) { return figures(value); },
                        [](Currency value) { return money_figures(value); },
                        [](Date value) { return value.iso(); },
                        [](const std::string& value) { return value; },
                        [](auto value) { return std::to_string(value); },
                    },
                    value_);
}

}  // namespace posto
