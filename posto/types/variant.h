// A value whose type is known only at run time: a field of a record, a property read by name.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "posto/types/currency.h"
#include "posto/types/date.h"

namespace posto {

struct Null {
  bool operator==(const Null&) const = default;
};

// The order is the order of the alternatives below.
enum class VariantKind : std::uint8_t {
  Empty,
  Null,
  Boolean,
  Byte,
  Int16,
  Int32,
  Float32,
  Float64,
  Currency,
  Date,
  Text
};
const char* kind_name(VariantKind kind);

// Holds nothing (empty), a database null, or a value of one of nine types. Conversions follow the platform:
// an empty value converts to zero, the empty text, false or the zero date; null converts to nothing (error 94);
// a fraction that becomes an integer rounds half to even; text becomes a number when it reads as one with a decimal
// point (error 13 otherwise); a value that does not fit is error 6; true is -1.
class Variant {
 public:
  using Storage = std::variant<std::monostate, Null, bool, std::uint8_t, std::int16_t, std::int32_t, float, double,
                               Currency, Date, std::string>;

  Variant() = default;
  Variant(Null) : value_(Null{}) {}
  Variant(bool v) : value_(v) {}
  Variant(std::uint8_t v) : value_(v) {}
  Variant(std::int16_t v) : value_(v) {}
  Variant(std::int32_t v) : value_(v) {}
  Variant(float v) : value_(v) {}
  Variant(double v) : value_(v) {}
  Variant(Currency v) : value_(v) {}
  Variant(Date v) : value_(v) {}
  Variant(std::string v) : value_(std::move(v)) {}
  Variant(std::string_view v) : value_(std::string(v)) {}
  Variant(const char* v) : value_(std::string(v)) {}

  VariantKind kind() const { return static_cast<VariantKind>(value_.index()); }
  bool is_null() const { return kind() == VariantKind::Null; }
  bool is_empty() const { return kind() == VariantKind::Empty; }
  bool is_text() const { return kind() == VariantKind::Text; }

  // The value as T, converted as the class tells: bool, std::uint8_t, std::int16_t, std::int32_t, float, double,
  // Currency, Date, std::string. As text: numbers shortest with a point, money shortest ("12.5"), dates as Date::iso(),
  // booleans "True" and "False".
  template <class T>
  T as() const;

  // The value as it is held; undefined unless kind() says so.
  template <class T>
  const T& held() const {
    return *std::get_if<T>(&value_);
  }
  const Storage& storage() const { return value_; }

  // Same kind and same value.
  bool operator==(const Variant&) const = default;

 private:
  Storage value_;
};

template <>
bool Variant::as<bool>() const;
template <>
std::uint8_t Variant::as<std::uint8_t>() const;
template <>
std::int16_t Variant::as<std::int16_t>() const;
template <>
std::int32_t Variant::as<std::int32_t>() const;
template <>
float Variant::as<float>() const;
template <>
double Variant::as<double>() const;
template <>
Currency Variant::as<Currency>() const;
template <>
Date Variant::as<Date>() const;
template <>
std::string Variant::as<std::string>() const;

}  // namespace posto
